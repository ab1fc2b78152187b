#include <QApplication>
#include <QIcon>
#include <chrono>

#include "contrast.h"
#include "frmMain.h"
#include "qt_desktop.h"

namespace {

/// The time since midnight with its fraction of a second: the seed of the generator.
std::uint64_t timeSinceMidnight() {
    const auto now = std::chrono::system_clock::now();
    return static_cast<std::uint64_t>((now - std::chrono::floor<std::chrono::days>(now)).count());
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 64, 128}) {
        icon.addFile(QStringLiteral(":/zhenbao-%1.png").arg(size), {size, size});
    }
    return icon;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(programIcon());
    QApplication::setDesktopFileName(QStringLiteral(ZHENBAO_ID));  // whose menu entry it is
    ui::makeSelectionReadable();
    ui::keepNoFileHistory();
    QApplication::setCursorFlashTime(0);  // a steady caret: nothing wakes while the player thinks

    ui::QtDesktop desktop;
    game::Generator generator(timeSinceMidnight());
    ui::frmMain mainForm(desktop, generator);
    mainForm.show();
    return QApplication::exec();
}
