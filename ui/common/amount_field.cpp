#include "amount_field.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "amount.h"
#include "text.h"

namespace ui {

namespace {

constexpr char16_t backspace = 8;

/// Enter, Tab, arrows and Escape have their own meaning.
bool types(QChar character) {
    return character.category() != QChar::Other_Control || character.unicode() == backspace;
}
bool passes(QChar character) {
    return !types(character) || DigitKeyFilter(character.unicode()) != 0;
}

/// A shortcut such as Ctrl+1 has a character and types none; with Alt, Ctrl may be AltGr.
QString textTyped(const QKeyEvent& key) {
    const bool shortcut = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) ==
                          Qt::KeyboardModifiers{Qt::ControlModifier};
    return shortcut ? QString{} : key.text();
}

}  // namespace

char16_t DigitKeyFilter(char16_t character) {
    const bool digit = character >= u'0' && character <= u'9';
    return digit || character == backspace ? character : u'\0';
}

bool typesOtherThanDigits(const QKeyEvent& key) {
    const QString typed = textTyped(key);
    return !std::all_of(typed.begin(), typed.end(), passes);
}

AmountField::AmountField(const QString& name, Format format)
    : m_format(format), m_maximum([] { return game::Currency{}; }) {
    setObjectName(name);
    setEditable(true);
    setCompleter(nullptr);  // it would turn a typed 1 into 100
    setInsertPolicy(QComboBox::NoInsert);
    lineEdit()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lineEdit()->setInputMethodHints(Qt::ImhDigitsOnly);
    lineEdit()->installEventFilter(this);

    // The list would take a typed text that equals an entry for a pick when Return is pressed or
    // the focus leaves. Only the open list picks.
    disconnect(lineEdit(), SIGNAL(returnPressed()), this, nullptr);
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
    connect(this, &QComboBox::activated, this, [this] {
        lineEdit()->selectAll();
        emit entryPicked();
    });
}

std::string AmountField::typed() const {
    return toRules(onOneLine(currentText()));
}

game::Currency AmountField::amount() const {
    return game::MakeNumber(typed());
}

void AmountField::FillAmountList(game::Currency maximum) {
    const QSignalBlocker quiet(this);
    const QString typed = currentText();
    clear();
    for (const game::Currency step : game::amountSteps(maximum)) {
        addItem(m_format(step));
        setItemData(count() - 1, {Qt::AlignRight | Qt::AlignVCenter}, Qt::TextAlignmentRole);
    }
    setCurrentIndex(-1);
    setEditText(typed);
}

void AmountField::showPopup() {
    m_selectOnRelease = false;  // the list gets the release of the click that opens it
    emit dropDown();
    FillAmountList(m_maximum());
    QComboBox::showPopup();
}

bool AmountField::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit()) {
        switch (event->type()) {
            case QEvent::KeyPress:
                return discards(*static_cast<QKeyEvent*>(event));
            case QEvent::InputMethod:
                return discards(static_cast<QInputMethodEvent*>(event)->commitString());
            case QEvent::MouseButtonRelease:
                if (std::exchange(m_selectOnRelease, false) && !lineEdit()->hasSelectedText()) {
                    lineEdit()->selectAll();
                }
                break;
            default:
                break;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

bool AmountField::discards(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste)) {
        emit keyTyped();
        return false;
    }
    return discards(textTyped(key));
}

bool AmountField::discards(const QString& typed) {
    if (!std::all_of(typed.begin(), typed.end(), passes)) {
        return true;
    }
    if (std::any_of(typed.begin(), typed.end(), types)) {
        emit keyTyped();
    }
    return false;
}

void AmountField::keyPressEvent(QKeyEvent* event) {
    if (discards(*event)) {
        return;
    }
    const bool opensList = event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_Down;
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (!opensList) {
                event->ignore();  // they would step through the entries of an earlier opening
                return;
            }
            break;
        default:
            break;
    }
    QComboBox::keyPressEvent(event);
}

void AmountField::inputMethodEvent(QInputMethodEvent* event) {
    if (!discards(event->commitString())) {
        QComboBox::inputMethodEvent(event);
    }
}

void AmountField::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    // Typing replaces the text after the focus has come. A click brings the focus before it places
    // the caret, so it selects when it is over.
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
    if (!m_selectOnRelease && event->reason() != Qt::PopupFocusReason) {
        lineEdit()->selectAll();
    }
}

void AmountField::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace ui
