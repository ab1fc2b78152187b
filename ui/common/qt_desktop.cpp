#include "qt_desktop.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QGridLayout>
#include <QLineEdit>
#include <QUrl>
#include <cstdlib>

#include "delay.h"

namespace ui {

namespace {

/// A box is only as wide as its text, but the reason of a failure is its title.
void makeRoomForTitle(QMessageBox& message) {
    constexpr int frameButtons = 140;  // and the bold letters of some frames
    const int title = message.fontMetrics().horizontalAdvance(message.windowTitle());
    if (auto* grid = qobject_cast<QGridLayout*>(message.layout())) {
        grid->addItem(new QSpacerItem(title + frameButtons, 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
}

/// Lists files without reading them, which takes forever for some in /proc.
class PlainIcons final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override {
        return icon(file.isDir() ? Folder : File);
    }
    [[nodiscard]] QString type(const QFileInfo& file) const override { return file.suffix(); }
};

/// Accepts any name. After a folder it clears the name, as dialogs do that accept only files that
/// exist.
class LoadDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void accept() override {
        const QDir before = directory();
        QFileDialog::accept();
        if (auto* name = findChild<QLineEdit*>(); name != nullptr && directory() != before) {
            name->clear();
        }
    }
};

}  // namespace

QtDesktop::QtDesktop() = default;
QtDesktop::~QtDesktop() = default;

Answer QtDesktop::show(QWidget* owner, const Box& box) {
    QMessageBox message(owner);
    message.setObjectName(QStringLiteral("msgBox"));
    message.setIcon(box.icon);
    message.setWindowTitle(box.title);
    message.setTextFormat(Qt::PlainText);
    message.setText(box.text);
    message.setStandardButtons(box.buttons);
    message.setDefaultButton(box.byDefault);
    message.setEscapeButton(box.onEscape);
    makeRoomForTitle(message);
    return static_cast<Answer>(message.exec());
}

QString QtDesktop::chooseFileToLoad(QWidget* owner) {
    LoadDialog dialog(owner, QStringLiteral("Load Game"));
    dialog.setFileMode(QFileDialog::AnyFile);  // a name that the filter hides can be typed
    return chooseFile(dialog);
}

QString QtDesktop::chooseFileToSave(QWidget* owner) {
    QFileDialog dialog(owner, QStringLiteral("Save Game"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    return chooseFile(dialog);
}

QString QtDesktop::chooseFile(QFileDialog& dialog) {
    if (m_icons == nullptr) {
        m_icons = std::make_unique<PlainIcons>();
    }
    dialog.setIconProvider(m_icons.get());
    dialog.setObjectName(QStringLiteral("dlgFile"));
    // The last brackets are the pattern, which is hidden: "All Files" includes names without a dot.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(
        {QStringLiteral("Saved Game Files (*.zhb)(*.zhb)"), QStringLiteral("All Files (*.*)(*)")});
    dialog.setDirectory(QFileInfo(m_lastFile).path());
    dialog.selectFile(QFileInfo(m_lastFile).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString{};
}

void QtDesktop::rememberFile(const QString& path) {
    m_lastFile = path;
}

void QtDesktop::openLink(const QUrl& link) {
    QDesktopServices::openUrl(link);
}

void QtDesktop::wait(game::Milliseconds duration) {
    Delay(duration);
}

void QtDesktop::endProgram() {
    std::_Exit(EXIT_SUCCESS);
}

}  // namespace ui
