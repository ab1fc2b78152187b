// The game's start-up as app/ does it, ending after the first painted frame.

#include <QApplication>

#include "first_frame.h"
#include "frmMain.h"
#include "qt_desktop.h"

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);

    ui::QtDesktop desktop;
    game::Generator generator(1);
    ui::frmMain mainForm(desktop, generator);
    const bench::FirstFrame firstFrame(mainForm);
    mainForm.show();
    return QApplication::exec();
}
