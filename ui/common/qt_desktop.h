#pragma once

#include <QDir>

#include "desktop.h"

class QFileDialog;

namespace ui {

/// The player's real desktop, through Qt.
class QtDesktop : public Desktop {
public:
    Answer show(QWidget* owner, const Box& box) override;
    [[nodiscard]] QString chooseFileToLoad(QWidget* owner) override;
    [[nodiscard]] QString chooseFileToSave(QWidget* owner) override;
    void openLink(const QUrl& link) override;
    void wait(game::Milliseconds duration) override;
    [[noreturn]] void endProgram() override;

private:
    /// Shows the dialog where the last file was chosen.
    [[nodiscard]] QString chooseFile(QFileDialog& dialog);

    QString m_lastFile = QDir::homePath() + QLatin1Char('/');
};

}  // namespace ui
