#pragma once

#include "form.h"

class QPushButton;

namespace ui {

class TradePanel;

/// Buys goods into the ship or, in Hong Kong, into the warehouse.
class frmBuy final : public GameForm {
public:
    explicit frmBuy(MainForm& mainForm);

private:
    void UpdateBuyButton();
    void cmdBuy_Click();

    TradePanel* m_panel;
    QPushButton* cmdBuy;
};

}  // namespace ui
