#include "targets.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <optional>
#include <string>

#include "amount.h"
#include "bank.h"
#include "battle.h"
#include "money_lender.h"
#include "purchases.h"
#include "saved_game.h"
#include "shipyard.h"
#include "silent_scenes.h"
#include "standing.h"
#include "trading.h"
#include "transfer.h"
#include "voyage.h"

namespace fuzz {

namespace {

using game::Currency;
using game::GameState;

void require(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "broken: " << what << '\n';
        std::abort();
    }
}

/// Reads its orders off the bytes of a text; where they end it is done.
class Player {
public:
    Player(GameState& state, std::string_view choices)
        : m_state(state), m_choices(choices), m_random(choose(256)) {}

    [[nodiscard]] bool done() const { return m_choices.empty() || !m_state.gblnActiveGame; }

    void giveOrder() {
        const std::array<std::function<void()>, 12> orders{
            [this] { trade(true); },
            [this] { trade(false); },
            [this] { transfer(); },
            [this] { move(game::mostToDeposit, game::refuseDeposit, game::deposit); },
            [this] { move(game::mostToWithdraw, game::refuseWithdrawal, game::withdraw); },
            [this] { move(game::maxLoan, game::refuseLoan, game::borrow); },
            [this] { move(game::mostToRepay, refuseRepayment, game::repay); },
            [this] { move(betterThanNow, refuseRepair, repair); },
            [this] { buy(game::canRepairMax(m_state), game::repairMax); },
            [this] { buy(!game::refuseCannon(m_state), game::buyCannon); },
            [this] { buy(!game::refuseShip(m_state), game::buyShip); },
            [this] { sail(); }};
        orders.at(choose(orders.size()))();
        game::updateStanding(m_state);
    }

private:
    class Voyage final : public test::SilentVoyage {
    public:
        explicit Voyage(Player& player) : m_player(player) {}
        bool ask(std::string_view /*text*/, std::string_view /*title*/) override {
            return m_player.choose(2) == 0;
        }
        void showBattle() override { m_player.meetPirates(); }

    private:
        Player& m_player;
    };

    static game::Refusal refuseRepayment(const GameState& state, Currency amount) {
        return game::refuseRepayment(state, amount, true);
    }
    static Currency betterThanNow(const GameState& state) { return state.gcurStatus + 1; }
    static game::Refusal refuseRepair(const GameState& state, Currency condition) {
        return game::refuseRepair(state, game::offeredCondition(state, condition));
    }
    static std::string repair(GameState& state, Currency condition) {
        return game::repair(state, game::offeredCondition(state, condition));
    }

    std::size_t choose(std::size_t ways) {
        if (m_choices.empty()) {
            return 0;
        }
        const auto choice = static_cast<unsigned char>(m_choices.front());
        m_choices.remove_prefix(1);
        return choice % ways;
    }

    /// As the player types it: nothing, all there is, a little more, a number, anything.
    std::string type(Currency most) {
        const std::size_t way = choose(6);
        return way == 0   ? std::string{}
               : way == 1 ? game::plainText(most)
               : way == 2 ? game::moneyText(most + 1)
               : way == 3 ? game::plainText(choose(256))
               : way == 4 ? game::plainText(Currency::highest())
                          : std::string{m_choices.substr(0, choose(30))};
    }

    void trade(bool buying) {
        game::TradeOrder order;
        order.place = choose(2) == 0 ? game::Place::Ship : game::Place::Warehouse;
        std::array<std::string, game::goods.size()> typed;
        for (const game::GoodRow& row : game::goods) {
            const std::size_t good = game::index(row.good);
            typed.at(good) = type(buying ? game::mostToBuy(m_state, order, row.good)
                                         : game::mostToSell(m_state, order.place, row.good));
            order.amounts.at(good) = game::MakeNumber(typed.at(good));
        }
        if (buying && !game::refuseBuying(m_state, order)) {
            (void)game::buy(m_state, order);
        }
        if (!buying && !game::refuseSelling(m_state, order)) {
            (void)game::sell(m_state, order, typed);
        }
    }

    void transfer() {
        const auto load = [this](game::Place destination) {
            const game::Good good = game::goods.at(choose(game::goods.size())).good;
            return game::Load{good, type(game::mostToTransfer(m_state, destination, good))};
        };
        const game::TransferOrder order{.toShip = load(game::Place::Ship),
                                        .toWarehouse = load(game::Place::Warehouse)};
        if (!game::refuseTransfer(m_state, order)) {
            (void)game::transfer(m_state, order);
        }
    }

    void move(Currency (*most)(const GameState&),
              game::Refusal (*refuse)(const GameState&, Currency),
              std::string (*apply)(GameState&, Currency)) {
        const Currency amount = game::MakeNumber(type(most(m_state)));
        if (!refuse(m_state, amount)) {
            (void)apply(m_state, amount);
        }
    }

    void buy(bool allowed, std::string (*apply)(GameState&)) {
        if (allowed) {
            (void)apply(m_state);
        }
    }

    void sail() {
        Voyage voyage(*this);
        game::sail(m_state, m_random, voyage, game::ports.at(choose(game::ports.size())));
    }

    void meetPirates() {
        test::SilentBattle scene;
        game::Battle battle(m_state, m_random, scene);
        battle.open();
        while (!scene.finished) {
            const bool armed = m_state.gcurCannons > 0;
            const std::size_t order = choose(4);
            if (order == 2) {
                battle.dumpCargo();
            }
            if (armed && order < 2) {
                order == 0 ? battle.fight() : battle.fightToDeath();
            } else {
                battle.run();
            }
        }
    }

    GameState& m_state;
    std::string_view m_choices;
    game::Generator m_random;
};

}  // namespace

void savedGame(std::string_view text) {
    if (const std::optional<GameState> read = game::readSavedGame(text)) {
        require(game::readSavedGame(game::writeSavedGame(*read)) == read,
                "a game that was read is saved and loads again");
    }
}

void number(std::string_view text) {
    const std::optional<Currency> read = game::readDecimal(text);
    require(!read || game::readDecimal(game::plainText(*read)) == read,
            "a number that was read is written and reads again");

    const Currency amount = game::MakeNumber(text);
    require(amount >= 0 && amount.tenThousandths() % Currency::scale == 0,
            "an amount is whole and not negative");
    const std::vector<Currency> steps = game::amountSteps(amount);
    require(steps.size() <= 21 && steps.front() == 0 && steps.back() == amount,
            "a list of amounts is short, starts with 0 and ends with its maximum");
}

void play(std::string_view text) {
    const std::string_view file = text.substr(0, text.find('\0'));
    const std::optional<GameState> read = game::readSavedGame(file);
    if (!read) {
        return;
    }
    GameState state;
    game::resumeGame(state, *read);
    game::updateStanding(state);
    Player player(state, text.substr(std::min(file.size() + 1, text.size())));
    for (int order = 0; order < 200 && !player.done(); ++order) {
        player.giveOrder();
    }
    const std::optional<GameState> saved = game::readSavedGame(game::writeSavedGame(state));
    require(saved.has_value(), "a game that was played is saved and loads again");
    GameState resumed = state;
    game::resumeGame(resumed, *saved);
    resumed.gblnActiveGame = state.gblnActiveGame;
    resumed.gblnGameSaved = state.gblnGameSaved;
    require(resumed == state, "a game that was played goes on as it was saved");
}

}  // namespace fuzz
