#include "text_view.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

#include "contrast.h"

namespace ui {

TextView::TextView(const QString& name) {
    setObjectName(name);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll up and down"));
    horizontalScrollBar()->setAccessibleName(QStringLiteral("Scroll left and right"));
}

bool TextView::event(QEvent* event) {
    const bool handled = QPlainTextEdit::event(event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    } else if (event->type() == QEvent::Paint && hasFocus()) {
        // Styles frame the fields that have the focus, and leave larger texts with the caret alone.
        QPainter painter(this);
        const QColor colour =
            readable(palette().color(QPalette::Highlight), palette().color(QPalette::Base));
        painter.setPen({colour, 2.0 * frameWidth()});
        painter.drawRect(rect());
    }
    return handled;
}

}  // namespace ui
