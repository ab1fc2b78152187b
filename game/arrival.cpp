#include "arrival.h"

#include <string>

#include "market.h"

namespace game {

namespace {

constexpr double bankInterest = 0.005;  ///< of the balance, each month
constexpr double debtInterest = 0.1;    ///< of the debt, each month

/// Reaches `destination`, or another port if the ship is blown off course.
void reachPort(GameState& state, Random& random, VoyageScene& scene, std::string_view destination) {
    state.gstrLocation = destination;
    if (roll(random, 25) != 1) {
        return;
    }
    while (state.gstrLocation == destination) {
        const int port = roll(random, static_cast<int>(ports.size()));
        state.gstrLocation = ports.at(static_cast<std::size_t>(port) - 1);
    }
    scene.appendEntry(" - Zhenbao, we have been blown off course to " + state.gstrLocation);
    scene.flash(Alert::Misfortune);
}

void weatherStorm(GameState& state, Random& random, VoyageScene& scene) {
    const bool storm = roll(random, 50) == 5;
    if (!storm || state.gcurStatus <= 9) {
        return;
    }
    const Currency damage = drawUpToHalf(random, state.gcurStatus);
    scene.appendEntry(" - Zhenbao!, we have received " + plainText(damage) +
                      "% Damage from a storm");
    state.gcurStatus -= damage;
    scene.flash(Alert::Misfortune);
}

void addInterest(Currency& balance, double rate) {
    balance += Int(balance.toDouble() * rate);
}

}  // namespace

void arrive(GameState& state, Random& random, VoyageScene& scene, std::string_view destination) {
    drawPrices(state, random);
    state.gdtmDate = oneMonthLater(state.gdtmDate);
    reachPort(state, random, scene, destination);
    weatherStorm(state, random, scene);
    scene.appendEntry(" - Arriving at " + state.gstrLocation);
    addInterest(state.gcurBank, bankInterest);
    addInterest(state.gcurDebt, debtInterest);
    state.gcurPayoff += roll(random, 2);
}

}  // namespace game
