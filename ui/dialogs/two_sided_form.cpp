#include "two_sided_form.h"

#include <QGridLayout>

#include "amount_field.h"
#include "button_column.h"
#include "controls.h"
#include "main_form.h"
#include "text.h"

namespace ui {

TwoSidedForm::TwoSidedForm(MainForm& mainForm, const QString& name, const QString& caption,
                           const QString& okCaption, Sides sides)
    : GameForm(mainForm, name, caption),
      m_sides(std::move(sides)),
      m_rows{makeRow(m_sides[0]), makeRow(m_sides[1])} {
    auto* select = makeFrame(QStringLiteral("fraSelect"), QStringLiteral("Select Amount "));
    auto* grid = new QGridLayout(select);
    grid->setColumnStretch(1, 1);
    for (const Row& row : m_rows) {
        const int line = grid->rowCount();
        grid->addWidget(row.label, line, 0);
        grid->addWidget(row.field, line, 1);
    }
    auto* cmdOK = makeButton(QStringLiteral("cmdOK"), okCaption);
    auto* cmdCancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    layOutWithButtons(this, select, {cmdOK, cmdCancel});

    connectSides(m_rows[0], m_rows[1]);
    connectSides(m_rows[1], m_rows[0]);
    connect(cmdOK, &QPushButton::clicked, this, &TwoSidedForm::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

TwoSidedForm::Row TwoSidedForm::makeRow(const Side& side) {
    auto* field = new AmountField(QStringLiteral("cbo") + side.name, money);
    const Row row{makeLabelFor(field, QStringLiteral("lbl") + side.name, side.name + u':'), field};
    row.field->setMinimumContentsLength(roomForMoney);
    row.field->setMaximum([this, most = side.most] { return most(mainForm().state()); });
    return row;
}

void TwoSidedForm::connectSides(const Row& row, const Row& other) {
    const auto enableOther = [other](bool enabled) {
        other.label->setEnabled(enabled);
        other.field->setEnabled(enabled);
    };
    connect(row.field, &AmountField::dropDown, this, [=] { enableOther(false); });
    connect(row.field, &AmountField::keyTyped, this, [=] { enableOther(false); });
    connect(row.field, &AmountField::entryPicked, this, [=] {
        if (row.field->amount() == 0) {
            enableOther(true);
        }
    });
}

void TwoSidedForm::cmdOK_Click() {
    mainForm().showReportEnd();
    for (std::size_t side = 0; side < m_sides.size(); ++side) {
        const game::Currency amount = m_rows.at(side).field->amount();
        if (amount == 0) {
            continue;
        }
        if (refused(m_sides.at(side).refuse(mainForm().state(), amount))) {
            return;
        }
        mainForm().appendEntry(m_sides.at(side).apply(mainForm().state(), amount));
    }
    mainForm().state().gblnGameSaved = false;
    accept();
}

}  // namespace ui
