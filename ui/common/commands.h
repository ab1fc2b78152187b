#pragma once

#include <QObject>
#include <functional>

namespace ui {

/// Carries out what the player orders, one order at a time. Until it is done others are dropped,
/// even those of assistive programs, which modal dialogs do not stop.
class Commands final : public QObject {
public:
    using Command = std::function<void()>;

    explicit Commands(QObject* parent) : QObject(parent) {}

    /// Carries out `command` from the event loop. The program that gave the order is answered
    /// before a dialog opens.
    void giveLater(const Command& command);
    /// Carries out `command` at once and in place of one that was given for later; false where
    /// another is being carried out.
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
