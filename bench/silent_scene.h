#pragma once

#include "voyage_scene.h"

namespace bench {

/// A voyage that nobody watches: the captain pays, nothing is shown.
class SilentScene : public game::VoyageScene {
public:
    void appendEntry(std::string_view /*message*/, std::string_view /*continuation*/) override {}
    void appendText(std::string_view /*text*/) override {}
    void flash(game::Alert /*alert*/) override {}
    void wait(game::Milliseconds /*duration*/) override {}
    void setOrderEnabled(game::Order /*order*/, bool /*enabled*/) override {}
    void setAtSea(bool /*atSea*/) override {}
    bool ask(std::string_view /*text*/, std::string_view /*title*/) override { return true; }
    void inform(std::string_view /*text*/, std::string_view /*title*/) override {}
    void showBattle() override {}
};

}  // namespace bench
