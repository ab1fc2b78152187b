// The program's start-up, ending after the first painted frame.

#include "application.h"
#include "first_frame.h"
#include "frmMain.h"
#include "qt_desktop.h"

int main(int argc, char** argv) {
    const ui::Application application(argc, argv);
    ui::QtDesktop desktop;
    game::Generator generator(1);
    ui::frmMain mainForm(desktop, generator);
    const bench::FirstFrame firstFrame(mainForm);
    mainForm.show();
    return ui::Application::exec();
}
