#include "visitors.h"

#include <string>

namespace game {

namespace {

/// What Kwan Tat asks for: up to a twentieth of the net worth of the last refresh and, if that is
/// below 20, 21 to 100 more, without its sign.
Currency drawTribute(const GameState& state, Random& random) {
    const Currency tribute = drawFrom(random, 1, state.gcurNetWorth.toDouble() / 20);
    return tribute < 20 ? absolute(tribute + drawFrom(random, 21, 80)) : tribute;
}

/// Takes the tribute from the cash. What is missing is added to the debt and returned.
Currency payTribute(GameState& state, Currency tribute) {
    state.gcurCash -= tribute;
    if (state.gcurCash >= 0) {
        return 0;
    }
    const Currency missing = absolute(state.gcurCash);
    state.gcurDebt += missing;
    state.gcurCash = 0;
    return missing;
}

void requestTribute(GameState& state, Random& random, VoyageScene& scene) {
    const Currency tribute = drawTribute(state, random);
    const std::string amount = moneyText(tribute);
    if (!scene.ask("Kwan Tat asks for " + amount +
                       " in donation to the temple of Tin Hau, the Sea Goddess.   ",
                   "Will You Pay?")) {
        return;
    }
    if (payTribute(state, tribute) > 0) {
        scene.inform("Adding Difference to Debt   ", "Not Enough Cash");
    }
    state.gcurPayoff = 0;
    // The spelling is intentional.
    scene.appendEntry(" - Payed " + amount + " in donation to the temple of Tin Hau");
}

}  // namespace

void receiveVisitors(GameState& state, Random& random, VoyageScene& scene) {
    if (!inHongKong(state)) {
        if (tributeOverdue(state)) {
            scene.appendEntry(
                " - Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes",
                "to see you in Hong Kong, Posthaste!");
        }
        return;
    }
    scene.setOrderEnabled(Order::Money, true);
    if (state.gcurStatus < 100) {
        scene.appendEntry(
            " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,",
            " 'I see ye've a wee bit of damage to yer ship.  I can repair your ship'");
    }
    if (tributeOverdue(state)) {
        requestTribute(state, random, scene);
    }
}

}  // namespace game
