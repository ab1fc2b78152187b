#pragma once

#include <algorithm>
#include <optional>
#include <string_view>

#include "bank.h"
#include "battle.h"
#include "money_lender.h"
#include "new_game.h"
#include "purchases.h"
#include "saved_game.h"
#include "shipyard.h"
#include "standing.h"
#include "trading.h"
#include "transcript.h"
#include "transfer.h"
#include "visitors.h"
#include "voyage.h"

namespace bench {

/// A sensible captain, who plays by the rules alone, without a window: buys cheap and sells dear,
/// keeps what he needs at hand and the rest in the bank, comes home to pay his debts, mend his
/// ship and please Kwan Tat, fights what he can sink and runs from the rest.
class Merchant final : test::Scene {
public:
    Merchant(game::Random& random, game::Scenario scenario) : m_random(random) {
        game::startGame(m_state, random, scenario, "Zhenbao");
        game::updateStanding(m_state);
    }

    [[nodiscard]] const game::GameState& state() const { return m_state; }
    [[nodiscard]] bool hasSunk() const { return m_state.gblnGameOver; }

    /// A month: business in the port, the passage, and whatever awaits in the next one.
    void playMonth() {
        if (game::inHongKong(m_state)) {
            settle();
        }
        trade();
        takeOffers();
        const std::string_view proposed = game::proposedPort(m_random, m_state.gstrLocation);
        m_cannonOffered = m_shipOffered = false;
        game::sail(m_state, m_random, *this, wantsHome() ? game::homePort : proposed);
        game::updateStanding(m_state);
        ++m_months;
    }

    /// The first promise that the record breaks, if it breaks one.
    [[nodiscard]] std::optional<std::string_view> brokenPromise() const {
        using game::Place;
        if (m_refused) {
            return "an order within its limits is not refused";
        }
        if (m_state.gcurHold !=
            game::totalStock(m_state, Place::Ship) + m_state.gcurCannons * game::holdPerCannon) {
            return "the hold in use is cargo and 10 for each cannon";
        }
        if (game::freeRoom(m_state, Place::Ship) < 0 ||
            game::freeRoom(m_state, Place::Warehouse) < 0) {
            return "nothing lies where there is no room";
        }
        for (const game::GoodRow& good : game::goods) {
            if (m_state.*good.ship < 0 || m_state.*good.warehouse < 0 || m_state.*good.price < 1) {
                return "no stock is negative, no price below a dollar";
            }
        }
        if (std::min({m_state.gcurCash, m_state.gcurBank, m_state.gcurDebt, m_state.gcurCannons}) <
            0) {
            return "no money, debt or number of cannons is negative";
        }
        if (m_state.gcurStatus > 100 || m_state.gcurStatus < (hasSunk() ? 0 : 1)) {
            return "a ship afloat is in a condition of 1 to 100 percent";
        }
        if (m_state.gcurNetWorth != m_state.gcurCash + m_state.gcurBank - m_state.gcurDebt) {
            return "net worth is cash and bank less debt";
        }
        if (m_state.gblnActiveGame == hasSunk() ||
            game::monthsElapsed(m_state.gdtmDate) != m_months - (hasSunk() ? 1 : 0)) {
            return "a voyage takes a month or ends the game";
        }
        game::GameState resumed = m_state;
        const auto saved = game::readSavedGame(game::writeSavedGame(m_state));
        if (!saved || (game::resumeGame(resumed, *saved), resumed.gblnActiveGame = !hasSunk(),
                       resumed.gblnGameSaved = m_state.gblnGameSaved, resumed != m_state)) {
            return "a saved game brings everything back";
        }
        return std::nullopt;
    }

private:
    static constexpr int fairSteps = 15;   ///< what a good costs on average
    static constexpr int cheapSteps = 10;  ///< what the warehouse is filled at

    [[nodiscard]] bool costs(const game::GoodRow& good, int steps) const {
        return m_state.*good.price <= steps * good.priceStep;
    }
    /// Money for a whole ship of fair opium.
    [[nodiscard]] game::Currency workingCapital() const {
        return m_state.gcurMaxHold * (fairSteps * game::goods.front().priceStep);
    }
    [[nodiscard]] bool wantsHome() const {
        return !game::inHongKong(m_state) &&
               (m_state.gcurStatus < 70 || game::tributeOverdue(m_state) ||
                (m_state.gcurDebt > 0 && m_state.gcurCash > m_state.gcurDebt) ||
                m_state.gcurCash > workingCapital() * 2);
    }

    /// Runs an order of the captain's, who never asks for more than he may.
    template <class Carry>
    void order(const game::Refusal& refusal, Carry carry) {
        m_refused = m_refused || refusal.has_value();
        if (!refusal) {
            (void)carry();
        }
    }

    void settle() {
        const auto withdrawn = std::min(game::mostToWithdraw(m_state),
                                        std::max(workingCapital() - m_state.gcurCash, {}));
        order(game::refuseWithdrawal(m_state, withdrawn),
              [&] { return game::withdraw(m_state, withdrawn); });
        if (game::canRepairMax(m_state)) {
            (void)game::repairMax(m_state);
        }
        if (m_state.gcurDebt > 0 && m_state.gcurCash > m_state.gcurDebt) {
            const auto most = game::mostToRepay(m_state);
            order(game::refuseRepayment(m_state, most, false),
                  [&] { return game::repay(m_state, most); });
        } else if (m_state.gcurCash < 5'000) {
            const auto most = game::maxLoan(m_state);
            order(game::refuseLoan(m_state, most), [&] { return game::borrow(m_state, most); });
        }
        for (const game::GoodRow& good : game::goods) {
            if (costs(good, fairSteps)) {
                continue;
            }
            sellAll(game::Place::Warehouse, good);
        }
        const auto spare = std::max(m_state.gcurCash - workingCapital(), {});
        order(game::refuseDeposit(m_state, spare), [&] { return game::deposit(m_state, spare); });
    }

    void sellAll(game::Place place, const game::GoodRow& good) {
        game::TradeOrder all{place, {}};
        all.amounts.at(game::index(good.good)) = game::mostToSell(m_state, place, good.good);
        order(game::refuseSelling(m_state, all), [&] { return game::sell(m_state, all, {}); });
    }
    void buyMost(game::Place place, const game::GoodRow& good) {
        game::TradeOrder most{place, {}};
        most.amounts.at(game::index(good.good)) = game::mostToBuy(m_state, most, good.good);
        order(game::refuseBuying(m_state, most), [&] { return game::buy(m_state, most); });
    }

    /// The dearest goods first, since the hold is small.
    void trade() {
        for (const game::GoodRow& good : game::goods) {
            if (!costs(good, fairSteps)) {
                sellAll(game::Place::Ship, good);
            }
        }
        for (const game::GoodRow& good : game::goods) {
            if (costs(good, fairSteps - 1)) {
                buyMost(game::Place::Ship, good);
            }
            if (game::inHongKong(m_state)) {
                loadMost(good);
            }
        }
        if (game::inHongKong(m_state)) {
            for (const game::GoodRow& good : game::goods) {
                if (costs(good, cheapSteps)) {
                    buyMost(game::Place::Warehouse, good);
                }
            }
        }
    }
    void loadMost(const game::GoodRow& good) {
        const auto most = game::mostToTransfer(m_state, game::Place::Ship, good.good);
        const game::TransferOrder load{{good.good, plainText(most)}, {}};
        order(game::refuseTransfer(m_state, load), [&] { return game::transfer(m_state, load); });
    }

    /// Up to a cannon for every 30 units of the hold; a ship that leaves money to fill it.
    void takeOffers() {
        if (m_cannonOffered && !game::refuseCannon(m_state) &&
            m_state.gcurCannons * 30 < m_state.gcurMaxHold) {
            (void)game::buyCannon(m_state);
        }
        if (m_shipOffered && !game::refuseShip(m_state) &&
            m_state.gcurCash > m_state.gcurPShip * 2) {
            (void)game::buyShip(m_state);
        }
    }

    using Scene::setOrderEnabled;
    void setOrderEnabled(game::Order offer, bool enabled) override {
        m_cannonOffered = m_cannonOffered || (offer == game::Order::Cannon && enabled);
        m_shipOffered = m_shipOffered || (offer == game::Order::Ship && enabled);
    }
    void showBattle() override {
        game::Battle battle(m_state, m_random, *this);
        finished = false;
        battle.open();
        while (!finished) {
            const bool outlasts = m_ships * 2 < m_state.gcurStatus;
            if (outlasts && m_state.gcurCannons > 0 && m_state.gcurCannons * 2 >= m_ships) {
                battle.fight();
                continue;
            }
            if (!outlasts && game::totalStock(m_state, game::Place::Ship) >= 1) {
                battle.dumpCargo();
            }
            battle.run();
        }
    }

    void showFleet(game::Currency ships) override { m_ships = ships; }
    void refresh() override { game::updateStanding(m_state); }

    game::Random& m_random;
    game::GameState m_state;
    game::Currency m_ships;  ///< of the pirates in sight
    int m_months = 0;
    bool m_cannonOffered = false;
    bool m_shipOffered = false;
    bool m_refused = false;
};

}  // namespace bench
