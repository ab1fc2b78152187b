// A million months of a sensible captain: whether the rules keep their promises, and how the
// game treats him. Prints the table of merchant.md, or the figures of its plot with `--plot`.

#include "merchant.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr int months = 1'000'000;
constexpr int longestGame = 240;  ///< months, then he retires

enum Outcome { Sunk, Bankrupt, Millionaire, Trillionaire };

/// How the games of a scenario went: by month, how many had met which outcome.
struct Ledger {
    game::Scenario scenario;
    int games = 0;
    int played = 0;  ///< months
    std::array<std::array<int, longestGame + 1>, 4> met{};

    [[nodiscard]] double share(Outcome outcome, int month) const {
        int count = 0;
        for (int passed = 0; passed <= month; ++passed) {
            count += met.at(outcome).at(static_cast<std::size_t>(passed));
        }
        return 100.0 * count / games;
    }
};

void playGame(Ledger& ledger, game::Random& random) {
    bench::Merchant merchant(random, ledger.scenario);
    bool rich = false;
    for (std::size_t month = 1; month <= longestGame; ++month, ++ledger.played) {
        merchant.playMonth();
        if (const auto promise = merchant.brokenPromise()) {
            std::fprintf(stderr, "broken in month %zu of game %d: %.*s\n", month, ledger.games,
                         static_cast<int>(promise->size()), promise->data());
            std::exit(1);
        }
        const auto meet = [&](Outcome outcome, bool met) {
            ledger.met.at(outcome).at(month) += met ? 1 : 0;
            return met;
        };
        rich = meet(Millionaire, !rich && game::mayRetire(merchant.state())) || rich;
        const bool over = meet(Sunk, merchant.hasSunk()) ||
                          meet(Bankrupt, game::isBankrupt(merchant.state())) ||
                          meet(Trillionaire, game::isTrillionaire(merchant.state()));
        if (over) {
            ++ledger.played;
            break;
        }
    }
    ++ledger.games;
}

}  // namespace

int main(int count, char** arguments) {
    game::Generator random(1'860);
    std::array<Ledger, 2> ledgers{Ledger{game::Scenario::CashAndDebt},
                                  Ledger{game::Scenario::Cannons}};
    while (ledgers[0].played + ledgers[1].played < months) {
        playGame(ledgers[0].played <= ledgers[1].played ? ledgers[0] : ledgers[1], random);
    }
    if (count > 1 && std::strcmp(arguments[1], "--plot") == 0) {
        for (int month = 0; month <= longestGame; ++month) {
            std::printf("%d %.2f %.2f %.2f %.2f\n", month, ledgers[0].share(Sunk, month),
                        ledgers[0].share(Millionaire, month), ledgers[1].share(Sunk, month),
                        ledgers[1].share(Millionaire, month));
        }
        return 0;
    }
    for (const Ledger& ledger : ledgers) {
        std::printf(
            "\n%s: %d games, %d months\n\n"
            "| Month | sunk | bankrupt | millionaire | trillionaire |\n"
            "|---:|---:|---:|---:|---:|\n",
            ledger.scenario == game::Scenario::Cannons ? "No cash, five cannons" : "Cash and debt",
            ledger.games, ledger.played);
        for (const int month : {6, 12, 24, 36, 60, 120, 180, 240}) {
            std::printf("| %d | %.1f %% | %.1f %% | %.1f %% | %.1f %% |\n", month,
                        ledger.share(Sunk, month), ledger.share(Bankrupt, month),
                        ledger.share(Millionaire, month), ledger.share(Trillionaire, month));
        }
    }
}
