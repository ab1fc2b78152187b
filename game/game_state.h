#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "calendar.h"
#include "currency.h"

namespace game {

/// The record of one game. Everything the player owns, owes and knows is here or on the screen.
struct GameState {
    bool gblnActiveGame = false;  ///< a game is in play
    bool gblnGameSaved = false;   ///< nothing changed since it was started, loaded or saved
    bool gblnGameOver = false;    ///< it has ended; only a new game can follow
    GameDate gdtmDate = zeroDate;
    std::string gstrFirm;      ///< UTF-8
    std::string gstrLocation;  ///< the port where the ship lies, one of `ports`
    Currency gcurCannons;
    Currency gcurStatus;   ///< the ship's condition in percent, 100 = undamaged
    Currency gcurHold;     ///< hold units in use: cargo and 10 for each cannon
    Currency gcurMaxHold;  ///< hold capacity in units
    Currency gcurSOpium;   ///< units aboard the ship
    Currency gcurSSilk;
    Currency gcurSArms;
    Currency gcurSGeneral;
    Currency gcurWOpium;  ///< units in the Hong Kong warehouse
    Currency gcurWSilk;
    Currency gcurWArms;
    Currency gcurWGeneral;
    Currency gcurPOpium;  ///< dollars a unit in this port
    Currency gcurPSilk;
    Currency gcurPArms;
    Currency gcurPGeneral;
    Currency gcurBank;
    Currency gcurDebt;
    Currency gcurCash;
    Currency gcurPCannon;   ///< price of the cannon last offered
    Currency gcurPShip;     ///< price of the larger ship last offered
    Currency gcurNetWorth;  ///< cash + bank - debt as of the last refresh
    Currency gcurPayoff;    ///< months of tribute owed to Kwan Tat, by his own reckoning
    std::string gstrRank;
    bool gblnMillionaire = false;  ///< the millionaire's notice has been shown
    Currency gcurRank;             ///< the score

    bool operator==(const GameState&) const = default;
};

using Field = Currency GameState::*;

enum class Good { Opium, Silk, Arms, General };

struct GoodRow {
    Good good;
    std::string_view name;
    Field ship;
    Field warehouse;
    Field price;
    int priceStep;  ///< market prices are 5 to 25 of these, in dollars
};

inline constexpr std::array<GoodRow, 4> goods{{
    {Good::Opium, "Opium", &GameState::gcurSOpium, &GameState::gcurWOpium, &GameState::gcurPOpium,
     1000},
    {Good::Silk, "Silk", &GameState::gcurSSilk, &GameState::gcurWSilk, &GameState::gcurPSilk, 100},
    {Good::Arms, "Arms", &GameState::gcurSArms, &GameState::gcurWArms, &GameState::gcurPArms, 10},
    {Good::General, "General", &GameState::gcurSGeneral, &GameState::gcurWGeneral,
     &GameState::gcurPGeneral, 1},
}};

[[nodiscard]] constexpr std::size_t index(Good good) {
    return static_cast<std::size_t>(good);
}
[[nodiscard]] constexpr const GoodRow& row(Good good) {
    return goods.at(index(good));
}

/// One amount for each good.
using PerGood = std::array<Currency, goods.size()>;

/// Where goods lie.
enum class Place { Ship, Warehouse };

[[nodiscard]] constexpr Field stockField(const GoodRow& good, Place place) {
    return place == Place::Ship ? good.ship : good.warehouse;
}
[[nodiscard]] constexpr Currency total(const PerGood& amounts) {
    Currency sum;
    for (const Currency amount : amounts) {
        sum += amount;
    }
    return sum;
}
/// Units of all goods at `place`.
[[nodiscard]] constexpr Currency totalStock(const GameState& state, Place place) {
    Currency sum;
    for (const GoodRow& good : goods) {
        sum += state.*stockField(good, place);
    }
    return sum;
}

inline constexpr Currency warehouseCapacity = 10'000;  ///< units of all goods together
inline constexpr Currency holdPerCannon = 10;          ///< hold units

/// Units that still fit at `place`; negative where more lies there than fits.
[[nodiscard]] constexpr Currency freeRoom(const GameState& state, Place place) {
    return place == Place::Ship ? state.gcurMaxHold - state.gcurHold
                                : warehouseCapacity - totalStock(state, Place::Warehouse);
}

/// The seven ports in their fixed order; draws number them from 1.
inline constexpr std::array<std::string_view, 7> ports{
    "Hong Kong", "Shanghai", "Nagasaki", "Saigon", "Manila", "Singapore", "Batavia"};
inline constexpr std::string_view homePort = ports.front();

[[nodiscard]] inline bool inHongKong(const GameState& state) {
    return state.gstrLocation == homePort;
}

/// The text that refuses an order, or nothing where the order may be carried out.
using Refusal = std::optional<std::string_view>;

}  // namespace game
