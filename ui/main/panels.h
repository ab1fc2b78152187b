#pragma once

#include <QGroupBox>
#include <array>
#include <map>

#include "game_state.h"
#include "orders.h"

class QLineEdit;
class QProgressBar;
class QPushButton;

namespace ui {

/// A display for each good.
using GoodDisplays = std::array<QLineEdit*, game::goods.size()>;

/// A panel whose title comes from the game and its files: shown as plain text on one line, and
/// never a reason for the window to grow.
class Panel : public QGroupBox {
public:
    Panel(QWidget* client, const QString& name, const QString& title);

    void showTitle(const QString& title);
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
};

/// What the house owns and owes: warehouse, ship and money.
class HousePanel final : public Panel {
public:
    explicit HousePanel(QWidget* client);

    void showFirm(const QString& firm);
    void show(const game::GameState& state);
    [[nodiscard]] const QLineEdit* cash() const { return txtCash; }

private:
    GoodDisplays m_warehouse{};
    GoodDisplays m_ship{};
    QLineEdit* txtCannons;
    QLineEdit* txtCash;
    QLineEdit* txtDebt;
    QLineEdit* txtBank;
};

/// The four prices of the port, and the date.
class PricesPanel final : public Panel {
public:
    explicit PricesPanel(QWidget* client);

    void show(const game::GameState& state);

private:
    GoodDisplays m_prices{};
    QLineEdit* txtDate;
};

/// A titled bar: the ship's condition, the hold in use.
class GaugePanel final : public Panel {
public:
    GaugePanel(QWidget* client, const QString& name, const QString& barName, const QString& spoken,
               const QString& title, int value, int maximum);

    /// Shows `value` of `maximum`; figures beyond the bar's range stop at its ends.
    void show(const QString& title, game::Currency value, game::Currency maximum);

private:
    QProgressBar* m_bar;
};

/// The nine orders.
class OrdersPanel final : public Panel {
    Q_OBJECT

public:
    explicit OrdersPanel(QWidget* client);

    void setOrderEnabled(game::Order order, bool enabled);
    /// Gives the focus to the button of `order`.
    void focusOrder(game::Order order);

signals:
    void given(game::Order order);

private:
    std::map<game::Order, QPushButton*> m_buttons;
};

}  // namespace ui
