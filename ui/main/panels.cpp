#include "panels.h"

#include <QGridLayout>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>

#include "controls.h"
#include "text.h"

namespace ui {

namespace {

constexpr qsizetype longestTitle = 200;  ///< characters; a title of the game has a quarter

/// A label and a display, one below the other, in two columns of `grid` from `column` on.
QLineEdit* addRow(QGridLayout* grid, int line, int column, const QString& caption,
                  const QString& name, const QString& text, const QString& spoken = {}) {
    auto* display = makeDisplay(QStringLiteral("txt") + name);
    auto* label = makeLabelFor(display, QStringLiteral("lbl") + name, caption, spoken);
    display->setText(text);
    display->setAlignment(Qt::AlignRight);
    display->setMinimumWidth(display->fontMetrics().horizontalAdvance(u'0') * 8);
    grid->addWidget(label, line, column);
    grid->addWidget(display, line, column + 1);
    return display;
}

/// A row for each good from `line` on; `prefix` tells the displays of one column from another's,
/// and so does `spoken`, which says what is shown of the good %1.
GoodDisplays addGoods(QGridLayout* grid, int line, int column, QChar prefix, const QString& text,
                      const QString& spoken) {
    GoodDisplays displays{};
    for (const game::GoodRow& good : game::goods) {
        const QString name = fromRules(good.name);
        displays.at(game::index(good.good)) =
            addRow(grid, line++, column, name + QStringLiteral(":"), prefix + name, text,
                   spoken.arg(name));
    }
    return displays;
}

QString nothing() {
    return QStringLiteral("0");
}
QString noMoney() {
    return money(0);
}

}  // namespace

Panel::Panel(const QString& name, const QString& title) {
    setObjectName(name);
    showTitle(title);
}

void Panel::showTitle(const QString& title) {
    if (m_title == title) {
        return;
    }
    m_title = title;
    QString shown = title.left(longestTitle);
    for (QChar& character : shown) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph) {
            character = u' ';
        }
    }
    setTitle(shown.replace(u'&', QStringLiteral("&&")));
}

QSize Panel::minimumSizeHint() const {
    return {layout()->totalMinimumSize().width(), QGroupBox::minimumSizeHint().height()};
}

HousePanel::HousePanel()
    : Panel(QStringLiteral("fraHouse"), QStringLiteral("House of Zhenbao, Hong Kong")) {
    auto* grid = new QGridLayout(this);
    grid->addWidget(makeLabel(QStringLiteral("lblWarehouse"), QStringLiteral("- Warehouse -")), 0,
                    0, 1, 2, Qt::AlignCenter);
    grid->addWidget(makeLabel(QStringLiteral("lblShip"), QStringLiteral("- Ship -")), 0, 2, 1, 2,
                    Qt::AlignCenter);
    m_warehouse = addGoods(grid, 1, 0, u'W', nothing(), QStringLiteral("%1 in the warehouse"));
    m_ship = addGoods(grid, 1, 2, u'S', nothing(), QStringLiteral("%1 aboard"));
    txtCannons =
        addRow(grid, 1, 4, QStringLiteral("Cannons:"), QStringLiteral("Cannons"), nothing());
    txtCash = addRow(grid, 2, 4, QStringLiteral("Cash:"), QStringLiteral("Cash"), noMoney());
    txtDebt = addRow(grid, 3, 4, QStringLiteral("Debt:"), QStringLiteral("Debt"), noMoney());
    txtBank = addRow(grid, 4, 4, QStringLiteral("Bank:"), QStringLiteral("Bank"), noMoney());
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 2);
    grid->setColumnStretch(5, 3);
}

void HousePanel::showFirm(const QString& firm) {
    showTitle(QStringLiteral("House of ") + firm + QStringLiteral(", Hong Kong "));
}

void HousePanel::show(const game::GameState& state) {
    for (const game::GoodRow& good : game::goods) {
        showText(m_ship.at(game::index(good.good)), plain(state.*good.ship));
        showText(m_warehouse.at(game::index(good.good)), plain(state.*good.warehouse));
    }
    showText(txtCash, money(state.gcurCash));
    showText(txtCannons, plain(state.gcurCannons));
    showText(txtBank, money(state.gcurBank));
    showText(txtDebt, money(state.gcurDebt));
}

PricesPanel::PricesPanel()
    : Panel(QStringLiteral("fraPrices"), QStringLiteral("Prices at Hong Kong")) {
    auto* grid = new QGridLayout(this);
    txtDate = addRow(grid, 0, 0, QStringLiteral("Date:"), QStringLiteral("Date"),
                     fromRules(game::dateText(game::firstDay)));
    // A date is longer than most figures, and has to show whole in the smallest window too.
    txtDate->setMinimumWidth(txtDate->fontMetrics().horizontalAdvance(u'0') * 11);
    m_prices = addGoods(grid, 1, 0, u'P', noMoney(), QStringLiteral("%1 price"));
    grid->setColumnStretch(1, 1);
}

void PricesPanel::show(const game::GameState& state) {
    showTitle(QStringLiteral("Prices at ") + fromRules(state.gstrLocation) + u' ');
    showText(txtDate, fromRules(game::dateText(state.gdtmDate)));
    for (const game::GoodRow& good : game::goods) {
        showText(m_prices.at(game::index(good.good)), money(state.*good.price));
    }
}

GaugePanel::GaugePanel(const QString& name, const QString& barName, const QString& spoken,
                       const QString& title, int value, int maximum)
    : Panel(name, title), m_bar(makeNamed<QProgressBar>(barName)) {
    nameControl(m_bar, spoken);
    m_bar->setTextVisible(false);
    m_bar->setMaximum(maximum);
    m_bar->setValue(value);
    (new QVBoxLayout(this))->addWidget(m_bar);
}

void GaugePanel::show(const QString& title, game::Currency value, game::Currency maximum) {
    showTitle(title);
    const int most = std::max(maximum.toInt(), 1);
    const int shown = std::clamp(value.toInt(), 0, most);
    if (m_bar->maximum() != most || m_bar->value() != shown) {
        // A bar paints itself, and all else that waits for it, at once; this one waits as well.
        m_bar->setUpdatesEnabled(false);
        m_bar->setMaximum(most);
        m_bar->setValue(shown);
        m_bar->setUpdatesEnabled(true);
    }
}

OrdersPanel::OrdersPanel() : Panel(QStringLiteral("fraOrders"), QStringLiteral("Orders")) {
    using game::Order;
    struct Row {
        Order order;
        const char* name;
        const char* caption;
    };
    static constexpr std::array<Row, game::orders.size()> rows{{
        {Order::Buy, "cmdBuy", "Buy Merchandice"},
        {Order::Sell, "cmdSell", "Sell Merchandice"},
        {Order::Leave, "cmdLeave", "Leave Port"},
        {Order::Visit, "cmdVisit", "Visit Bank"},
        {Order::Money, "cmdMoney", "Money Lender"},
        {Order::Transfer, "cmdTransfer", "Transfer Cargo"},
        {Order::Cannon, "cmdCannon", "Buy Cannon"},
        {Order::Repair, "cmdRepair", "Repair Ship"},
        {Order::Ship, "cmdShip", "Buy Ship"},
    }};
    auto* grid = new QGridLayout(this);
    for (const Row& row : rows) {
        auto* button = makeButton(QString::fromLatin1(row.name), QString::fromLatin1(row.caption));
        button->setEnabled(false);
        connect(button, &QPushButton::clicked, this,
                [this, order = row.order] { emit given(order); });
        const int place = static_cast<int>(m_buttons.size());
        grid->addWidget(button, place / 3, place % 3);
        m_buttons.emplace(row.order, button);
    }
}

void OrdersPanel::setOrderEnabled(game::Order order, bool enabled) {
    m_buttons.at(order)->setEnabled(enabled);
}

void OrdersPanel::focusOrder(game::Order order) {
    m_buttons.at(order)->setFocus();
}

}  // namespace ui
