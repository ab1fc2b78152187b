#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "trading.h"

class QGroupBox;
class QRadioButton;
class QVBoxLayout;

namespace ui {

class AmountField;

/// What buying and selling have in common: an amount of each good, and ship or warehouse. A click
/// on a place clears the amounts.
class TradePanel final : public QWidget {
    Q_OBJECT

public:
    /// The texts and names that differ between buying and selling.
    struct Wording {
        QString maximum;     ///< the button beside an amount
        QString placeFrame;  ///< object name
        QString placeTitle;
    };

    TradePanel(const Wording& wording, bool warehouseAllowed);

    /// The amounts and the place as they stand on the screen.
    [[nodiscard]] game::TradeOrder order() const;
    /// The amounts' texts, letter by letter.
    [[nodiscard]] std::array<std::string, game::goods.size()> typed() const;

    void setAmount(game::Good good, game::Currency amount);
    /// What a good's list ends with.
    void setMaximum(const std::function<game::Currency(game::Good)>& maximum);
    /// Puts the dialog's own buttons below the places.
    void addCommand(QWidget* command);

signals:
    /// An amount or the place changed.
    void changed();
    /// The button beside the amount of `good` was pressed.
    void maximumWanted(game::Good good);

private:
    [[nodiscard]] QGroupBox* makeGoods(const Wording& wording);
    [[nodiscard]] QGroupBox* makePlaces(const Wording& wording, bool warehouseAllowed);
    void clearAmounts();

    std::array<AmountField*, game::goods.size()> m_fields{};
    QRadioButton* m_ship = nullptr;
    QVBoxLayout* m_right = nullptr;
};

}  // namespace ui
