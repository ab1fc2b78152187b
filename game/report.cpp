#include "report.h"

#include <algorithm>

namespace game {

namespace {

constexpr std::size_t continuationIndent = 23;  ///< blanks

/// In UTF-8 every byte begins a character except those of the form 10xxxxxx.
constexpr bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

}  // namespace

void Report::open(const GameDate& date, std::string_view message) {
    m_text = dateText(date).append(message);
    m_length = characters(m_text);
}

std::string Report::addEntry(const GameDate& date, std::string_view message,
                             std::string_view continuation) {
    std::string entry{reportLineBreak};
    entry.append(dateText(date)).append(message);
    if (!continuation.empty()) {
        entry.append(reportLineBreak).append(continuationIndent, ' ').append(continuation);
    }
    append(entry);
    return entry;
}

void Report::append(std::string_view text) {
    m_text.append(text);
    m_length += characters(text);
}

std::string Report::trim() {
    std::size_t end = 0;
    for (; m_length > longest; --m_length) {
        do {
            ++end;
        } while (end < m_text.size() && !beginsCharacter(m_text[end]));
    }
    std::string cut = m_text.substr(0, end);
    m_text.erase(0, end);
    return cut;
}

}  // namespace game
