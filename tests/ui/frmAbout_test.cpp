#include "frmAbout.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "fake_main_form.h"
#include "find.h"

namespace {

const QUrl homePage{"https://zhenbao.example/"};
const QUrl supportMail{"mailto:support@zhenbao.example?subject=Zhenbao%20for%20Windows%20v1.10"};

struct frmAboutTest : testing::Test {
    test::FakeMainForm mainForm;
    ui::frmAbout form{mainForm};
    QList<QUrl>& opened = mainForm.fakeDesktop.openedLinks;
};

TEST_F(frmAboutTest, AsksForItsLinks) {
    form.show();
    auto* homepage = test::find<QLabel>(form, "lblHomepage");
    auto* contact = test::find<QLabel>(form, "lblContact");
    QTest::mouseClick(homepage, Qt::LeftButton, {}, QPoint(20, homepage->height() / 2));
    QTest::mouseClick(contact, Qt::LeftButton, {}, QPoint(20, contact->height() / 2));
    EXPECT_EQ(opened, (QList<QUrl>{homePage, supportMail}));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(frmAboutTest, ShowsTheVersionAndTheShipAndClosesByAnyOfItsKeys) {
    EXPECT_TRUE(
        test::find<QLabel>(form, "lblVersion")->text().startsWith("Zhenbao for Windows v1.11\n"));
    EXPECT_TRUE(test::find<QLabel>(form, "lblCredit")->text().endsWith("\n\nWeb:\nSupport:"));
    EXPECT_EQ(test::find<QLabel>(form, "PicShip")->pixmap().size(), QSize(200, 160));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        form.show();
        QTest::keyClick(&form, key);
        EXPECT_FALSE(form.isVisible()) << key;
    }
}

}  // namespace
