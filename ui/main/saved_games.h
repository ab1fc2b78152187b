#pragma once

namespace ui {

class MainForm;

/// Save Game: asks for a file and writes the game in play to it.
void saveGame(MainForm& mainForm);

/// Load Game: asks for a file and goes on with its game. A file that cannot be read changes
/// nothing. Whether to save the game in play first is for the caller to ask.
void loadGame(MainForm& mainForm);

}  // namespace ui
