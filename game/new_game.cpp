#include "new_game.h"

#include <utility>

#include "market.h"

namespace game {

void startGame(GameState& state, Random& random, Scenario scenario, std::string firm) {
    state.gstrLocation = homePort;
    for (const GoodRow& good : goods) {
        state.*good.ship = 0;
        state.*good.warehouse = 0;
    }
    for (const Field field : {&GameState::gcurBank, &GameState::gcurDebt, &GameState::gcurCash,
                              &GameState::gcurNetWorth, &GameState::gcurCannons,
                              &GameState::gcurHold, &GameState::gcurPayoff}) {
        state.*field = 0;
    }
    state.gcurStatus = 100;
    state.gcurMaxHold = 60;
    state.gblnMillionaire = false;
    state.gblnActiveGame = true;
    state.gblnGameOver = false;
    drawPrices(state, random);
    state.gdtmDate = firstDay;

    if (scenario == Scenario::CashAndDebt) {
        state.gcurCash = 400;
        state.gcurDebt = 5'000;
    } else {
        state.gcurCannons = 5;
        state.gcurHold = state.gcurCannons * holdPerCannon;
    }
    state.gstrFirm = std::move(firm);
}

}  // namespace game
