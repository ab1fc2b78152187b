#include "standing.h"

#include <algorithm>

namespace game {

namespace {

std::string_view rankName(Currency score) {
    const auto reached = std::find_if(ranks.rbegin(), ranks.rend() - 1,
                                      [score](const RankRow& rank) { return score >= rank.from; });
    return reached->name;
}

/// `months` is above 0.
Currency score(Currency netWorth, int months) {
    return wholeTimes(netWorth, Currency{100} * months);
}

}  // namespace

void updateStanding(GameState& state) {
    state.gcurNetWorth = state.gcurBank + state.gcurCash - state.gcurDebt;
    if (const int months = monthsElapsed(state.gdtmDate); months > 0) {
        state.gcurRank = score(state.gcurNetWorth, months);
    }
    state.gstrRank = rankName(state.gcurRank);
}

bool millionaireNoticeDue(const GameState& state) {
    return mayRetire(state) && !isTrillionaire(state) && !state.gblnMillionaire;
}

bool isTrillionaire(const GameState& state) {
    return state.gcurNetWorth >= trillion;
}

bool isBankrupt(const GameState& state) {
    return state.gcurDebt >= trillion;
}

bool mayRetire(const GameState& state) {
    return state.gcurNetWorth >= million;
}

void endGame(GameState& state) {
    state.gblnActiveGame = false;
    state.gblnGameOver = true;
}

}  // namespace game
