#pragma once

#include <QObject>
#include <functional>

namespace ui {

/// Carries out the player's commands one at a time. Commands that come meanwhile are dropped, even
/// those of assistive programs, which modal dialogs do not block.
class Commands final : public QObject {
public:
    using Command = std::function<void()>;

    explicit Commands(QObject* parent) : QObject(parent) {}

    /// Carries out `command` from the event loop, so that the call returns before a dialog opens.
    void giveLater(const Command& command);
    /// Carries out `command` at once and instead of one that waits; false if another is under way.
    bool giveNow(const Command& command);

    /// Gives `command` later whenever `sender` emits `signal`.
    template <class Sender, class Signal>
    void giveOn(const Sender* sender, Signal signal, const Command& command) {
        connect(sender, signal, this, [this, command] { giveLater(command); });
    }

private:
    Command m_next;
    bool m_busy = false;
};

}  // namespace ui
