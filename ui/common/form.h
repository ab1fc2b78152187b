#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "game_state.h"

namespace ui {

class MainForm;

/// A modal dialog of the program: named, owned by the main window and of a fixed size.
class Form : public QDialog {
public:
    enum class Escape { Closes, Ignored };

    Form(MainForm& mainForm, const QString& name, const QString& caption,
         Escape escape = Escape::Closes);

protected:
    [[nodiscard]] MainForm& mainForm() const { return m_mainForm; }

    /// Moves the dialog to an offset in twips from the top left corner of the main window's frame.
    /// With letters larger than the standard it keeps away from the figures. Call it once the size
    /// is fixed.
    void placeAt(int left, int top);
    /// Fixes the client size in twips; with larger fonts the dialog grows instead of clipping.
    void fixSize(int width, int height);

    void keyPressEvent(QKeyEvent* event) override;

private:
    MainForm& m_mainForm;
    Escape m_escape;
};

/// A dialog of the game: however it closes, the main window is refreshed.
class GameForm : public Form {
public:
    using Form::Form;

    void done(int result) override;

protected:
    /// Moves the controls close together, whatever they were laid out with, and fixes the client
    /// size in twips: these dialogs are small, to leave the figures in sight.
    void layOutTightly(int width, int height);
    /// Shows the refusal, if there is one, and returns whether there is.
    [[nodiscard]] bool refused(const game::Refusal& refusal);
    /// Adds an entry for each message to the report.
    void report(const std::vector<std::string>& messages);
};

}  // namespace ui
