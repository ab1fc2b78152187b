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
/// makes the choices. Voyages and battles go into a transcript, if one is wanted: a line for each
/// entry or report, followed by what else happens.
class Captain : public game::VoyageScene, public game::BattleScene {
public:
    using Options = std::vector<std::string_view>;
    struct Deed {
        std::string_view name;
        std::string (*play)(Captain& captain);  ///< gives back its refusal or its messages
    };

    Captain(game::GameState& state, game::Random& random, bool writes = false)
        : m_state(state), m_random(random), m_writes(writes) {}

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
            {"sail", [](C& c) { return c.sailTo(c.choosePort()); }},
        }};
        return all;
    }

    void appendEntry(std::string_view message, std::string_view continuation) override {
        line(message, continuation.empty() ? "" : "\n| ", continuation);
    }
    void appendEntry(std::string_view message) override { line(message); }
    void appendText(std::string_view text) override { add(text); }
    void report(std::string_view text) override { line(text); }
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
        return answer();
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
    bool confirmDumping() override {
        add(" dump?");
        return answer();
    }
    bool playAgain() override {
        add(" again?");
        return answer();
    }
    void finish() override {
        add(" finish");
        m_finished = true;
    }
    void endProgram() override {
        add(" the end");
        m_finished = true;
    }

    void showBattle() override {
        static const Options all{"run", "dump", "fight", "death"};
        constexpr std::array ways{&game::Battle::run, &game::Battle::dumpCargo,
                                  &game::Battle::fight, &game::Battle::fightToDeath};
        m_finished = false;
        game::Battle battle(m_state, m_random, *this);
        battle.open();
        while (!m_finished && !leavesBattle()) {
            const Options possible(all.begin(),
                                   m_state.gcurCannons > 0 ? all.end() : all.begin() + 2);
            (battle.*ways.at(choose(possible)))();
        }
    }

protected:
    /// One of `options`, by its place.
    virtual std::size_t choose(const Options& options) = 0;
    /// The text for a field whose list ends with `most`.
    virtual std::string type(game::Currency most) = 0;
    /// Whether a battle is left as it stands, which only a test can do.
    virtual bool leavesBattle() { return false; }

    std::string_view choosePort() {
        return game::ports.at(choose(
            {"HongKong", "Shanghai", "Nagasaki", "Saigon", "Manila", "Singapore", "Batavia"}));
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

    template <class... Parts>
    void line(const Parts&... parts) {
        add(transcript.empty() ? "" : "\n", parts...);
    }
    bool answer() { return choose({"yes", "no"}) == 0; }

    template <bool overPaymentAllowed>
    static game::Refusal refuseToRepay(const game::GameState& state, game::Currency amount) {
        return refuseRepayment(state, amount, overPaymentAllowed);
    }

    std::string carryOut(const game::Refusal& refusal, auto carry, const auto&... filledIn) {
        return refusal ? std::string{*refusal} : joined(carry(m_state, filledIn...));
    }
    static std::string joined(std::string message) { return message; }
    static std::string joined(const std::vector<std::string>& messages) {
        return std::accumulate(messages.begin(), messages.end(), std::string{});
    }

    std::string pay(auto most, auto refuse, auto apply) {
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

    bool m_writes;
    bool m_finished = false;  ///< the battle
};

}  // namespace test
