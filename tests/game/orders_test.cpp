#include "orders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <tuple>

#include "captain.h"
#include "games.h"

using game::GameState;

namespace {

std::size_t number(std::string_view word, std::string_view words) {
    const std::string_view before = words.substr(0, words.find(word));
    return static_cast<std::size_t>(std::ranges::count(before, ' '));
}

/// Gives an order written a word a field; "max" is as much as the field offers, "more" is one more.
std::string give(GameState& state, const std::string& order) {
    std::istringstream fields(order);
    const auto next = [&fields] { return *std::istream_iterator<std::string>(fields); };
    const auto type = [&](game::Currency most) {
        const std::string typed = next();
        return typed == "max" ? plainText(most) : typed == "more" ? plainText(most + 1) : typed;
    };
    const auto choose = [&](std::string_view words) { return number(next(), words); };
    return test::giveOrder(state, choose(test::portOrders), choose, type);
}

TEST(Orders, AreRefusedOrCarriedOutToTheirBounds) {
    const std::string noFunds = "Insufficient Funds   ";
    const std::string noHold = "Insufficient Hold   ";
    const std::string noCargo = "Insufficient Cargo   ";
    const std::string noStorage =
        "Insufficient Storage Space, Warehouse Limited to 10,000 units   ";
    const std::string noLoan = "Maximum Loan Exceeded (2 x Cash or 100 Million Maximum)   ";
    using Row = std::tuple<const char*, const char*, std::string>;
    for (const auto& [figures, order, outcome] : {
             Row{"Hold=50", "buy ship 0 0 5 max",
                 " - Bought 5 Arms @ $90 Each - Bought 5 General @ $14 Each Hold=60 SArms=5 "
                 "SGeneral=5 Cash=480 Saved=no"},
             {"Hold=50", "buy ship 0 0 5 more", noHold},
             {"", "buy ship 0 0 0 72", noFunds},
             {"Cash=35100", "buy ship 2 max 0 max",
              " - Bought 2 Opium @ $12,000 Each - Bought 10 Silk @ $1,100 Each - Bought 7 General "
              "@ "
              "$14 Each Hold=19 SOpium=2 SSilk=10 SGeneral=7 Cash=2 Saved=no"},
             {"Cash=24000", "buy ship max 0 0 0",
              " - Bought 2 Opium @ $12,000 Each Hold=2 SOpium=2 Cash=0 Saved=no"},
             {"WSilk=9995", "buy ashore 0 0 2 max",
              " - Bought 2 Arms @ $90 Each - Bought 3 General @ $14 Each WArms=2 WGeneral=3 "
              "Cash=778 Saved=no"},
             {"WSilk=9995", "buy ashore 0 0 more 0", noStorage},
             {"SArms=5 Hold=5", "sell ship 0 0 max 0",
              " - Sold 5 Arms @ $90 Each Hold=0 SArms=0 Cash=1450 Saved=no"},
             {"SArms=5 Hold=5", "sell ship 1 0 5 0", noCargo},
             {"WSilk=1", "sell ashore 0 01 - 0",
              " - Sold 01 Silk @ $1,100 Each WSilk=0 Cash=2100 Saved=no"},
             {"WSilk=30", "transfer Silk max Opium 0",
              " - Transfered 30 Silk to Ship Hold=30 SSilk=30 WSilk=0 Saved=no"},
             {"WSilk=30", "transfer Silk more Opium 0", noCargo},
             {"WSilk=31 SOpium=51 Hold=51", "transfer Silk 10 Opium 10", noHold},
             {"WSilk=30 SOpium=51 Hold=51", "transfer Silk 31 Opium 0", noCargo},
             {"WSilk=30 SOpium=51 Hold=51", "transfer Silk max Arms 1", noCargo},
             {"SOpium=51 Hold=51 WArms=9990", "transfer Arms max Opium more", noStorage},
             {"SOpium=10 Hold=10 WOpium=5", "transfer Opium $5 Opium 010",
              " - Transfered $5 Opium to Ship - Transfered 010 Opium to Warehouse Hold=5 SOpium=5 "
              "WOpium=10 Saved=no"},
             {"Hold=61 SOpium=1", "transfer Arms 0 Opium 1", noHold},
             {"Bank=150", "deposit max", " - Deposited $1,000 Bank=1150 Cash=0 Saved=no"},
             {"Bank=150", "deposit more", noFunds},
             {"Bank=150", "withdraw max", " - Withdrew $150 Bank=0 Cash=1150 Saved=no"},
             {"Bank=150", "withdraw more", noFunds},
             {"Debt=5", "borrow max", " - Borrowed $2,000 Debt=2005 Cash=3000 Saved=no"},
             {"Debt=5", "borrow more", noLoan},
             {"Cash=60000000", "borrow max",
              " - Borrowed $100,000,000 Debt=100000000 Cash=160000000 Saved=no"},
             {"Debt=700", "repay max", " - Repayed $700 Debt=0 Cash=300 Saved=no"},
             {"Debt=1500", "repay max", " - Repayed $1,000 Debt=500 Cash=0 Saved=no"},
             {"Debt=1500", "repay more", noFunds},
             {"Debt=700", "repay 1000", " - Repayed $1,000 Debt=-300 Cash=0 Saved=no"},
             {"Status=80 Cash=5000", "mend",
              " - Repaired 8% of Ship for $4,800 Status=88 Cash=200 Saved=no"},
             {"Status=80 Cash=599", "mend", ""},
             {"Status=80 Cash=600", "mend",
              " - Repaired 1% of Ship for $600 Status=81 Cash=0 Saved=no"},
             {"Status=99.5 Cash=5000", "mend",
              " - Repaired 0.5% of Ship for $300 Status=100 Cash=4700 Saved=no"},
             {"Cash=5000", "mend", ""},
             {"Status=80 MaxHold=0", "mend", ""},
             {"Status=80 Cash=5000", "repair 100",
              " - Repaired 8% of Ship for $4,800 Status=88 Cash=200 Saved=no"},
             {"Status=80 Cash=-5000", "repair 100", noFunds},
             {"Status=80 Cash=601 MaxHold=60.05", "repair 82",
              " - Repaired 1% of Ship for $601 Status=81 Cash=0 Saved=no"},
             {"Status=80 Cash=600.5 MaxHold=60.05", "repair 82", noFunds},
             {"PCannon=1000 Hold=51", "cannon", "Insufficient Hold     "},
             {"PCannon=1001", "cannon", "Insufficient Funds     "},
             {"PCannon=1000 Hold=50", "cannon",
              " - Bought a New Cannon for $1,000 Cannons=1 Hold=60 Cash=0"},
             {"PShip=1001", "larger", "Insufficient Funds     "},
             {"PShip=1000 Status=40", "larger",
              " - Bought a New Ship for $1,000 Status=100 MaxHold=110 Cash=0"},
         }) {
        GameState state = test::newGame(figures);
        const std::string answer = give(state, order);
        EXPECT_EQ(answer + test::changes(test::newGame(figures), state), outcome)
            << figures << ": " << order;
    }
    GameState state = test::newGame("Cash=24000");
    EXPECT_EQ(game::mostToBuy(state, {game::Place::Ship, {99, 0, 0, 0}}, game::Good::Opium), 2);
    EXPECT_EQ(game::mostToBuy(state, {game::Place::Ship, {0, 50, 0, 0}}, game::Good::Opium), 0);
    EXPECT_EQ(game::refuseRepayment(test::newGame("Debt=700"), 701, false), "Over Payment   ");
    EXPECT_EQ(game::refuseRepayment(test::newGame("Debt=700"), 700, false), std::nullopt);
}

TEST(Orders, DependOnPortAndCondition) {
    std::string allowed;
    for (const char* figures : {"", "Status=99", "At=Manila Status=99"}) {
        for (const game::Order order : game::orders) {
            const auto port = game::allowedInPort(test::newGame(figures), order);
            allowed += !port ? '?' : *port ? '+' : '-';
        }
        allowed += ' ';
    }
    EXPECT_EQ(allowed, "++++?+-?? ++++?++?? +++----?? ");
}

TEST(Orders, BeginANewGameThatKeepsPastOffersAndScore) {
    GameState before;
    test::eachMember([&before](std::string_view /*name*/, auto member) {
        if constexpr (std::is_same_v<decltype(member), game::Field>) {
            before.*member = 9;
        }
    });
    before.gblnMillionaire = before.gblnGameOver = true;
    std::string begun;
    for (const auto scenario : {game::Scenario::Cannons, game::Scenario::CashAndDebt}) {
        using test::lowestDraw, test::highestDraw;
        test::ScriptedRandom prices{lowestDraw, highestDraw, lowestDraw, highestDraw};
        GameState state = before;
        game::startGame(state, prices, scenario, "Heron");
        begun += test::changes(begun.empty() ? before : test::newGame(), state) + "\n";
    }
    EXPECT_EQ(
        begun,
        " Date=Jan 15, 1860 Firm=Heron At=Hong Kong Cannons=5 Status=100 Hold=50 MaxHold=60 "
        "SOpium=0 SSilk=0 SArms=0 SGeneral=0 WOpium=0 WSilk=0 WArms=0 WGeneral=0 POpium=5000 "
        "PSilk=2500 PArms=50 PGeneral=25 Bank=0 Debt=0 Cash=0 Payoff=0 Millionaire=no "
        "Active=yes Over=no NetWorth=0\n"
        " Firm=Heron POpium=5000 PSilk=2500 PArms=50 PGeneral=25 Debt=5000 Cash=400 PCannon=9 "
        "PShip=9 Saved=no Score=9\n");
}

}  // namespace
