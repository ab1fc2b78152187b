#pragma once

#include <QMainWindow>

#include "commands.h"
#include "main_form.h"

namespace ui {

class GaugePanel;
class HousePanel;
class LogView;
class Menus;
class OrdersPanel;
class PricesPanel;

/// The main window: owns the record of the game, shows all of it and takes the orders.
class frmMain final : public QMainWindow, public MainForm {
public:
    frmMain(Desktop& desktop, game::Random& random);

    QWidget* window() override { return this; }
    [[nodiscard]] std::vector<const QWidget*> figures() const override;
    game::GameState& state() override { return m_state; }
    game::Random& random() override { return m_random; }
    Desktop& desktop() override { return m_desktop; }
    [[nodiscard]] bool moneyLenderBug() const override;

    void UpdateMainForm() override;
    void beginGame(std::string_view message) override;
    using VoyageScene::appendEntry;
    void appendEntry(std::string_view message, std::string_view continuation) override;
    void appendText(std::string_view text) override;
    void showReportEnd() override;
    void flash(game::Alert alert) override;
    void wait(game::Milliseconds duration) override;
    void setOrderEnabled(game::Order order, bool enabled) override;
    void setUnderWay(bool underWay) override;
    void setAtSea(bool atSea) override;
    bool ask(std::string_view text, std::string_view title) override;
    void inform(std::string_view text, std::string_view title) override;
    void showBattle() override;
    void previewStatus(game::Currency percent) override;

    /// Closes every other window of the program.
    void UnloadAllForms();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* makeClient();
    void connectMenus();

    void enableOrdersOfPort();
    void showState();
    void announceFortune();

    void carryOut(game::Order order);
    void cmdLeave_Click();
    void cmdCannon_Click();
    void cmdShip_Click();
    /// Buys what was offered for `order`, or shows why not and keeps the offer.
    void buyOffer(game::Order order, const game::Refusal& refusal,
                  std::string (*buy)(game::GameState&));
    void mnuNewItem_Click();
    void mnuLoadItem_Click();

    /// Asks whether to save the game in play, and saves it; false if the player cancels.
    [[nodiscard]] bool goOnAfterSaveQuestion();
    /// Whether a game is in play that would be lost.
    [[nodiscard]] bool hasUnsavedChanges() const;

    Desktop& m_desktop;
    game::Random& m_random;
    game::GameState m_state;
    bool m_underWay = false;
    Commands* m_commands;

    Menus* m_menus;
    HousePanel* fraHouse = nullptr;
    PricesPanel* fraPrices = nullptr;
    GaugePanel* fraStatus = nullptr;
    GaugePanel* fraHold = nullptr;
    OrdersPanel* fraOrders = nullptr;
    LogView* txtLog = nullptr;
};

}  // namespace ui
