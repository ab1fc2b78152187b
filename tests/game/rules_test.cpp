// The rules as scripts: a game, what happens in it, and what came of that.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "approved.h"
#include "captain.h"
#include "games.h"

using game::GameState;

namespace {

/// A captain who reads a script, a word for whatever is asked next. In a field "max" is as much as
/// it offers, "more" one more.
class Actor final : game::Random, public test::Captain {
public:
    Actor(GameState& state, test::Transcript& transcript, const std::string& script)
        : Captain(state, *this, &transcript), m_words(script) {}

    std::size_t choose(std::string_view words) override {
        const std::string_view before = words.substr(0, words.find(next()));
        return static_cast<std::size_t>(std::ranges::count(before, ' '));
    }
    bool leaves() override { return (m_words >> std::ws).eof(); }

private:
    std::string next() {
        std::string word;
        EXPECT_TRUE(m_words >> word) << "the script is too short";
        return word;
    }
    std::string type(game::Currency most) override {
        const std::string typed = next();
        return typed == "max" ? plainText(most) : typed == "more" ? plainText(most + 1) : typed;
    }
    double Rnd() override { return test::drawn(next()); }

    std::istringstream m_words;
};

/// What a script tells: its messages and behind them what has changed. It is written as figures of
/// a game just started, an order or a part of a passage, and all that is asked in it.
std::string told(const std::string& script) {
    const std::size_t start = script.find(' ', script.rfind('='));
    const GameState before = test::newGame(script.substr(0, start));
    GameState state = before;
    test::Transcript transcript;
    Actor actor(state, transcript, script.substr(start));
    const std::string answer = actor.play(actor.choose(Actor::deeds));
    transcript.tail(answer + test::changes(before, state));
    EXPECT_TRUE(actor.leaves()) << script;
    return transcript.take();
}

TEST(Rules, HoldAsApproved) {
    test::expectScripts("rules.txt", [](const std::string& line) { return told(line.substr(2)); });
}

TEST(Rules, HoldWhereNoScriptReaches) {
    const GameState state = test::newGame("Cash=24000 Debt=700 Payoff=11");
    EXPECT_EQ(game::mostToBuy(state, {game::Place::Ship, {99, 0, 0, 0}}, game::Good::Opium), 2);
    EXPECT_EQ(game::mostToBuy(state, {game::Place::Ship, {0, 50, 0, 0}}, game::Good::Opium), 0);
    EXPECT_EQ(game::refuseRepayment(state, 700, false), std::nullopt);
    EXPECT_EQ(game::refuseRepayment(state, 701, false), "Over Payment   ");
    EXPECT_EQ(game::attackers(state), "Kwan Tat's Pirates");
    EXPECT_EQ(game::attackers(test::newGame("Payoff=10")), "Pirates");
    test::ScriptedRandom random{test::highestDraw, test::highestDraw};
    EXPECT_EQ(game::proposedPort(random, "Batavia"), "Hong Kong");
    EXPECT_EQ(game::proposedPort(random, "Atlantis"), "Batavia");
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

TEST(Rules, BeginAGameThatKeepsPastOffersAndScore) {
    GameState before;
    test::eachMember([&before](std::string_view /*name*/, auto member) {
        if constexpr (std::is_same_v<decltype(member), game::Field>) {
            before.*member = 9;
        }
    });
    before.gblnMillionaire = before.gblnGameOver = true;
    EXPECT_FALSE(before.gblnGameSaved);
    std::string begun;
    for (const auto scenario : {game::Scenario::Cannons, game::Scenario::CashAndDebt}) {
        using test::lowestDraw, test::highestDraw;
        test::ScriptedRandom prices{lowestDraw, highestDraw, lowestDraw, highestDraw};
        GameState state = before;
        game::startGame(state, prices, scenario, "Heron");
        begun += test::changes(begun.empty() ? before : GameState{}, state) + "\n";
    }
    EXPECT_EQ(
        begun,
        " Date=Jan 15, 1860 Firm=Heron At=Hong Kong Cannons=5 Status=100 Hold=50 MaxHold=60 "
        "SOpium=0 SSilk=0 SArms=0 SGeneral=0 WOpium=0 WSilk=0 WArms=0 WGeneral=0 POpium=5000 "
        "PSilk=2500 PArms=50 PGeneral=25 Bank=0 Debt=0 Cash=0 Payoff=0 Millionaire=no "
        "Active=yes Over=no NetWorth=0\n"
        " Date=Jan 15, 1860 Firm=Heron At=Hong Kong Status=100 MaxHold=60 POpium=5000 PSilk=2500 "
        "PArms=50 PGeneral=25 Debt=5000 Cash=400 PCannon=9 PShip=9 Active=yes Score=9\n");
}

}  // namespace
