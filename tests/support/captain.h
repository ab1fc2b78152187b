#pragma once

#include <array>
#include <functional>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "amount.h"
#include "arrival.h"
#include "bank.h"
#include "battle.h"
#include "events.h"
#include "money_lender.h"
#include "new_game.h"
#include "purchases.h"
#include "shipyard.h"
#include "standing.h"
#include "trading.h"
#include "transcript.h"
#include "transfer.h"
#include "visitors.h"
#include "voyage.h"

namespace test {

/// Does whatever a captain does, from port to port; whoever steers him answers what is asked.
class Captain : public Scene {
public:
    static constexpr std::string_view deeds =
        "buy sell transfer deposit withdraw borrow repay repair mend cannon larger sail "
        "arrive events visitors battle settle start port propose standing";
    static constexpr std::string_view orders = deeds.substr(0, deeds.find(" arrive"));

    Captain(game::GameState& state, game::Random& random, bool writes = false)
        : Scene(writes), m_state(state), m_random(random) {}

    /// Fills an order in as its window does, and gives back its refusal or its messages; plays a
    /// part of a passage; or asks how things stand.
    std::string play(std::size_t deed) {
        using namespace game;
        const auto carryOut = [&](const Refusal& refusal, auto apply, const auto&... filledIn) {
            if (refusal) {
                return std::string{*refusal};
            }
            const std::vector<std::string> messages{apply(m_state, filledIn...)};
            return std::accumulate(messages.begin(), messages.end(), std::string{});
        };
        const auto move = [&](auto most, auto refuse, auto apply) {
            const Currency amount = MakeNumber(type(most));
            return carryOut(refuse(m_state, amount), apply, amount);
        };
        const auto trade = [&](bool buying) {
            TradeOrder order{choose("ship ashore") == 0 ? Place::Ship : Place::Warehouse, {}};
            std::array<std::string, goods.size()> typed;
            for (const Good good : {Good::Opium, Good::Silk, Good::Arms, Good::General}) {
                order.amounts.at(index(good)) = 99;  // typed before, it does not count any more
                typed.at(index(good)) = type(buying ? mostToBuy(m_state, order, good)
                                                    : mostToSell(m_state, order.place, good));
                order.amounts.at(index(good)) = MakeNumber(typed.at(index(good)));
            }
            return buying ? carryOut(refuseBuying(m_state, order), game::buy, order)
                          : carryOut(refuseSelling(m_state, order), game::sell, order, typed);
        };
        const auto pay = [&](bool overPaymentAllowed) {
            const auto refuse = [&](auto& payer, Currency sum) {
                return refuseRepayment(payer, sum, overPaymentAllowed);
            };
            return move(mostToRepay(m_state), refuse, game::repay);
        };
        const auto load = [&](Place destination) {
            const Good good = goods.at(choose("Opium Silk Arms General")).good;
            return Load{good, type(mostToTransfer(m_state, destination, good))};
        };
        const auto harbours = "Hongkong Shanghai Nagasaki Saigon Manila Singapore Batavia";
        const std::array<std::function<std::string()>, 21> ways{
            [&] { return trade(true); },
            [&] { return trade(false); },
            [&] {
                const TransferOrder order{load(Place::Ship), load(Place::Warehouse)};
                return carryOut(refuseTransfer(m_state, order), game::transfer, order);
            },
            [&] { return move(mostToDeposit(m_state), refuseDeposit, deposit); },
            [&] { return move(mostToWithdraw(m_state), refuseWithdrawal, withdraw); },
            [&] { return move(maxLoan(m_state), refuseLoan, borrow); },
            [&] { return pay(true); },
            [&] {
                const Currency offered =
                    offeredCondition(m_state, MakeNumber(type(m_state.gcurStatus + 1)));
                return carryOut(refuseRepair(m_state, offered), game::repair, offered);
            },
            [&] { return canRepairMax(m_state) ? repairMax(m_state) : ""; },
            [&] { return carryOut(refuseCannon(m_state), buyCannon); },
            [&] { return carryOut(refuseShip(m_state), buyShip); },
            [&] { return sail(m_state, m_random, *this, ports.at(choose(harbours))), ""; },
            [&] { return arrive(m_state, m_random, *this, "Manila"), ""; },
            [&] { return meetEvents(m_state, m_random, *this), ""; },
            [&] { return receiveVisitors(m_state, m_random, *this), ""; },
            [&] { return showBattle(), ""; },
            [&] { return pay(false); },
            [&] {
                const auto scenario = static_cast<Scenario>(choose("debt cannons"));
                return startGame(m_state, m_random, scenario, "Heron"), "";
            },
            [&] {
                for (const Order order : game::orders) {
                    if (const auto allowed = allowedInPort(m_state, order)) {
                        setOrderEnabled(order, *allowed);
                    }
                }
                return "";
            },
            [&] { return std::string{proposedPort(m_random, ports.at(choose(harbours)))}; },
            [&] {
                updateStanding(m_state);
                return std::string{millionaireNoticeDue(m_state) ? " millionaire" : ""} +
                       (isTrillionaire(m_state) ? " trillionaire" : "") +
                       (isBankrupt(m_state) ? " bankrupt" : "");
            }};
        return ways.at(deed)();
    }

protected:
    virtual std::size_t choose(std::string_view words) = 0;  ///< the number of one, from 0
    virtual std::string type(game::Currency most) = 0;       ///< into a field that offers so much
    virtual bool leaves() { return false; }                  ///< a battle as it stands

    bool answer() override { return choose("yes no") == 0; }
    void showBattle() override {
        tell(" ", game::attackers(m_state));
        finished = false;
        game::Battle battle(m_state, m_random, *this);
        for (battle.open(); !finished && !leaves();) {
            const std::size_t order = choose("fight death dump run");
            if (order == 2) {
                battle.dumpCargo();
            }
            if (order < 2 && m_state.gcurCannons > 0) {
                order == 0 ? battle.fight() : battle.fightToDeath();
            } else {
                battle.run();
            }
        }
    }

    game::GameState& m_state;
    game::Random& m_random;
};

}  // namespace test
