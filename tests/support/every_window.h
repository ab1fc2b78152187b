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

/// A house in its third year. The richest shows the longest figures that play leads to.
inline game::GameState houseOf(bool richest) {
    game::GameState state = newGame();
    state.gdtmDate = std::chrono::year{1862} / std::chrono::November / 15;
    state.gstrFirm = richest ? "Heron, Whitcombe & Moore" : "Heron & Sons";
    state.gblnMillionaire = true;
    state.gcurCash = richest ? 999'999'999'999 : 264'815;
    state.gcurBank = richest ? 999'999'999'999 : 180'400;
    state.gcurDebt = richest ? 999'999'999'999 : 23'958;
    state.gcurCannons = richest ? 400 : 6;
    state.gcurStatus = 83;
    state.gcurMaxHold = richest ? 9'960 : 210;
    for (const game::GoodRow& good : game::goods) {
        const int row = static_cast<int>(game::index(good.good));
        state.*good.ship = richest ? 10'000 : 75 - 25 * row;
        state.*good.warehouse = richest ? 10'000 : 410 * row;
        state.*good.price = game::Currency{good.priceStep} * (richest ? 250 : 19 - 4 * row);
    }
    state.gcurHold = richest ? 9'960 : 210;
    return state;
}

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

    EveryWindow(bool richest, Visitor visit)
        : m_state(houseOf(richest)), m_visit(std::move(visit)) {
        visitMainForm();
        const QString units = ui::plain(m_state.gcurMaxHold);
        visitForm<ui::frmBuy>(units);
        visitForm<ui::frmSell>(units);
        visitForm<ui::frmTransfer>(units);
        visitForm<ui::frmVisit>(ui::money(m_state.gcurCash));
        visitForm<ui::frmMoney>(ui::money(m_state.gcurDebt));
        visitForm<ui::frmLeave>({});
        visitForm<ui::frmRepair>({});
        visitForm<ui::frmNew>({});
        using Occasion = ui::frmStats::Occasion;
        visitForm<ui::frmStats>({}, Occasion::Menu);
        visitForm<ui::frmStats>({}, Occasion::Trillionaire);
        visitForm<ui::frmAbout>({});
        ui::frmHelp help{m_mainForm};
        for (const char* page : {"Introduction", "Intructions", "Hints", "Money"}) {
            act(help, QString("click cmd") + page);
            visitWindow(help, QString("-") + page);
        }
        help.close();
        visitBattle();
        visitBoxes();
    }

private:
    void visitWindow(QWidget& window, const QString& state = {}) {
        const QString name = window.objectName() + state;
        SCOPED_TRACE(name.toStdString());
        window.show();
        m_visit(window, name);
    }

    /// A dialog whose amounts all read `amount`.
    template <class Dialog, class... Arguments>
    void visitForm(const QString& amount, Arguments... arguments) {
        Dialog form{m_mainForm, arguments...};
        for (auto* field : form.template findChildren<ui::AmountField*>()) {
            field->setEditText(amount);
        }
        visitWindow(form);
    }

    void visitMainForm() {
        visitWindow(m_mainForm, "-start");
        game::GameDate& date = (m_mainForm.state() = m_state).gdtmDate -= std::chrono::months{2};
        m_mainForm.beginGame(" - Game Loaded Successfully");
        for (const std::string entry :
             {"Departing Hong Kong.........................", "Arriving at Manila",
              "The price of Opium has risen to $96,000", "Sold 2 Opium @ $96,000 Each",
              "Bought 50 Silk @ $1,100 Each", "Departing Manila.........................",
              "You got some booty worth $4,380", "Arriving at Hong Kong",
              "Zhenbao, you can trade in your ship for one with 50 more capacity"}) {
            date = entry.starts_with("Arriving") ? game::oneMonthLater(date) : date;
            m_mainForm.appendEntry(" - " + entry);
        }
        m_mainForm.setOrderEnabled(game::Order::Ship, true);
        m_mainForm.UpdateMainForm();
        visitWindow(m_mainForm);
        for (const auto& [alert, name] :
             {std::pair{game::Alert::News, "-news"}, {game::Alert::Misfortune, "-misfortune"}}) {
            m_desktop.duringWait = [&] { visitWindow(m_mainForm, name); };
            m_mainForm.flashReport(alert);
        }
    }

    /// As it opens; running in vain, which has the longest report; and hit.
    void visitBattle() {
        ui::frmPirate battle{m_mainForm};
        visitWindow(battle);
        m_desktop.duringWait = [&, waits = 0]() mutable {
            if (++waits == 2 || waits == 4) {
                visitWindow(battle, waits == 2 ? "-chase" : "-hit");
            }
        };
        act(battle, "click cmdRun");
        m_desktop.duringWait = [] {};
    }

    void visitBoxes() {
        using ui::Answer;
        for (const ui::Box& box :
             {ui::Box{.text = "Do you want to save the current game?   ",
             .buttons = {Answer::Yes, Answer::No, Answer::Cancel}},
              ui::Box{.text = "Insufficient Funds     ", .title = ui::refusalTitle},
              ui::Box{.text = "Error Opening File   ",
              .title = "Too many levels of symbolic links"}}) {
            inNextDialog([&](QDialog& dialog) {
                visitWindow(dialog);
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
