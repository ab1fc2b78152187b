#pragma once

#include <string_view>

namespace game {

// The texts that refuse an order. Their trailing blanks are intentional.

inline constexpr std::string_view insufficientFunds = "Insufficient Funds   ";
inline constexpr std::string_view insufficientHold = "Insufficient Hold   ";
inline constexpr std::string_view insufficientCargo = "Insufficient Cargo   ";
inline constexpr std::string_view insufficientStorage =
    "Insufficient Storage Space, Warehouse Limited to 10,000 units   ";
inline constexpr std::string_view insufficientFundsForPurchase = "Insufficient Funds     ";
inline constexpr std::string_view insufficientHoldForCannon = "Insufficient Hold     ";
inline constexpr std::string_view maximumLoanExceeded =
    "Maximum Loan Exceeded (2 x Cash or 100 Million Maximum)   ";
inline constexpr std::string_view overPayment = "Over Payment   ";

}  // namespace game
