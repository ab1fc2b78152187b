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
#include "transfer.h"
#include "voyage.h"

namespace test {

/// A player without windows: fills in the orders as their windows do, sails and fights. A subclass
/// makes the choices. What happens goes into a transcript, if one is wanted: refusals and messages
/// of orders, and of voyages a line for each entry and each turn of a battle.
class Captain : public game::VoyageScene, public game::BattleScene {
public:
    using Options = std::vector<std::string_view>;
    struct Deed {
        std::string_view name;
        void (*play)(Captain& captain);
    };

    Captain(game::GameState& state, game::Random& random, bool writes = false)
        : m_state(state), m_random(random), m_writes(writes) {}

    static const std::array<Deed, 13>& orders() {
        using namespace game;
        using C = Captain;
        static constexpr std::array<Deed, 13> all{{
            {"buy", [](C& c) { c.trade(true); }},
            {"sell", [](C& c) { c.trade(false); }},
            {"transfer", [](C& c) { c.moveCargo(); }},
            {"deposit", [](C& c) { c.pay(mostToDeposit, refuseDeposit, deposit); }},
            {"withdraw", [](C& c) { c.pay(mostToWithdraw, refuseWithdrawal, withdraw); }},
            {"borrow", [](C& c) { c.pay(maxLoan, refuseLoan, borrow); }},
            {"overpay", [](C& c) { c.pay(mostToRepay, refuseRepayment, repay, true); }},
            {"repay", [](C& c) { c.pay(mostToRepay, refuseRepayment, repay, false); }},
            {"repair", [](C& c) { c.repairShip(); }},
            {"repairmax", [](C& c) { c.add(canRepairMax(c.m_state) ? repairMax(c.m_state) : ""); }},
            {"cannon", [](C& c) { c.carryOut(refuseCannon(c.m_state), buyCannon); }},
            {"ship", [](C& c) { c.carryOut(refuseShip(c.m_state), buyShip); }},
            {"sail", [](C& c) { game::sail(c.m_state, c.m_random, c, c.choosePort()); }},
        }};
        return all;
    }

    void appendEntry(std::string_view message, std::string_view continuation) override {
        line(message, continuation.empty() ? "" : " | ", continuation);
    }
    void appendEntry(std::string_view message) override { line(message); }
    void appendText(std::string_view text) override { add(text); }
    void report(std::string_view text) override { add(" / ", text); }
    void flash(game::Alert alert) override { add(alert == game::Alert::News ? " cyan" : " red"); }
    void flash() override { add(" flash"); }
    void wait(game::Milliseconds duration) override { add(" ", duration.count()); }
    void setOrderEnabled(game::Order order, bool enabled) override {
        constexpr std::array<std::string_view, 9> names{
            "Buy", "Sell", "Leave", "Visit", "Money", "Transfer", "Repair", "Cannon", "Ship"};
        add(enabled ? " +" : " -", names.at(static_cast<std::size_t>(order)));
    }
    void setOrderEnabled(game::BattleOrder order, bool enabled) override {
        constexpr std::string_view letters = "FDRC";  // Fight, to the Death, Run, dump Cargo
        add(enabled ? " +" : " -", letters.substr(static_cast<std::size_t>(order), 1));
    }
    void setAtSea(bool atSea) override { add(atSea ? " at sea" : " in port"); }
    bool ask(std::string_view text, std::string_view title) override {
        inform(text, title);
        return answer("");
    }
    void inform(std::string_view text, std::string_view title) override {
        line("[", title, "] ", text);
    }
    void inform(std::string_view text) override { inform(text, ""); }
    void showFleet(game::Currency ships) override { add(" fleet:", ships); }
    void showStatus(game::Currency percent) override { add(" status:", percent); }
    void showCannons(game::Currency cannons) override { add(" cannons:", cannons); }
    void sinkLast(game::Currency ships, game::Milliseconds step) override {
        add(" sink:", ships, "x", step.count());
    }
    void refresh() override { add(" refresh"); }
    bool confirmDumping() override { return answer(" dump?"); }
    bool playAgain() override { return answer(" again?"); }
    void finish() override { endBattle(" finish"); }
    void endProgram() override { endBattle(" the end"); }

    void showBattle() override {
        constexpr std::array ways{&game::Battle::run, &game::Battle::dumpCargo,
                                  &game::Battle::fight, &game::Battle::fightToDeath};
        const Options unarmed{"run", "dump"};
        const Options armed{"run", "dump", "fight", "death"};
        add(" ", attackers(m_state));
        game::Battle battle(m_state, m_random, *this);
        battle.open();
        for (m_battleGoesOn = true; m_battleGoesOn;) {
            const std::size_t order = choose(m_state.gcurCannons > 0 ? armed : unarmed);
            line("");
            (battle.*ways.at(order))();
        }
    }

protected:
    /// One of `options`, by its place.
    virtual std::size_t choose(const Options& options) = 0;
    /// The text for a field whose list ends with `most`.
    virtual std::string type(game::Currency most) = 0;

    std::string_view choosePort() {
        return game::ports.at(choose({game::ports.begin(), game::ports.end()}));
    }

    template <class... Parts>
    void add(const Parts&... parts) {
        if (m_writes) {
            (transcript.append(text(parts)), ...);
        }
    }

    game::GameState& m_state;
    game::Random& m_random;
    std::string transcript;

private:
    static std::string_view text(std::string_view part) { return part; }
    static std::string text(game::Currency part) { return plainText(part); }
    static std::string text(const std::vector<std::string>& parts) {
        return std::accumulate(parts.begin(), parts.end(), std::string{});
    }

    template <class... Parts>
    void line(const Parts&... parts) {
        add(transcript.empty() ? "" : "\n", parts...);
    }
    bool answer(std::string_view question) {
        add(question);
        return choose({"yes", "no"}) == 0;
    }
    void endBattle(std::string_view outcome) {
        add(outcome);
        m_battleGoesOn = false;
    }

    void carryOut(const game::Refusal& refusal, auto carry, const auto&... filledIn) {
        if (refusal) {
            add(" ", *refusal);
        } else {
            add(carry(m_state, filledIn...));
        }
    }
    void pay(auto most, auto refuse, auto apply, auto... allowed) {
        const game::Currency amount = game::MakeNumber(type(most(m_state)));
        carryOut(refuse(m_state, amount, allowed...), apply, amount);
    }
    void repairShip() {
        const auto wanted = std::min(game::MakeNumber(type(game::soundShip)), game::soundShip);
        const game::Currency offered = offeredCondition(m_state, wanted);
        carryOut(refuseRepair(m_state, offered), game::repair, offered);
    }
    void trade(bool buying) {
        const bool aboard = choose({"ship", "ashore"}) == 0;
        game::TradeOrder order{aboard ? game::Place::Ship : game::Place::Warehouse, {}};
        std::array<std::string, game::goods.size()> typed;
        for (const game::GoodRow& good : game::goods) {
            game::Currency& amount = order.amounts.at(index(good.good));
            amount = 99;  // typed earlier; the list must not count it
            std::string& text = typed.at(index(good.good));
            text = type(buying ? mostToBuy(m_state, order, good.good)
                               : mostToSell(m_state, order.place, good.good));
            amount = game::MakeNumber(text);
        }
        if (buying) {
            carryOut(refuseBuying(m_state, order), game::buy, order);
        } else {
            carryOut(refuseSelling(m_state, order), game::sell, order, typed);
        }
    }
    void moveCargo() {
        const auto load = [this](game::Place destination) {
            const auto& good = game::goods.at(choose({"Opium", "Silk", "Arms", "General"}));
            return game::Load{good.good, type(mostToTransfer(m_state, destination, good.good))};
        };
        const game::TransferOrder order{load(game::Place::Ship), load(game::Place::Warehouse)};
        carryOut(refuseTransfer(m_state, order), game::transfer, order);
    }

    bool m_writes;
    bool m_battleGoesOn = false;
};

}  // namespace test
