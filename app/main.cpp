#include <chrono>

#include "application.h"
#include "frmMain.h"
#include "qt_desktop.h"

namespace {

/// The time since midnight with its fraction of a second: the seed of the generator.
std::uint64_t timeSinceMidnight() {
    const auto now = std::chrono::system_clock::now();
    return static_cast<std::uint64_t>((now - std::chrono::floor<std::chrono::days>(now)).count());
}

}  // namespace

int main(int argc, char** argv) {
    const ui::Application application(argc, argv);
    ui::QtDesktop desktop;
    game::Generator generator(timeSinceMidnight());
    ui::frmMain mainForm(desktop, generator);
    mainForm.show();
    return ui::Application::exec();
}
