#pragma once

class QObject;

namespace ui {

/// As long as `owner` lives, Enter and Escape count once however long they are held. Otherwise the
/// key that opened or closed a window would act in the next one too.
void ignoreHeldKeys(QObject* owner);

}  // namespace ui
