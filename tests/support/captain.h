#pragma once

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "amount.h"
#include "bank.h"
#include "battle.h"
#include "money_lender.h"
#include "purchases.h"
#include "shipyard.h"
#include "trading.h"
#include "transcript.h"
#include "transfer.h"
#include "voyage.h"

namespace test {

/// A player without windows: fills in the orders as their windows do, sails and fights. A subclass
/// makes the choices.
class Captain : public Scene {
public:
    using Options = std::vector<std::string_view>;
    struct Deed {
        std::string_view name;
        std::string (*play)(Captain& captain);  ///< gives back its refusal or its messages
    };

    Captain(game::GameState& state, game::Random& random, bool writes = false)
        : Scene(writes), m_state(state), m_random(random) {}

    static const std::array<Deed, 13>& orders() {
        using namespace game;
        using C = Captain;
        static constexpr std::array<Deed, 13> all{{
            {"buy", [](C& c) { return c.trade(true); }},
            {"sell", [](C& c) { return c.trade(false); }},
            {"transfer", [](C& c) { return c.moveCargo(); }},
            {"deposit", [](C& c) { return c.pay(mostToDeposit, refuseDeposit, deposit); }},
            {"withdraw", [](C& c) { return c.pay(mostToWithdraw, refuseWithdrawal, withdraw); }},
            {"borrow", [](C& c) { return c.pay(maxLoan, refuseLoan, borrow); }},
            {"overpay", [](C& c) { return c.pay(mostToRepay, refuseToRepay<true>, repay); }},
            {"repay", [](C& c) { return c.pay(mostToRepay, refuseToRepay<false>, repay); }},
            {"repair", [](C& c) { return c.repairShip(); }},
            {"repairmax", [](C& c) { return canRepairMax(c.m_state) ? repairMax(c.m_state) : ""; }},
            {"cannon", [](C& c) { return c.carryOut(refuseCannon(c.m_state), buyCannon); }},
            {"ship", [](C& c) { return c.carryOut(refuseShip(c.m_state), buyShip); }},
            {"sail", [](C& c) { return c.sailTo(game::ports.at(c.choose(ports))); }},
        }};
        return all;
    }

protected:
    /// One of `options`, by its place.
    virtual std::size_t choose(const Options& options) = 0;
    /// The text for a field whose list ends with `most`.
    virtual std::string type(game::Currency most) = 0;
    /// Whether a battle is left as it stands, which only a test can do.
    virtual bool leavesBattle() { return false; }

    bool answer() override { return choose({"yes", "no"}) == 0; }

    void showBattle() override {
        static const Options unarmed{"run", "dump"};
        static const Options armed{"run", "dump", "fight", "death"};
        constexpr std::array ways{&game::Battle::run, &game::Battle::dumpCargo,
                                  &game::Battle::fight, &game::Battle::fightToDeath};
        finished = false;
        game::Battle battle(m_state, m_random, *this);
        battle.open();
        while (!finished && !leavesBattle()) {
            (battle.*ways.at(choose(m_state.gcurCannons > 0 ? armed : unarmed)))();
        }
    }

    inline static const Options ports{"HongKong", "Shanghai",  "Nagasaki", "Saigon",
                                      "Manila",   "Singapore", "Batavia"};
    game::GameState& m_state;
    game::Random& m_random;

private:
    using Most = game::Currency (*)(const game::GameState&);
    using Refuse = game::Refusal (*)(const game::GameState&, game::Currency);
    using Apply = std::string (*)(game::GameState&, game::Currency);

    template <bool overPaymentAllowed>
    static game::Refusal refuseToRepay(const game::GameState& state, game::Currency amount) {
        return refuseRepayment(state, amount, overPaymentAllowed);
    }

    template <class Carry, class... FilledIn>
    std::string carryOut(const game::Refusal& refusal, Carry carry, const FilledIn&... filledIn) {
        return refusal ? std::string{*refusal} : joined(carry(m_state, filledIn...));
    }
    static std::string joined(std::string message) { return message; }
    static std::string joined(const std::vector<std::string>& messages) {
        return std::accumulate(messages.begin(), messages.end(), std::string{});
    }

    std::string pay(Most most, Refuse refuse, Apply apply) {
        const game::Currency amount = game::MakeNumber(type(most(m_state)));
        return carryOut(refuse(m_state, amount), apply, amount);
    }
    std::string repairShip() {
        const auto wanted = std::min(game::MakeNumber(type(game::soundShip)), game::soundShip);
        const game::Currency offered = offeredCondition(m_state, wanted);
        return carryOut(refuseRepair(m_state, offered), game::repair, offered);
    }
    std::string sailTo(std::string_view port) {
        sail(m_state, m_random, *this, port);
        return {};
    }
    std::string trade(bool buying) {
        const bool aboard = choose({"ship", "ashore"}) == 0;
        game::TradeOrder order{aboard ? game::Place::Ship : game::Place::Warehouse, {}};
        std::array<std::string, game::goods.size()> typed;
        for (const game::GoodRow& good : game::goods) {
            const std::size_t row = index(good.good);
            order.amounts.at(row) = 99;  // typed earlier; the list must not count it
            typed.at(row) = type(buying ? mostToBuy(m_state, order, good.good)
                                        : mostToSell(m_state, order.place, good.good));
            order.amounts.at(row) = game::MakeNumber(typed.at(row));
        }
        return buying ? carryOut(refuseBuying(m_state, order), game::buy, order)
                      : carryOut(refuseSelling(m_state, order), game::sell, order, typed);
    }
    std::string moveCargo() {
        const auto load = [this](game::Place destination) {
            const auto& good = game::goods.at(choose({"Opium", "Silk", "Arms", "General"}));
            return game::Load{good.good, type(mostToTransfer(m_state, destination, good.good))};
        };
        const game::TransferOrder order{load(game::Place::Ship), load(game::Place::Warehouse)};
        return carryOut(refuseTransfer(m_state, order), game::transfer, order);
    }
};

}  // namespace test
