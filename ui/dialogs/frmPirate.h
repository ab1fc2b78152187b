#pragma once

#include <array>

#include "battle.h"
#include "commands.h"
#include "form.h"

class QLineEdit;
class QPushButton;

namespace ui {

class FleetView;

/// An encounter with pirates. It ends by the captain's orders or with the program, never by
/// Escape.
class frmPirate final : public GameForm, private game::BattleScene {
public:
    explicit frmPirate(MainForm& mainForm);

protected:
    /// The close box asks whether to quit the game.
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* makeReport();
    [[nodiscard]] QWidget* makeOrders();
    [[nodiscard]] QWidget* makeSea();
    [[nodiscard]] QPushButton* button(game::BattleOrder order) const;
    void focusOrder(QPushButton* preferred);

    void setOrderEnabled(game::BattleOrder order, bool enabled) override;
    void report(std::string_view text) override;
    void showFleet(game::Currency ships) override;
    void showStatus(game::Currency percent) override;
    void showCannons(game::Currency cannons) override;
    void sinkLast(game::Currency ships, game::Milliseconds step) override;
    void flash() override;
    void wait(game::Milliseconds duration) override;
    void appendEntry(std::string_view message) override;
    void refresh() override;
    void inform(std::string_view text) override;
    [[nodiscard]] bool confirmDumping() override;
    [[nodiscard]] bool playAgain() override;
    void finish() override;
    void endProgram() override;

    QLineEdit* txtEnemy;
    QLineEdit* txtStatus;
    QLineEdit* txtCannons;
    QLineEdit* txtReport;
    FleetView* picShips;
    std::array<QPushButton*, 4> m_orders{};
    Commands* m_commands;
    game::Battle m_battle;
};

}  // namespace ui
