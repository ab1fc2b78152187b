#include "saved_games.h"

#include "game_file.h"
#include "main_form.h"
#include "saved_game.h"

namespace ui {

namespace {

void showError(MainForm& mainForm, const QString& text, const FileError& error) {
    mainForm.desktop().show(mainForm.window(),
                            {.text = text, .title = error.description, .icon = Icon::Critical});
}

}  // namespace

void saveGame(MainForm& mainForm) {
    const QString path = mainForm.desktop().chooseFileToSave(mainForm.window());
    if (path.isEmpty()) {
        return;
    }
    try {
        writeGameFile(path, mainForm.state());
    } catch (const FileError& error) {
        showError(mainForm, QStringLiteral("Error Saving File   "), error);
        return;
    }
    mainForm.desktop().rememberFile(path);
    mainForm.state().gblnGameSaved = true;
    mainForm.appendEntry(" - Game Saved Successfully");
}

void loadGame(MainForm& mainForm) {
    const QString path = mainForm.desktop().chooseFileToLoad(mainForm.window());
    if (path.isEmpty()) {
        return;
    }
    try {
        game::resumeGame(mainForm.state(), readGameFile(path));
    } catch (const FileError& error) {
        showError(mainForm, QStringLiteral("Error Opening File   "), error);
        return;
    }
    mainForm.desktop().rememberFile(path);
    mainForm.beginGame(" - Game Loaded Successfully");
    mainForm.UpdateMainForm();
}

}  // namespace ui
