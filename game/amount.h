#pragma once

#include <string_view>
#include <vector>

#include "currency.h"

namespace game {

/// The digits of a typed text read as one number, everything else skipped: "$1,234" is 1234.
/// Never negative, always whole, and never above 922,337,203,685,477.
[[nodiscard]] Currency MakeNumber(std::string_view text);

/// The ready-made amounts from 0 to `maximum`: steps one decade below the size of half the
/// maximum, then the maximum itself. A maximum below 0 is the only entry.
[[nodiscard]] std::vector<Currency> amountSteps(Currency maximum);

}  // namespace game
