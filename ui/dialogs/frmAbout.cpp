#include "frmAbout.h"

#include <QHBoxLayout>
#include <QPixmap>
#include <QUrl>
#include <QVBoxLayout>

#include "controls.h"
#include "main_form.h"

namespace ui {

namespace {

const QString homePage = QStringLiteral("https://zhenbao.example/");
const QString supportAddress = QStringLiteral("support@zhenbao.example");
const QString supportSubject = QStringLiteral("Zhenbao for Windows v1.10");

/// A link for mouse and keyboard. It asks to be opened and opens nothing itself.
QLabel* makeLink(const QString& name, const QString& caption) {
    auto* link = makeNamed<QLabel>(name, QStringLiteral("<a href=\"#\">%1</a>").arg(caption));
    link->setTextFormat(Qt::RichText);
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    return link;
}

void writeToSupport(Desktop& desktop) {
    desktop.openLink(
        QUrl(QStringLiteral("mailto:%1?subject=%2").arg(supportAddress, supportSubject)));
}

}  // namespace

frmAbout::frmAbout(MainForm& mainForm)
    : Form(mainForm, QStringLiteral("frmAbout"), QStringLiteral("About Zhenbao for Windows")) {
    auto* picShip = makeNamed<QLabel>(QStringLiteral("PicShip"));
    picShip->setPixmap(QPixmap(QStringLiteral(":/ship.png")));
    auto* lblVersion = makeLabel(QStringLiteral("lblVersion"),
                                 QStringLiteral("Zhenbao for Windows v" ZHENBAO_VERSION
                                                "\nWritten by the Zhenbao maintainers"));
    auto* lblCredit = makeLabel(
        QStringLiteral("lblCredit"),
        QStringLiteral("After an older trading game of the China coast\n\nWeb:\nSupport:"));
    auto* lblHomepage = makeLink(QStringLiteral("lblHomepage"), homePage);
    auto* lblContact = makeLink(QStringLiteral("lblContact"), supportAddress);
    auto* cmdOK = makeButton(QStringLiteral("cmdOK"), QStringLiteral("OK"));

    auto* texts = new QVBoxLayout;
    texts->addWidget(lblVersion);
    texts->addWidget(lblCredit);
    texts->addWidget(lblHomepage);
    texts->addWidget(lblContact);
    texts->addWidget(cmdOK, 0, Qt::AlignRight);
    auto* columns = new QHBoxLayout(this);
    columns->addWidget(picShip);
    columns->addLayout(texts);
    columns->setSizeConstraint(QLayout::SetFixedSize);

    Desktop& desktop = mainForm.desktop();
    connect(lblHomepage, &QLabel::linkActivated, this, [&desktop] { openHomePage(desktop); });
    connect(lblContact, &QLabel::linkActivated, this, [&desktop] { writeToSupport(desktop); });
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::accept);

    cmdOK->setDefault(true);
    cmdOK->setFocus();
    placeAt(2'100, 1'600);
}

void openHomePage(Desktop& desktop) {
    desktop.openLink(QUrl(homePage));
}

}  // namespace ui
