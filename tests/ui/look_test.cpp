// How every window looks: that its texts have room and can be read, at any size of letters. Where
// ZHENBAO_SCREENSHOTS names a folder, pictures of all windows are left there.

#include <gtest/gtest.h>

#include <QtWidgets>

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

template <class... Kinds>
bool isOneOf(const QWidget* control) {
    return ((qobject_cast<const Kinds*>(control) != nullptr) || ...);
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
    if (auto* label = qobject_cast<QLabel*>(&control); label != nullptr && label->wordWrap()) {
        return {0, label->heightForWidth(label->width())};
    }
    auto* list = qobject_cast<QComboBox*>(&control);
    const bool hints =
        isOneOf<QLabel, QRadioButton>(&control) || (list != nullptr && !list->isEditable());
    return hints ? control.sizeHint() : QSize{};
}

void expectRoom(QWidget& window) {
    for (auto* control : window.findChildren<QWidget*>()) {
        QWidget& parent = *control->parentWidget();
        if (!control->isVisibleTo(&window) || control->isWindow() ||
            isOneOf<QAbstractScrollArea, QComboBox, QLineEdit, QMenuBar>(&parent)) {
            continue;
        }
        SCOPED_TRACE(control->metaObject()->className() +
                     (' ' + control->objectName()).toStdString());
        const QSize needed = neededBy(*control);
        EXPECT_EQ(control->size(), control->size().expandedTo(needed)) << "its text is clipped";
        EXPECT_TRUE(parent.rect().contains(control->geometry())) << "it leaves its parent";
        for (auto* other : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            const bool beside = control->objectName() == "lblCredit" ||
                                other->objectName() == "lblCredit";  // its lines leave room
            if (other != control && !other->isWindow() && other->isVisibleTo(&window) && !beside) {
                EXPECT_FALSE(control->geometry().intersects(other->geometry()))
                    << "it overlaps " << other->objectName().toStdString();
            }
        }
    }
}

void expectContrast(const QWidget& control, const QColor& text, QPalette::ColorRole under) {
    const QColor colour = control.palette().color(under);
    EXPECT_GE(ui::contrast(
                  text, colour.alpha() == 0 ? control.palette().color(QPalette::Window) : colour),
              ui::leastContrast)
        << control.objectName().toStdString() << " on " << under;
}

/// Whoever cannot press a button need not read it: what is disabled may be dim.
void expectReadable(QWidget& window) {
    static const QRegularExpression colourOfLink("color: (#[0-9a-f]{6})");
    for (auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisibleTo(&window) || !control->isEnabled()) {
            continue;
        }
        const QPalette& colours = control->palette();
        const auto* label = qobject_cast<QLabel*>(control);
        if (isOneOf<QPushButton, QComboBox>(control)) {
            expectContrast(*control, colours.color(QPalette::ButtonText), QPalette::Button);
        } else if (isOneOf<QLineEdit, QPlainTextEdit>(control)) {
            expectContrast(*control, colours.color(QPalette::Text), QPalette::Base);
            expectContrast(*control, colours.color(QPalette::HighlightedText), QPalette::Highlight);
        } else if (isOneOf<QGroupBox, QRadioButton, QMenuBar>(control) ||
                   (label != nullptr && !label->text().isEmpty())) {
            expectContrast(*control, colours.color(QPalette::WindowText), QPalette::Window);
        }
        if (label != nullptr && colourOfLink.match(label->text()).hasMatch()) {
            expectContrast(*control, QColor(colourOfLink.match(label->text()).captured(1)),
                           QPalette::Window);
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
        const QRect place(control->mapTo(&owner, QPoint()), control->size());
        EXPECT_FALSE(isOneOf<QLineEdit, QProgressBar>(control) && control->window() == &owner &&
                     place.intersects(covered))
            << control->objectName().toStdString();
    }
}

TEST_F(Look, GivesDialogsTheirSizeAndPlaceAtTheStandardFont) {
    const std::map<QString, QSize> twips{{"frmBuy", {4920, 1920}},      {"frmSell", {4935, 1920}},
                                         {"frmTransfer", {4815, 1815}}, {"frmVisit", {4455, 1815}},
                                         {"frmMoney", {4575, 1770}},    {"frmRepair", {6015, 1845}},
                                         {"frmPirate", {6855, 4695}},   {"frmLeave", {2850, 3450}}};
    test::EveryWindow(test::prosperousGame(), [&](QWidget& window, const QString& name) {
        if (const auto size = twips.find(name); size != twips.end()) {
            EXPECT_EQ(window.size(), size->second / ui::twipsPerPixel);
            if (auto* sea = window.findChild<QGroupBox*>("FraEnemy")) {
                EXPECT_EQ(sea->size(), QSize(6615, 2895) / ui::twipsPerPixel);
            } else {
                expectNothingHidden(window);
            }
        } else if (name == "frmMain") {
            EXPECT_LE(window.height(), std::max(window.minimumSizeHint().height(),
                                                window.screen()->availableSize().height()));
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
