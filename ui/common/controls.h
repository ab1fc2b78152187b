#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "layout.h"

namespace ui {

/// A control with the name by which tests, tools and assistive programs find it.
template <class Control, class... Arguments>
[[nodiscard]] Control* makeNamed(const QString& name, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)...);
    control->setObjectName(name);
    return control;
}

[[nodiscard]] inline QGroupBox* makeFrame(const QString& name, const QString& title) {
    return makeNamed<QGroupBox>(name, title);
}
[[nodiscard]] inline QLabel* makeLabel(const QString& name, const QString& caption) {
    auto* label = makeNamed<QLabel>(name);
    label->setTextFormat(Qt::PlainText);  // first: it sets a text again
    label->setText(caption);
    return label;
}
[[nodiscard]] inline QRadioButton* makeOption(const QString& name, const QString& caption) {
    auto* option = makeNamed<QRadioButton>(name, caption);
    // Of several options the Tab key goes to the one that is chosen.
    option->setFocusPolicy(Qt::ClickFocus);
    QObject::connect(option, &QRadioButton::toggled, option, [option](bool chosen) {
        option->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
    });
    return option;
}
/// A button that Enter presses while it has the focus, in the main window too. From other controls
/// of a dialog Enter presses the default button.
class Button final : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
[[nodiscard]] inline QPushButton* makeButton(const QString& name, const QString& caption) {
    auto* button = makeNamed<Button>(name, caption);
    button->setAutoDefault(false);  // in a dialog without a default button Enter presses none
    return button;
}
/// The label beside `control`. Assistive programs call the control `spoken`, or the caption without
/// its colon if that is empty; a list that shows a text they call by the label.
[[nodiscard]] QLabel* makeLabelFor(QWidget* control, const QString& name, const QString& caption,
                                   const QString& spoken = {});

/// A figure that the player can select and copy but not change. The Tab key skips it, since a
/// window has up to seventeen of them between two orders; screen readers find it as an object.
[[nodiscard]] inline QLineEdit* makeDisplay(const QString& name, QWidget* parent = nullptr) {
    auto* display = makeNamed<QLineEdit>(name, parent);
    display->setReadOnly(true);
    display->setFocusPolicy(Qt::ClickFocus);
    return display;
}

/// Whether the player's desktop shows animations. Nothing flashes where they are switched off.
[[nodiscard]] bool animated(const QWidget& window);

/// The width of a display of `widest` in letters of `metrics`.
[[nodiscard]] inline int roomFor(const QString& widest, const QFontMetrics& metrics) {
    return metrics.horizontalAdvance(widest) + measures::fieldEdges;
}
/// Right-aligned as in a ledger, and never narrower than `room`.
inline void makeRoom(QLineEdit* display, int room) {
    display->setAlignment(Qt::AlignRight);
    display->setMinimumWidth(room);
}
inline void makeRoomFor(QLineEdit* display, const QString& widest) {
    makeRoom(display, roomFor(widest, display->fontMetrics()));
}

/// Sets a text only if it differs, since setting is expensive.
template <class Control>
void showText(Control* control, const QString& text) {
    if (control->text() != text) {
        control->setText(text);
    }
}

}  // namespace ui
