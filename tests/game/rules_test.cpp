// The rules as scripts, which tests/README.md explains, and what no script can show.

#include <gtest/gtest.h>

#include <array>

#include "approved.h"
#include "report.h"
#include "script.h"

namespace {

TEST(Rules, HoldAsApproved) {
    constexpr std::size_t longestLine = 100;
    test::expectScripts("rules.txt", [](const std::string& script) {
        const std::string happened = test::play(script.substr(1));
        const bool fits = happened.find('\n') == std::string::npos &&
                          script.size() + happened.size() + 4 <= longestLine;
        return happened.empty() ? "" : (fits ? "=> " : "") + happened + "\n";
    });
}

TEST(Random, GeneratesEveryFaceAboutAsOften) {
    game::Generator generator(1'860);
    std::array<int, 110> faces{};
    for (int count = 0; count < 110'000; ++count) {
        ++faces.at(static_cast<std::size_t>(roll(generator, 110)) - 1);
    }
    const auto [rarest, commonest] = std::ranges::minmax(faces);
    EXPECT_GT(rarest, 850);
    EXPECT_LT(commonest, 1'150);
    const double fine = generator.Rnd() * 0x1p40;
    EXPECT_NE(fine, std::floor(fine)) << "more than 40 bits";
}

TEST(Report, KeepsItsLastTwentyThousandCharacters) {
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
    EXPECT_EQ(report.trim(), "") << "exactly 20,000 stay";
    report.append(std::string(14, 'x'));
    EXPECT_EQ(report.trim() + report.trim(), "Jan 15, 1860\xC3\xA9x");
    EXPECT_EQ(report.text(), std::string(20'000, 'x'));
}

}  // namespace
