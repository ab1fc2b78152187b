#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <memory>

#include "amount_field.h"
#include "fake_desktop.h"
#include "find.h"
#include "frmAbout.h"
#include "frmBuy.h"
#include "frmHelp.h"
#include "frmLeave.h"
#include "frmMain.h"
#include "frmMoney.h"
#include "frmNew.h"
#include "frmPirate.h"
#include "frmRepair.h"
#include "frmSell.h"
#include "frmStats.h"
#include "frmTransfer.h"
#include "frmVisit.h"
#include "games.h"
#include "modal.h"
#include "qt_desktop.h"
#include "text.h"

namespace test {

/// A house in its third year, with a voyage behind it.
inline game::GameState prosperousGame() {
    using namespace std::chrono;
    return newGameWith([](game::GameState& state) {
        state.gdtmDate = year{1862} / August / 15;
        state.gcurCannons = 6;
        state.gcurStatus = 83;
        state.gcurMaxHold = 210;
        state.gcurSOpium = 40;
        state.gcurSSilk = 85;
        state.gcurHold = 185;
        state.gcurWSilk = 320;
        state.gcurWArms = 150;
        state.gcurWGeneral = 1'200;
        state.gcurPOpium = 9'000;
        state.gcurPSilk = 2'100;
        state.gcurCash = 264'815;
        state.gcurBank = 180'400;
        state.gcurDebt = 23'958;
    });
}

/// The longest figures and texts that play leads to: the last dollar before the game is won.
inline game::GameState richestGame() {
    return newGameWith([](game::GameState& state) {
        state.gdtmDate = std::chrono::year{1862} / std::chrono::November / 28;
        state.gstrFirm = "Heron, Whitcombe & Moore";
        state.gblnMillionaire = true;
        state.gcurCash = state.gcurBank = state.gcurDebt = 999'999'999'999;
        state.gcurCannons = 400;
        state.gcurStatus = 88;
        state.gcurHold = state.gcurMaxHold = 9'960;
        for (const game::GoodRow& good : game::goods) {
            state.*good.ship = state.*good.warehouse = 10'000;
            state.*good.price = game::Currency{good.priceStep} * 250;
        }
    });
}

/// Chance at its worst: the largest fleet, no escape, every shot taken.
class Unlucky final : public game::Random {
public:
    double Rnd() override { return 0.99; }
};

/// Opens every window of the program over the game, shows it filled in and hands it to `visit`,
/// which also gets its name: that of the window and, where it has several states, of the state.
/// File dialogs are the toolkit's and left out.
class EveryWindow {
public:
    using Visitor = std::function<void(QWidget& window, const QString& name)>;

    EveryWindow(const game::GameState& state, Visitor visit)
        : m_state(state), m_visit(std::move(visit)) {
        visitMainForm();
        visitTrade();
        visitBattle();
        using Occasion = ui::frmStats::Occasion;
        visitForm<ui::frmStats>("", Occasion::Menu);
        visitForm<ui::frmStats>("-millionaire", Occasion::Millionaire);
        visitForm<ui::frmStats>("-trillionaire", Occasion::Trillionaire);
        visitForm<ui::frmAbout>("");
        ui::frmHelp help{m_mainForm};
        for (const char* page : {"Introduction", "Intructions", "Hints", "Money"}) {
            find<QAbstractButton>(help, (std::string{"cmd"} + page).c_str())->click();
            visitWindow(help, QStringLiteral("-") + QString::fromLatin1(page));
        }
        help.close();
        visitBoxes();
    }

private:
    void visitWindow(QWidget& window, const QString& state = {}) {
        const QString name = window.objectName() + state;
        SCOPED_TRACE(name.toStdString());
        window.show();
        m_visit(window, name);
    }

    template <class Dialog, class... Arguments>
    void visitForm(const char* state, Arguments... arguments) {
        Dialog form{m_mainForm, arguments...};
        visitWindow(form, QString::fromLatin1(state));
    }

    /// A dialog whose amounts all read `amount`.
    template <class Dialog>
    void visitOrder(const QString& amount) {
        Dialog form{m_mainForm};
        for (auto* field : form.template findChildren<ui::AmountField*>()) {
            field->setEditText(amount);
        }
        visitWindow(form);
    }

    void visitMainForm() {
        visitWindow(m_mainForm, QStringLiteral("-start"));
        m_mainForm.state() = m_state;
        m_mainForm.state().gdtmDate -= std::chrono::months{3};
        m_mainForm.beginGame(" - Game Loaded Successfully");
        struct Entry {
            int month;
            const char* message;
            const char* continuation = "";
        };
        for (const Entry& entry :
             {Entry{5, " - Bought 75 Opium @ $7,000 Each"},
              Entry{5, " - Departing Hong Kong........................."},
              Entry{6, " - Arriving at Manila"},
              Entry{6, " - The price of Opium has risen to $32,000!!"},
              Entry{6, " - Sold 75 Opium @ $32,000 Each"},
              Entry{6, " - Bought 85 Silk @ $1,100 Each"},
              Entry{6, " - Departing Manila........................."},
              Entry{6, " - You got some booty worth $4,380"}, Entry{7, " - Arriving at Nagasaki"},
              Entry{7, " - Bought 40 Opium @ $5,000 Each"},
              Entry{7, " - Departing Nagasaki........................."},
              Entry{8, " - Arriving at Hong Kong"},
              Entry{8, " - Zhenbao, you can trade in your ship for one with 50 more capacity",
                    "by paying an additional $12,350"}}) {
            m_mainForm.state().gdtmDate = m_state.gdtmDate - std::chrono::months{8 - entry.month};
            m_mainForm.appendEntry(entry.message, entry.continuation);
        }
        for (const game::Order offer : {game::Order::Cannon, game::Order::Ship}) {
            m_mainForm.setOrderEnabled(offer, true);
        }
        m_mainForm.UpdateMainForm();
        m_state = m_mainForm.state();
        visitWindow(m_mainForm);
        for (const auto& [alert, name] :
             {std::pair{game::Alert::News, "-news"}, {game::Alert::Misfortune, "-misfortune"}}) {
            m_desktop.duringWait = [&] { visitWindow(m_mainForm, QString::fromLatin1(name)); };
            m_mainForm.flashReport(alert);
        }
    }

    void visitTrade() {
        const QString units = ui::plain(m_state.gcurMaxHold);
        visitOrder<ui::frmBuy>(units);
        visitOrder<ui::frmSell>(units);
        visitOrder<ui::frmTransfer>(units);
        visitOrder<ui::frmVisit>(ui::money(m_state.gcurCash));
        visitOrder<ui::frmMoney>(ui::money(m_state.gcurDebt));
        visitForm<ui::frmLeave>("");
        ui::frmRepair repair{m_mainForm};
        find<QSlider>(repair, "sldRepair")->setValue(100);
        visitWindow(repair);
        ui::frmNew newGame{m_mainForm};
        find<QLineEdit>(newGame, "txtFirm")->setText(ui::fromRules(m_state.gstrFirm));
        visitWindow(newGame);
    }

    /// As it opens; running in vain, which has the longest report; and hit.
    void visitBattle() {
        ui::frmPirate battle{m_mainForm};
        visitWindow(battle);
        int waits = 0;
        m_desktop.duringWait = [&] {
            ++waits;
            if (waits == 2 || waits == 4) {
                visitWindow(battle, waits == 2 ? QStringLiteral("-chase") : QStringLiteral("-hit"));
            }
        };
        find<QAbstractButton>(battle, "cmdRun")->click();
        m_desktop.duringWait = [] {};
        m_mainForm.state() = m_state;
    }

    void visitBoxes() {
        using ui::Answer;
        using ui::Icon;
        for (const ui::Box& box :
             {ui::Box{.text = "Do you want to save the current game?   ",
             .icon = Icon::Exclamation,
             .buttons = {Answer::Yes, Answer::No, Answer::Cancel}},
              ui::Box{.text = "Do you really want to quit this game?   ",
              .icon = Icon::Question,
              .buttons = {Answer::Yes, Answer::No}},
              ui::Box{.text = "Insufficient Funds     ", .title = ui::refusalTitle},
              ui::Box{.text = "Error Opening File   ",
              .title = "Too many levels of symbolic links",
              .icon = Icon::Stop}}) {
            inNextDialog([&](QDialog& dialog) {
                visitWindow(dialog, QStringLiteral("-%1").arg(static_cast<int>(box.icon)));
                dialog.done(0);
            });
            ui::QtDesktop().show(&m_mainForm, box);
        }
    }

    game::GameState m_state;
    Visitor m_visit;
    Unlucky m_random;
    FakeDesktop m_desktop;
    ui::frmMain m_mainForm{m_desktop, m_random};
};

}  // namespace test
