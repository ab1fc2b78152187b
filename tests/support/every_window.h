#pragma once

#include "amount_field.h"
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
#include "player.h"
#include "qt_desktop.h"

namespace test {

template <class Dialog, auto... arguments>
std::unique_ptr<QDialog> make(ui::MainForm& mainForm) {
    return std::make_unique<Dialog>(mainForm, arguments...);
}

/// Every dialog by its name, made as the main window makes it.
inline const std::map<QString, std::unique_ptr<QDialog> (*)(ui::MainForm&)> dialogs{
    {"frmAbout", make<ui::frmAbout>},
    {"frmBuy", make<ui::frmBuy>},
    {"frmHelp", make<ui::frmHelp>},
    {"frmLeave", make<ui::frmLeave>},
    {"frmMoney", make<ui::frmMoney>},
    {"frmNew", make<ui::frmNew>},
    {"frmPirate", make<ui::frmPirate>},
    {"frmRepair", make<ui::frmRepair>},
    {"frmSell", make<ui::frmSell>},
    {"frmStats", make<ui::frmStats, ui::frmStats::Occasion::Menu>},
    {"frmStats-trillionaire", make<ui::frmStats, ui::frmStats::Occasion::Trillionaire>},
    {"frmTransfer", make<ui::frmTransfer>},
    {"frmVisit", make<ui::frmVisit>}};

/// Chance at its worst: the largest fleet, no escape, every shot taken.
struct Unlucky final : game::Random {
    double Rnd() override { return 0.99; }
};

/// Opens every window of the program, shows it filled in and hands it to `visit`, which also gets
/// its name: that of the window and, where it has several states, of the state. File dialogs are
/// the toolkit's and left out.
class EveryWindow {
public:
    using Visitor = std::function<void(QWidget& window, const QString& name)>;

    /// In the third year of a house. The richest shows the longest figures that play leads to.
    EveryWindow(bool richest, Visitor visit) : m_visit(std::move(visit)) {
        visitMainForm(richest);
        for (const auto& [name, open] : dialogs) {
            const auto dialog = open(m_mainForm);
            for (auto* field : dialog->findChildren<ui::AmountField*>()) {
                const bool units = dialog->findChild<QWidget*>("cboOpium") || name == "frmTransfer";
                field->setEditText(units ? ui::plain(m_mainForm.state().gcurMaxHold)
                                         : ui::money(m_mainForm.state().gcurDebt));
            }
            visitWindow(*dialog, name);
            if (name == "frmHelp") {
                visitPages(*dialog);
            } else if (name == "frmPirate") {
                visitBattle(*dialog);
            }
        }
        visitBoxes();
    }

private:
    void visitWindow(QWidget& window, const QString& name) {
        SCOPED_TRACE(name.toStdString());
        window.show();
        m_visit(window, name);
    }

    void visitMainForm(bool richest) {
        visitWindow(m_mainForm, "frmMain-start");
        game::GameState& state = m_mainForm.state() = newGame(
            richest ? "Cannons=400 Status=83 Hold=9960 MaxHold=9960 SOpium=10000 SSilk=10000 "
                      "SArms=10000 SGeneral=10000 WOpium=10000 WSilk=10000 WArms=10000 "
                      "WGeneral=10000 POpium=250000 PSilk=25000 PArms=2500 PGeneral=250 "
                      "Bank=999999999999 Debt=999999999999 Cash=999999999999 Millionaire=yes "
                      "Date=1862-09-15"
                    : "Cannons=6 Status=83 Hold=210 MaxHold=210 SOpium=75 SSilk=50 SArms=25 "
                      "WSilk=410 WArms=820 WGeneral=1230 POpium=19000 PSilk=1500 PArms=110 "
                      "PGeneral=7 Bank=180400 Debt=23958 Cash=264815 Millionaire=yes "
                      "Date=1862-09-15");
        state.gstrFirm = richest ? "Heron, Whitcombe & Moore" : state.gstrFirm;
        m_mainForm.beginGame(" - Game Loaded Successfully");
        for (const std::string entry :
             {"Departing Hong Kong.........................", "Arriving at Manila",
              "The price of Opium has risen to $96,000", "Sold 2 Opium @ $96,000 Each",
              "Bought 50 Silk @ $1,100 Each", "Departing Manila.........................",
              "You got some booty worth $4,380", "Arriving at Hong Kong",
              "Zhenbao, you can trade in your ship for one with 50 more capacity"}) {
            const bool arriving = entry.starts_with("Arriving");
            state.gdtmDate = arriving ? game::oneMonthLater(state.gdtmDate) : state.gdtmDate;
            m_mainForm.appendEntry(" - " + entry);
        }
        m_mainForm.setOrderEnabled(game::Order::Ship, true);
        m_mainForm.UpdateMainForm();
        visitWindow(m_mainForm, "frmMain");
        for (const auto& [alert, name] : {std::pair{game::Alert::News, "frmMain-news"},
                                          {game::Alert::Misfortune, "frmMain-misfortune"}}) {
            m_desktop.duringWait = [&] { visitWindow(m_mainForm, name); };
            m_mainForm.flashReport(alert);
        }
    }

    void visitPages(QDialog& dialog) {
        for (const char* page : {"cmdIntructions", "cmdHints", "cmdMoney"}) {
            act(dialog, QString("click ") + page);
            visitWindow(dialog, QString("frmHelp-") + page);
        }
    }

    /// Running in vain, which has the longest report; and hit.
    void visitBattle(QDialog& dialog) {
        m_desktop.duringWait = [&, waits = 0]() mutable {
            if (++waits == 2 || waits == 4) {
                visitWindow(dialog, waits == 2 ? "frmPirate-chase" : "frmPirate-hit");
            }
        };
        act(dialog, "click cmdRun");
        m_desktop.duringWait = [] {};
    }

    void visitBoxes() {
        using ui::Answer;
        for (const ui::Box& box :
             {ui::Box{.text = "Do you want to save the current game?   ",
             .buttons = {Answer::Yes, Answer::No, Answer::Cancel},
             .byDefault = Answer::No,
             .onEscape = Answer::Yes},
              ui::Box{.text = "Insufficient Funds     ", .title = ui::refusalTitle},
              ui::Box{.text = "Error Opening File   ",
              .title = "Too many levels of symbolic links"}}) {
            inNextDialog([&](QDialog& dialog) {
                visitWindow(dialog, "msgBox");
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            EXPECT_EQ(ui::QtDesktop().show(&m_mainForm, box), box.onEscape);
        }
    }

    Visitor m_visit;
    Unlucky m_random;
    FakeDesktop m_desktop;
    ui::frmMain m_mainForm{m_desktop, m_random};
};

}  // namespace test
