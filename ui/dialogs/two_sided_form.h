#pragma once

#include <array>
#include <functional>
#include <string>

#include "form.h"

class QLabel;

namespace ui {

class AmountField;

/// A dialog where money moves one of two ways. Working on one side disables the other; the zero
/// entry of its list enables it again.
class TwoSidedForm : public GameForm {
protected:
    struct Side {
        QString name;  ///< "Deposit" makes lblDeposit and cboDeposit
        std::function<game::Currency(const game::GameState&)> most;
        std::function<game::Refusal(const game::GameState&, game::Currency)> refuse;
        std::function<std::string(game::GameState&, game::Currency)> apply;
    };
    using Sides = std::array<Side, 2>;

    TwoSidedForm(MainForm& mainForm, const QString& name, const QString& caption,
                 const QString& okCaption, Sides sides);

private:
    struct Row {
        QLabel* label = nullptr;
        AmountField* field = nullptr;
    };

    [[nodiscard]] Row makeRow(const Side& side);
    /// Disables or enables `other` while the player works on `row`.
    void connectSides(const Row& row, const Row& other);
    /// Carries out one side and then the other. The first stands even if the second is refused.
    void cmdOK_Click();

    Sides m_sides;
    std::array<Row, 2> m_rows;
};

}  // namespace ui
