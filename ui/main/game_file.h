#pragma once

#include <QString>

#include "game_state.h"

namespace ui {

/// Why a file could not be read or written, where possible in the words of the platform.
struct FileError {
    QString description;
};

/// The saved game in the file at `path`. Texts are UTF-8, or Windows-1252 where they are not.
/// Only regular files are opened, and of an endless one only the beginning is read.
/// Throws FileError.
[[nodiscard]] game::GameState readGameFile(const QString& path);

/// Saves the game in the file at `path`, in the system's encoding. Until the new file is complete
/// the old one stands, unless its folder takes no new file; anything but a regular file or a
/// symbolic link to one is left alone. Throws FileError where nothing was saved.
void writeGameFile(const QString& path, const game::GameState& state);

}  // namespace ui
