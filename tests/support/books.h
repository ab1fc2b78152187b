#pragma once

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>
#include <functional>
#include <utility>

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
                m_state.gblnGameSaved = m_state.gblnGameSaved && !kind.changes;
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
                      state.gcurMaxHold >= 60 && state.gcurMaxHold < 1'000'000 &&
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
        Kind(const char* kind, const char* text, bool isChange, std::function<void(Books&)> effect)
            : name(kind),
              pattern(QRegularExpression::anchoredPattern(QString(text))),
              changes(isChange),
              book(std::move(effect)) {}

        QString name;
        QRegularExpression pattern;
        bool changes;  ///< what a saved game does not know of
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
    void add(game::Field field, game::Currency change) { m_state.*field += change; }
    void trade(int sign) {
        add(good(2).ship, amount() * sign);
        add(&game::GameState::gcurCash, amount() * amount(3) * -sign);
        m_findings->same("price in an entry", amount(3), m_state.*good(2).price);
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
        m_state.gcurBank += game::Int(m_state.gcurBank.toDouble() * 0.005);
        m_state.gcurDebt += game::Int(m_state.gcurDebt.toDouble() * 0.1);
        for (const game::GoodRow& good : game::goods) {
            m_state.*good.price = 0;  // not known from the report
        }
    }
    void offer(bool& offered, game::Currency lowest, game::Currency highest) {
        m_findings->holds(amount() >= lowest && amount() <= highest,
                          "an offer of " + m_said.captured(1));
        offered = true;
    }
    void takeOffer(bool& offered) {
        m_findings->holds(std::exchange(offered, false), "bought what nobody offered");
        m_state.gcurCash -= amount();
    }
    void payTribute() {
        const game::Currency missing = std::max(amount() - m_state.gcurCash, game::Currency{0});
        m_state.gcurCash += missing - amount();
        m_state.gcurDebt += missing;
    }
    static const std::vector<Kind>& kinds() {
        using State = game::GameState;
        constexpr auto cash = &State::gcurCash;
        const auto to = [](game::Field field, int sign = 1) {
            return [=](Books& books) { books.add(field, books.amount() * sign); };
        };
        const auto between = [](game::Field from, game::Field into, int sign) {
            return [=](Books& books) {
                books.add(from, -books.amount());
                books.add(into, books.amount() * sign);
            };
        };
        const auto nothing = [](Books&) {};
        static const std::vector<Kind> all{
            {"goods bought", R"(Bought (\d+) (\w+) @ (\S+) Each)", true,
             [](Books& books) { books.trade(1); }},
            {"goods sold", R"(Sold (.*) (\w+) @ (\S+) Each)", true,
             [](Books& books) { books.trade(-1); }},
            {"moved aboard", R"(Transfered (.*) (\w+) to Ship)", true, nothing},
            {"moved ashore", R"(Transfered (.*) (\w+) to Warehouse)", true, nothing},
            {"deposit", R"(Deposited (.*))", true, between(cash, &State::gcurBank, 1)},
            {"withdrawal", R"(Withdrew (.*))", true, between(&State::gcurBank, cash, 1)},
            {"loan", R"(Borrowed (.*))", true,
             [](Books& books) {
                 books.add(&State::gcurCash, books.amount());
                 books.add(&State::gcurDebt, books.amount());
                 books.lender = false;
             }},
            {"repayment", R"(Repayed (.*))", true, between(cash, &State::gcurDebt, -1)},
            {"repair", R"(Repaired (\d+)% of Ship for (.*))", true,
             [](Books& books) {
                 books.m_findings->same("price of a repair", books.amount(2),
                                        books.amount() * books.m_state.gcurMaxHold * 10);
                 books.add(&State::gcurStatus, books.amount());
                 books.add(&State::gcurCash, -books.amount(2));
             }},
            {"cannon bought", R"(Bought a New Cannon for (.*))", false,
             [](Books& books) {
                 books.takeOffer(books.cannonOffered);
                 books.add(&State::gcurCannons, 1);
             }},
            {"ship bought", R"(Bought a New Ship for (.*))", false,
             [](Books& books) {
                 books.takeOffer(books.shipOffered);
                 books.add(&State::gcurMaxHold, 50);
                 books.m_state.gcurStatus = 100;
             }},
            {"departure", R"(Departing (.*?)\.*)", false, [](Books& books) { books.depart(); }},
            {"cannon lost", R"(The buggers hit a Cannon, Zhenbao)", false,
             [](Books& books) { books.add(&State::gcurCannons, -1); }},
            {"booty", R"(You got some booty worth (.*))", false, to(cash)},
            {"blown off course", R"(Zhenbao, we have been blown off course to .*)", false,
             [](Books& books) { books.endMonth(); }},
            {"storm", R"(Zhenbao!, we have received (\d+)% Damage from a storm)", false,
             [](Books& books) {
                 books.endMonth();
                 books.add(&State::gcurStatus, -books.amount());
             }},
            {"arrival", R"(Arriving at (.*))", true, [](Books& books) { books.arrive(); }},
            {"cannon offered", R"(Zhenbao, a ship's cannon is available for (.*))", true,
             [](Books& books) { books.offer(books.cannonOffered, 400, 3'000); }},
            {"ship offered",
             R"(Zhenbao, you can trade in your ship for one with 50 more capacity)"
             R"(\| by paying an additional (.*))",
             true,
             [](Books& books) {
                 books.offer(books.shipOffered, 5'000, books.m_state.gcurMaxHold * 400);
             }},
            {"opium seized",
             R"(Bad Joss!  The local authorities have seized your opium\|and fined you (.*))", true,
             [](Books& books) {
                 books.m_state.gcurSOpium = 0;
                 books.add(&State::gcurCash, -books.amount());
             }},
            {"robbery", R"(Bad Joss!  You have been beaten up and robbed of (.*))", true,
             to(cash, -1)},
            {"theft", R"(Bad Joss!  Messanger reports large theft from warehouse, Zhenbao!)", true,
             [](Books& books) { books.m_stolen = true; }},
            {"price shock", R"(The price of \w+ has (?:risen|dropped) to (.*) *)", true,
             [](Books& books) {
                 const QString name = books.m_said.captured(0).section(' ', 3, 3);
                 for (const game::GoodRow& good : game::goods) {
                     if (ui::fromRules(good.name) == name) {
                         books.m_state.*good.price = books.amount();
                     }
                 }
             }},
            {"lieutenant",
             R"(Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes)"
             R"(\|to see you in Hong Kong, Posthaste!)",
             true, nothing},
            {"Dunmore",
             R"(Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,)"
             R"(\| 'I see ye've a wee bit of damage to yer ship.  I can repair your ship')",
             true, nothing},
            {"tribute paid", R"(Payed (.*) in donation to the temple of Tin Hau)", true,
             [](Books& books) { books.payTribute(); }},
            {"game saved", R"(Game Saved Successfully)", false,
             [](Books& books) { books.m_state.gblnGameSaved = true; }},
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
