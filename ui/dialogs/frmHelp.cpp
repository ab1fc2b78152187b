#include "frmHelp.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QResource>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtMath>
#include <array>

#include "controls.h"
#include "fonts.h"
#include "main_form.h"
#include "text_view.h"

namespace ui {

namespace {

QFont sized(QFont font) {
    font.setPointSize(8);
    font.setBold(false);
    return font;
}

QFont proseFont() {
    return sized(fontOf({QStringLiteral("MS Sans Serif")}, QFont()));
}

/// Every character as wide as any other: the instructions are drawn in columns.
QFont screenFont() {
    return sized(fontOf({QStringLiteral("Terminal"), QStringLiteral("DejaVu Sans Mono")},
                        QFontDatabase::systemFont(QFontDatabase::FixedFont)));
}

/// Room for the 40 columns of the instructions, a scroll bar beside them, and 24 lines.
QSize sizeOfScreen(const TextView& display) {
    const QFontMetrics metrics(screenFont());
    const int border = 2 * (display.frameWidth() + qCeil(display.document()->documentMargin()));
    return {metrics.horizontalAdvance(QString(40, QLatin1Char('M'))) +
                display.verticalScrollBar()->sizeHint().width() + border,
            24 * metrics.lineSpacing() + border};
}

QString readAsset(const QString& name) {
    return QString::fromUtf8(QResource(QStringLiteral(":/") + name).uncompressedData());
}

}  // namespace

struct frmHelp::Page {
    const char* button;
    const char* buttonCaption;
    const char* frameCaption;
    QFont (*font)();
    const char* asset;
};

frmHelp::frmHelp(MainForm& mainForm)
    : Form(mainForm, QStringLiteral("frmHelp"), QStringLiteral("Zhenbao Help")),
      fraContent(makeFrame(QStringLiteral("fraContent"), {})),
      txtDisplay(new TextView(QStringLiteral("txtDisplay"))) {
    // The spellings of the second page are intentional.
    static constexpr std::array<Page, 4> pages{{
        {"cmdIntroduction", "Introduction", "Introduction ", proseFont, "introduction.txt"},
        {"cmdIntructions", "Original Instructions", "Original Instuctions ", screenFont,
         "instructions.txt"},
        {"cmdHints", "Hints", "Hints ", proseFont, "hints.txt"},
        {"cmdMoney", "Money Lender Bug", "Money Lender Bug ", proseFont, "money_lender_bug.txt"},
    }};

    txtDisplay->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtDisplay->setMinimumSize(sizeOfScreen(*txtDisplay));
    auto* content = new QVBoxLayout(fraContent);
    content->addWidget(txtDisplay);

    auto* buttons = new QHBoxLayout;
    for (const Page& page : pages) {
        auto* button =
            makeButton(QString::fromLatin1(page.button), QString::fromLatin1(page.buttonCaption));
        connect(button, &QPushButton::clicked, this, [this, &page] { showPage(page); });
        buttons->addWidget(button);
    }
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(buttons);
    rows->addWidget(fraContent);

    showPage(pages.front());
    fixSize(6'900, 5'700);
}

void frmHelp::showPage(const Page& page) {
    fraContent->setTitle(QString::fromLatin1(page.frameCaption));
    txtDisplay->setAccessibleName(fraContent->title().trimmed());
    txtDisplay->setFont(page.font());
    txtDisplay->setPlainText(readAsset(QString::fromLatin1(page.asset)));
}

}  // namespace ui
