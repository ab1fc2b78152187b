#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "calendar.h"

namespace game {

inline constexpr std::string_view reportLineBreak = "\r\n";

/// The text of the comprador's report, UTF-8, newest entry last. Lengths are counted in
/// characters; a line break is two of them.
class Report {
public:
    static constexpr std::size_t longest = 20'000;  ///< characters kept by a trimming

    [[nodiscard]] const std::string& text() const { return m_text; }

    /// Empties the report and begins it with an entry that has no line break in front.
    void open(const GameDate& date, std::string_view message);

    /// Adds a line break, the date and the message and, for a continuation, a second line of 23
    /// blanks and the continuation. Returns what was added.
    std::string addEntry(const GameDate& date, std::string_view message,
                         std::string_view continuation = {});

    /// Adds text as it is, without a line break.
    void append(std::string_view text);

    /// Cuts the report to its last 20,000 characters, even inside a line. Returns what was cut.
    std::string trim();

private:
    std::string m_text;
    std::size_t m_length = 0;
};

}  // namespace game
