#pragma once

#include "battle_scene.h"
#include "voyage_scene.h"

namespace test {

/// A voyage that nobody watches. Every question is answered with Yes.
class SilentVoyage : public game::VoyageScene {
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

/// A battle that nobody watches. Every question is answered with Yes.
class SilentBattle : public game::BattleScene {
public:
    void setOrderEnabled(game::BattleOrder /*order*/, bool /*enabled*/) override {}
    void report(std::string_view /*text*/) override {}
    void showFleet(game::Currency /*ships*/) override {}
    void showStatus(game::Currency /*percent*/) override {}
    void showCannons(game::Currency /*cannons*/) override {}
    void sinkLast(game::Currency /*ships*/, game::Milliseconds /*step*/) override {}
    void flash() override {}
    void wait(game::Milliseconds /*duration*/) override {}
    void appendEntry(std::string_view /*message*/) override {}
    void refresh() override {}
    void inform(std::string_view /*text*/) override {}
    bool confirmDumping() override { return true; }
    bool playAgain() override { return true; }
    void finish() override { finished = true; }
    void endProgram() override {}

    bool finished = false;
};

}  // namespace test
