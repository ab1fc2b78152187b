// How every window looks: that its texts have room and can be read, at any size of letters. Where
// ZHENBAO_SCREENSHOTS names a folder, pictures of all windows are left there.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>

#include "contrast.h"
#include "every_window.h"
#include "twips.h"

namespace {

constexpr int standardSize = 9;  // points

QPalette darkPalette() {
    QPalette palette(QColor(0x2d, 0x2f, 0x33), QColor(0x35, 0x37, 0x3b));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x00, 0x00, 0xff));  // as dark desktops forget it
    return palette;
}

void takePicture(QWidget& window, const QString& folder, const QString& name) {
    const QString pictures = qEnvironmentVariable("ZHENBAO_SCREENSHOTS");
    if (!pictures.isEmpty()) {
        const QString path = QDir(pictures).filePath(folder);
        EXPECT_TRUE(QDir().mkpath(path) && window.grab().save(path + u'/' + name + ".png"));
    }
}

/// What the text of a control needs; nothing where it has none or scrolls.
QSize neededBy(QWidget& control) {
    const QFontMetrics metrics = control.fontMetrics();
    if (auto* button = qobject_cast<QPushButton*>(&control)) {
        return metrics.size(Qt::TextShowMnemonic, button->text()) + QSize(8, 4);
    }
    if (auto* frame = qobject_cast<QGroupBox*>(&control)) {
        return {metrics.size(Qt::TextShowMnemonic, frame->title().trimmed()).width(), 0};
    }
    if (auto* field = qobject_cast<QLineEdit*>(&control)) {
        return {metrics.horizontalAdvance(field->text()) + 8, metrics.height()};
    }
    auto* label = qobject_cast<QLabel*>(&control);
    if (label != nullptr && label->wordWrap()) {
        return {0, label->heightForWidth(label->width())};
    }
    auto* list = qobject_cast<QComboBox*>(&control);
    const bool hints = label != nullptr || qobject_cast<QRadioButton*>(&control) != nullptr ||
                       (list != nullptr && !list->isEditable());
    return hints ? control.sizeHint() : QSize{};
}

/// Where a control shows something: the lines of a text may leave room beside them for another.
QRegion drawnBy(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    if (label == nullptr || !label->text().contains(u'\n')) {
        return control.geometry();
    }
    const QStringList lines = label->text().split(u'\n');
    const QFontMetrics metrics = label->fontMetrics();
    QPoint start{label->x(), label->geometry().center().y() -
                                 static_cast<int>(lines.size()) * metrics.lineSpacing() / 2};
    QRegion drawn;
    for (const QString& line : lines) {
        drawn += QRect(start, metrics.size(Qt::TextSingleLine, line));
        start.ry() += metrics.lineSpacing();
    }
    return drawn;
}

bool arrangedByUs(const QWidget& parent) {
    return qobject_cast<const QAbstractScrollArea*>(&parent) == nullptr &&
           qobject_cast<const QComboBox*>(&parent) == nullptr &&
           qobject_cast<const QLineEdit*>(&parent) == nullptr &&
           qobject_cast<const QMenuBar*>(&parent) == nullptr;
}

void expectRoom(QWidget& window) {
    for (auto* control : window.findChildren<QWidget*>()) {
        QWidget& parent = *control->parentWidget();
        if (!control->isVisibleTo(&window) || control->isWindow() || !arrangedByUs(parent)) {
            continue;
        }
        SCOPED_TRACE(control->metaObject()->className() +
                     (' ' + control->objectName()).toStdString());
        const QSize needed = neededBy(*control);
        EXPECT_GE(control->width(), needed.width()) << "its text is clipped";
        EXPECT_GE(control->height(), needed.height()) << "its text is clipped";
        EXPECT_TRUE(parent.rect().contains(control->geometry())) << "it leaves its parent";
        for (auto* other : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (other != control && !other->isWindow() && other->isVisibleTo(&window)) {
                EXPECT_FALSE(drawnBy(*control).intersects(drawnBy(*other)))
                    << "it overlaps " << other->objectName().toStdString();
            }
        }
        if (auto* figure = qobject_cast<QLineEdit*>(control);
            figure != nullptr && figure->alignment().testFlag(Qt::AlignRight)) {
            for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
                EXPECT_EQ(figure->fontMetrics().horizontalAdvance(QChar{digit}),
                          figure->fontMetrics().horizontalAdvance(u'0'));
            }
        }
        if (auto* label = qobject_cast<QLabel*>(control);
            label != nullptr && !label->pixmap().isNull() && window.objectName() != "msgBox") {
            EXPECT_EQ(label->pixmap().devicePixelRatio(), window.devicePixelRatio());
        }
    }
}

void expectContrast(const QWidget& control, QPalette::ColorRole text, QPalette::ColorRole under) {
    const QPalette& palette = control.palette();
    const bool seeThrough = palette.color(under).alpha() == 0;
    EXPECT_GE(
        ui::contrast(palette.color(text), palette.color(seeThrough ? QPalette::Window : under)),
        ui::leastContrast)
        << control.objectName().toStdString() << ": colour " << text << " on " << under;
}

/// Whoever cannot press a button need not read it: what is disabled may be dim.
void expectReadable(QWidget& window) {
    static const QRegularExpression colourOfLink("color: (#[0-9a-f]{6})");
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisibleTo(&window) || !control->isEnabled()) {
            continue;
        }
        auto* label = qobject_cast<QLabel*>(control);
        if (qobject_cast<QPushButton*>(control) || qobject_cast<QComboBox*>(control)) {
            expectContrast(*control, QPalette::ButtonText, QPalette::Button);
        } else if (qobject_cast<QLineEdit*>(control) || qobject_cast<QPlainTextEdit*>(control)) {
            expectContrast(*control, QPalette::Text, QPalette::Base);
            expectContrast(*control, QPalette::HighlightedText, QPalette::Highlight);
        } else if ((label && !label->text().isEmpty()) || qobject_cast<QGroupBox*>(control) ||
                   qobject_cast<QRadioButton*>(control) || qobject_cast<QMenuBar*>(control)) {
            expectContrast(*control, QPalette::WindowText, QPalette::Window);
        }
        if (label != nullptr) {
            if (const auto link = colourOfLink.match(label->text()); link.hasMatch()) {
                EXPECT_GE(ui::contrast(QColor(link.captured(1)),
                                       label->palette().color(QPalette::Window)),
                          ui::leastContrast);
            }
        }
    }
}

class Look : public testing::Test {
protected:
    Look() { setSize(standardSize); }
    ~Look() override {
        QApplication::setPalette(m_palette);
        QApplication::setFont(m_font);
    }

    static void setSize(int points) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    }

private:
    QPalette m_palette = QApplication::palette();
    QFont m_font = QApplication::font();
};

TEST_F(Look, HasRoomForEveryTextAtAnySize) {
    for (const int points : {8, standardSize, 11, 14, 20}) {
        setSize(points);
        const std::string size = std::to_string(points) + " pt";
        test::EveryWindow(test::richestGame(), [&](QWidget& window, const QString& name) {
            SCOPED_TRACE(size);
            takePicture(window, QString::fromStdString(size), name);
            expectRoom(window);
            const QSize wanted = window.size();
            window.resize(0, 0);  // as small as it goes
            expectRoom(window);
            window.resize(wanted);
        });
    }
}

/// Whoever gives an order sees all figures and gauges beside its dialog.
void expectNothingHidden(const QWidget& dialog) {
    constexpr int titleBar = 24;  // of the main window; there are no frames offscreen
    const QWidget& owner = *dialog.parentWidget();
    const QRect covered = dialog.geometry().translated(-owner.pos() - QPoint(0, titleBar));
    for (const auto* control : owner.findChildren<QWidget*>()) {
        if ((qobject_cast<const QLineEdit*>(control) ||
             qobject_cast<const QProgressBar*>(control)) &&
            control->window() == &owner) {
            const QRect place(control->mapTo(&owner, QPoint()), control->size());
            EXPECT_FALSE(place.intersects(covered)) << control->objectName().toStdString();
        }
    }
}

TEST_F(Look, GivesDialogsTheirSizeAndPlaceAtTheStandardFont) {
    const std::map<QString, QSize> twips{{"frmBuy", {4920, 1920}},      {"frmSell", {4935, 1920}},
                                         {"frmTransfer", {4815, 1815}}, {"frmVisit", {4455, 1815}},
                                         {"frmMoney", {4575, 1770}},    {"frmRepair", {6015, 1845}},
                                         {"frmPirate", {6855, 4695}},   {"frmLeave", {2850, 3450}}};
    const auto expectSize = [](const QWidget& shown, const QSize& measures) {
        const QSize size = measures / ui::twipsPerPixel;
        EXPECT_EQ(shown.width(), size.width());
        EXPECT_EQ(shown.height(), size.height());
    };
    test::EveryWindow(test::prosperousGame(), [&](QWidget& window, const QString& name) {
        const auto size = twips.find(name);
        if (name == "frmMain") {
            EXPECT_LE(window.height(), std::max(window.minimumSizeHint().height(),
                                                window.screen()->availableSize().height()));
        }
        if (size == twips.end()) {
            return;
        }
        expectSize(window, size->second);
        if (name == "frmPirate") {
            expectSize(*test::find<QWidget>(window, "FraEnemy"), {6615, 2895});
        } else {
            expectNothingHidden(window);
        }
    });
}

TEST_F(Look, CanBeReadInLightAndInDark) {
    for (const char* palette : {"light", "dark"}) {
        SCOPED_TRACE(palette);
        if (palette == std::string{"dark"}) {
            QApplication::setPalette(darkPalette());
        }
        ui::makeSelectionReadable();
        test::EveryWindow(test::prosperousGame(), [&](QWidget& window, const QString& name) {
            takePicture(window, palette, name);
            expectReadable(window);
        });
    }
}

}  // namespace
