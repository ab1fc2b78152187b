#include "text_view.h"

#include <QScrollBar>

namespace ui {

TextView::TextView(const QString& name) {
    setObjectName(name);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll up and down"));
    horizontalScrollBar()->setAccessibleName(QStringLiteral("Scroll left and right"));
}

}  // namespace ui
