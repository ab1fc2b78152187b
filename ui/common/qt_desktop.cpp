#include "qt_desktop.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <cstdlib>

#include "delay.h"

namespace ui {

namespace {

QMessageBox::Icon toQt(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Stop:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton toQt(Answer answer) {
    switch (answer) {
        case Answer::Ok:
            return QMessageBox::Ok;
        case Answer::Yes:
            return QMessageBox::Yes;
        case Answer::No:
            return QMessageBox::No;
        case Answer::Cancel:
            return QMessageBox::Cancel;
    }
    return QMessageBox::NoButton;
}

/// A box is only as wide as its text, but the reason of a failure is its title.
void makeRoomForTitle(QMessageBox& message) {
    constexpr int frameButtons = 140;  // and the bold letters of some frames
    const int title = message.fontMetrics().horizontalAdvance(message.windowTitle());
    if (auto* grid = qobject_cast<QGridLayout*>(message.layout())) {
        grid->addItem(new QSpacerItem(title + frameButtons, 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
}

}  // namespace

Answer QtDesktop::show(QWidget* owner, const Box& box) {
    QMessageBox message(owner);
    message.setObjectName(QStringLiteral("msgBox"));
    message.setIcon(toQt(box.icon));
    message.setWindowTitle(box.title);
    message.setTextFormat(Qt::PlainText);
    message.setText(box.text);
    for (const Answer answer : box.buttons) {
        message.addButton(toQt(answer));
    }
    message.setDefaultButton(toQt(box.byDefault));
    message.setEscapeButton(toQt(box.onEscape));
    makeRoomForTitle(message);
    const int pressed = message.exec();
    for (const Answer answer : box.buttons) {
        if (pressed == toQt(answer)) {
            return answer;
        }
    }
    return box.onEscape;
}

QString QtDesktop::chooseFileToLoad(QWidget* owner) {
    QFileDialog dialog(owner, QStringLiteral("Load Game"));
    dialog.setFileMode(QFileDialog::AnyFile);  // a name that the filter hides can be typed
    return chooseFile(dialog);
}

QString QtDesktop::chooseFileToSave(QWidget* owner) {
    QFileDialog dialog(owner, QStringLiteral("Save Game"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    return chooseFile(dialog);
}

QString QtDesktop::chooseFile(QFileDialog& dialog) const {
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
