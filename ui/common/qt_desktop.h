#pragma once

#include <QDir>
#include <memory>

#include "desktop.h"

class QFileDialog;
class QFileIconProvider;

namespace ui {

/// The player's real desktop, through Qt.
class QtDesktop : public Desktop {
public:
    QtDesktop();
    ~QtDesktop() override;

    Answer show(QWidget* owner, const Box& box) override;
    [[nodiscard]] QString chooseFileToLoad(QWidget* owner) override;
    [[nodiscard]] QString chooseFileToSave(QWidget* owner) override;
    void rememberFile(const QString& path) override;
    void openLink(const QUrl& link) override;
    void wait(game::Milliseconds duration) override;
    [[noreturn]] void endProgram() override;

private:
    /// Shows the dialog beside the last file that was read or written.
    [[nodiscard]] QString chooseFile(QFileDialog& dialog);

    std::unique_ptr<QFileIconProvider> m_icons;  ///< of the file dialogs, made for the first
    QString m_lastFile = QDir::homePath() + QLatin1Char('/');
};

}  // namespace ui
