// How every window looks: that its texts have room and can be read, at any size of letters. Where
// ZHENBAO_SCREENSHOTS names a folder, pictures of all windows are left there.

#include "contrast.h"
#include "every_window.h"
#include "twips.h"

namespace {

void takePicture(QWidget& window, const QString& folder, const QString& name) {
    const QString pictures = qEnvironmentVariable("ZHENBAO_SCREENSHOTS");
    if (!pictures.isEmpty()) {
        const QString path = QDir(pictures).filePath(folder);
        EXPECT_TRUE(QDir().mkpath(path) && window.grab().save(path + '/' + name + ".png"));
    }
}

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

/// The controls a window lays out itself, as opposed to what the toolkit builds them of.
QList<QWidget*> controlsOf(QWidget& window) {
    QList<QWidget*> controls;
    for (auto* control : window.findChildren<QWidget*>()) {
        if (control->isVisibleTo(&window) && control->window() == &window &&
            !control->parent()->inherits("QAbstractScrollArea") &&
            !control->parent()->inherits("QComboBox") &&
            !control->parent()->inherits("QLineEdit") && !control->parent()->inherits("QMenuBar")) {
            controls.append(control);
        }
    }
    return controls;
}

void expectRoom(QWidget& window) {
    const QList<QWidget*> controls = controlsOf(window);
    for (auto* control : controls) {
        SCOPED_TRACE(control->objectName().toStdString());
        const QSize needed = neededBy(*control);
        EXPECT_GE(control->width(), needed.width()) << "its text is clipped";
        EXPECT_GE(control->height(), needed.height()) << "its text is clipped";
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
        for (auto* other : controls) {
            const bool apart = other == control || other->parent() != control->parent() ||
                               (control->inherits("QLabel") && other->inherits("QLabel")) ||
                               !control->geometry().intersects(other->geometry());
            EXPECT_TRUE(apart) << "it overlaps " << other->objectName().toStdString();
        }
        if (auto* figure = qobject_cast<QLineEdit*>(control);
            figure != nullptr && figure->alignment().testFlag(Qt::AlignRight)) {
            for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
                EXPECT_EQ(figure->fontMetrics().horizontalAdvance(QChar{digit}),
                          figure->fontMetrics().horizontalAdvance(u'0'));
            }
        }
    }
}

/// Whoever cannot press a button need not read it: what is disabled may be dim.
void expectReadable(QWidget& window) {
    using Palette = QPalette;
    static const QRegularExpression colourOfLink("color: (#[0-9a-f]{6})");
    for (auto* control : controlsOf(window)) {
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

/// Whoever gives an order sees all figures and gauges beside its dialog.
void expectNothingHidden(const QWidget& dialog) {
    constexpr int titleBar = 24;  // of the main window; there are no frames offscreen
    QWidget& owner = *dialog.parentWidget();
    const QRect covered = dialog.geometry().translated(-owner.pos() - QPoint(0, titleBar));
    for (const auto* control : controlsOf(owner)) {
        if (control->inherits("QLineEdit") || control->inherits("QProgressBar")) {
            const QRect place(control->mapTo(&owner, QPoint()), control->size());
            EXPECT_FALSE(place.intersects(covered)) << control->objectName().toStdString();
        }
    }
}

struct Look : testing::Test {
    ~Look() override {
        QApplication::setPalette(palette);
        QApplication::setFont(font);
    }
    static void setSize(int points) {
        QFont sized = QApplication::font();
        sized.setPointSize(points);
        QApplication::setFont(sized);
    }
    const QPalette palette = QApplication::palette();
    const QFont font = QApplication::font();
};

TEST_F(Look, HasRoomForEveryTextAtAnySize) {
    for (const int points : {8, 9, 11, 14, 20}) {
        setSize(points);
        const QString size = QString("%1 pt").arg(points);
        test::EveryWindow(true, [&](QWidget& window, const QString& name) {
            SCOPED_TRACE(points);
            takePicture(window, size, name);
            expectRoom(window);
            const QSize wanted = window.size();
            window.resize(0, 0);  // as small as it goes
            expectRoom(window);
            window.resize(wanted);
        });
    }
}

TEST_F(Look, GivesDialogsTheirSizeAndPlaceAtTheStandardFont) {
    const std::map<QString, QSize> twips{{"frmBuy", {4920, 1920}},      {"frmSell", {4935, 1920}},
                                         {"frmTransfer", {4815, 1815}}, {"frmVisit", {4455, 1815}},
                                         {"frmMoney", {4575, 1770}},    {"frmRepair", {6015, 1845}},
                                         {"frmPirate", {6855, 4695}},   {"frmLeave", {2850, 3450}}};
    setSize(9);
    test::EveryWindow(false, [&](QWidget& window, const QString& name) {
        if (const auto size = twips.find(name); size != twips.end()) {
            EXPECT_TRUE(window.size() == size->second / ui::twipsPerPixel) << name.toStdString();
            name == "frmPirate" ? void() : expectNothingHidden(window);
        }
        EXPECT_LE(window.height(), std::max(window.minimumSizeHint().height(),
                                            window.screen()->availableSize().height()));
    });
}

TEST_F(Look, CanBeReadInLightAndInDark) {
    QPalette dark(QColor(0x2d, 0x2f, 0x33), QColor(0x35, 0x37, 0x3b));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x00, 0x00, 0xff));  // as dark desktops forget it
    setSize(9);
    for (const auto& [name, colours] : {std::pair{"light", palette}, {"dark", dark}}) {
        SCOPED_TRACE(name);
        QApplication::setPalette(colours);
        ui::makeSelectionReadable();
        test::EveryWindow(false, [folder = name](QWidget& window, const QString& picture) {
            takePicture(window, folder, picture);
            expectReadable(window);
        });
    }
}

}  // namespace
