#include "toolkit/media/PictureRects.h"

#include <gtest/gtest.h>

TEST(FitRectToParent, KeepsTheProportionsAndStandsCentred) {
    EXPECT_EQ(KXTools::FitRectToParent(QRect(10, 20, 400, 300), QSize(4000, 1000)),
              QRect(10, 120, 400, 100));
    EXPECT_EQ(KXTools::FitRectToParent(QRect(10, 20, 400, 300), QSize(1000, 3000)),
              QRect(160, 20, 100, 300));
}

TEST(FitRectToParent, EnlargesASmallPicture) {
    EXPECT_EQ(KXTools::FitRectToParent(QRect(0, 0, 400, 300), QSize(1, 1)), QRect(50, 0, 300, 300));
}

TEST(FitRectToParent, EachSideIsAtLeastEleven) {
    EXPECT_EQ(KXTools::FitRectToParent(QRect(0, 0, 400, 300), QSize(10, 20000)),
              QRect(194, 0, 11, 300));
    EXPECT_EQ(KXTools::FitRectToParent(QRect(0, 0, 400, 300), QSize(20000, 10)).height(), 11);
}

TEST(FitRectToParent, IsEmptyIfNothingCanBeShown) {
    EXPECT_TRUE(KXTools::FitRectToParent(QRect(0, 0, 400, 300), QSize()).isEmpty());
    EXPECT_TRUE(KXTools::FitRectToParent(QRect(0, 0, 400, 300), QSize(0, 5)).isEmpty());
    EXPECT_TRUE(KXTools::FitRectToParent(QRect(), QSize(10, 10)).isEmpty());
}

TEST(RectToCoverParent, IsTheMiddleOfThePictureInTheTargetsProportions) {
    EXPECT_EQ(KXTools::RectToCoverParent(QRect(5, 5, 100, 100), QSize(600, 400)),
              QRect(100, 0, 400, 400));
    EXPECT_EQ(KXTools::RectToCoverParent(QRect(0, 0, 200, 100), QSize(400, 600)),
              QRect(0, 200, 400, 200));
}

TEST(RectToCoverParent, IsAtLeastOnePixelAndNeverLeavesThePicture) {
    EXPECT_EQ(KXTools::RectToCoverParent(QRect(0, 0, 94, 90), QSize(1, 1)), QRect(0, 0, 1, 1));
    EXPECT_EQ(KXTools::RectToCoverParent(QRect(0, 0, 1000, 1), QSize(10, 20000)).height(), 1);
    EXPECT_TRUE(KXTools::RectToCoverParent(QRect(0, 0, 94, 90), QSize()).isEmpty());
    EXPECT_TRUE(KXTools::RectToCoverParent(QRect(), QSize(5, 5)).isEmpty());
}
