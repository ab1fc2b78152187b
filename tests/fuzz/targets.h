#pragma once

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>

#include "captain.h"
#include "games.h"
#include "saved_game.h"
#include "standing.h"

namespace fuzz {

/// Takes text from outside, from a fuzzer or its corpus. A broken promise aborts.
using Target = void (*)(std::string_view text);

using game::Currency;
using game::GameState;
using game::Place;

inline void require(bool holds, std::string_view what) {
    if (!holds) {
        std::cerr << "broken: " << what << '\n';
        std::abort();
    }
}

/// A captain who makes each choice by a byte of a text, and the first option after its end.
class Player final : public test::Captain {
public:
    Player(GameState& state, std::string_view bytes)
        : Captain(state, m_generator), m_bytes(bytes), m_generator(below(256)) {}

    [[nodiscard]] bool done() const { return m_bytes.empty() || !m_state.gblnActiveGame; }

    void giveOrder() { (void)orders().at(below(orders().size())).play(*this); }

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

/// A saved game: one that is read is saved and loads again.
inline void savedGame(std::string_view text) {
    if (const std::optional<GameState> read = game::readSavedGame(text)) {
        require(game::readSavedGame(game::writeSavedGame(*read)) == read,
                "a game that was read is saved and loads again");
    }
}

/// A number of a saved game, and an amount typed or pasted with the list it opens.
inline void number(std::string_view text) {
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

/// The first promise that a record in play breaks, if there is one.
inline std::optional<std::string_view> brokenPromise(const GameState& state) {
    const auto each = [&](auto keeps) { return std::ranges::all_of(game::goods, keeps); };
    const auto stocked = [&](auto& good) {
        return std::min(state.*good.ship, state.*good.warehouse) >= 0;
    };
    const Currency cargo = totalStock(state, Place::Ship);
    const std::pair<std::string_view, bool> promises[] = {
        {"the hold in use is cargo and 10 for each cannon",
         state.gcurHold == cargo + state.gcurCannons * game::holdPerCannon},
        {"hold and warehouse take what fits",
         std::min(freeRoom(state, Place::Ship), freeRoom(state, Place::Warehouse)) >= 0},
        {"no stock is negative", each(stocked)},
        {"no price is below a dollar", each([&](auto& good) { return state.*good.price >= 1; })},
        {"cash, bank and cannons are not negative",
         std::min({state.gcurCash, state.gcurBank, state.gcurCannons}) >= 0},
        {"a ship is in a condition of 1 to 100 percent, or sunk",
         state.gcurStatus <= 100 && state.gcurStatus >= (state.gblnActiveGame ? 1 : 0)},
        {"net worth is cash and bank less debt",
         state.gcurNetWorth == state.gcurCash + state.gcurBank - state.gcurDebt},
        {"a game is in play or over", state.gblnActiveGame != state.gblnGameOver}};
    const auto broken = std::ranges::find_if(promises, [](auto& row) { return !row.second; });
    return broken == std::end(promises) ? std::nullopt : std::optional{broken->first};
}

/// A saved game, a zero byte, a seed for chance and then what a captain does, a byte a choice, at
/// most 200 orders. No order breaks a promise that the record kept before, and the game goes on
/// as it was saved.
inline void play(std::string_view text) {
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
        const bool sound = isOrdinary(state) && !brokenPromise(state);
        const game::GameDate date = state.gdtmDate;
        player.giveOrder();
        game::updateStanding(state);
        const auto broken = sound ? brokenPromise(state) : std::nullopt;
        require(!broken, broken.value_or(""));
        require(state.gdtmDate == date || state.gdtmDate == game::oneMonthLater(date),
                "a voyage takes a month");
    }
    const std::optional<GameState> saved = game::readSavedGame(game::writeSavedGame(state));
    require(saved.has_value(), "a game that was played is saved and loads again");
    GameState resumed = state;
    game::resumeGame(resumed, *saved);
    state.gblnActiveGame = state.gblnGameSaved = true;
    require(resumed == state, "a game that was played goes on as it was saved");
}

}  // namespace fuzz
