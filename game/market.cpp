#include "market.h"

#include <algorithm>

namespace game {

void drawPrices(GameState& state, Random& random) {
    for (const GoodRow& good : goods) {
        const Currency steps = drawFrom(random, 5, 21);
        state.*good.price = std::max(steps * good.priceStep, Currency{1});
    }
}

}  // namespace game
