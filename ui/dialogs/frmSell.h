#pragma once

#include "form.h"
#include "game_state.h"

class QPushButton;

namespace ui {

class TradePanel;

/// Sells goods out of the ship or, in Hong Kong, out of the warehouse.
class frmSell final : public GameForm {
public:
    explicit frmSell(MainForm& mainForm);

private:
    [[nodiscard]] game::Currency stock(game::Good good) const;
    void UpdateSellButton();
    void cmdSell_Click();
    void cmdSellAll_Click();

    TradePanel* m_panel;
    QPushButton* cmdSell;
};

}  // namespace ui
