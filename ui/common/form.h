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

    /// Puts the dialog, which has its size by then, with its top left corner beside that of the
    /// main window's frame, in twips. With letters larger than the standard it keeps away from
    /// figures.
    void placeAt(int left, int top);
    /// Gives the dialog its client size in twips; larger fonts make it grow rather than clip.
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
    /// Tells the player where an order is refused; false where it may be carried out.
    [[nodiscard]] bool refused(const game::Refusal& refusal);
    /// Enters what an order did into the report.
    void report(const std::vector<std::string>& messages);
};

}  // namespace ui
