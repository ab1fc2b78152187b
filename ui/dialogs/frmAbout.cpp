#include "frmAbout.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPalette>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QUrl>
#include <QVBoxLayout>

#include "contrast.h"
#include "controls.h"
#include "main_form.h"
#include "picture.h"
#include "twips.h"

namespace ui {

namespace {

const QString homePage = QStringLiteral("https://zhenbao.example/");
const QString supportAddress = QStringLiteral("support@zhenbao.example");
const QString supportSubject =
    QStringLiteral("Zhenbao for Windows v1.10");  // intentionally not the version

constexpr int roomForMark = 3;  ///< between a link and the frame that marks its focus

/// A link for mouse and keyboard that asks to be opened and opens nothing itself.
class Link final : public QLabel {
public:
    explicit Link(const QString& caption) : m_caption(caption) {
        showCaption();
        setTextFormat(Qt::RichText);
        setContentsMargins(roomForMark, 0, roomForMark, 0);
        // With links for the keyboard, a label takes the Tab key twice and Shift+Tab never leaves.
        setTextInteractionFlags(Qt::LinksAccessibleByMouse);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            emit linkActivated({});
        } else {
            QLabel::keyPressEvent(event);
        }
    }
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (hasFocus()) {
            QStyleOptionFocusRect mark;
            mark.initFrom(this);
            QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, mark);
        }
    }
    void changeEvent(QEvent* event) override {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) {
            showCaption();
        }
    }

private:
    /// In the desktop's colour of links, which dark desktops may leave dark.
    void showCaption() {
        const QColor colour =
            readable(palette().color(QPalette::Link), {palette().color(QPalette::Window)});
        setText(QStringLiteral("<a href=\"#\" style=\"color: %1\">%2</a>")
                    .arg(colour.name(), m_caption));
    }

    QString m_caption;
};

void writeToSupport(Desktop& desktop) {
    desktop.openLink(
        QUrl(QStringLiteral("mailto:%1?subject=%2").arg(supportAddress, supportSubject)));
}

}  // namespace

frmAbout::frmAbout(MainForm& mainForm)
    : Form(mainForm, QStringLiteral("frmAbout"), QStringLiteral("About Zhenbao for Windows")) {
    auto* picShip = makeNamed<QLabel>(QStringLiteral("PicShip"));
    picShip->setPixmap(picture(QStringLiteral("ship"), {200, 160}, devicePixelRatio()));
    picShip->setAccessibleName(QStringLiteral("A sailing ship"));
    auto* lblVersion = makeLabel(QStringLiteral("lblVersion"),
                                 QStringLiteral("Zhenbao for Windows v" ZHENBAO_VERSION
                                                "\nWritten by the Zhenbao maintainers"));
    auto* lblCredit = makeLabel(
        QStringLiteral("lblCredit"),
        QStringLiteral("After an older trading game of the China coast\n\nWeb:\nSupport:"));
    auto* lblHomepage = makeNamed<Link>(QStringLiteral("lblHomepage"), homePage);
    auto* lblContact = makeNamed<Link>(QStringLiteral("lblContact"), supportAddress);
    auto* cmdOK = makeButton(QStringLiteral("cmdOK"), QStringLiteral("OK"));

    // The links stand beside the last two lines of the credit.
    auto* links = new QVBoxLayout;
    links->setSpacing(0);
    links->setContentsMargins(
        fontMetrics().horizontalAdvance(QStringLiteral("Support:  ")) - roomForMark, 0, 0, 0);
    links->addStretch();
    links->addWidget(lblHomepage, 0, Qt::AlignLeft);
    links->addWidget(lblContact, 0, Qt::AlignLeft);
    auto* credit = new QGridLayout;
    credit->addWidget(lblCredit, 0, 0);
    credit->addLayout(links, 0, 0);

    auto* texts = new QVBoxLayout;
    texts->addWidget(lblVersion);
    texts->addSpacing(pixels(180));
    texts->addLayout(credit);
    texts->addStretch();
    texts->addWidget(cmdOK, 0, Qt::AlignRight);
    auto* columns = new QHBoxLayout(this);
    columns->addWidget(picShip);
    columns->addSpacing(pixels(120));
    columns->addLayout(texts);

    Desktop& desktop = mainForm.desktop();
    connect(lblHomepage, &QLabel::linkActivated, this, [&desktop] { openHomePage(desktop); });
    connect(lblContact, &QLabel::linkActivated, this, [&desktop] { writeToSupport(desktop); });
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::accept);

    cmdOK->setDefault(true);
    cmdOK->setFocus();
    fixSize(7'500, 2'700);
    placeAt(2'100, 1'600);
}

void openHomePage(Desktop& desktop) {
    desktop.openLink(QUrl(homePage));
}

}  // namespace ui
