#pragma once

class QObject;

namespace ui {

/// For as long as `owner` lives, Enter and Escape count once however long they are held down. The
/// key that opened or closed a window would otherwise go on in the next one.
void ignoreHeldKeys(QObject* owner);

}  // namespace ui
