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

/// The characters that edit a text. Enter, Tab and Escape have characters, and so have shortcuts
/// such as Ctrl+1, but they type none; with Alt, Ctrl may be AltGr.
QString typedBy(const QKeyEvent& key) {
    const bool shortcut = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) ==
                          Qt::KeyboardModifiers{Qt::ControlModifier};
    return shortcut ? QString{} : key.text().removeIf([](QChar character) {
        return character.category() == QChar::Other_Control && character != backspace;
    });
}

bool isAllowed(const QString& typed) {
    return std::all_of(typed.begin(), typed.end(),
                       [](QChar character) { return DigitKeyFilter(character.unicode()) != 0; });
}

}  // namespace

char16_t DigitKeyFilter(char16_t character) {
    const bool digit = character >= u'0' && character <= u'9';
    return digit || character == backspace ? character : u'\0';
}

bool isAllowed(const QKeyEvent& key) {
    return isAllowed(typedBy(key));
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
    if (!isEnabled()) {
        return;  // assistive programs could open it all the same
    }
    m_selectOnRelease = false;  // the list gets the release of the click that opens it
    emit dropDown();
    FillAmountList(m_maximum());
    QComboBox::showPopup();
}

bool AmountField::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit()) {
        switch (event->type()) {
            case QEvent::KeyPress:
                if (!isAllowed(*static_cast<QKeyEvent*>(event))) {
                    return true;
                }
                announce(*static_cast<QKeyEvent*>(event));
                break;
            case QEvent::InputMethod:
                return !isAllowed(static_cast<QInputMethodEvent*>(event)->commitString());
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

void AmountField::announce(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste) || !typedBy(key).isEmpty()) {
        emit keyTyped();
    }
}

void AmountField::keyPressEvent(QKeyEvent* event) {
    if (!isAllowed(*event)) {
        return;
    }
    announce(*event);
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
    if (!isAllowed(event->commitString())) {
        return;
    }
    if (!event->commitString().isEmpty()) {
        emit keyTyped();
    }
    QComboBox::inputMethodEvent(event);
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
