#include "held_keys.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace ui {

namespace {

bool opensOrCloses(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

class HeldKeys final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
            return false;
        }
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!opensOrCloses(key->key())) {
            return false;
        }
        if (event->type() == QEvent::KeyRelease) {
            m_released = key->timestamp();
            return false;
        }
        const bool repeated = m_inPairs && key->timestamp() != 0 && key->timestamp() == m_released;
        return key->isAutoRepeat() || repeated;
    }

private:
    /// X11 repeats a key by a release and a press at the same time. On a busy machine the toolkit
    /// sees the two apart and takes the press for a new one.
    bool m_inPairs = QGuiApplication::platformName() == QStringLiteral("xcb");
    quint64 m_released = 0;  ///< when one of the keys was, in milliseconds; events made here have 0
};

}  // namespace

void ignoreHeldKeys(QObject* owner) {
    qApp->installEventFilter(new HeldKeys(owner));
}

}  // namespace ui
