#include "frmNew.h"

#include <QBoxLayout>
#include <QValidator>

#include "controls.h"
#include "main_form.h"
#include "new_game.h"
#include "text.h"

namespace ui {

namespace {

constexpr int longestFirm = 24;  ///< characters

/// Removes double quotes from the firm's name, which a saved game cannot hold, and turns line
/// breaks and control characters into blanks.
class FirmValidator final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int& position) const override {
        position -= static_cast<int>(input.left(position).count(u'"'));
        input = onOneLine(input.remove(u'"'));
        return Acceptable;
    }
};

}  // namespace

QString firmName(const QString& typed) {
    constexpr QChar blank = u' ';
    qsizetype begin = 0;
    qsizetype end = typed.size();
    while (begin < end && typed.at(begin) == blank) {
        ++begin;
    }
    while (end > begin && typed.at(end - 1) == blank) {
        --end;
    }
    if (begin == end) {
        return fromRules(game::defaultFirm);
    }
    std::u32string name = typed.mid(begin, end - begin).toStdU32String();
    name.front() = QChar::toUpper(name.front());
    return QString::fromStdU32String(name);
}

frmNew::frmNew(MainForm& mainForm)
    : Form(mainForm, QStringLiteral("frmNew"), QStringLiteral("New Game")),
      optCash(makeOption(QStringLiteral("optCash"),
                         QStringLiteral("Begin with cash and debt (No Cannons)"))),
      txtFirm(makeNamed<QLineEdit>(QStringLiteral("txtFirm"))) {
    auto* optDebt = makeOption(QStringLiteral("optDebt"),
                               QStringLiteral("Begin with no cash or debt (5 Cannons)"));
    auto* fraSelectScenario =
        makeFrame(QStringLiteral("fraSelectScenario"), QStringLiteral("Select Scenario"));
    auto* scenarios = new QVBoxLayout(fraSelectScenario);
    scenarios->addWidget(optCash);
    scenarios->addWidget(optDebt);
    optDebt->setChecked(true);

    auto* fraFirm = makeFrame(QStringLiteral("fraFirm"), QStringLiteral("Type Name of Firm "));
    txtFirm->setMaxLength(longestFirm);
    txtFirm->setValidator(new FirmValidator(txtFirm));
    txtFirm->setAccessibleName(QStringLiteral("Name of Firm"));
    (new QVBoxLayout(fraFirm))->addWidget(txtFirm);

    auto* cmdStart = makeButton(QStringLiteral("cmdStart"), QStringLiteral("Start Game"));
    auto* cmdCancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    cmdStart->setDefault(true);
    cmdCancel->setEnabled(!mainForm.state().gblnGameOver);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdStart);
    buttons->addWidget(cmdCancel);

    auto* rows = new QVBoxLayout(this);
    rows->addWidget(fraSelectScenario);
    rows->addWidget(fraFirm);
    rows->addLayout(buttons);
    fixSize(4500, 2850);
    txtFirm->setFocus();

    connect(cmdStart, &QPushButton::clicked, this, &frmNew::cmdStart_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmNew::reject);
}

void frmNew::reject() {
    if (!mainForm().state().gblnGameOver) {
        Form::reject();
    }
}

void frmNew::cmdStart_Click() {
    game::startGame(mainForm().state(), mainForm().random(),
                    optCash->isChecked() ? game::Scenario::CashAndDebt : game::Scenario::Cannons,
                    toRules(firmName(txtFirm->text())));
    mainForm().beginGame(game::welcomeMessage);
    mainForm().UpdateMainForm();
    mainForm().state().gblnGameSaved = true;
    accept();
}

}  // namespace ui
