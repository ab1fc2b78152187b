#pragma once

#include <chrono>
#include <string>

namespace game {

using GameDate = std::chrono::year_month_day;

/// The day every game starts on.
inline constexpr GameDate firstDay{std::chrono::year{1860}, std::chrono::January,
                                   std::chrono::day{15}};
/// The date of a record in which no game was started yet: day 0 of the calendar's count.
inline constexpr GameDate zeroDate{std::chrono::year{1899}, std::chrono::December,
                                   std::chrono::day{30}};
/// The years a saved game can write in four digits.
inline constexpr std::chrono::year firstYear{1};
inline constexpr std::chrono::year lastYear{9999};

/// The same day of the next month, or that month's last day where it is shorter. The calendar
/// ends with the year 9999: in its last month the date stays.
[[nodiscard]] GameDate oneMonthLater(const GameDate& date);

/// Calendar-month boundaries from January 1860 to `date`: 0 in the first month, negative before.
[[nodiscard]] int monthsElapsed(const GameDate& date);

/// "mmm dd, yyyy": Jan 15, 1860.
[[nodiscard]] std::string dateText(const GameDate& date);

/// `number` with leading zeros up to `width` digits; `number` is not negative.
[[nodiscard]] std::string zeroPadded(unsigned number, std::size_t width);

}  // namespace game
