#include "frmStats.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "calendar.h"
#include "controls.h"
#include "main_form.h"
#include "standing.h"
#include "text.h"
#include "twips.h"

namespace ui {

namespace {

QString title(frmStats::Occasion occasion) {
    switch (occasion) {
        case frmStats::Occasion::Menu:
            return QStringLiteral("Current Statistics");
        case frmStats::Occasion::Millionaire:
            return QStringLiteral("You are a Millionaire!");
        case frmStats::Occasion::Trillionaire:
            return QStringLiteral("You are a Trillionaire!");
    }
    return {};
}

QString timeTrading(const game::GameDate& date) {
    const int months = game::monthsElapsed(date);
    return QString::number(months) +
           (months == 1 ? QStringLiteral(" Month") : QStringLiteral(" Months"));
}

void addRow(QGridLayout* rows, QLabel* name, QLabel* value) {
    rows->setHorizontalSpacing(pixels(300));
    const int row = rows->rowCount();
    value->setAccessibleName(name->text() + u' ' + value->text());
    rows->addWidget(name, row, 0);
    rows->addWidget(value, row, 1, Qt::AlignRight);
}

QGroupBox* makeLegend() {
    auto* fraLegend = makeFrame(QStringLiteral("fraLegend"), QStringLiteral("Legend"));
    auto* rows = new QGridLayout(fraLegend);
    for (const game::RankRow& rank : game::ranks) {
        addRow(rows, makeLabel({}, fromRules(rank.name)), makeLabel({}, fromRules(rank.points)));
    }
    return fraLegend;
}

}  // namespace

frmStats::frmStats(MainForm& mainForm, Occasion occasion)
    : Form(mainForm, QStringLiteral("frmStats"), title(occasion)) {
    auto* cmdRetire = makeButton(QStringLiteral("cmdRetire"), QStringLiteral("Retire"));
    auto* cmdOK = makeButton(QStringLiteral("cmdOK"), QStringLiteral("OK"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdRetire);
    buttons->addWidget(cmdOK);

    auto* rows = new QVBoxLayout(this);
    rows->addWidget(makeStatistics());
    rows->addWidget(makeLegend());
    rows->addLayout(buttons);

    connect(cmdRetire, &QPushButton::clicked, this, &frmStats::cmdRetire_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmStats::accept);

    cmdRetire->setEnabled(game::mayRetire(mainForm.state()));
    cmdOK->setEnabled(occasion != Occasion::Trillionaire);
    cmdOK->setDefault(true);
    if (!cmdOK->isEnabled()) {
        setFocus();  // on Retire a stray press of the space bar would end the program
    }
    fixSize(4'200, 5'400);
    placeAt(2'800, 1'030);
}

QGroupBox* frmStats::makeStatistics() const {
    struct Row {
        QString name;
        QString label;
        QString value;
    };
    const game::GameState& state = mainForm().state();
    const Row statistics[] = {
        {QStringLiteral("Net"), QStringLiteral("Net Worth:"), money(state.gcurNetWorth)},
        {QStringLiteral("Ship"), QStringLiteral("Ship Size:"), plain(state.gcurMaxHold)},
        {QStringLiteral("Cannons"), QStringLiteral("Cannons:"), plain(state.gcurCannons)},
        {QStringLiteral("Time"), QStringLiteral("Time Trading:"), timeTrading(state.gdtmDate)},
        {QStringLiteral("Total"), QStringLiteral("Total Score:"), plain(state.gcurRank)},
        {QStringLiteral("Rank"), QStringLiteral("Rank:"), fromRules(state.gstrRank)},
    };

    auto* fraRank = makeFrame(QStringLiteral("fraRank"), QStringLiteral("Statistics"));
    auto* rows = new QGridLayout(fraRank);
    for (const Row& row : statistics) {
        const QString name = QStringLiteral("lbl") + row.name;
        addRow(rows, makeLabel(name, row.label),
               makeLabel(name + QStringLiteral("Value"), row.value));
    }
    return fraRank;
}

void frmStats::cmdRetire_Click() {
    Desktop& desktop = mainForm().desktop();
    if (game::isTrillionaire(mainForm().state()) ||
        desktop.confirm(this, QStringLiteral("Do you really want to quit this game?   "),
                        programName, Icon::Question, Answer::No)) {
        desktop.endProgram();
    }
}

}  // namespace ui
