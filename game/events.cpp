#include "events.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace game {

namespace {

constexpr int shockFactor = 6;
constexpr Currency largestShipOffered = 30'000;  ///< hold units; from here on no larger one

enum class Change { Rise, Drop };

struct Shock {
    Good good;
    Change change;
    std::string_view text;
};

constexpr std::array<Shock, 8> shocks{{
    {Good::Opium, Change::Rise, " - The price of Opium has risen to "},
    {Good::Opium, Change::Drop, " - The price of Opium has dropped to "},
    {Good::Silk, Change::Rise, " - The price of Silk has risen to "},
    {Good::Silk, Change::Drop, " - The price of Silk has dropped to "},
    {Good::Arms, Change::Rise, " - The price of Arms has risen to "},
    {Good::Arms, Change::Drop, " - The price of Arms has dropped to "},
    {Good::General, Change::Rise, " - The price of General has risen to "},
    {Good::General, Change::Drop, " - The price of General has dropped to "},
}};

std::string withMoney(std::string_view text, Currency amount) {
    return std::string{text} + moneyText(amount);
}

void offerCannon(GameState& state, Random& random, VoyageScene& scene) {
    if (roll(random, 5) != 1) {
        return;
    }
    state.gcurPCannon = drawFrom(random, 400, 2'601);
    scene.appendEntry(
        withMoney(" - Zhenbao, a ship's cannon is available for ", state.gcurPCannon));
    scene.setOrderEnabled(Order::Cannon, true);
}

void offerShip(GameState& state, Random& random, VoyageScene& scene) {
    const bool drawn = roll(random, 12) == 2;
    if (!drawn || state.gcurMaxHold >= largestShipOffered) {
        return;
    }
    constexpr Currency lowest = 5'000;
    const Currency highest = state.gcurMaxHold * 400;
    state.gcurPShip = drawFrom(random, lowest, (highest - lowest + 1).toDouble());
    scene.appendEntry(" - Zhenbao, you can trade in your ship for one with 50 more capacity",
                      withMoney(" by paying an additional ", state.gcurPShip));
    scene.setOrderEnabled(Order::Ship, true);
    scene.flash(Alert::News);
}

void seizeOpium(GameState& state, Random& random, VoyageScene& scene) {
    const bool drawn = roll(random, 25) == 3;
    if (!drawn || state.gcurSOpium <= 0) {
        return;
    }
    const Currency fine = state.gcurCash > 0 ? drawUpToHalf(random, state.gcurCash) : Currency{};
    scene.appendEntry(" - Bad Joss!  The local authorities have seized your opium",
                      withMoney("and fined you ", fine));
    state.gcurHold -= state.gcurSOpium;
    state.gcurSOpium = 0;
    state.gcurCash -= fine;
    scene.flash(Alert::Misfortune);
}

void robCaptain(GameState& state, Random& random, VoyageScene& scene) {
    const bool drawn = roll(random, 25) == 4;
    if (!drawn || state.gcurCash <= 9) {
        return;
    }
    const Currency loss = drawUpToHalf(random, state.gcurCash);
    scene.appendEntry(withMoney(" - Bad Joss!  You have been beaten up and robbed of ", loss));
    state.gcurCash -= loss;
    scene.flash(Alert::Misfortune);
}

void stealFromWarehouse(GameState& state, Random& random, VoyageScene& scene) {
    const auto worthStealing = [&state](const GoodRow& good) { return state.*good.warehouse > 1; };
    const bool drawn = roll(random, 25) == 5;
    if (!drawn || std::none_of(goods.begin(), goods.end(), worthStealing)) {
        return;
    }
    for (const GoodRow& good : goods) {
        if (worthStealing(good)) {
            state.*good.warehouse -= drawUpToHalf(random, state.*good.warehouse);
        }
    }
    // The spelling is intentional.
    scene.appendEntry(" - Bad Joss!  Messanger reports large theft from warehouse, Zhenbao!");
    scene.flash(Alert::Misfortune);
}

void shockPrice(GameState& state, Random& random, VoyageScene& scene) {
    if (roll(random, 25) != 1) {
        return;
    }
    const int drawn = roll(random, static_cast<int>(shocks.size()));
    const Shock& shock = shocks.at(static_cast<std::size_t>(drawn) - 1);
    Currency& price = state.*row(shock.good).price;
    price = shock.change == Change::Rise ? price * shockFactor
                                         : std::max(wholeTimes(price, shockFactor), Currency{1});
    scene.appendEntry(withMoney(shock.text, price));
    scene.flash(Alert::News);
}

}  // namespace

void meetEvents(GameState& state, Random& random, VoyageScene& scene) {
    offerCannon(state, random, scene);
    offerShip(state, random, scene);
    seizeOpium(state, random, scene);
    robCaptain(state, random, scene);
    stealFromWarehouse(state, random, scene);
    shockPrice(state, random, scene);
}

}  // namespace game
