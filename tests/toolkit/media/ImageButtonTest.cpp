#include "toolkit/controls/ImageButton.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ImageButton, ShowsTheImageThatItIsGiven) {
    CImageButton button;
    button.SetButtonImage(u"play"_s, QSize(42, 43));
    EXPECT_EQ(button.size(), QSize(42, 43));
    const QImage play = button.grab().toImage();
    button.SetButtonImage(u"stop"_s, QSize(42, 43));
    EXPECT_NE(button.grab().toImage(), play);
    EXPECT_EQ(button.ButtonImage(), u"stop");
}

TEST(ImageButton, IsClickedByMouseAndBySpaceUnlessDisabled) {
    CImageButton button;
    button.SetButtonImage(u"play"_s, QSize(42, 43));
    button.show();
    const QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 2);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 2);
}

TEST(ImageButton, LooksDifferentWhenDisabled) {
    CImageButton button;
    button.SetButtonImage(u"play"_s, QSize(42, 43));
    const QImage enabled = button.grab().toImage();
    button.setEnabled(false);
    EXPECT_NE(button.grab().toImage(), enabled);
}
