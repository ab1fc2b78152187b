// How figures are read, written and rounded: tests/README.md explains the scripts.

#include <gtest/gtest.h>

#include <map>

#include "amount.h"
#include "approved.h"
#include "games.h"

namespace {

using Text = const std::string&;
using game::Currency;

Currency amount(Text text) {
    return game::readDecimal(text).value();
}
std::string read(Text text) {
    const std::string longer = text + '9';  // the last character must not be read
    const auto number = game::readDecimal(std::string_view{longer}.substr(0, text.size()));
    return number ? plainText(*number) : "refused";
}
std::string product(Text text) {
    const std::size_t sign = text.find('*');
    return plainText(amount(text.substr(0, sign)) * amount(text.substr(sign).substr(1)));
}
std::string steps(Text maximum) {
    std::string text;
    for (const Currency step : game::amountSteps(amount(maximum))) {
        text += (text.empty() ? "" : " ") + plainText(step);
    }
    return text;
}
std::string nextMonth(Text text) {
    game::GameDate date;
    return test::Figure::read(text, date) ? game::dateText(game::oneMonthLater(date)) : "refused";
}

const std::map<std::string, std::string (*)(Text)> functions{
    {"read", read},
    {"money", [](Text text) { return moneyText(amount(text)); }},
    {"typed", [](Text text) { return plainText(game::MakeNumber(text)); }},
    {"steps", steps},
    {"product", product},
    {"absolute", [](Text text) { return plainText(absolute(amount(text))); }},
    {"count", [](Text text) { return std::to_string(amount(text).toInt()); }},
    {"floor", [](Text text) { return plainText(game::Int(std::stod(text))); }},
    {"nextmonth", nextMonth},
};

TEST(Figures, HoldAsApproved) {
    test::expectScripts("figures.txt", [](const std::string& script) {
        std::istringstream words{script.substr(1)};
        std::string word;
        words >> word;
        const auto function = functions.at(word);
        std::string results = "=>";
        while (words >> word) {
            results += (results == "=>" ? " " : " | ") + function(word);
        }
        return results + "\n";
    });
}

}  // namespace
