#include "frmRepair.h"

#include <QGridLayout>
#include <QSignalBlocker>
#include <QSlider>

#include "button_column.h"
#include "controls.h"
#include "main_form.h"
#include "shipyard.h"
#include "text.h"

namespace ui {

frmRepair::frmRepair(MainForm& mainForm)
    : GameForm(mainForm, QStringLiteral("frmRepair"), QStringLiteral("Repair Ship")),
      txtPrice(makeDisplay(QStringLiteral("txtPrice"))),
      txtStatus(makeDisplay(QStringLiteral("txtStatus"))),
      sldRepair(makeNamed<QSlider>(QStringLiteral("sldRepair"), Qt::Horizontal)),
      cmdRepair(makeButton(QStringLiteral("cmdRepair"), QStringLiteral("Repair"))) {
    auto* cmdRepairMax = makeButton(QStringLiteral("cmdRepairMax"), QStringLiteral("Repair Max"));
    auto* cmdCancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    layOutWithButtons(this, makeSelection(), {cmdRepair, cmdRepairMax, cmdCancel});

    sldRepair->setValue(mainForm.state().gcurStatus.toInt());
    connect(sldRepair, &QSlider::valueChanged, this, &frmRepair::sldRepair_Change);
    connect(cmdRepair, &QPushButton::clicked, this, &frmRepair::cmdRepair_Click);
    connect(cmdRepairMax, &QPushButton::clicked, this, &frmRepair::cmdRepairMax_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    txtStatus->setText(QString::number(sldRepair->value()) + QStringLiteral("%"));
    txtPrice->setText(money(0));
    cmdRepair->setEnabled(false);
    layOutTightly(6015, 1845);
    placeAt(0, 2940);
}

QGroupBox* frmRepair::makeSelection() {
    auto* select = makeFrame(QStringLiteral("fraSelect"), QStringLiteral("Select Amount "));
    auto* lblPrice =
        makeLabelFor(txtPrice, QStringLiteral("lblPrice"), QStringLiteral("Cost of Repair:"));
    auto* lblStatus =
        makeLabelFor(txtStatus, QStringLiteral("lblStatus"), QStringLiteral("Ship's Status:"));
    sldRepair->setAccessibleName(QStringLiteral("Condition to restore in percent"));
    sldRepair->setRange(0, game::soundShip.toInt());
    sldRepair->setSingleStep(1);
    sldRepair->setPageStep(5);

    makeRoomFor(txtPrice, widestMoney);
    makeRoomFor(txtStatus, widestMoney);  // as wide as the price above it
    auto* grid = new QGridLayout(select);
    grid->addWidget(lblPrice, 0, 0);
    grid->addWidget(txtPrice, 0, 1);
    grid->addWidget(lblStatus, 1, 0);
    grid->addWidget(txtStatus, 1, 1);
    grid->addWidget(sldRepair, 2, 0, 1, 2);
    return select;
}

game::Currency frmRepair::condition() const {
    return game::offeredCondition(mainForm().state(), sldRepair->value());
}

void frmRepair::sldRepair_Change() {
    {
        const QSignalBlocker quiet(sldRepair);  // putting the slider back is no new movement
        sldRepair->setValue(condition().toInt());
    }
    const game::Currency chosen = condition();
    cmdRepair->setEnabled(chosen > mainForm().state().gcurStatus);
    showText(txtStatus, plain(chosen) + QStringLiteral("%"));
    showText(txtPrice, money(game::repairPrice(mainForm().state(), chosen)));
    mainForm().previewStatus(chosen);
}

void frmRepair::cmdRepair_Click() {
    mainForm().showReportEnd();
    const game::Currency chosen = condition();
    if (refused(game::refuseRepair(mainForm().state(), chosen))) {
        return;
    }
    mainForm().appendEntry(game::repair(mainForm().state(), chosen));
    accept();
}

void frmRepair::cmdRepairMax_Click() {
    mainForm().showReportEnd();
    if (game::canRepairMax(mainForm().state())) {
        mainForm().appendEntry(game::repairMax(mainForm().state()));
    }
    accept();
}

}  // namespace ui
