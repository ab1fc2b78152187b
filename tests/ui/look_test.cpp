// How every window looks and sounds: room and contrast for its texts, visible focus, the way of the
// Tab key and spoken names. If ZHENBAO_SCREENSHOTS names a folder, pictures of all windows are left
// there.

#include "approved.h"
#include "contrast.h"
#include "place.h"
#include "stage.h"

namespace {

const QString usualFigures =
    " Cannons=6 Status=83 Hold=210 MaxHold=210 SOpium=75 SSilk=50 SArms=25 WSilk=410 WArms=820 "
    "WGeneral=1230 POpium=19000 PSilk=1500 PArms=110 PGeneral=7 Bank=180400 Debt=23958 "
    "Cash=264815 Millionaire=yes Date=1862-09-15";
const QString longestFigures =  // that play leads to
    " Cannons=400 Status=83 Hold=9960 MaxHold=9960 SOpium=10000 SSilk=10000 SArms=10000 "
    "SGeneral=10000 WOpium=10000 WSilk=10000 WArms=10000 WGeneral=10000 POpium=250000 "
    "PSilk=25000 PArms=2500 PGeneral=250 Bank=899999999999 Debt=899999999999 "
    "Cash=999999999999 Millionaire=yes Date=1862-09-15 Firm=Heron,Whitcombe&Moore";

struct Look {
    QString name;
    QString figures = usualFigures;
    int points = 9;
    bool dark = false;
};
const Look light{.name = "light"};

QPalette darkPalette() {
    QPalette palette(QColor(0x2d, 0x2f, 0x33));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x00, 0x00, 0xff));  // some dark desktops forget it
    return palette;
}

/// Plays windows.txt in a look, and returns it with what `describe` says of each window that opens
/// or is visited.
std::string visitWindows(const Look& look,
                         const std::function<QString(QWidget&, const QString& state)>& describe) {
    SCOPED_TRACE(look.name.toStdString());
    const QFont usualFont = QApplication::font();
    const QPalette usualPalette = QApplication::palette();
    QFont font = usualFont;
    font.setPointSize(look.points);
    QApplication::setFont(font);
    QApplication::setPalette(look.dark ? darkPalette() : usualPalette);
    std::optional<test::Stage> stage;
    QString text;
    const auto visit = [&](QWidget& window, const QString& state) {
        SCOPED_TRACE(state.toStdString());
        test::activate(window);
        if (const QString pictures = qEnvironmentVariable("ZHENBAO_SCREENSHOTS");
            !pictures.isEmpty()) {
            const QDir folder(pictures + '/' + look.name);
            EXPECT_TRUE(folder.mkpath(".") && window.grab().save(folder.filePath(state + ".png")));
        }
        text += describe(window, state);
    };
    const std::string all = test::played("windows.txt", [&](const std::string& script) {
        QString line = QString::fromStdString(script);
        text.clear();
        if (line.startsWith(">> ")) {
            stage->act(line.mid(3));
        } else {
            stage.emplace(line.mid(2).replace(" |", look.figures + " |"), visit);
            stage->act("visit " + line.section(' ', 1, 1));
        }
        return text.toStdString();
    });
    stage.reset();
    QApplication::setFont(usualFont);
    QApplication::setPalette(usualPalette);
    return all;
}

/// Presses Tab until it comes to a control again, and returns the way.
QList<QWidget*> walkByTab(QWidget& window) {
    QList<QWidget*> stops;
    for (QWidget* stop = window.focusWidget(); stop != nullptr && !stops.contains(stop);
         stop = window.focusWidget()) {
        stops << stop;
        QTest::keyClick(stop, Qt::Key_Tab);
    }
    return stops;
}

// --- What a window says.

/// What is heard of a control. The toolkit calls a list by its text, so its use is heard from its
/// description or its label.
QString spokenBy(QWidget& control) {
    const auto* heard = QAccessible::queryAccessibleInterface(&control);
    if (!control.inherits("QComboBox")) {
        return heard->text(QAccessible::Name);
    }
    const QString use = heard->text(QAccessible::Description);
    return use.isEmpty() ? heard->relations(QAccessible::Label).value(0).first->text({}) : use;
}

/// The caption of a control, with what is spoken where that differs; of a field only the latter.
QString saidBy(QWidget& control) {
    static const QRegularExpression marks("&(?=\\S)|<[^>]*>");
    const bool isField = control.property("readOnly").isValid() || control.inherits("QComboBox") ||
                         control.inherits("QSlider") || control.inherits("QProgressBar");
    const QString caption = isField ? QString() : test::textOf(control).remove(marks);
    const QString spoken = spokenBy(control);
    const QString both = caption.trimmed() == spoken.trimmed() ? caption
                         : caption.isEmpty()                   ? spoken
                                                               : caption + " (" + spoken + ')';
    return QString(both).replace('\n', '|');
}

/// Title and, where they are fixed, size and place; texts; the way of the Tab key. Of further
/// states of the window, without the texts.
QString contentsOf(QWidget& window, const QString& state) {
    if (!state.startsWith(window.objectName())) {
        return {};
    }
    QString text = window.objectName() + " \"" + window.windowTitle() + '"';
    if (const QRect place = window.geometry(); dynamic_cast<ui::GameForm*>(&window) != nullptr) {
        const QPoint tens = (place.topLeft() - window.parentWidget()->pos()) / 10.0;
        text += QString(", %1 x %2 at ").arg(place.width()).arg(place.height()) +
                QString("%1, %2").arg(tens.x() * 10).arg(tens.y() * 10);
    }
    QStringList texts;
    for (auto* item : window.findChildren<QAction*>(QRegularExpression("^mnu.*Item[^S]*$"))) {
        texts << item->text() + ' ' + item->shortcut().toString() +
                     (item->isEnabled() ? "" : " disabled");
    }
    static const QMap<QString, const char*> kinds{
        // names begin with them
        {"cbo", "QComboBox"},    {"cmd", "QPushButton"},  {"fra", "QGroupBox"}, {"lbl", "QLabel"},
        {"opt", "QRadioButton"}, {"prg", "QProgressBar"}, {"sld", "QSlider"}};
    for (auto* control : test::controlsOf(window)) {
        EXPECT_TRUE(control->inherits(kinds.value(control->objectName().left(3), "QWidget")));
        texts << (control->inherits("QGroupBox") ? "\n    " : "") + saidBy(*control);
    }
    texts.removeAll("");
    text += state == window.objectName()
                ? "\n    " + texts.join(", ").replace(", \n", "\n").trimmed()
                : "";
    QStringList way;
    for (const QWidget* stop : walkByTab(window)) {
        way << stop->objectName() + (stop->property("default").toBool() ? " (Enter)" : "");
    }
    return text + "\n    Tab: " + way.join(", ");
}

TEST(Look, EveryWindowSaysWhatItShould) {
    EXPECT_FALSE(QApplication::windowIcon().pixmap(48).isNull());
    test::expectApproved("windows.txt", visitWindows(light, contentsOf));
}

// --- Room.

QSize neededBy(const QWidget& control) {
    if (auto* label = qobject_cast<const QLabel*>(&control); label && label->wordWrap()) {
        return {0, label->heightForWidth(label->width())};
    }
    if (control.inherits("QLabel") || control.inherits("QRadioButton")) {
        return control.sizeHint();
    }
    const QSize text =
        control.fontMetrics().size(Qt::TextShowMnemonic, test::textOf(control).trimmed());
    return control.inherits("QPushButton") || control.inherits("QLineEdit") ? text + QSize(8, 0)
           : control.inherits("QGroupBox")                                  ? QSize(text.width(), 0)
                                                                            : QSize();
}

void expectRoom(const QWidget& window) {
    const QList<QWidget*> controls = test::controlsOf(window);
    for (auto* control : controls) {
        SCOPED_TRACE(control->objectName().toStdString());
        const QSize needed = neededBy(*control);
        EXPECT_EQ(control->size().expandedTo(needed), control->size()) << "its text is clipped";
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
        for (auto* other : controls) {
            const bool apart = other == control || other->parent() != control->parent() ||
                               (control->inherits("QLabel") && other->inherits("QLabel")) ||
                               !control->geometry().intersects(other->geometry());
            EXPECT_TRUE(apart) << "it overlaps " << other->objectName().toStdString();
        }
        if (auto* display = qobject_cast<QPlainTextEdit*>(control);
            display != nullptr && display->toPlainText().startsWith("II<")) {  // drawn in columns
            EXPECT_TRUE(QFontInfo(display->font()).fixedPitch());
            EXPECT_EQ(display->document()->lineCount(), display->blockCount());
        }
    }
}

TEST(Look, TextsHaveRoomAtAnySizeOfLetters) {
    for (const int points : {8, 9, 14, 20}) {
        const Look look{QString("%1 pt").arg(points), longestFigures, points};
        visitWindows(look, [points](QWidget& window, const QString& /*state*/) {
            const int title = window.fontMetrics().horizontalAdvance(window.windowTitle());
            EXPECT_TRUE(window.width() > title + 100 || !window.inherits("QMessageBox") ||
                        points > 9);
            const int most = std::max(window.minimumSizeHint().height(),
                                      window.screen()->availableSize().height());
            EXPECT_TRUE(window.height() <= most || points > 9) << "higher than the screen";
            expectRoom(window);
            const QSize wanted = window.size();
            window.resize(0, 0);  // as small as it goes
            expectRoom(window);
            window.resize(wanted);
            return QString();
        });
    }
}

// --- Colours.

/// Disabled controls may be dim.
void expectContrast(QWidget& window) {
    using Palette = QPalette;
    static const QRegularExpression colourOfLink("color: (#[0-9a-f]{6})");
    for (auto* control : test::controlsOf(window)) {
        const QPalette& colours = control->palette();
        if (!control->isEnabled() || test::textOf(*control).isEmpty()) {
            continue;
        }
        for (const auto& [text, under] : {std::pair{Palette::WindowText, Palette::Window},
                                          {Palette::Text, Palette::Base},
                                          {Palette::ButtonText, Palette::Button},
                                          {Palette::HighlightedText, Palette::Highlight}}) {
            const bool bare = colours.color(under).alpha() == 0;
            EXPECT_GE(
                ui::contrast(colours.color(text), colours.color(bare ? Palette::Window : under)),
                ui::leastContrast)
                << control->objectName().toStdString() << ": colour " << text << " on " << under;
        }
        const auto link = colourOfLink.match(test::textOf(*control));
        EXPECT_TRUE(!link.hasMatch() ||
                    ui::contrast(QColor(link.captured(1)), colours.color(Palette::Window)) >=
                        ui::leastContrast);
    }
}

/// A control has a mark that stands out until the focus goes on to the next.
void expectVisibleFocus(QWidget& window) {
    for (QWidget* stop : walkByTab(window)) {
        const QRect place(stop->mapTo(&window, QPoint()), stop->size());
        stop->setFocus(Qt::TabFocusReason);
        const QImage with = window.grab(place).toImage();
        QTest::keyClick(stop, Qt::Key_Tab);
        const QImage without = window.grab(place).toImage();
        int marked = 0;  // pixels
        for (int pixel = 0; pixel < with.width() * with.height(); ++pixel) {
            const QPoint at(pixel % with.width(), pixel / with.width());
            marked += ui::contrast(with.pixelColor(at), without.pixelColor(at)) >=
                      ui::leastContrastOfMark;
        }
        EXPECT_TRUE(marked >= std::max(stop->width(), 20) || stop == window.focusWidget() ||
                    stop == &window)
            << stop->objectName().toStdString() << " does not show the focus";
    }
}

TEST(Look, TextsAndFocusStandOutInLightAndDark) {
    const QPalette usual = QApplication::palette();
    const auto switchTo = [](const QPalette& palette) {  // as desktops do while windows are open
        QApplication::setPalette(palette);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
    };
    QMap<QString, QImage> switched;
    visitWindows(light, [&](QWidget& window, const QString& state) {
        switchTo(darkPalette());
        switched[state] = window.grab().toImage();
        switchTo(usual);
        expectContrast(window);
        expectVisibleFocus(window);
        return QString();
    });
    visitWindows({.name = "dark", .dark = true}, [&](QWidget& window, const QString& state) {
        EXPECT_EQ(window.grab().toImage(), switched.value(state)) << "is switched in part";
        expectContrast(window);
        expectVisibleFocus(window);
        return QString();
    });
}

TEST(Look, DialogsKeepAwayFromFiguresAsFarAsTheScreenAllows) {
    const QRect screen(0, 0, 1000, 700);
    const QRect cash(400, 60, 100, 20);
    const QRect gauge(700, 200, 200, 100);
    const auto placed = [&](const QRect& wanted) {
        return ui::placeBeside({cash, gauge}, wanted, screen);
    };
    EXPECT_EQ(placed({300, 100, 200, 100}), QPoint(300, 100)) << "they cover nothing there";
    EXPECT_EQ(placed({300, 50, 200, 100}), QPoint(300, 80)) << "below the cash";
    EXPECT_EQ(placed({520, 210, 200, 100}), QPoint(500, 210)) << "beside the gauge";
    EXPECT_EQ(placed({900, 650, 200, 100}), QPoint(800, 600)) << "on the screen";
    EXPECT_EQ(placed({100, 0, 900, 600}), QPoint(100, 80)) << "the cash counts most";
}

}  // namespace
