#include "frmSell.h"

#include <QVBoxLayout>

#include "controls.h"
#include "main_form.h"
#include "text.h"
#include "trade_panel.h"

namespace ui {

frmSell::frmSell(MainForm& mainForm)
    : GameForm(mainForm, QStringLiteral("frmSell"), QStringLiteral("Sell Merchandise"),
               Escape::Ignored),
      m_panel(new TradePanel({.maximum = QStringLiteral("All"),
                              .placeFrame = QStringLiteral("fraSource"),
                              .placeTitle = QStringLiteral("Source ")},
                             game::inHongKong(mainForm.state()))),
      cmdSell(makeButton(QStringLiteral("cmdSell"), QStringLiteral("Sell"))) {
    auto* cmdSellAll = makeButton(QStringLiteral("cmdSellAll"), QStringLiteral("Sell Everything"));
    m_panel->addCommand(cmdSell);
    m_panel->addCommand(cmdSellAll);
    cmdSell->setDefault(true);
    (new QVBoxLayout(this))->addWidget(m_panel);

    m_panel->setMaximum([this](game::Good good) { return stock(good); });
    connect(m_panel, &TradePanel::maximumWanted, this, [this](game::Good good) {
        if (stock(good) > 0) {
            m_panel->setAmount(good, stock(good));
        }
    });
    connect(m_panel, &TradePanel::changed, this, &frmSell::UpdateSellButton);
    connect(cmdSell, &QPushButton::clicked, this, &frmSell::cmdSell_Click);
    connect(cmdSellAll, &QPushButton::clicked, this, &frmSell::cmdSellAll_Click);

    UpdateSellButton();
    layOutTightly(4935, 1920);
    placeAt(3400, 2910);
}

game::Currency frmSell::stock(game::Good good) const {
    return game::mostToSell(mainForm().state(), m_panel->order().place, good);
}

void frmSell::UpdateSellButton() {
    cmdSell->setEnabled(game::total(m_panel->order().amounts) > 0);
}

void frmSell::cmdSell_Click() {
    const game::TradeOrder order = m_panel->order();
    if (refused(game::refuseSelling(mainForm().state(), order))) {
        return;
    }
    report(game::sell(mainForm().state(), order, m_panel->typed()));
    accept();
}

void frmSell::cmdSellAll_Click() {
    for (const game::GoodRow& good : game::goods) {
        m_panel->setAmount(good.good, stock(good.good));
    }
    cmdSell_Click();
}

}  // namespace ui
