#pragma once

#include <QString>

#include "game_state.h"

namespace ui {

/// Why a file could not be read or written, in the platform's words if it has any.
struct FileError {
    QString description;
};

/// The saved game in the file at `path`. Texts are UTF-8, or Windows-1252 where they are not.
/// Only regular files are opened, and of an endless one only the beginning is read.
/// Throws FileError.
[[nodiscard]] game::GameState readGameFile(const QString& path);

/// Saves the game in the file at `path`, in the system's encoding. The old file stays
/// until the new one is complete, unless its folder takes no new file. Only regular files and
/// symbolic links to them are written. Throws FileError if nothing was saved.
void writeGameFile(const QString& path, const game::GameState& state);

}  // namespace ui
