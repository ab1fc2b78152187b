#include "application.h"

#include <QEvent>
#include <QIcon>

#include "readable_style.h"

namespace ui {

namespace {

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 64, 128}) {
        icon.addFile(QStringLiteral(":/zhenbao-%1.png").arg(size), {size, size});
    }
    return icon;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setStyle(new ReadableStyle);
    setWindowIcon(programIcon());
    setDesktopFileName(QStringLiteral(ZHENBAO_ID));  // whose menu entry it is
    setCursorFlashTime(0);  // a steady caret: nothing wakes while the player thinks
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        // The style polishes what comes from the desktop, not what was set here.
        const QPalette readable = withReadableSelection(palette());
        if (readable != palette()) {
            setPalette(readable);
        }
    }
    return QApplication::event(event);
}

}  // namespace ui
