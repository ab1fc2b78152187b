#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QUrl>
#include <array>
#include <deque>
#include <functional>
#include <stdexcept>
#include <utility>

#include "desktop.h"

namespace test {

/// Thrown where the real program ends at once, so that the story unwinds exactly there.
struct ProgramEnded : std::runtime_error {
    ProgramEnded() : std::runtime_error("the program ended") {}
};

/// A desktop without a screen: boxes are expected in their order and answered, chosen files are
/// laid ready, time passes when it is asked to. An unexpected box fails the test, and so does an
/// expectation left over.
class FakeDesktop final : public ui::Desktop {
public:
    FakeDesktop() = default;
    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;
    ~FakeDesktop() override {
        EXPECT_TRUE(m_boxes.empty()) << "not shown: " << m_boxes.front().text.toStdString();
    }

    QString fileToLoad;  ///< empty: the player cancels
    QString fileToSave;
    QList<QUrl> openedLinks;
    game::Milliseconds waited{0};
    std::function<void()> duringWait = [] {};  ///< what the player does meanwhile
    std::function<void()> duringBox = [] {};
    std::string lastButtons;  ///< as in "Question: Yes (Enter), No (Escape)"

    void expect(const QString& text, const QString& title, ui::Answer answer = ui::Answer::Ok) {
        m_boxes.push_back({text, title, answer});
    }

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override {
        lastButtons = buttonsOf(box);
        if (m_boxes.empty()) {
            ADD_FAILURE() << "an unexpected box: " << box.text.toStdString();
            return box.onEscape;
        }
        const Expected expected = m_boxes.front();
        m_boxes.pop_front();
        EXPECT_EQ(box.text.toStdString(), expected.text.toStdString());
        EXPECT_EQ(box.title.toStdString(), expected.title.toStdString());
        duringBox();
        return expected.answer;
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
    static std::string buttonsOf(const ui::Box& box) {
        constexpr std::array icons{"Information", "Question", "Exclamation", "Stop"};
        constexpr std::array answers{"OK", "Yes", "No", "Cancel"};
        std::string text = icons.at(static_cast<std::size_t>(box.icon));
        const char* comma = ": ";
        for (const ui::Answer answer : box.buttons) {
            text += std::exchange(comma, ", ");
            text += answers.at(static_cast<std::size_t>(answer));
            const bool enter = answer == box.byDefault;
            const bool escape = answer == box.onEscape;
            text += enter && escape ? " (both)" : enter ? " (Enter)" : escape ? " (Escape)" : "";
        }
        return text;
    }

    struct Expected {
        QString text;
        QString title;
        ui::Answer answer;
    };
    std::deque<Expected> m_boxes;
};

}  // namespace test
