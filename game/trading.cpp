#include "trading.h"

#include <algorithm>

#include "refusals.h"

namespace game {

namespace {

Currency cost(const GameState& state, const PerGood& amounts) {
    Currency sum;
    for (const GoodRow& good : goods) {
        sum += amounts.at(index(good.good)) * state.*good.price;
    }
    return sum;
}

void moveStock(GameState& state, const PerGood& amounts, Place place) {
    for (const GoodRow& good : goods) {
        state.*stockField(good, place) += amounts.at(index(good.good));
    }
    if (place == Place::Ship) {
        state.gcurHold += total(amounts);
    }
}

std::string tradeMessage(const GameState& state, std::string_view verb, std::string_view amount,
                         const GoodRow& good) {
    std::string message{verb};
    message.append(amount).append(" ").append(good.name).append(" @ ");
    return message + moneyText(state.*good.price) + " Each";
}

}  // namespace

std::string_view insufficientRoom(Place place) {
    return place == Place::Ship ? insufficientHold : insufficientStorage;
}

Currency mostToBuy(const GameState& state, const TradeOrder& order, Good good) {
    PerGood others = order.amounts;
    others.at(index(good)) = 0;
    const Currency cash = state.gcurCash - cost(state, others);
    const Currency room = freeRoom(state, order.place) - total(others);
    return std::max(std::min(wholeTimes(cash, state.*row(good).price), room), Currency{0});
}

Refusal refuseBuying(const GameState& state, const TradeOrder& order) {
    if (cost(state, order.amounts) > state.gcurCash) {
        return insufficientFunds;
    }
    if (total(order.amounts) > freeRoom(state, order.place)) {
        return insufficientRoom(order.place);
    }
    return std::nullopt;
}

std::vector<std::string> buy(GameState& state, const TradeOrder& order) {
    moveStock(state, order.amounts, order.place);
    state.gcurCash -= cost(state, order.amounts);
    state.gblnGameSaved = false;

    std::vector<std::string> messages;
    for (const GoodRow& good : goods) {
        if (const Currency amount = order.amounts.at(index(good.good)); amount > 0) {
            messages.push_back(tradeMessage(state, " - Bought ", plainText(amount), good));
        }
    }
    return messages;
}

Currency mostToSell(const GameState& state, Place source, Good good) {
    return state.*stockField(row(good), source);
}

Refusal refuseSelling(const GameState& state, const TradeOrder& order) {
    const bool covered = std::all_of(goods.begin(), goods.end(), [&](const GoodRow& good) {
        return order.amounts.at(index(good.good)) <= state.*stockField(good, order.place);
    });
    return covered ? Refusal{} : insufficientCargo;
}

std::vector<std::string> sell(GameState& state, const TradeOrder& order,
                              const std::array<std::string, goods.size()>& typed) {
    PerGood leaving;
    std::transform(order.amounts.begin(), order.amounts.end(), leaving.begin(),
                   [](Currency amount) { return -amount; });
    moveStock(state, leaving, order.place);
    state.gcurCash += cost(state, order.amounts);
    state.gblnGameSaved = false;

    std::vector<std::string> messages;
    for (const GoodRow& good : goods) {
        if (order.amounts.at(index(good.good)) > 0) {
            messages.push_back(tradeMessage(state, " - Sold ", typed.at(index(good.good)), good));
        }
    }
    return messages;
}

}  // namespace game
