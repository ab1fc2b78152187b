#pragma once

#include <gtest/gtest.h>

#include <QUrl>
#include <deque>
#include <functional>

#include "desktop.h"

namespace test {

/// Thrown where the real program ends at once, so that the story unwinds exactly there.
struct ProgramEnded {};

/// A desktop without a screen: questions are answered as it was laid down, files are chosen
/// beforehand and time passes when it is asked to.
class FakeDesktop final : public ui::Desktop {
public:
    FakeDesktop() = default;
    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;
    ~FakeDesktop() override { EXPECT_TRUE(m_answers.empty()) << "a box that was not shown"; }

    QString fileToLoad;  ///< empty: the player cancels
    QString fileToSave;
    QList<QUrl> openedLinks;
    game::Milliseconds waited{0};
    std::function<void()> duringWait = [] {};  ///< what the player does meanwhile
    std::function<ui::Answer(const ui::Box&)> answer = [this](const ui::Box& box) {
        const auto [text, given] = m_answers.empty() ? std::pair{"no box at all", box.onEscape}
                                                     : std::pair{m_answers.front()};
        EXPECT_TRUE(box.text.startsWith(text)) << box.text.toStdString() << " for " << text;
        m_answers.erase(m_answers.begin(), m_answers.begin() + (m_answers.empty() ? 0 : 1));
        return given;
    };

    /// The next box begins with `text` and is answered.
    void expect(const char* text, ui::Answer given = ui::Answer::Ok) {
        m_answers.emplace_back(text, given);
    }

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override { return answer(box); }
    QString chooseFileToLoad(QWidget* /*owner*/) override { return fileToLoad; }
    QString chooseFileToSave(QWidget* /*owner*/) override { return fileToSave; }
    void openLink(const QUrl& link) override { openedLinks.append(link); }
    void wait(game::Milliseconds duration) override {
        waited += duration;
        duringWait();
    }
    [[noreturn]] void endProgram() override { throw ProgramEnded{}; }

private:
    std::deque<std::pair<const char*, ui::Answer>> m_answers;
};

}  // namespace test
