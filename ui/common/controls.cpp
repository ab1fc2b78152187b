#include "controls.h"

#include <QKeyEvent>

namespace ui {

void Button::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !isDefault()) {
        event->ignore();
        return;
    }
    QPushButton::keyPressEvent(event);
}

}  // namespace ui
