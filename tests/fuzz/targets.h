#pragma once

#include <stdexcept>

#include "captain.h"
#include "games.h"
#include "saved_game.h"
#include "standing.h"

/// What a fuzzer plays. A broken promise throws.
namespace fuzz {

using game::Currency;
using game::GameState;
using game::Place;

inline void require(bool holds, const std::string& what) {
    if (!holds) {
        throw std::runtime_error("broken: " + what);
    }
}

/// A captain who makes each choice by a byte of a text, and the first option after its end.
class Player final : public test::Captain {
public:
    Player(GameState& state, std::string_view bytes)
        : Captain(state, m_generator), m_bytes(bytes), m_generator(below(256)) {}

    [[nodiscard]] bool done() const { return m_bytes.empty() || !m_state.gblnActiveGame; }

    void giveOrder() { orders().at(below(orders().size())).play(*this); }

private:
    std::size_t below(std::size_t end) {
        if (m_bytes.empty()) {
            return 0;
        }
        const auto byte = static_cast<unsigned char>(m_bytes.front());
        m_bytes.remove_prefix(1);
        return byte % end;
    }
    std::size_t choose(const Options& options) override { return below(options.size()); }
    std::string type(Currency most) override {
        const std::array amounts{most, most + 1, Currency{below(256)}, Currency::highest()};
        const std::size_t way = below(amounts.size() + 1);
        return way < amounts.size() ? plainText(amounts.at(way))
                                    : std::string{m_bytes.substr(0, below(30))};
    }
    bool playAgain() override { return true; }  // a No ends the program

    std::string_view m_bytes;
    game::Generator m_generator;
};

/// Whether every figure is whole and no product of two can reach the end of an amount.
inline bool isOrdinary(const GameState& state) {
    bool ordinary = true;
    test::eachMember([&](std::string_view /*name*/, auto member) {
        if constexpr (std::is_same_v<decltype(member), game::Field>) {
            ordinary = ordinary && absolute(state.*member) < 20'000'000 &&
                       (state.*member).tenThousandths() % Currency::scale == 0;
        }
    });
    return ordinary;
}

/// Whether stock, prices, hold, money and the ship's condition are possible and fit each other.
inline bool isSound(const GameState& state) {
    const bool goodsAreSound = std::ranges::all_of(game::goods, [&](const game::GoodRow& good) {
        return state.*good.ship >= 0 && state.*good.warehouse >= 0 && state.*good.price >= 1;
    });
    const Currency cargo = totalStock(state, Place::Ship);
    return goodsAreSound && state.gcurHold == cargo + state.gcurCannons * game::holdPerCannon &&
           freeRoom(state, Place::Ship) >= 0 && freeRoom(state, Place::Warehouse) >= 0 &&
           state.gcurCash >= 0 && state.gcurBank >= 0 && state.gcurCannons >= 0 &&
           state.gcurStatus >= (state.gblnActiveGame ? 1 : 0) && state.gcurStatus <= 100 &&
           state.gcurNetWorth == state.gcurCash + state.gcurBank - state.gcurDebt &&
           state.gblnActiveGame != state.gblnGameOver;
}

/// A saved game, a zero byte, a seed for chance and then what a captain does, a byte a choice, at
/// most 200 orders. No order makes a sound record unsound, and the game goes on as it was saved.
inline void play(std::string_view text) {
    const auto read = game::readSavedGame(text);
    if (!read) {
        return;
    }
    GameState state;
    game::resumeGame(state, *read);
    game::updateStanding(state);
    Player player(state, text.substr(std::min(text.find('\0'), text.size() - 1) + 1));
    for (int order = 0; order < 200 && !player.done(); ++order) {
        const GameState before = state;
        player.giveOrder();
        game::updateStanding(state);
        const bool broken = isOrdinary(before) && isSound(before) && !isSound(state);
        require(!broken, broken ? "a sound record, by" + test::changes(before, state) : "");
        require(state.gdtmDate == before.gdtmDate ||
                    state.gdtmDate == game::oneMonthLater(before.gdtmDate),
                "a voyage takes a month");
    }
    GameState resumed = state;
    game::resumeGame(resumed, game::readSavedGame(game::writeSavedGame(state)).value());
    state.gblnActiveGame = state.gblnGameSaved = true;
    require(resumed == state, "a game goes on as it was saved");
}

}  // namespace fuzz
