#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "amount.h"
#include "bank.h"
#include "money_lender.h"
#include "purchases.h"
#include "shipyard.h"
#include "trading.h"
#include "transfer.h"

namespace test {

inline constexpr std::string_view portOrders =
    "buy sell transfer deposit withdraw borrow repay repair mend cannon larger";

/// Gives an order of the port, by its number, as its window does: filled in, then refused or
/// carried out. Gives back the refusal or the messages. `choose(words)` picks one of these words,
/// `type(most)` what is typed where `most` is offered at most.
template <class Choose, class Type>
std::string giveOrder(game::GameState& state, std::size_t number, Choose choose, Type type) {
    using namespace game;
    const auto answer = [&](const Refusal& refusal, auto apply, const auto&... filledIn) {
        std::string said{refusal.value_or("")};
        if (!refusal) {
            for (const auto& message : std::vector<std::string>{apply(state, filledIn...)}) {
                said += message;
            }
        }
        return said;
    };
    const auto move = [&](auto most, auto refuse, auto apply) {
        const Currency amount = MakeNumber(type(most));
        return answer(refuse(state, amount), apply, amount);
    };
    const auto trade = [&](bool buying) {
        TradeOrder order{choose("ship ashore") == 0 ? Place::Ship : Place::Warehouse, {}};
        std::array<std::string, goods.size()> typed;
        for (const Good good : {Good::Opium, Good::Silk, Good::Arms, Good::General}) {
            typed.at(index(good)) =
                type(buying ? mostToBuy(state, order, good) : mostToSell(state, order.place, good));
            order.amounts.at(index(good)) = MakeNumber(typed.at(index(good)));
        }
        return buying ? answer(refuseBuying(state, order), game::buy, order)
                      : answer(refuseSelling(state, order), game::sell, order, typed);
    };
    const auto load = [&](Place destination) {
        const Good good = goods.at(choose("Opium Silk Arms General")).good;
        return Load{good, type(mostToTransfer(state, destination, good))};
    };
    const auto refuseAny = [](const GameState& payer, Currency amount) {
        return refuseRepayment(payer, amount, true);
    };
    const auto mend = [&] {
        const Currency offered = offeredCondition(state, MakeNumber(type(state.gcurStatus + 1)));
        return answer(refuseRepair(state, offered), game::repair, offered);
    };
    const std::array<std::function<std::string()>, 11> orders{
        [&] { return trade(true); },
        [&] { return trade(false); },
        [&] {
            const TransferOrder order{load(Place::Ship), load(Place::Warehouse)};
            return answer(refuseTransfer(state, order), game::transfer, order);
        },
        [&] { return move(mostToDeposit(state), refuseDeposit, deposit); },
        [&] { return move(mostToWithdraw(state), refuseWithdrawal, withdraw); },
        [&] { return move(maxLoan(state), refuseLoan, borrow); },
        [&] { return move(mostToRepay(state), refuseAny, repay); },
        mend,
        [&] { return canRepairMax(state) ? repairMax(state) : ""; },
        [&] { return answer(refuseCannon(state), buyCannon); },
        [&] { return answer(refuseShip(state), buyShip); }};
    return orders.at(number)();
}

}  // namespace test
