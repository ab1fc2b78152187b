#include "frmBuy.h"

#include <QVBoxLayout>

#include "controls.h"
#include "main_form.h"
#include "text.h"
#include "trade_panel.h"

namespace ui {

frmBuy::frmBuy(MainForm& mainForm)
    : GameForm(mainForm, QStringLiteral("frmBuy"), QStringLiteral("Buy Merchandise"),
               Escape::Ignored),
      m_panel(new TradePanel({.maximum = QStringLiteral("Max"),
                              .placeFrame = QStringLiteral("fraDestination"),
                              .placeTitle = QStringLiteral("Destination ")},
                             game::inHongKong(mainForm.state()))),
      cmdBuy(makeButton(QStringLiteral("cmdBuy"), QStringLiteral("Buy"))) {
    m_panel->addCommand(cmdBuy);
    cmdBuy->setDefault(true);
    (new QVBoxLayout(this))->addWidget(m_panel);

    const auto most = [this](game::Good good) {
        return game::mostToBuy(this->mainForm().state(), m_panel->order(), good);
    };
    m_panel->setMaximum(most);
    connect(m_panel, &TradePanel::maximumWanted, this,
            [this, most](game::Good good) { m_panel->setAmount(good, most(good)); });
    connect(m_panel, &TradePanel::changed, this, &frmBuy::UpdateBuyButton);
    connect(cmdBuy, &QPushButton::clicked, this, &frmBuy::cmdBuy_Click);

    UpdateBuyButton();
    layOutTightly(4920, 1920);
    placeAt(3400, 2910);
}

void frmBuy::UpdateBuyButton() {
    cmdBuy->setEnabled(game::total(m_panel->order().amounts) > 0);
}

void frmBuy::cmdBuy_Click() {
    const game::TradeOrder order = m_panel->order();
    if (refused(game::refuseBuying(mainForm().state(), order))) {
        return;
    }
    report(game::buy(mainForm().state(), order));
    accept();
}

}  // namespace ui
