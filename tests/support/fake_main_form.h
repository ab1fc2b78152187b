#pragma once

#include <QWidget>
#include <map>
#include <optional>

#include "fake_desktop.h"
#include "games.h"
#include "main_form.h"
#include "transcript.h"

namespace test {

/// A main window that remembers what dialogs asked of it.
class FakeMainForm : public ui::MainForm {
public:
    game::GameState record = newGame();
    ScriptedRandom draws;
    FakeDesktop fakeDesktop;
    Transcript report;  ///< entries as "message", continuation lines behind "| "
    std::map<game::Order, bool> orders;
    std::optional<game::Currency> previewed;
    bool lenderBug = false;
    bool underWay = false;
    int refreshes = 0;

    QWidget* window() override { return &m_window; }
    game::GameState& state() override { return record; }
    game::Random& random() override { return draws; }
    ui::Desktop& desktop() override { return fakeDesktop; }
    bool moneyLenderBug() const override { return lenderBug; }
    void UpdateMainForm() override { ++refreshes; }
    void beginGame(std::string_view message) override { report.line(message); }
    using MainForm::appendEntry;
    void appendEntry(std::string_view message, std::string_view continuation) override {
        report.line(message);
        if (!continuation.empty()) {
            report.line("| " + std::string{continuation});
        }
    }
    void appendText(std::string_view text) override { report.tail(text); }
    void flashReport(game::Alert alert) override {
        report.line(alert == game::Alert::News ? "flash cyan" : "flash red");
    }
    void setOrderEnabled(game::Order order, bool enabled) override { orders[order] = enabled; }
    void setUnderWay(bool value) override { underWay = value; }
    void setAtSea(bool /*atSea*/) override {}
    void previewStatus(game::Currency percent) override { previewed = percent; }

private:
    QWidget m_window;
};

}  // namespace test
