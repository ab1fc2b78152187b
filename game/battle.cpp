#include "battle.h"

#include <algorithm>
#include <string>

#include "standing.h"
#include "visitors.h"

namespace game {

namespace {

constexpr std::string_view ordersWanted = "Zhenbao, what shall we do?";

bool carriesCargo(const GameState& state) {
    return std::any_of(goods.begin(), goods.end(),
                       [&state](const GoodRow& good) { return state.*good.ship >= 1; });
}

/// The part of the hold's capacity that is in use; none for a ship without capacity.
double load(const GameState& state) {
    return state.gcurMaxHold == 0 ? 0 : state.gcurHold.toDouble() / state.gcurMaxHold.toDouble();
}

/// From 3 ships to a tenth of the hold's capacity, twice as many if they are Kwan Tat's own. Never
/// below 1 or above 48 for any capacity.
Currency drawFleet(const GameState& state, Random& random) {
    const Currency ships = drawFrom(random, 3, state.gcurMaxHold.toDouble() / 10 - 3 + 1);
    return std::clamp(tributeOverdue(state) ? ships * 2 : ships, Currency{1},
                      Currency{largestFleet});
}

/// One of the ship's own shots: 40 in 100 sink a pirate.
bool drawHit(Random& random) {
    return roll(random, 10) > 6;
}

/// A pirate's shot: 70 in 100 hit the ship.
bool drawHitTaken(Random& random) {
    return roll(random, 10) > 3;
}

/// After a volley of the pirates: 1 in 25 has hit a cannon.
bool drawCannonHit(Random& random) {
    return roll(random, 25) == 2;
}

/// 1 in 4 with an empty hold, 1 in 8 with a full one and in proportion between and beyond; cannons
/// fill the hold too.
bool drawEscape(const GameState& state, Random& random) {
    return drawFrom(random, 1, 4 * load(state) + 4) == 1;
}

/// 1 in 8: Kwan Tat's fleet is near.
bool drawRescue(Random& random) {
    return roll(random, 8) == 1;
}

/// 300 to 1,350 dollars, one rate for every ship sunk.
Currency drawBooty(Random& random, Currency shipsSunk) {
    return drawFrom(random, 300, 1'051) * shipsSunk;
}

}  // namespace

std::string_view attackers(const GameState& state) {
    return tributeOverdue(state) ? "Kwan Tat's Pirates" : "Pirates";
}

void Battle::open() {
    if (m_state.gcurCannons < 1) {
        m_scene.setOrderEnabled(BattleOrder::Fight, false);
        m_scene.setOrderEnabled(BattleOrder::FightToDeath, false);
    }
    if (!carriesCargo(m_state)) {
        m_scene.setOrderEnabled(BattleOrder::DumpCargo, false);
    }
    mcurEnemyShips = drawFleet(m_state, m_random);
    m_scene.showStatus(m_state.gcurStatus);
    m_scene.showCannons(m_state.gcurCannons);
    m_scene.report(ordersWanted);
    m_scene.showFleet(mcurEnemyShips);
}

void Battle::fight() {
    bool goesOn = true;
    while (goesOn) {
        withdrawOrders();
        goesOn = fireVolley() && EnemyFire() && mblnFightToDeath && m_state.gcurCannons > 0;
    }
}

void Battle::fightToDeath() {
    mblnFightToDeath = true;
    fight();
}

void Battle::run() {
    withdrawOrders();
    report("Aye, we'll run, Zhenbao!", pace::runOrder);
    const bool escaped = drawEscape(m_state, m_random);
    if (escaped || mcurEnemyShips < 2) {
        report("We got away from them, Zhenbao!!", pace::runOutcome);
        m_scene.finish();
        return;
    }
    const bool fleetNear = drawRescue(m_random);
    if (fleetNear && m_state.gcurPayoff < 11) {
        report("Kwan Tat's fleet drove them off!", pace::runOutcome);
        m_scene.finish();
        return;
    }
    const Currency shakenOff = drawUpToHalf(m_random, mcurEnemyShips);
    m_scene.report("Can't lose 'em, but we escaped from " + plainText(shakenOff));
    mcurEnemyShips -= shakenOff;
    m_scene.showFleet(mcurEnemyShips);
    m_scene.wait(pace::runOutcome);
    EnemyFire();
}

void Battle::dumpCargo() {
    if (!m_scene.confirmDumping()) {
        return;
    }
    for (const GoodRow& good : goods) {
        m_state.*good.ship = 0;
    }
    m_state.gcurHold = m_state.gcurCannons * holdPerCannon;
    m_scene.setOrderEnabled(BattleOrder::DumpCargo, false);
    m_scene.refresh();
}

void Battle::withdrawOrders() {
    for (const BattleOrder order : {BattleOrder::FightToDeath, BattleOrder::Run,
                                    BattleOrder::DumpCargo, BattleOrder::Fight}) {
        m_scene.setOrderEnabled(order, false);
    }
}

void Battle::awaitOrders() {
    m_scene.report(ordersWanted);
    if (m_state.gcurCannons > 0) {
        m_scene.setOrderEnabled(BattleOrder::Fight, true);
    }
    m_scene.setOrderEnabled(BattleOrder::Run, true);
    if (m_state.gcurCannons > 0) {
        m_scene.setOrderEnabled(BattleOrder::FightToDeath, true);
    }
    m_scene.setOrderEnabled(BattleOrder::DumpCargo, carriesCargo(m_state));
}

void Battle::report(std::string_view text, Milliseconds pause) {
    m_scene.report(text);
    m_scene.wait(pause);
}

const FightPace& Battle::fightPace() const {
    return mblnFightToDeath ? pace::toTheDeath : pace::fight;
}

bool Battle::fireVolley() {
    report("We're firing on 'em, Zhenbao!", fightPace().volleyOrder);
    Currency sunk;
    const Currency cannons = m_state.gcurCannons;
    for (Currency cannon = 1; cannon <= cannons; cannon += 1) {
        m_scene.wait(fightPace().beforeShot);
        if (!drawHit(m_random)) {
            continue;
        }
        sunk += 1;
        mcurShipsSunk += 1;
        m_scene.sinkLast(mcurEnemyShips, fightPace().sinkingStep);
        mcurEnemyShips -= 1;
        m_scene.showFleet(mcurEnemyShips);
        if (mcurEnemyShips < 1) {
            TakeBooty();
            return false;
        }
    }
    report("Sunk " + plainText(sunk) + " of those buggers, Zhenbao!", fightPace().sunkReport);
    return true;
}

bool Battle::EnemyFire() {
    report("They're firing on us, Zhenbao!", fightPace().volleyOrder);
    for (Currency ship = 1; ship <= mcurEnemyShips; ship += 1) {
        if (drawHitTaken(m_random)) {
            takeHit();
        }
        if (m_state.gcurStatus < 1) {
            sink();
            return false;
        }
    }
    const bool cannonHit = drawCannonHit(m_random);
    if (cannonHit && m_state.gcurCannons > 0) {
        loseCannon();
    }
    awaitOrders();
    return true;
}

void Battle::takeHit() {
    m_scene.flash();
    m_scene.wait(fightPace().afterHit);
    m_state.gcurStatus -= 1;
    m_scene.showStatus(m_state.gcurStatus);
}

void Battle::loseCannon() {
    m_scene.report("The buggers hit a Cannon, Zhenbao!");
    m_state.gcurCannons -= 1;
    m_state.gcurHold -= holdPerCannon;
    m_scene.showCannons(m_state.gcurCannons);
    m_scene.appendEntry(" - The buggers hit a Cannon, Zhenbao");
    m_scene.refresh();
    m_scene.wait(fightPace().cannonHit);
}

void Battle::TakeBooty() {
    const Currency booty = drawBooty(m_random, mcurShipsSunk);
    const std::string message = "You got some booty worth " + moneyText(booty);
    m_scene.inform(message + "     ");
    m_state.gcurCash += booty;
    m_scene.appendEntry(" - " + message);
    m_scene.finish();
}

void Battle::sink() {
    if (m_scene.playAgain()) {
        endGame(m_state);
        m_scene.finish();
    } else {
        m_scene.endProgram();
    }
}

}  // namespace game
