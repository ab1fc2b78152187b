// How figures are counted, read and written, and how the report fills.

#include <gtest/gtest.h>

#include "amount.h"
#include "approved.h"
#include "report.h"

using game::Currency;

namespace {

/// A number up to its bracket, exactly and as money.
std::string read(std::string text) {
    text.back() = '9';  // what follows is not looked at
    const auto number = game::readDecimal(std::string_view{text}.substr(0, text.size() - 1));
    return number ? plainText(*number) + " " + moneyText(*number) : "nothing";
}

std::string steps(Currency maximum) {
    std::string told;
    for (const Currency step : game::amountSteps(maximum)) {
        told += (told.empty() ? "" : " ") + plainText(step);
    }
    return told;
}

/// Answers a script: a question and a number or two.
std::string answer(const std::string& script) {
    std::istringstream words(script.substr(2));
    std::string question, number, other;
    words >> question >> number >> other;
    const Currency a = game::readDecimal(number).value_or(0);
    const Currency b = game::readDecimal(other).value_or(0);
    return question == "read"       ? read(script.substr(script.find('[') + 1))
           : question == "steps"    ? steps(a)
           : question == "int"      ? std::to_string(a.toInt())
           : question == "sum"      ? plainText(a + b)
           : question == "absolute" ? plainText(absolute(a))
           : question == "product"  ? plainText(a * b)
           : question == "quotient" ? plainText(wholeTimes(a, b))
                                    : plainText(game::Int(std::stod(number)));
}

TEST(Words, HoldAsApproved) {
    test::expectScripts("words.txt", [](const auto& script) { return answer(script) + "\n"; });
}

TEST(Words, FillTheReportUpToTwentyThousandCharacters) {
    using namespace std::chrono;
    game::Report report;
    report.append(std::string(20'001, 'x'));
    EXPECT_EQ(report.trim(), "x");
    report.open(game::firstDay, " - Welcome Captain");
    report.append(".");
    report.addEntry(1860y / 2 / 15, " - A", " b");
    report.addEntry(1860y / 3 / 15, " - C");
    EXPECT_EQ(report.text(), "Jan 15, 1860 - Welcome Captain.\r\nFeb 15, 1860 - A\r\n" +
                                 std::string(23, ' ') + " b\r\nMar 15, 1860 - C");
    report.open(game::firstDay, "\xC3\xA9");  // an accented letter is one character
    report.append(std::string(19'987, 'x'));
    EXPECT_EQ(report.trim(), "") << "exactly 20,000 are left alone";
    report.append(std::string(14, 'x'));
    EXPECT_EQ(report.trim() + report.trim(), "Jan 15, 1860\xC3\xA9x");
    EXPECT_EQ(report.text(), std::string(20'000, 'x'));
}

}  // namespace
