#include "frmPirate.h"

#include <QCloseEvent>
#include <QGridLayout>

#include "controls.h"
#include "fleet_view.h"
#include "layout.h"
#include "main_form.h"
#include "text.h"
#include "twips.h"

namespace ui {

namespace {

struct OrderRow {
    game::BattleOrder order;
    const char* name;
    const char* caption;
    void (game::Battle::*carryOut)();
};

constexpr std::array<OrderRow, 4> orderRows{{
    {game::BattleOrder::Fight, "cmdFight", "Fight", &game::Battle::fight},
    {game::BattleOrder::FightToDeath, "cmdDeath", "Fight to Death", &game::Battle::fightToDeath},
    {game::BattleOrder::Run, "cmdRun", "Run", &game::Battle::run},
    {game::BattleOrder::DumpCargo, "cmdDump", "Dump Cargo", &game::Battle::dumpCargo},
}};

}  // namespace

frmPirate::frmPirate(MainForm& mainForm)
    : GameForm(mainForm, QStringLiteral("frmPirate"), fromRules(game::attackers(mainForm.state())),
               Escape::Ignored),
      txtEnemy(makeDisplay(QStringLiteral("txtEnemy"))),
      txtStatus(makeDisplay(QStringLiteral("txtStatus"))),
      txtCannons(makeDisplay(QStringLiteral("txtCannons"))),
      txtReport(makeDisplay(QStringLiteral("txtReport"))),
      picShips(new FleetView(QStringLiteral("picShips"))),
      m_commands(new Commands(this)),
      m_battle(mainForm.state(), mainForm.random(), *this) {
    auto* grid = new QGridLayout(this);
    grid->setColumnStretch(0, 1);
    grid->addWidget(makeReport(), 0, 0);
    grid->addWidget(makeOrders(), 0, 1);
    QWidget* sea = makeSea();
    grid->addWidget(sea, 1, 0, 1, 2, Qt::AlignCenter);
    layOutTightly(6855, 4695);
    placeAt(1180, 100);
    sea->layout()->setContentsMargins({});  // the panel has a size of its own
    sea->setFixedSize(sizeFromTwips(6615, 2895).expandedTo(sea->sizeHint()));

    m_battle.open();
    focusOrder(m_orders.front());
}

QWidget* frmPirate::makeReport() {
    auto* frame = makeFrame(QStringLiteral("fraReport"), QStringLiteral("Captain's Report "));
    auto* grid = new QGridLayout(frame);
    const auto addRow = [grid](const char* name, const char* caption, QLineEdit* display) {
        auto* label =
            makeLabelFor(display, QString::fromLatin1(name), QString::fromLatin1(caption));
        display->setFrame(false);
        QPalette plate;
        plate.setColor(QPalette::Base, Qt::transparent);
        display->setPalette(plate);
        makeRoomFor(display, QStringLiteral("0000%"));
        display->setMaximumWidth(display->minimumWidth());
        display->setFixedHeight(display->fontMetrics().height() + measures::lineGap);
        const int line = grid->rowCount();
        grid->addWidget(label, line, 0);
        grid->addWidget(display, line, 1);
    };
    addRow("lblEnemy", "Enemy Ships:", txtEnemy);
    addRow("lblStatus", "Ship's Status:", txtStatus);
    addRow("lblCannons", "Ship's Cannons:", txtCannons);
    grid->setColumnStretch(2, 1);
    grid->addWidget(txtReport, grid->rowCount(), 0, 1, 3);
    txtReport->setAccessibleName(frame->title().trimmed());
    const QString longest = QStringLiteral("Can't lose 'em, but we escaped from 24");
    txtReport->setMinimumWidth(txtReport->fontMetrics().horizontalAdvance(longest) +
                               measures::fieldEdges);
    return frame;
}

QWidget* frmPirate::makeOrders() {
    auto* frame = makeFrame(QStringLiteral("fraOrders"), QStringLiteral("Orders "));
    auto* grid = new QGridLayout(frame);
    for (std::size_t order = 0; order < orderRows.size(); ++order) {
        const OrderRow& row = orderRows.at(order);
        auto* command = makeButton(QString::fromLatin1(row.name), QString::fromLatin1(row.caption));
        grid->addWidget(command, static_cast<int>(order) / 2, static_cast<int>(order) % 2);
        m_orders.at(order) = command;
        m_commands->giveOn(command, &QPushButton::clicked, [this, command, &row] {
            (m_battle.*row.carryOut)();
            focusOrder(command);
        });
    }
    return frame;
}

QWidget* frmPirate::makeSea() {
    auto* frame = makeFrame(QStringLiteral("FraEnemy"), QStringLiteral("Enemy Ships "));
    auto* sea = new QGridLayout(frame);
    sea->addWidget(picShips, 0, 0, Qt::AlignCenter);
    return frame;
}

QPushButton* frmPirate::button(game::BattleOrder order) const {
    return m_orders.at(static_cast<std::size_t>(order));
}

void frmPirate::focusOrder(QPushButton* preferred) {
    // Disabled buttons lose the focus; the next order should be one key press away.
    if (preferred->isEnabled()) {
        return preferred->setFocus();
    }
    for (QPushButton* order : m_orders) {
        if (order->isEnabled()) {
            return order->setFocus();
        }
    }
}

void frmPirate::closeEvent(QCloseEvent* event) {
    event->ignore();
    const auto ask = [this] {
        if (mainForm().desktop().confirm(this,
                                         QStringLiteral("Do you want to quit this game?     "),
                                         programName, Icon::Question, Answer::No)) {
            endProgram();
        }
    };
    if (!m_commands->giveNow(ask)) {
        ask();  // a volley or a run goes on after the answer
    }
}

void frmPirate::setOrderEnabled(game::BattleOrder order, bool enabled) {
    button(order)->setEnabled(enabled);
}

void frmPirate::report(std::string_view text) {
    showText(txtReport, fromRules(text));
}

void frmPirate::showFleet(game::Currency ships) {
    showText(txtEnemy, plain(ships));
    picShips->showShips(ships.toInt());
}

void frmPirate::showStatus(game::Currency percent) {
    showText(txtStatus, plain(percent) + QStringLiteral("%"));
    mainForm().previewStatus(percent);
}

void frmPirate::showCannons(game::Currency cannons) {
    showText(txtCannons, plain(cannons));
}

void frmPirate::sinkLast(game::Currency ships, game::Milliseconds step) {
    picShips->sink(ships.toInt() - 1, [this, step] { wait(step); });
}

void frmPirate::flash() {
    if (animated(*this)) {
        picShips->setColour(Qt::red);
    }
    wait(game::pace::hitFlash);
    picShips->setColour(Qt::black);
}

void frmPirate::wait(game::Milliseconds duration) {
    mainForm().desktop().wait(duration);
}

void frmPirate::appendEntry(std::string_view message) {
    mainForm().appendEntry(message);
}

void frmPirate::refresh() {
    mainForm().UpdateMainForm();
}

void frmPirate::inform(std::string_view text) {
    mainForm().desktop().inform(this, fromRules(text));
}

bool frmPirate::confirmDumping() {
    return mainForm().desktop().confirm(
        this, QStringLiteral("Are you sure you want to dump all of your cargo.     "),
        QStringLiteral("Dump Cargo"), Icon::Question, Answer::No);
}

bool frmPirate::playAgain() {
    return mainForm().desktop().confirm(
        this, QStringLiteral("Zhenbao, you have sunk.  Would you like to play again?     "),
        QStringLiteral("Game Over"), Icon::Warning, Answer::Yes, Answer::Yes);
}

void frmPirate::finish() {
    accept();
}

void frmPirate::endProgram() {
    mainForm().desktop().endProgram();
}

}  // namespace ui
