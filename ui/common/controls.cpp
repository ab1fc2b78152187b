#include "controls.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QStyle>
#include <algorithm>

#include "spoken_list.h"

namespace ui {

QSize Button::sizeHint() const {
    const int caption = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return {std::max(caption + measures::buttonEdges, measures::narrowestButton),
            QPushButton::sizeHint().height()};
}

void Button::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !isDefault()) {
        event->ignore();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void nameControl(QWidget* control, const QString& spoken) {
    if (auto* list = qobject_cast<QComboBox*>(control)) {
        nameList(list, spoken);
    } else {
        control->setAccessibleName(spoken);
    }
}

QLabel* makeLabelFor(QWidget* control, const QString& name, const QString& caption,
                     const QString& spoken) {
    QLabel* label = makeLabel(name, caption);
    label->setBuddy(control);
    nameControl(control, spoken.isEmpty() ? QString{caption}.remove(u':') : spoken);
    return label;
}

int roomFor(QString longest, const QFontMetrics& metrics) {
    QChar widest = u'0';
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        if (metrics.horizontalAdvance(digit) > metrics.horizontalAdvance(widest)) {
            widest = digit;
        }
    }
    for (QChar& character : longest) {
        character = character.isDigit() ? widest : character;
    }
    return metrics.horizontalAdvance(longest) + measures::fieldEdges;
}

bool animated(const QWidget& window) {
    return window.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &window) > 0;
}

}  // namespace ui
