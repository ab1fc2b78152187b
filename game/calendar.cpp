#include "calendar.h"

#include <array>
#include <string_view>

namespace game {

using std::chrono::last;
using std::chrono::months;
using std::chrono::year_month;
using std::chrono::year_month_day;

GameDate oneMonthLater(const GameDate& date) {
    const year_month next = year_month{date.year(), date.month()} + months{1};
    if (next.year() > lastYear) {
        return date;
    }
    const year_month_day sameDay = next / date.day();
    return sameDay.ok() ? sameDay : year_month_day{next / last};
}

int monthsElapsed(const GameDate& date) {
    const auto monthOf = [](const GameDate& day) { return year_month{day.year(), day.month()}; };
    return static_cast<int>((monthOf(date) - monthOf(firstDay)).count());
}

std::string dateText(const GameDate& date) {
    static constexpr std::array<std::string_view, 12> names{
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const unsigned month = static_cast<unsigned>(date.month());
    return std::string{names.at(month - 1)} + " " +
           zeroPadded(static_cast<unsigned>(date.day()), 2) + ", " +
           zeroPadded(static_cast<unsigned>(static_cast<int>(date.year())), 4);
}

std::string zeroPadded(unsigned number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

}  // namespace game
