#include "controls.h"

#include <QKeyEvent>
#include <QStyle>

namespace ui {

void Button::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

QLabel* makeLabelFor(QWidget* control, const QString& name, const QString& caption,
                     const QString& spoken) {
    QLabel* label = makeLabel(name, caption);
    label->setBuddy(control);
    control->setAccessibleName(spoken.isEmpty() ? QString{caption}.remove(u':') : spoken);
    return label;
}

bool animated(const QWidget& window) {
    return window.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &window) > 0;
}

}  // namespace ui
