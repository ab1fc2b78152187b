#pragma once

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace game {

/// An amount of anything the record counts: dollars, units of goods, cannons, percent, score.
///
/// A whole number of ten-thousandths in 64 bits. Sums, differences, products and readings from a
/// double stop at the ends of that range instead of wrapping, so no figure of a saved game or a
/// pasted text can turn a fortune into a debt.
class Currency {
public:
    static constexpr std::int64_t scale = 10'000;

    constexpr Currency() = default;

    /// A whole number of dollars, units or percent.
    template <std::integral Whole>
    constexpr Currency(Whole whole)  // NOLINT(google-explicit-constructor): a number is an amount
        : m_tenThousandths(clamped<std::int64_t>(static_cast<Wide>(whole) * scale)) {}

    static constexpr Currency fromTenThousandths(std::int64_t count) {
        Currency amount;
        amount.m_tenThousandths = count;
        return amount;
    }

    static constexpr Currency highest() {
        return fromTenThousandths(std::numeric_limits<std::int64_t>::max());
    }
    static constexpr Currency lowest() {
        return fromTenThousandths(std::numeric_limits<std::int64_t>::min());
    }

    [[nodiscard]] constexpr std::int64_t tenThousandths() const { return m_tenThousandths; }
    [[nodiscard]] constexpr double toDouble() const {
        return static_cast<double>(m_tenThousandths) / scale;
    }
    /// The whole part for controls that count in int; beyond int it stops at its ends.
    [[nodiscard]] constexpr int toInt() const { return clamped<int>(m_tenThousandths / scale); }

    friend constexpr auto operator<=>(Currency, Currency) = default;

    friend constexpr Currency operator+(Currency a, Currency b) {
        return fromWide(static_cast<Wide>(a.m_tenThousandths) + b.m_tenThousandths);
    }
    friend constexpr Currency operator-(Currency a, Currency b) {
        return fromWide(static_cast<Wide>(a.m_tenThousandths) - b.m_tenThousandths);
    }
    /// The product, rounded to four decimals, halves away from zero.
    friend constexpr Currency operator*(Currency a, Currency b) {
        const Wide product = static_cast<Wide>(a.m_tenThousandths) * b.m_tenThousandths;
        const Wide half = product < 0 ? -scale / 2 : scale / 2;
        return fromWide((product + half) / scale);
    }
    constexpr Currency operator-() const { return Currency{} - *this; }
    constexpr Currency& operator+=(Currency other) { return *this = *this + other; }
    constexpr Currency& operator-=(Currency other) { return *this = *this - other; }

private:
    __extension__ using Wide = __int128;

    template <class Number>
    static constexpr Number clamped(Wide count) {
        using Range = std::numeric_limits<Number>;
        return static_cast<Number>(std::clamp<Wide>(count, Range::min(), Range::max()));
    }
    static constexpr Currency fromWide(Wide count) {
        return fromTenThousandths(clamped<std::int64_t>(count));
    }

    std::int64_t m_tenThousandths = 0;
};

/// The floor of a computed figure; beyond the range of an amount its nearest end, 0 for no number.
[[nodiscard]] Currency Int(double value);

/// How many whole times `each` goes into `total`, in double precision and rounded down: what a
/// sum of money affords at a price. 0 where `each` is 0.
[[nodiscard]] Currency wholeTimes(Currency total, Currency each);

/// The amount without its sign.
[[nodiscard]] constexpr Currency absolute(Currency amount) {
    return amount < 0 ? -amount : amount;
}

/// "$#,##0": whole dollars, halves rounded away from zero, a minus sign in front: -$4,600.
[[nodiscard]] std::string moneyText(Currency amount);

/// Plain decimals without separators, only as many as there are: 5000, 1234.5, -12.25.
[[nodiscard]] std::string plainText(Currency amount);

/// Reads what plainText writes: an optional minus, digits, and optionally a point with decimals
/// (rounded to four). Returns nothing for any other text and for a figure out of range.
[[nodiscard]] std::optional<Currency> readDecimal(std::string_view text);

}  // namespace game
