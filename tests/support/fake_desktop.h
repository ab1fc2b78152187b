#pragma once

#include <gtest/gtest.h>

#include <QUrl>
#include <functional>
#include <stdexcept>
#include <utility>

#include "desktop.h"

namespace test {

/// Thrown where the real program ends at once, so that the story unwinds exactly there.
struct ProgramEnded : std::runtime_error {
    ProgramEnded() : std::runtime_error("the end") {}
};

/// A desktop without a screen: a box is answered by a function, files are chosen beforehand and
/// time passes when it is asked to.
struct FakeDesktop final : ui::Desktop {
    QString file;  ///< the next to load or to save; empty: the player cancels
    QUrl openedLink;
    game::Milliseconds waited{0};
    std::function<void()> duringWait = [] {};  ///< what the player does meanwhile
    std::function<ui::Answer(const ui::Box&)> answer = [](const ui::Box& box) {
        ADD_FAILURE() << "a box: " << box.text.toStdString();
        return box.onEscape;
    };

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override { return answer(box); }
    QString chooseFileToLoad(QWidget* /*owner*/) override { return std::exchange(file, {}); }
    QString chooseFileToSave(QWidget* /*owner*/) override { return std::exchange(file, {}); }
    void openLink(const QUrl& link) override { openedLink = link; }
    void wait(game::Milliseconds duration) override {
        waited += duration;
        duringWait();
    }
    [[noreturn]] void endProgram() override { throw ProgramEnded{}; }
};

}  // namespace test
