#include "application.h"

#include <QEvent>
#include <QIconEngine>
#include <QPainter>
#include <QSettings>

#include "game_style.h"

namespace ui {

namespace {

/// Decodes its pictures only when the window system asks for them; some never do.
class ProgramIcon final : public QIconEngine {
public:
    [[nodiscard]] QIconEngine* clone() const override { return new ProgramIcon; }
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {{16, 16}, {32, 32}, {64, 64}, {128, 128}};
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        int side = 0;  // the first that is large enough, or the largest
        for (const QSize& available : availableSizes(mode, state)) {
            side = side < size.width() ? available.width() : side;
        }
        const QPixmap picture(QStringLiteral(":/zhenbao-%1.png").arg(side));
        return side == size.width()
                   ? picture
                   : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
               QIcon::State state) override {
        painter->drawPixmap(place, pixmap(place.size(), mode, state));
    }
};

/// Sends the history that the toolkit's file dialogs keep in the player's configuration nowhere.
void keepNoFileHistory() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setStyle(new GameStyle);
    setWindowIcon(QIcon(new ProgramIcon));
    setDesktopFileName(QStringLiteral(ZHENBAO_ID));  // finds the menu entry
    keepNoFileHistory();
    setCursorFlashTime(0);  // a blinking caret would wake the idle program
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        // The style polishes palettes of the desktop, but not those that a program sets.
        const QPalette readable = withReadableSelection(palette());
        if (readable != palette()) {
            setPalette(readable);
        }
    }
    return QApplication::event(event);
}

}  // namespace ui
