#pragma once

#include <QMessageBox>

#include "pace.h"

class QUrl;
class QWidget;

namespace ui {

inline const QString programName = QStringLiteral("Zhenbao");
inline const QString refusalTitle = QStringLiteral("Sorry");

using Icon = QMessageBox::Icon;
using Answer = QMessageBox::StandardButton;

/// A message box: plain text, shown with its blanks as they stand.
struct Box {
    QString text;
    QString title = programName;
    Icon icon = Icon::Information;
    QMessageBox::StandardButtons buttons = Answer::Ok;
    Answer byDefault = Answer::Ok;  ///< pressed by Enter
    Answer onEscape = Answer::Ok;   ///< pressed by Escape and by the box's own close button
};

/// Everything outside the program: message boxes, file dialogs, links, time and the end. Tests
/// replace it.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Shows the box over `owner` and returns the button pressed.
    virtual Answer show(QWidget* owner, const Box& box) = 0;

    /// The file to load or save, empty if the player cancels. Before saving, the player has agreed
    /// to replace a file that exists.
    [[nodiscard]] virtual QString chooseFileToLoad(QWidget* owner) = 0;
    [[nodiscard]] virtual QString chooseFileToSave(QWidget* owner) = 0;

    /// Lets file dialogs start at `path`, which was read or written successfully.
    virtual void rememberFile(const QString& path) = 0;

    /// Opens a web page or a mail in the player's own program for it.
    virtual void openLink(const QUrl& link) = 0;

    virtual void wait(game::Milliseconds duration) = 0;

    /// Ends the program at once with exit status 0, whatever loops are running.
    [[noreturn]] virtual void endProgram() = 0;

    /// An OK box with the information icon.
    void inform(QWidget* owner, const QString& text, const QString& title = programName) {
        show(owner, {.text = text, .title = title});
    }
    /// A Yes/No box; true only for Yes. Enter presses `byDefault`, Escape `onEscape`.
    [[nodiscard]] bool confirm(QWidget* owner, const QString& text, const QString& title, Icon icon,
                               Answer byDefault = Answer::Yes, Answer onEscape = Answer::No) {
        return show(owner, {.text = text,
                            .title = title,
                            .icon = icon,
                            .buttons = Answer::Yes | Answer::No,
                            .byDefault = byDefault,
                            .onEscape = onEscape}) == Answer::Yes;
    }
};

}  // namespace ui
