#include "commands.h"

#include <QScopedValueRollback>

namespace ui {

void Commands::giveLater(const Command& command) {
    if (m_busy || m_next) {
        return;
    }
    m_next = command;
    const auto carryOut = [this] {
        if (const Command next = m_next) {
            giveNow(next);
        }
    };
    QMetaObject::invokeMethod(this, carryOut, Qt::QueuedConnection);
}

bool Commands::giveNow(const Command& command) {
    if (m_busy) {
        return false;
    }
    m_next = nullptr;
    const QScopedValueRollback busy(m_busy, true);
    command();
    return true;
}

}  // namespace ui
