#pragma once

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "amount.h"
#include "game_state.h"
#include "text.h"

namespace test {

/// What does not hold, in the order in which it was found.
class Findings {
public:
    [[nodiscard]] const QStringList& all() const { return m_all; }

    void holds(bool fact, const QString& otherwise) {
        if (!fact) {
            m_all.append(otherwise);
        }
    }
    void same(const QString& what, const QString& found, const QString& expected) {
        holds(found == expected, what + ": " + found + " for " + expected);
    }
    void same(const QString& what, game::Currency found, game::Currency expected) {
        same(what, ui::plain(found), ui::plain(expected));
    }

private:
    QStringList m_all;
};

/// The firm's books, kept by somebody who knows the rules and reads nothing but the report: every
/// dollar, unit and percent of the record has to be explained by its entries.
class Books {
public:
    /// What the report and the player's own decisions say about the orders.
    bool lender = false;
    bool cannonOffered = false;
    bool shipOffered = false;
    bool underWay = false;  ///< as the player sees it

    /// Begins with a record that needs no explanation: a game just started or loaded.
    void open(const game::GameState& state) {
        m_state = state;
        m_lawful = isLawful(state);
        lender = game::inHongKong(state);
        cannonOffered = shipOffered = m_stolen = m_fought = false;
    }
    [[nodiscard]] bool lawful() const { return m_lawful; }
    void dumpCargo() {
        for (const game::GoodRow& good : game::goods) {
            m_state.*good.ship = 0;
        }
    }

    /// Enters one entry of the report and gives back what kind it is; empty for an unknown one.
    QString post(const QString& entry, Findings& findings) {
        const QString body = entry.mid(15);
        for (const Kind& kind : kinds()) {
            if (const auto match = kind.pattern.match(body); match.hasMatch()) {
                m_said = match;
                m_findings = &findings;
                m_dateWanted = m_state.gdtmDate;
                kind.book(*this);
                findings.same("date of " + entry, entry.left(12),
                              ui::fromRules(game::dateText(m_dateWanted)));
                return kind.name;
            }
        }
        findings.holds(false, "an unknown entry: " + entry);
        return {};
    }

    /// Compares with the record as it has come to be, and goes on from there.
    void compare(const game::GameState& state, Findings& findings) {
        if (!m_lawful) {
            return;
        }
        findings.same("cash in the books", state.gcurCash, m_state.gcurCash);
        findings.same("bank in the books", state.gcurBank, m_state.gcurBank);
        findings.same("debt in the books", state.gcurDebt, m_state.gcurDebt);
        findings.same("cannons in the books", state.gcurCannons, m_state.gcurCannons);
        findings.same("capacity in the books", state.gcurMaxHold, m_state.gcurMaxHold);
        findings.same("port in the books", ui::fromRules(state.gstrLocation),
                      ui::fromRules(m_state.gstrLocation));
        findings.same("date in the books", ui::fromRules(game::dateText(state.gdtmDate)),
                      ui::fromRules(game::dateText(m_state.gdtmDate)));
        findings.holds(state.gblnGameSaved == m_state.gblnGameSaved || !state.gblnGameSaved,
                       "changes that count as saved");
        findings.holds(m_fought ? state.gcurStatus <= m_state.gcurStatus
                                : state.gcurStatus == m_state.gcurStatus,
                       "condition " + ui::plain(state.gcurStatus) + " without a reason");
        for (const game::GoodRow& good : game::goods) {
            const QString name = ui::fromRules(good.name);
            if (m_state.*good.price > 0) {
                findings.same("price of " + name, state.*good.price, m_state.*good.price);
            } else {
                const auto steps = state.*good.price;
                findings.holds(steps >= 5 * good.priceStep && steps <= 25 * good.priceStep &&
                                   steps.toInt() % good.priceStep == 0,
                               "price of " + name + " " + ui::plain(steps));
            }
            const game::Currency lost = m_state.*good.ship + m_state.*good.warehouse -
                                        state.*good.ship - state.*good.warehouse;
            const game::Currency stock = m_state.*good.warehouse;
            const game::Currency most =
                m_stolen && stock > 1 ? game::Int((stock.toDouble() + 1) / 2) : 0;
            findings.holds(lost >= (most > 0 ? 1 : 0) && lost <= most,
                           name + " missing: " + ui::plain(lost));
        }
        m_state = state;
        m_stolen = m_fought = false;
    }

    /// Nothing in it but what play can lead to.
    static bool isLawful(const game::GameState& state) {
        using game::GameState;
        bool lawful = std::find(game::ports.begin(), game::ports.end(), state.gstrLocation) !=
                          game::ports.end() &&
                      state.gcurHold == holdInUse(state) && state.gcurHold <= state.gcurMaxHold &&
                      state.gcurStatus <= 100 && state.gcurStatus >= 1 &&
                      game::totalStock(state, game::Place::Warehouse) <= game::warehouseCapacity &&
                      state.gdtmDate >= game::firstDay &&
                      state.gdtmDate.year() < std::chrono::year{2500} &&
                      absolute(state.gcurDebt) < 10'000'000'000'000;
        for (const game::GoodRow& good : game::goods) {
            lawful = lawful && isCount(state.*good.ship) && isCount(state.*good.warehouse) &&
                     state.*good.price >= 1;
        }
        return lawful && isCount(state.gcurCash) && isCount(state.gcurBank) &&
               isCount(state.gcurCannons) && isCount(state.gcurPayoff);
    }
    static game::Currency holdInUse(const game::GameState& state) {
        return game::totalStock(state, game::Place::Ship) + state.gcurCannons * 10;
    }

private:
    struct Kind {
        QString name;
        QRegularExpression pattern;
        std::function<void(Books&)> book;
    };

    static bool isCount(game::Currency amount) {
        return amount >= 0 && amount < 10'000'000'000'000 &&
               amount.tenThousandths() % game::Currency::scale == 0;
    }
    /// The number, and the good, that the entry being posted names.
    game::Currency amount(int group = 1) const {
        return game::MakeNumber(ui::toRules(m_said.captured(group)));
    }
    const game::GoodRow& good(int group) const {
        const std::string name = ui::toRules(m_said.captured(group));
        return *std::find_if(game::goods.begin(), game::goods.end(),
                             [&name](const game::GoodRow& row) { return row.name == name; });
    }
    void trade(int sign) {
        const game::GoodRow& traded = good(2);
        m_state.*traded.ship += amount() * sign;
        m_state.gcurCash -= amount() * amount(3) * sign;
        m_findings->same("price in an entry", amount(3), m_state.*traded.price);
        m_state.gblnGameSaved = false;
    }
    void move(game::Field from, game::Field to, int sign = 1) {
        m_state.*from -= amount();
        m_state.*to += amount() * sign;
        m_state.gblnGameSaved = false;
    }
    void depart() {
        m_findings->same("port left", m_said.captured(1), ui::fromRules(m_state.gstrLocation));
        cannonOffered = shipOffered = lender = false;
        m_fought = true;
    }
    /// The month is over with the first entry of an arrival.
    void endMonth() { m_dateWanted = game::oneMonthLater(m_state.gdtmDate); }
    void arrive() {
        endMonth();
        m_state.gdtmDate = m_dateWanted;
        m_state.gstrLocation = ui::toRules(m_said.captured(1));
        lender = game::inHongKong(m_state);
        const auto interest = [](game::Currency balance, double rate) {
            return game::Currency{static_cast<std::int64_t>(std::floor(balance.toDouble() * rate))};
        };
        m_state.gcurBank += interest(m_state.gcurBank, 0.005);
        m_state.gcurDebt += interest(m_state.gcurDebt, 0.1);
        for (const game::GoodRow& good : game::goods) {
            m_state.*good.price = 0;  // not known from the report
        }
        m_state.gblnGameSaved = false;
    }
    void payTribute() {
        const game::Currency missing = std::max(amount() - m_state.gcurCash, game::Currency{0});
        m_state.gcurCash += missing - amount();
        m_state.gcurDebt += missing;
    }
    static const std::vector<Kind>& kinds() {
        using game::GameState;
        const auto kind = [](const char* name, const char* pattern,
                             std::function<void(Books&)> book) {
            return Kind{name, QRegularExpression('^' + QString(pattern) + '$'), std::move(book)};
        };
        static const std::vector<Kind> all{
            kind("goods bought", R"(Bought (\d+) (\w+) @ (\S+) Each)",
                 [](Books& books) { books.trade(1); }),
            kind("goods sold", R"(Sold (.*) (\w+) @ (\S+) Each)",
                 [](Books& books) { books.trade(-1); }),
            kind("moved aboard", R"(Transfered (.*) (\w+) to Ship)",
                 [](Books& books) { books.move(books.good(2).warehouse, books.good(2).ship); }),
            kind("moved ashore", R"(Transfered (.*) (\w+) to Warehouse)",
                 [](Books& books) { books.move(books.good(2).ship, books.good(2).warehouse); }),
            kind("deposit", R"(Deposited (.*))",
                 [](Books& books) { books.move(&GameState::gcurCash, &GameState::gcurBank); }),
            kind("withdrawal", R"(Withdrew (.*))",
                 [](Books& books) { books.move(&GameState::gcurBank, &GameState::gcurCash); }),
            kind("loan", R"(Borrowed (.*))",
                 [](Books& books) {
                     books.m_state.gcurCash += books.amount();
                     books.m_state.gcurDebt += books.amount();
                     books.m_state.gblnGameSaved = books.lender = false;
                 }),
            kind("repayment", R"(Repayed (.*))",
                 [](Books& books) { books.move(&GameState::gcurCash, &GameState::gcurDebt, -1); }),
            kind("repair", R"(Repaired (\d+)% of Ship for (.*))",
                 [](Books& books) {
                     books.m_findings->same("price of a repair", books.amount(2),
                                            books.amount() * books.m_state.gcurMaxHold * 10);
                     books.m_state.gcurStatus += books.amount();
                     books.m_state.gcurCash -= books.amount(2);
                     books.m_state.gblnGameSaved = false;
                 }),
            kind("cannon bought", R"(Bought a New Cannon for (.*))",
                 [](Books& books) {
                     books.m_findings->holds(books.cannonOffered, "a cannon nobody offered");
                     books.cannonOffered = false;
                     books.m_state.gcurCash -= books.amount();
                     books.m_state.gcurCannons += 1;
                 }),
            kind("ship bought", R"(Bought a New Ship for (.*))",
                 [](Books& books) {
                     books.m_findings->holds(books.shipOffered, "a ship nobody offered");
                     books.shipOffered = false;
                     books.m_state.gcurCash -= books.amount();
                     books.m_state.gcurMaxHold += 50;
                     books.m_state.gcurStatus = 100;
                 }),
            kind("departure", R"(Departing (.*?)\.*)", [](Books& books) { books.depart(); }),
            kind("cannon lost", R"(The buggers hit a Cannon, Zhenbao)",
                 [](Books& books) { books.m_state.gcurCannons -= 1; }),
            kind("booty", R"(You got some booty worth (.*))",
                 [](Books& books) { books.m_state.gcurCash += books.amount(); }),
            kind("blown off course", R"(Zhenbao, we have been blown off course to (.*))",
                 [](Books& books) { books.endMonth(); }),
            kind("storm", R"(Zhenbao!, we have received (\d+)% Damage from a storm)",
                 [](Books& books) {
                     books.endMonth();
                     books.m_state.gcurStatus -= books.amount();
                 }),
            kind("arrival", R"(Arriving at (.*))", [](Books& books) { books.arrive(); }),
            kind("cannon offered", R"(Zhenbao, a ship's cannon is available for (.*))",
                 [](Books& books) {
                     books.m_findings->holds(books.amount() >= 400 && books.amount() <= 3'000,
                                             "a cannon for " + books.m_said.captured(1));
                     books.cannonOffered = true;
                 }),
            kind("ship offered",
                 R"(Zhenbao, you can trade in your ship for one with 50 more capacity)"
                 R"(\| by paying an additional (.*))",
                 [](Books& books) {
                     books.m_findings->holds(books.amount() >= 5'000 &&
                                                 books.amount() <= books.m_state.gcurMaxHold * 400,
                                             "a ship for " + books.m_said.captured(1));
                     books.shipOffered = true;
                 }),
            kind("opium seized",
                 R"(Bad Joss!  The local authorities have seized your opium\|and fined you (.*))",
                 [](Books& books) {
                     books.m_state.gcurSOpium = 0;
                     books.m_state.gcurCash -= books.amount();
                 }),
            kind("robbery", R"(Bad Joss!  You have been beaten up and robbed of (.*))",
                 [](Books& books) { books.m_state.gcurCash -= books.amount(); }),
            kind("theft", R"(Bad Joss!  Messanger reports large theft from warehouse, Zhenbao!)",
                 [](Books& books) { books.m_stolen = true; }),
            kind("price shock", R"(The price of (\w+) has (?:risen|dropped) to (.*))",
                 [](Books& books) { books.m_state.*books.good(1).price = books.amount(2); }),
            kind("lieutenant",
                 R"(Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes)"
                 R"(\|to see you in Hong Kong, Posthaste!)",
                 [](Books&) {}),
            kind("Dunmore",
                 R"(Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,)"
                 R"(\| 'I see ye've a wee bit of damage to yer ship.  I can repair your ship')",
                 [](Books&) {}),
            kind("tribute paid", R"(Payed (.*) in donation to the temple of Tin Hau)",
                 [](Books& books) { books.payTribute(); }),
            kind("game saved", R"(Game Saved Successfully)",
                 [](Books& books) { books.m_state.gblnGameSaved = true; }),
        };
        return all;
    }

    game::GameState m_state;
    game::GameDate m_dateWanted;
    QRegularExpressionMatch m_said;
    Findings* m_findings = nullptr;
    bool m_lawful = false;
    bool m_stolen = false;
    bool m_fought = false;  ///< perhaps: shots are not reported
};

}  // namespace test
