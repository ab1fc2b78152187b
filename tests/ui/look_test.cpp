// How every window looks and sounds: that its texts have room and can be read at any size of
// letters, in light and in dark, that the focus is seen and that everything has a name. Where
// ZHENBAO_SCREENSHOTS names a folder, pictures of all windows are left there.

#include "approved.h"
#include "contrast.h"
#include "place.h"
#include "stage.h"
#include "twips.h"

namespace {

/// What the text of a control needs; nothing where it has none or scrolls.
QSize neededBy(const QWidget& control) {
    if (auto* label = qobject_cast<const QLabel*>(&control); label && label->wordWrap()) {
        return {0, label->heightForWidth(label->width())};
    }
    if (control.inherits("QLabel") || control.inherits("QRadioButton")) {
        return control.sizeHint();
    }
    const bool framed = control.inherits("QPushButton") || control.inherits("QLineEdit");
    const QSize text =
        control.fontMetrics().size(Qt::TextShowMnemonic, test::textOf(control).trimmed());
    return framed                          ? text + QSize(8, 0)
           : control.inherits("QGroupBox") ? QSize(text.width(), 0)
                                           : QSize();
}

void expectRoom(QWidget& window) {
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

/// Whoever cannot press a button need not read it: what is disabled may be dim.
void expectReadable(QWidget& window) {
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

/// A control as other programs know it, its caption or text, and what a screen reader says of it;
/// nothing where there is none of both, or only how far it is scrolled.
QString described(QWidget& control) {
    const QMetaObject* kind = control.metaObject();
    while (kind->className()[0] != 'Q') {
        kind = kind->superClass();
    }
    const QString text = test::textOf(control).replace('\n', '|').trimmed();
    QString spoken = QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
    spoken = spoken.replace('\n', '|').trimmed();
    if ((text.isEmpty() && spoken.isEmpty()) || control.inherits("QScrollBar")) {
        return {};
    }
    return QString("    %1 %2%3 %4%5\n")
        .arg(kind->className(), control.objectName(),
             control.property("default").toBool() ? ", default" : "", test::shown(control),
             spoken == text ? "" : ", spoken \"" + spoken + '"');
}

/// As the desktop switches between light and dark.
void switchTo(const QPalette& colours) {
    QApplication::setPalette(colours);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
}

/// The way of the Tab key, which comes to every control that should have it; each shows the focus.
QString wayOfTab(QWidget& window) {
    QString told;
    QList<QWidget*> stops;
    for (QWidget* stop = window.focusWidget(); stop != nullptr && !stops.contains(stop);
         stop = window.focusWidget()) {
        const QRect place(stop->mapTo(&window, QPoint()), stop->size());
        const QImage with = window.grab(place).toImage();
        QTest::keyClick(stop, Qt::Key_Tab);
        const QImage without = window.grab(place).toImage();
        int marked = 0;  // pixels of the mark, which stand out from what they cover
        for (int pixel = 0; pixel < with.width() * with.height(); ++pixel) {
            const QPoint at(pixel % with.width(), pixel / with.width());
            marked += with.pixel(at) != without.pixel(at) &&
                      ui::contrast(with.pixelColor(at), without.pixelColor(at)) >=
                          ui::leastContrastOfMark;
        }
        EXPECT_TRUE(marked >= std::max(stop->width(), 20) || stop == window.focusWidget() ||
                    stop == &window)
            << stop->objectName().toStdString() << " does not show the focus";
        told += (stops.isEmpty() ? "    Tab: " : ", ") +
                (stop->objectName().isEmpty() ? test::textOf(*stop) : stop->objectName());
        stops << stop;
    }
    EXPECT_GE(stops.size(),
              std::ranges::count_if(test::controlsOf(window), [](const auto* control) {
                  return control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0;
              }));
    return told + '\n';
}

/// Everything that has a name in a window and, where that is fixed, its size and place.
QString contentsOf(QWidget& window) {
    QString told = window.objectName() + " \"" + window.windowTitle() + "\"\n";
    if (const QRect place = window.geometry(); dynamic_cast<ui::GameForm*>(&window) != nullptr) {
        const QPoint tens = (place.topLeft() - window.parentWidget()->pos()) / 10.0;
        told += QString("    %1 x %2 at ").arg(place.width()).arg(place.height()) +
                QString("%1, %2\n").arg(tens.x() * 10).arg(tens.y() * 10);
    }
    for (auto* action : window.findChildren<QAction*>(QRegularExpression("^mnu.*Item"))) {
        told += QString("    %1%2 \"%3\" %4\n")
                    .arg(action->objectName(), action->isEnabled() ? "" : ", disabled",
                         action->text(), action->shortcut().toString());
    }
    for (auto* control : test::controlsOf(window)) {
        told += described(*control);
    }
    return told;
}

TEST(Dialogs, KeepAwayFromFiguresAsFarAsTheScreenAllows) {
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

TEST(Look, IsGoodInEveryWindowAtAnySizeInLightAndInDark) {
    const QString usual =
        " Cannons=6 Status=83 Hold=210 MaxHold=210 SOpium=75 SSilk=50 SArms=25 WSilk=410 WArms=820 "
        "WGeneral=1230 POpium=19000 PSilk=1500 PArms=110 PGeneral=7 Bank=180400 Debt=23958 "
        "Cash=264815 Millionaire=yes Date=1862-09-15";
    const QString richest =  // the longest figures that play leads to
        " Cannons=400 Status=83 Hold=9960 MaxHold=9960 SOpium=10000 SSilk=10000 SArms=10000 "
        "SGeneral=10000 WOpium=10000 WSilk=10000 WArms=10000 WGeneral=10000 POpium=250000 "
        "PSilk=25000 PArms=2500 PGeneral=250 Bank=899999999999 Debt=899999999999 "
        "Cash=999999999999 Millionaire=yes Date=1862-09-15 Firm=Heron,Whitcombe&Moore";
    QPalette dark(QColor(0x2d, 0x2f, 0x33));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x00, 0x00, 0xff));  // as dark desktops forget it
    const QPalette light = QApplication::palette();
    const QString pictures = qEnvironmentVariable("ZHENBAO_SCREENSHOTS");
    QMap<QString, QImage> switched;  // each state, switched to dark while it is shown
    const QFont usualFont = QApplication::font();
    for (const char* name : {"light", "dark", "8 pt", "9 pt", "11 pt", "14 pt", "20 pt"}) {
        SCOPED_TRACE(name);
        const int points = QString(name).section(' ', 0, 0).toInt();
        QFont font = usualFont;
        font.setPointSize(points > 0 ? points : 9);
        QApplication::setFont(font);
        QApplication::setPalette(QString(name) == "dark" ? dark : light);
        QString told;
        const auto visit = [&](QWidget& window, const QString& state) {
            SCOPED_TRACE(state.toStdString());
            QApplication::setActiveWindow(&window);
            if (points == 0) {
                const QImage picture = window.grab().toImage();
                EXPECT_TRUE(switched.value(state, picture) == picture) << "half switched";
                switchTo(QString(name) == "dark" ? light : dark);
                switched[state] = window.grab().toImage();
                switchTo(QString(name) == "dark" ? dark : light);
            }
            if (const QDir folder(pictures + '/' + name); !pictures.isEmpty()) {
                EXPECT_TRUE(folder.mkpath(".") &&
                            window.grab().save(folder.filePath(state + ".png")));
            }
            const QString contents = contentsOf(window) + wayOfTab(window);
            told += state.startsWith("frm") ? contents : "";  // or a state of a window known
            if (points == 0) {
                EXPECT_LE(window.height(), std::max(window.minimumSizeHint().height(),
                                                    window.screen()->availableSize().height()));
                const int title = window.fontMetrics().horizontalAdvance(window.windowTitle());
                EXPECT_TRUE(window.width() > title + 100 || !window.inherits("QMessageBox"));
            }
            expectReadable(window);
            expectRoom(window);
            const QSize wanted = window.size();
            window.resize(0, 0);  // as small as it goes
            expectRoom(window);
            window.resize(wanted);
        };
        std::optional<test::Stage> stage;
        const auto play = [&](const std::string& script) {
            QString line = QString::fromStdString(script);
            told.clear();
            if (line.startsWith(">> ")) {
                stage->act(line.mid(3));
            } else {
                line.replace(" |", (points > 0 ? richest : usual) + " |");
                stage.emplace(line.mid(2), visit);
            }
            return told.toStdString();
        };
        const std::string windows = test::played("windows.txt", play);
        if (QString(name) == "light") {
            test::expectApproved("windows.txt", windows);
        }
    }
    QApplication::setFont(usualFont);
    QApplication::setPalette(light);
}

}  // namespace
