#include "currency.h"

#include <cmath>

namespace game {

namespace {

constexpr std::uint64_t magnitude(std::int64_t count) {
    return count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
}

constexpr bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Takes the leading digits off the front of `text`.
std::string_view takeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count])) {
        ++count;
    }
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

}  // namespace

Currency Int(double value) {
    const double whole = std::floor(value);
    if (std::isnan(whole)) {
        return 0;
    }
    constexpr double limit = 1e15;  // above every amount; whole numbers below it are exact
    if (whole >= limit) {
        return Currency::highest();
    }
    if (whole <= -limit) {
        return Currency::lowest();
    }
    return static_cast<std::int64_t>(whole);
}

Currency wholeTimes(Currency total, Currency each) {
    return each == 0 ? Currency{} : Int(total.toDouble() / each.toDouble());
}

std::string moneyText(Currency amount) {
    const std::uint64_t scale = Currency::scale;
    std::string digits = std::to_string((magnitude(amount.tenThousandths()) + scale / 2) / scale);
    const bool negative = amount < 0 && digits != "0";
    for (std::size_t end = digits.size(); end > 3; end -= 3) {
        digits.insert(end - 3, 1, ',');
    }
    std::string text{negative ? "-$" : "$"};
    return text += digits;
}

std::string plainText(Currency amount) {
    const std::uint64_t count = magnitude(amount.tenThousandths());
    std::string text{amount < 0 ? "-" : ""};
    text += std::to_string(count / Currency::scale);
    if (const std::uint64_t decimals = count % Currency::scale; decimals != 0) {
        std::string tail = std::to_string(Currency::scale + decimals);
        tail.front() = '.';
        tail.erase(tail.find_last_not_of('0') + 1);
        text += tail;
    }
    return text;
}

std::optional<Currency> readDecimal(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    text.remove_prefix(negative ? 1 : 0);
    const std::string_view whole = takeDigits(text);
    std::string_view decimals;
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        decimals = takeDigits(text);
        if (decimals.empty()) {
            return std::nullopt;
        }
    }
    if (whole.empty() || !text.empty()) {
        return std::nullopt;
    }

    __extension__ using Wide = unsigned __int128;
    const Wide limit = magnitude(negative ? Currency::lowest().tenThousandths()
                                          : Currency::highest().tenThousandths());
    Wide count = 0;
    for (const char digit : whole) {
        count = count * 10 + static_cast<unsigned>(digit - '0');
        if (count > limit) {
            return std::nullopt;
        }
    }
    for (std::size_t place = 0; place < 4; ++place) {
        count = count * 10 +
                (place < decimals.size() ? static_cast<unsigned>(decimals[place] - '0') : 0U);
    }
    if (decimals.size() > 4 && decimals[4] >= '5') {
        ++count;
    }
    if (count > limit) {
        return std::nullopt;
    }
    const auto units = static_cast<std::uint64_t>(count);
    return Currency::fromTenThousandths(static_cast<std::int64_t>(negative ? 0 - units : units));
}

}  // namespace game
