#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QUrl>
#include <deque>
#include <functional>
#include <stdexcept>

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
    ui::Box lastBox;

    void expect(const QString& text, const QString& title, ui::Answer answer = ui::Answer::Ok) {
        m_boxes.push_back({text, title, answer});
    }

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override {
        lastBox = box;
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
    struct Expected {
        QString text;
        QString title;
        ui::Answer answer;
    };
    std::deque<Expected> m_boxes;
};

}  // namespace test
