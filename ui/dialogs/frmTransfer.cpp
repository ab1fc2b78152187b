#include "frmTransfer.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "amount_field.h"
#include "button_column.h"
#include "controls.h"
#include "main_form.h"
#include "text.h"

namespace ui {

namespace {

/// A list of goods ignores letters, which would choose another good.
class GoodsList final : public QComboBox {
public:
    GoodsList() {
        installEventFilter(this);
        view()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool pressed = event->type() == QEvent::KeyPress;
        return (pressed && !isAllowed(*static_cast<QKeyEvent*>(event))) ||
               QComboBox::eventFilter(watched, event);
    }
};

QGroupBox* frameRow(const QString& name, const QString& title, QWidget* good, QWidget* amount) {
    auto* frame = makeFrame(name, title);
    auto* line = new QHBoxLayout(frame);
    line->addWidget(good);
    line->addWidget(amount, 1);
    return frame;
}

}  // namespace

frmTransfer::frmTransfer(MainForm& mainForm)
    : GameForm(mainForm, QStringLiteral("frmTransfer"), QStringLiteral("Transfer Cargo")),
      m_toWarehouse(
          makeRow(QStringLiteral("cboShip"), QStringLiteral("cboSAmount"), game::Place::Warehouse)),
      m_toShip(
          makeRow(QStringLiteral("cboWarehouse"), QStringLiteral("cboWAmount"), game::Place::Ship)),
      cmdTransfer(makeButton(QStringLiteral("cmdTransfer"), QStringLiteral("Transfer"))) {
    auto* rows = new QWidget;
    auto* column = new QVBoxLayout(rows);
    column->setContentsMargins({});
    column->addWidget(frameRow(QStringLiteral("Frame2"), QStringLiteral("Ship --> Warehouse "),
                               m_toWarehouse.good, m_toWarehouse.amount));
    column->addWidget(frameRow(QStringLiteral("Frame1"), QStringLiteral("Warehouse --> Ship "),
                               m_toShip.good, m_toShip.amount));
    auto* cmdCancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    layOutWithButtons(this, rows, {cmdTransfer, cmdCancel});

    connect(cmdTransfer, &QPushButton::clicked, this, &frmTransfer::cmdTransfer_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    UpdateTransferButton();
    layOutTightly(4815, 1815);
    placeAt(3300, 2960);
}

game::Load frmTransfer::Row::load() const {
    const auto chosen = static_cast<std::size_t>(good->currentIndex());
    return {game::goods.at(chosen).good, amount->typed()};
}

frmTransfer::Row frmTransfer::makeRow(const QString& goodName, const QString& amountName,
                                      game::Place destination) {
    const Row row{makeNamed<GoodsList>(goodName), new AmountField(amountName, plain)};
    const bool aboard = destination == game::Place::Ship;
    // Assistive programs call a list by its label or its text, and here is no label.
    const QString use = aboard ? QStringLiteral("%1 to move to the ship")
                               : QStringLiteral("%1 to move to the warehouse");
    row.good->setAccessibleDescription(use.arg(QStringLiteral("Good")));
    row.amount->setAccessibleDescription(use.arg(QStringLiteral("Units")));
    for (const game::GoodRow& good : game::goods) {
        row.good->addItem(fromRules(good.name));
    }
    row.amount->setMinimumContentsLength(roomForUnits);
    row.amount->setMaximum([this, row, destination] {
        return game::mostToTransfer(mainForm().state(), destination, row.load().good);
    });
    connect(row.amount, &QComboBox::editTextChanged, this, &frmTransfer::UpdateTransferButton);
    return row;
}

game::TransferOrder frmTransfer::order() const {
    return {.toShip = m_toShip.load(), .toWarehouse = m_toWarehouse.load()};
}

void frmTransfer::UpdateTransferButton() {
    cmdTransfer->setEnabled(m_toShip.amount->amount() > 0 || m_toWarehouse.amount->amount() > 0);
}

void frmTransfer::cmdTransfer_Click() {
    const game::TransferOrder wanted = order();
    if (refused(game::refuseTransfer(mainForm().state(), wanted))) {
        return;
    }
    report(game::transfer(mainForm().state(), wanted));
    accept();
}

}  // namespace ui
