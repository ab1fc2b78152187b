#include "voyage.h"

#include <string>

#include "arrival.h"
#include "events.h"
#include "visitors.h"

namespace game {

namespace {

constexpr int encounterSides = 110;  ///< a step meets pirates when this die ...
constexpr int encounterFace = 5;     ///< ... shows this face
constexpr int mostEncounters = 2;    ///< in a voyage

void depart(const GameState& state, VoyageScene& scene) {
    for (const Order order : orders) {
        scene.setOrderEnabled(order, false);
    }
    scene.appendEntry(" - Departing " + state.gstrLocation);
}

void makePassage(const GameState& state, Random& random, VoyageScene& scene) {
    int encounters = 0;
    for (int step = 0; step < passageSteps && state.gblnActiveGame; ++step) {
        scene.appendText(".");
        scene.wait(pace::passageStep);
        const bool sighted = roll(random, encounterSides) == encounterFace;
        if (sighted && encounters < mostEncounters) {
            ++encounters;
            scene.showBattle();
        }
    }
}

}  // namespace

std::string_view proposedPort(Random& random, std::string_view location) {
    const std::size_t drawn =
        static_cast<std::size_t>(roll(random, static_cast<int>(ports.size()))) - 1;
    return ports.at(drawn) == location ? ports.at((drawn + 1) % ports.size()) : ports.at(drawn);
}

void sail(GameState& state, Random& random, VoyageScene& scene, std::string_view destination) {
    depart(state, scene);
    scene.setAtSea(true);
    makePassage(state, random, scene);
    scene.setAtSea(false);
    if (!state.gblnActiveGame) {
        return;
    }
    arrive(state, random, scene, destination);
    meetEvents(state, random, scene);
    receiveVisitors(state, random, scene);
    state.gblnGameSaved = false;
}

}  // namespace game
