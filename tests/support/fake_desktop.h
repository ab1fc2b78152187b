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

    /// The next box begins with `text` and is answered.
    void expect(const char* text, ui::Answer answer = ui::Answer::Ok) {
        m_answers.emplace_back(text, answer);
    }

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override {
        const auto [text, answer] =
            m_answers.empty() ? std::pair{"no box", box.onEscape} : std::pair{m_answers.front()};
        EXPECT_TRUE(box.text.startsWith(text)) << box.text.toStdString() << " for " << text;
        m_answers.pop_front();
        return answer;
    }
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
