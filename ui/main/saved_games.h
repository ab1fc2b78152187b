#pragma once

namespace ui {

class MainForm;

/// Save Game: asks for a file and writes the game in play to it.
void saveGame(MainForm& mainForm);

/// Load Game: asks for a file and resumes its game. A file that cannot be read changes nothing. The
/// caller asks first whether to save the game in play.
void loadGame(MainForm& mainForm);

}  // namespace ui
