#include "frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "controls.h"
#include "fonts.h"
#include "frmAbout.h"
#include "frmBuy.h"
#include "frmHelp.h"
#include "frmLeave.h"
#include "frmMoney.h"
#include "frmNew.h"
#include "frmPirate.h"
#include "frmRepair.h"
#include "frmSell.h"
#include "frmStats.h"
#include "frmTransfer.h"
#include "frmVisit.h"
#include "held_keys.h"
#include "layout.h"
#include "log_view.h"
#include "menus.h"
#include "panels.h"
#include "purchases.h"
#include "saved_games.h"
#include "standing.h"
#include "text.h"

namespace ui {

namespace {

/// In pixels: wide enough that dialogs leave the gauges in sight, high enough for a dozen entries
/// of the report. At this width all orders have one size, so the style renders one button for all.
constexpr QSize initialSize{782, 620};

/// The area below the menu bar, set off from it by an etched line.
class ClientArea final : public QWidget {
protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const bool dark = palette().color(QPalette::Window).lightness() < 128;
        QPainter painter(this);
        painter.fillRect(0, 0, width(), 1, palette().color(QPalette::Dark));
        painter.fillRect(0, 1, width(), 1, dark ? palette().color(QPalette::Light) : Qt::white);
    }
};

/// Opens a dialog over the main window and waits until it is closed.
template <class Dialog, class... Arguments>
void open(MainForm& mainForm, Arguments... arguments) {
    Dialog dialog(mainForm, arguments...);
    dialog.exec();
}

QString statusTitle(game::Currency percent) {
    return QStringLiteral("Ship's Status - ") + plain(percent) + QStringLiteral("% ");
}

}  // namespace

frmMain::frmMain(Desktop& desktop, game::Random& random)
    : m_desktop(desktop),
      m_random(random),
      m_commands(new Commands(this)),
      m_menus(new Menus(menuBar())) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(programName);
    ignoreHeldKeys(this);
    setCentralWidget(makeClient());
    const QSize wanted = initialSize.expandedTo(sizeHint());
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(wanted.width(),
           std::min(wanted.height(), screen()->availableSize().height() - titleBar));
    connectMenus();
    connect(fraOrders, &OrdersPanel::given, this, [this](game::Order order) {
        m_commands->giveLater([this, order] { carryOut(order); });
    });
}

QWidget* frmMain::makeClient() {
    auto* client = makeNamed<ClientArea>(QStringLiteral("picClient"));
    client->setFont(
        fontOf({QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue")}, font()));
    fraHouse = new HousePanel(client);
    fraPrices = new PricesPanel(client);
    fraStatus = new GaugePanel(client, QStringLiteral("fraStatus"), QStringLiteral("prgStatus"),
                               QStringLiteral("Ship's status in percent"),
                               QStringLiteral("Ship's Status - 100%"), 100, 100);
    fraHold = new GaugePanel(client, QStringLiteral("fraHold"), QStringLiteral("prgHold"),
                             QStringLiteral("Ship's hold in use"),
                             QStringLiteral("Ship's Hold - 0 of 60"), 0, 60);
    fraOrders = new OrdersPanel(client);
    auto* fraLog = makeFrame(QStringLiteral("fraLog"), QStringLiteral("Comprador's Report"));
    txtLog = new LogView;
    (new QVBoxLayout(fraLog))->addWidget(txtLog);

    // Dialogs open over the orders and the report, so that figures and gauges stay in sight.
    auto* grid = new QGridLayout(client);
    grid->setContentsMargins(measures::mainEdge, measures::windowEdge, measures::mainEdge,
                             measures::mainEdge);
    auto* gauges = new QVBoxLayout;
    gauges->addWidget(fraStatus);
    gauges->addWidget(fraHold);
    grid->addWidget(fraHouse, 0, 0);
    grid->addWidget(fraPrices, 0, 1);
    grid->addWidget(fraOrders, 1, 0);
    grid->addLayout(gauges, 1, 1);
    grid->addWidget(fraLog, 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(2, 1);
    return client;
}

void frmMain::connectMenus() {
    const auto connectItem = [this](auto signal, const Commands::Command& command) {
        m_commands->giveOn(m_menus, signal, command);
    };
    connectItem(&Menus::newGame, [this] { mnuNewItem_Click(); });
    connectItem(&Menus::loadGame, [this] { mnuLoadItem_Click(); });
    connectItem(&Menus::saveGame, [this] { saveGame(*this); });
    connectItem(&Menus::statistics, [this] { open<frmStats>(*this, frmStats::Occasion::Menu); });
    connectItem(&Menus::help, [this] { open<frmHelp>(*this); });
    connectItem(&Menus::checkForUpdates, [this] { openHomePage(m_desktop); });
    connectItem(&Menus::about, [this] { open<frmAbout>(*this); });
    // Closing is no command, since it may also come from the window's frame.
    connect(m_menus, &Menus::exit, this, &frmMain::close, Qt::QueuedConnection);
}

std::vector<const QWidget*> frmMain::figures() const {
    return {fraHouse->cash(), fraHold, fraStatus, fraPrices, fraHouse};
}

bool frmMain::moneyLenderBug() const {
    return m_menus->moneyLenderBug();
}

void frmMain::UpdateMainForm() {
    txtLog->refresh();
    enableOrdersOfPort();
    game::updateStanding(m_state);
    showState();
    announceFortune();
}

void frmMain::enableOrdersOfPort() {
    if (m_underWay) {
        return;
    }
    for (const game::Order order : game::orders) {
        if (const std::optional<bool> allowed = game::allowedInPort(m_state, order)) {
            setOrderEnabled(order, *allowed);
        }
    }
}

void frmMain::showState() {
    setWindowTitle(programName + QStringLiteral(" - ") + fromRules(m_state.gstrRank) +
                   QStringLiteral(" [") + money(m_state.gcurNetWorth) + QStringLiteral("]"));
    fraHouse->show(m_state);
    fraPrices->show(m_state);
    previewStatus(m_state.gcurStatus);
    fraHold->show(QStringLiteral("Ship's Hold - ") + plain(m_state.gcurHold) +
                      QStringLiteral(" of ") + plain(m_state.gcurMaxHold) + u' ',
                  m_state.gcurHold, m_state.gcurMaxHold);
}

void frmMain::announceFortune() {
    if (game::millionaireNoticeDue(m_state)) {
        open<frmStats>(*this, frmStats::Occasion::Millionaire);
        m_state.gblnMillionaire = true;
    }
    if (game::isTrillionaire(m_state)) {
        open<frmStats>(*this, frmStats::Occasion::Trillionaire);
    }
    if (game::isBankrupt(m_state)) {
        if (!m_desktop.confirm(this, fromRules(game::bankruptcyQuestion),
                               QStringLiteral("Game Over"), Icon::Warning, Answer::Yes,
                               Answer::Yes)) {
            m_desktop.endProgram();
        }
        game::endGame(m_state);
        open<frmNew>(*this);
    }
}

void frmMain::beginGame(std::string_view message) {
    fraHouse->showFirm(fromRules(m_state.gstrFirm));
    txtLog->open(m_state.gdtmDate, message);
    m_menus->enableGameItems();
    if (game::inHongKong(m_state)) {
        setOrderEnabled(game::Order::Money, true);
    }
    setOrderEnabled(game::Order::Cannon, false);
    setOrderEnabled(game::Order::Ship, false);
    enableOrdersOfPort();
    fraOrders->focusOrder(game::orders.front());
}

void frmMain::appendEntry(std::string_view message, std::string_view continuation) {
    txtLog->addEntry(m_state.gdtmDate, message, continuation);
}

void frmMain::appendText(std::string_view text) {
    txtLog->append(text);
}

void frmMain::showReportEnd() {
    txtLog->showEnd();
}

void frmMain::flash(game::Alert alert) {
    if (animated(*this)) {
        txtLog->showAlert(alert);
    }
    wait(game::pace::alertFlash);
    txtLog->showCalm();
}

void frmMain::wait(game::Milliseconds duration) {
    m_desktop.wait(duration);
}

void frmMain::setOrderEnabled(game::Order order, bool enabled) {
    fraOrders->setOrderEnabled(order, enabled);
}

void frmMain::setUnderWay(bool underWay) {
    m_underWay = underWay;
    m_menus->setOpen(!underWay);
    if (!underWay) {
        enableOrdersOfPort();
        fraOrders->focusOrder(game::Order::Leave);  // disabled orders had lost the focus
    }
}

void frmMain::setAtSea(bool atSea) {
    if (atSea) {
        setCursor(Qt::BusyCursor);
    } else {
        unsetCursor();
    }
}

bool frmMain::ask(std::string_view text, std::string_view title) {
    return m_desktop.confirm(this, fromRules(text), fromRules(title), Icon::Question, Answer::No);
}

void frmMain::inform(std::string_view text, std::string_view title) {
    m_desktop.inform(this, fromRules(text), fromRules(title));
}

void frmMain::showBattle() {
    open<frmPirate>(*this);
    // A box and the battle may close so fast that the window manager activates no window.
    activateWindow();
}

void frmMain::previewStatus(game::Currency percent) {
    fraStatus->show(statusTitle(percent), percent, 100);
}

void frmMain::carryOut(game::Order order) {
    switch (order) {
        case game::Order::Buy:
            return open<frmBuy>(*this);
        case game::Order::Sell:
            return open<frmSell>(*this);
        case game::Order::Leave:
            return cmdLeave_Click();
        case game::Order::Visit:
            return open<frmVisit>(*this);
        case game::Order::Money:
            return open<frmMoney>(*this);
        case game::Order::Transfer:
            return open<frmTransfer>(*this);
        case game::Order::Repair:
            return open<frmRepair>(*this);
        case game::Order::Cannon:
            return cmdCannon_Click();
        case game::Order::Ship:
            return cmdShip_Click();
    }
}

void frmMain::cmdLeave_Click() {
    open<frmLeave>(*this);
    if (!m_state.gblnActiveGame) {
        open<frmNew>(*this);
    }
}

void frmMain::cmdCannon_Click() {
    buyOffer(game::Order::Cannon, game::refuseCannon(m_state), game::buyCannon);
}

void frmMain::cmdShip_Click() {
    buyOffer(game::Order::Ship, game::refuseShip(m_state), game::buyShip);
}

void frmMain::buyOffer(game::Order order, const game::Refusal& refusal,
                       std::string (*buy)(game::GameState&)) {
    showReportEnd();
    if (refusal) {
        m_desktop.inform(this, fromRules(*refusal), refusalTitle);
        return;
    }
    const std::string message = buy(m_state);
    setOrderEnabled(order, false);
    appendEntry(message);
    UpdateMainForm();
}

void frmMain::mnuNewItem_Click() {
    if (!m_state.gblnActiveGame || goOnAfterSaveQuestion()) {
        open<frmNew>(*this);
    }
}

void frmMain::mnuLoadItem_Click() {
    if (!hasUnsavedChanges() || goOnAfterSaveQuestion()) {
        loadGame(*this);
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    m_commands->giveNow([&] {
        if (!hasUnsavedChanges() || goOnAfterSaveQuestion()) {
            UnloadAllForms();
            event->accept();
        }
    });
}

void frmMain::UnloadAllForms() {
    for (QWidget* form : QApplication::topLevelWidgets()) {
        if (form != this) {
            form->close();
        }
    }
}

bool frmMain::goOnAfterSaveQuestion() {
    switch (
        m_desktop.show(this, {.text = QStringLiteral("Do you want to save the current game?   "),
                              .icon = Icon::Warning,
                              .buttons = Answer::Yes | Answer::No | Answer::Cancel,
                              .byDefault = Answer::Yes,
                              .onEscape = Answer::Cancel})) {
        case Answer::Yes:
            saveGame(*this);
            return true;
        case Answer::No:
            return true;
        default:
            return false;
    }
}

bool frmMain::hasUnsavedChanges() const {
    return m_state.gblnActiveGame && !m_state.gblnGameSaved;
}

}  // namespace ui
