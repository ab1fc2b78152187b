#pragma once

#include <QPushButton>
#include <QTest>

#include "fake_main_form.h"
#include "find.h"
#include "pick.h"

namespace test {

/// A main window and a dialog over it, and what a player does there.
template <class Dialog>
class Opened : public FakeMainForm {
public:
    template <class... Arguments>
    explicit Opened(
        void (*change)(FakeMainForm&) = [](FakeMainForm&) {}, Arguments... arguments) {
        change(*this);
        before = record;
        m_dialog.emplace(*this, arguments...);
        m_dialog->show();
    }

    Dialog& dialog() { return *m_dialog; }
    template <class Control>
    Control* find(const char* name) {
        return test::find<Control>(*m_dialog, name);
    }
    std::string shown(const char* names) { return test::shown(*m_dialog, names); }
    void pick(const char* list, const QString& entry) { test::pick(*m_dialog, list, entry); }
    void click(const char* button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    void type(const char* name, const QString& text) { QTest::keyClicks(focused(name), text); }
    void press(const char* name, std::initializer_list<Qt::Key> keys,
               Qt::KeyboardModifiers modifiers = {}) {
        for (const Qt::Key key : keys) {
            QTest::keyClick(focused(name), key, modifiers);
        }
    }

    game::GameState before;

private:
    QWidget* focused(const char* name) {
        auto* control = find<QWidget>(name);
        control->setFocus();
        return control;
    }

    std::optional<Dialog> m_dialog;
};

}  // namespace test
