// Text from outside: saved games, their numbers, amounts typed or pasted.

#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "amount.h"
#include "saved_game.h"

namespace {

using game::Currency;

void require(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "broken: " << what << '\n';
        std::abort();
    }
}

void checkSavedGame(std::string_view text) {
    const std::optional<game::GameState> read = game::readSavedGame(text);
    if (!read) {
        return;
    }
    const std::string written = game::writeSavedGame(*read);
    require(game::readSavedGame(written) == read, "a game that was read is saved and loads again");
}

void checkNumber(std::string_view text) {
    const std::optional<Currency> read = game::readDecimal(text);
    require(!read || game::readDecimal(game::plainText(*read)) == read,
            "a number that was read is written and reads again");
}

void checkAmount(std::string_view text) {
    const Currency amount = game::MakeNumber(text);
    require(amount >= 0 && amount.tenThousandths() % Currency::scale == 0,
            "an amount is whole and not negative");
    const std::vector<Currency> steps = game::amountSteps(amount);
    require(steps.size() <= 21 && steps.front() == 0 && steps.back() == amount,
            "a list of amounts is short, starts with 0 and ends with its maximum");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    checkSavedGame(text);
    checkNumber(text);
    checkAmount(text);
    return 0;
}
