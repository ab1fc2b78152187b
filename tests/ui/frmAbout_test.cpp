#include "frmAbout.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "opened.h"

TEST(frmAbout, ShowsTheVersionAsksForItsLinksAndClosesByAnyOfItsKeys) {
    test::Opened<ui::frmAbout> visit;
    EXPECT_EQ(visit.shown("lblVersion").find("Zhenbao for Windows v1.11\n"), 0U);
    EXPECT_TRUE(visit.find<QLabel>("lblCredit")->text().endsWith("\n\nWeb:\nSupport:"));
    EXPECT_EQ(visit.find<QLabel>("PicShip")->pixmap().size(), QSize(200, 160));
    for (const char* link : {"lblHomepage", "lblContact"}) {
        auto* label = visit.find<QLabel>(link);
        QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(20, label->height() / 2));
    }
    EXPECT_EQ(visit.fakeDesktop.openedLinks, (QList<QUrl>{{"https://zhenbao.example/"},
                                                          {"mailto:support@zhenbao.example?subject="
                                                           "Zhenbao%20for%20Windows%20v1.10"}}));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        visit.dialog().show();
        QTest::keyClick(&visit.dialog(), key);
        EXPECT_FALSE(visit.dialog().isVisible()) << key;
    }
}
