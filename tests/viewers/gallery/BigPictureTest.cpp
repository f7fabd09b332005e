// What stands in the big area while renderings come and go.
#include "viewers/BigPicture.h"

#include "tests/viewers/support/SamplePictures.h"

#include <gtest/gtest.h>

using gallery::BigPicture;

namespace {

const QRect kFirst(10, 20, 30, 20);
const QRectF kPlace(11, 21, 30, 20);

QImage Red() {
    return support::OneColour({30, 20}, Qt::red);
}

} // namespace

TEST(BigPicture, IsNothingToBeginWith) {
    const BigPicture big;
    EXPECT_FALSE(big.IsFresh());
    EXPECT_TRUE(big.Image().isNull());
    EXPECT_TRUE(big.Shown(kPlace).image.isNull());
    EXPECT_FALSE(big.IsStretched(kFirst)) << "nothing to stretch";
}

TEST(BigPicture, AFreshOneIsShownWhereThePictureLiesNow) {
    BigPicture big;
    big.Put(Red(), kFirst);
    EXPECT_TRUE(big.IsFresh());
    EXPECT_EQ(big.Image(), Red());
    EXPECT_EQ(big.Shown(kPlace).image, Red());
    EXPECT_EQ(big.Shown(kPlace).place, kPlace);
}

TEST(BigPicture, IsStretchedWhereThePictureHasAnotherSizeThanWhenItWasRendered) {
    BigPicture big;
    big.Put(Red(), kFirst);
    EXPECT_FALSE(big.IsStretched(kFirst.translated(5, 5))) << "moved";
    EXPECT_TRUE(big.IsStretched(QRect(10, 20, 31, 20)));
    big.Expire(kPlace);
    EXPECT_FALSE(big.IsStretched(QRect(10, 20, 31, 20))) << "a new one comes anyway";
}

TEST(BigPicture, AnExpiredOneStaysWhereItWasUntilTheNextOneComes) {
    BigPicture big;
    big.Put(Red(), kFirst);
    big.Expire(kPlace);
    EXPECT_FALSE(big.IsFresh());
    EXPECT_TRUE(big.Image().isNull());
    EXPECT_EQ(big.Shown({}).image, Red());
    EXPECT_EQ(big.Shown({}).place, kPlace);
    big.Expire({1, 1, 1, 1});
    EXPECT_EQ(big.Shown({}).place, kPlace) << "there is nothing newer";
    const QImage blue = support::OneColour({30, 20}, Qt::blue);
    big.Put(blue, kFirst);
    EXPECT_EQ(big.Shown(kPlace).image, blue);
}

TEST(BigPicture, OneThatCannotBeDecodedAndAnotherListLeaveNothing) {
    BigPicture big;
    big.Put(Red(), kFirst);
    big.Expire(kPlace);
    big.Put({}, kFirst);
    EXPECT_FALSE(big.IsFresh());
    EXPECT_TRUE(big.Shown({}).image.isNull());
    big.Put(Red(), kFirst);
    big.Expire(kPlace);
    big.Clear();
    EXPECT_TRUE(big.Shown({}).image.isNull());
    EXPECT_FALSE(big.IsFresh());
}
