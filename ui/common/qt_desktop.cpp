#include "qt_desktop.h"

#include <QDesktopServices>
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
    const int pressed = message.exec();
    for (const Answer answer : box.buttons) {
        if (pressed == toQt(answer)) {
            return answer;
        }
    }
    return box.onEscape;
}

QString QtDesktop::chooseFileToLoad(QWidget* /*owner*/) {
    return {};
}

QString QtDesktop::chooseFileToSave(QWidget* /*owner*/) {
    return {};
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
