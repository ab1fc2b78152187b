#include "orders.h"

namespace game {

std::optional<bool> allowedInPort(const GameState& state, Order order) {
    switch (order) {
        case Order::Buy:
        case Order::Sell:
        case Order::Leave:
            return true;
        case Order::Visit:
        case Order::Transfer:
            return inHongKong(state);
        case Order::Repair:
            return inHongKong(state) && state.gcurStatus < 100;
        case Order::Money:
            return inHongKong(state) ? std::nullopt : std::optional{false};
        case Order::Cannon:
        case Order::Ship:
            break;
    }
    return std::nullopt;
}

}  // namespace game
