#include "amount.h"

#include <algorithm>

namespace game {

Currency MakeNumber(std::string_view text) {
    constexpr std::int64_t largest = Currency::highest().tenThousandths() / Currency::scale;
    std::int64_t value = 0;
    for (const char character : text) {
        if (character >= '0' && character <= '9') {
            value = std::min(value * 10 + (character - '0'), largest);
        }
    }
    return value;
}

std::vector<Currency> amountSteps(Currency maximum) {
    Currency step = 1;
    for (const Currency half = Int(maximum.toDouble() / 2); step * 10 <= half;) {
        step = step * 10;
    }
    std::vector<Currency> steps;
    for (Currency amount = 0; amount <= maximum - 1; amount += step) {
        steps.push_back(amount);
    }
    steps.push_back(maximum);
    return steps;
}

}  // namespace game
