#include "trade_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "amount_field.h"
#include "controls.h"
#include "layout.h"
#include "text.h"

namespace ui {

namespace {

/// Four lines of controls have to fit into the low dialogs.
void keepLow(QWidget* control) {
    control->setFixedHeight(control->fontMetrics().height() + measures::tightLineEdges);
}

}  // namespace

TradePanel::TradePanel(const Wording& wording, bool warehouseAllowed) : m_right(new QVBoxLayout) {
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins({});
    columns->addWidget(makeGoods(wording), 1);
    columns->addLayout(m_right);
    m_right->addWidget(makePlaces(wording, warehouseAllowed));
    m_right->addStretch();
    m_ship->setChecked(true);
    clearAmounts();
}

QGroupBox* TradePanel::makeGoods(const Wording& wording) {
    auto* frame = makeFrame(QStringLiteral("fraGoods"), QStringLiteral("Goods "));
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    for (const game::GoodRow& good : game::goods) {
        const QString name = fromRules(good.name);
        const int line = static_cast<int>(game::index(good.good));
        auto* field = new AmountField(QStringLiteral("cbo") + name, plain);
        auto* label = makeLabelFor(field, QStringLiteral("lbl") + name, name + QStringLiteral(":"));
        auto* maximum = makeButton(QStringLiteral("cmdMax") + name, wording.maximum);
        keepLow(field);
        keepLow(maximum);
        maximum->setFixedWidth(maximum->fontMetrics().horizontalAdvance(wording.maximum) +
                               measures::buttonEdges);
        maximum->setAccessibleName(wording.maximum + QStringLiteral(" ") + name);
        grid->addWidget(label, line, 0);
        grid->addWidget(field, line, 1);
        grid->addWidget(maximum, line, 2);

        m_fields.at(game::index(good.good)) = field;
        connect(field, &QComboBox::editTextChanged, this, &TradePanel::changed);
        connect(maximum, &QPushButton::clicked, this,
                [this, good = good.good] { emit maximumWanted(good); });
    }
    return frame;
}

QGroupBox* TradePanel::makePlaces(const Wording& wording, bool warehouseAllowed) {
    auto* frame = makeFrame(wording.placeFrame, wording.placeTitle);
    m_ship = makeOption(QStringLiteral("optShip"), QStringLiteral("Ship"));
    auto* warehouse = makeOption(QStringLiteral("optWarehouse"), QStringLiteral("Warehouse"));
    warehouse->setEnabled(warehouseAllowed);
    auto* options = new QVBoxLayout(frame);
    options->addWidget(m_ship);
    options->addWidget(warehouse);
    connect(m_ship, &QRadioButton::toggled, this, &TradePanel::clearAmounts);
    for (auto* option : {m_ship, warehouse}) {  // also where it was chosen already
        connect(option, &QRadioButton::clicked, this, &TradePanel::clearAmounts);
    }
    return frame;
}

game::TradeOrder TradePanel::order() const {
    game::TradeOrder order;
    order.place = m_ship->isChecked() ? game::Place::Ship : game::Place::Warehouse;
    for (std::size_t good = 0; good < m_fields.size(); ++good) {
        order.amounts.at(good) = m_fields.at(good)->amount();
    }
    return order;
}

std::array<std::string, game::goods.size()> TradePanel::typed() const {
    std::array<std::string, game::goods.size()> texts;
    for (std::size_t good = 0; good < m_fields.size(); ++good) {
        texts.at(good) = m_fields.at(good)->typed();
    }
    return texts;
}

void TradePanel::setAmount(game::Good good, game::Currency amount) {
    m_fields.at(game::index(good))->setEditText(plain(amount));
}

void TradePanel::setMaximum(const std::function<game::Currency(game::Good)>& maximum) {
    for (const game::GoodRow& good : game::goods) {
        m_fields.at(game::index(good.good))->setMaximum([maximum, good = good.good] {
            return maximum(good);
        });
    }
}

void TradePanel::addCommand(QWidget* command) {
    keepLow(command);
    m_right->addWidget(command);
}

void TradePanel::clearAmounts() {
    for (const game::GoodRow& good : game::goods) {
        setAmount(good.good, 0);
    }
    emit changed();
}

}  // namespace ui
