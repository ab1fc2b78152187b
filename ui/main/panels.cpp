#include "panels.h"

#include <QGridLayout>
#include <QProgressBar>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <QVBoxLayout>
#include <algorithm>

#include "controls.h"
#include "layout.h"
#include "text.h"

namespace ui {

namespace {

constexpr int columnGap = 10;            ///< between a display and the label of the next column
constexpr qsizetype longestTitle = 200;  ///< characters; a title of the game has a quarter

/// Lines close together, since the trading dialogs open right below the figures.
QGridLayout* makeLines(QWidget* panel) {
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(measures::mainEdge, measures::panelTop, measures::mainEdge,
                             measures::panelEdge);
    grid->setVerticalSpacing(measures::lineGap);
    return grid;
}

/// What a display shows before a game begins, and the width of the widest that it has to show.
struct Figure {
    QString first;
    int room;
};

/// A label and a display, side by side in `grid` from `column` on.
QLineEdit* addRow(QGridLayout* grid, int line, int column, const QString& caption,
                  const QString& name, const Figure& figure, const QString& spoken = {}) {
    auto* display = makeDisplay(QStringLiteral("txt") + name, grid->parentWidget());
    auto* label = makeLabelFor(display, QStringLiteral("lbl") + name, caption, spoken);
    grid->addWidget(label, line, column);
    label->stackUnder(display);  // where assistive programs come to it first
    grid->addWidget(display, line, column + 1);
    makeRoom(display, figure.room);
    display->setText(figure.first);
    return display;
}

/// A row for each good from `line` on. `prefix` begins the names of the column's displays, `spoken`
/// says what they show of the good %1.
GoodDisplays addGoods(QGridLayout* grid, int line, int column, QChar prefix, const Figure& figure,
                      const QString& spoken) {
    GoodDisplays displays{};
    for (const game::GoodRow& good : game::goods) {
        const QString name = fromRules(good.name);
        displays.at(game::index(good.good)) =
            addRow(grid, line++, column, name + QStringLiteral(":"), prefix + name, figure,
                   spoken.arg(name));
    }
    return displays;
}

}  // namespace

Panel::Panel(QWidget* client, const QString& name, const QString& title) : QGroupBox(client) {
    setObjectName(name);
    showTitle(title);
}

void Panel::showTitle(const QString& title) {
    if (m_title == title) {
        return;
    }
    m_title = title;
    setTitle(onOneLine(title.left(longestTitle)).replace(u'&', QStringLiteral("&&")));
}

QSize Panel::minimumSizeHint() const {
    return layout()->totalMinimumSize();
}

void Panel::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    if (title().size() * fontMetrics().maxWidth() > width()) {  // it may be too long
        option.text =
            fontMetrics().elidedText(title(), Qt::ElideRight, width(), Qt::TextShowMnemonic);
    }
    QStylePainter(this).drawComplexControl(QStyle::CC_GroupBox, option);
}

HousePanel::HousePanel(QWidget* client)
    : Panel(client, QStringLiteral("fraHouse"), QStringLiteral("House of Zhenbao, Hong Kong")) {
    const Figure units{QStringLiteral("0"), roomFor(QStringLiteral("00000"), fontMetrics())};
    const Figure fortunes{money(0), roomFor(widestMoney, fontMetrics())};
    auto* grid = makeLines(this);
    grid->addWidget(makeLabel(QStringLiteral("lblWarehouse"), QStringLiteral("- Warehouse -")), 0,
                    0, 1, 2, Qt::AlignCenter);
    grid->addWidget(makeLabel(QStringLiteral("lblShip"), QStringLiteral("- Ship -")), 0, 3, 1, 2,
                    Qt::AlignCenter);
    m_warehouse = addGoods(grid, 1, 0, u'W', units, QStringLiteral("%1 in the warehouse"));
    m_ship = addGoods(grid, 1, 3, u'S', units, QStringLiteral("%1 aboard"));
    txtCannons = addRow(grid, 1, 6, QStringLiteral("Cannons:"), QStringLiteral("Cannons"), units);
    txtCash = addRow(grid, 2, 6, QStringLiteral("Cash:"), QStringLiteral("Cash"), fortunes);
    txtDebt = addRow(grid, 3, 6, QStringLiteral("Debt:"), QStringLiteral("Debt"), fortunes);
    txtBank = addRow(grid, 4, 6, QStringLiteral("Bank:"), QStringLiteral("Bank"), fortunes);
    grid->setColumnMinimumWidth(2, columnGap);
    grid->setColumnMinimumWidth(5, columnGap);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(4, 2);
    grid->setColumnStretch(7, 3);
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

PricesPanel::PricesPanel(QWidget* client)
    : Panel(client, QStringLiteral("fraPrices"), QStringLiteral("Prices at Hong Kong")) {
    const Figure date{fromRules(game::dateText(game::firstDay)),
                      roomFor(QStringLiteral("Mmm 00, 0000"), fontMetrics())};
    const Figure prices{money(0), roomFor(QStringLiteral("$0,000,000"), fontMetrics())};
    auto* grid = makeLines(this);
    txtDate = addRow(grid, 0, 0, QStringLiteral("Date:"), QStringLiteral("Date"), date);
    m_prices = addGoods(grid, 1, 0, u'P', prices, QStringLiteral("%1 price"));
    grid->setColumnStretch(1, 1);
}

void PricesPanel::show(const game::GameState& state) {
    showTitle(QStringLiteral("Prices at ") + fromRules(state.gstrLocation) + u' ');
    showText(txtDate, fromRules(game::dateText(state.gdtmDate)));
    for (const game::GoodRow& good : game::goods) {
        showText(m_prices.at(game::index(good.good)), money(state.*good.price));
    }
}

GaugePanel::GaugePanel(QWidget* client, const QString& name, const QString& barName,
                       const QString& spoken, const QString& title, int value, int maximum)
    : Panel(client, name, title), m_bar(makeNamed<QProgressBar>(barName)) {
    m_bar->setAccessibleName(spoken);
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
        // QProgressBar repaints synchronously; this defers it to the next paint event.
        m_bar->setUpdatesEnabled(false);
        m_bar->setMaximum(most);
        m_bar->setValue(shown);
        m_bar->setUpdatesEnabled(true);
    }
}

OrdersPanel::OrdersPanel(QWidget* client)
    : Panel(client, QStringLiteral("fraOrders"), QStringLiteral("Orders")) {
    using game::Order;
    struct Row {
        Order order;
        const char* name;
        const char* caption;
    };
    static constexpr std::array<Row, game::orders.size()> rows{{
        {Order::Buy, "cmdBuy", "Buy Merchandice"},  // this spelling is intentional
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
