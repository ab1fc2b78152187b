#pragma once

#include "form.h"
#include "transfer.h"

class QComboBox;
class QGroupBox;
class QPushButton;

namespace ui {

class AmountField;

/// Moves goods between the ship and the warehouse.
class frmTransfer final : public GameForm {
public:
    explicit frmTransfer(MainForm& mainForm);

private:
    /// One direction: a good and how much of it.
    struct Row {
        QComboBox* good;
        AmountField* amount;

        [[nodiscard]] game::Load load() const;
    };

    [[nodiscard]] Row makeRow(const QString& goodName, const QString& amountName,
                              game::Place destination);
    [[nodiscard]] game::TransferOrder order() const;
    void UpdateTransferButton();
    void cmdTransfer_Click();

    Row m_toWarehouse;
    Row m_toShip;
    QPushButton* cmdTransfer;
};

}  // namespace ui
