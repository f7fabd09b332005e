#include "viewers/GalleryPlaces.h"

#include <gtest/gtest.h>

namespace {

ThumbBar HorizontalBar(int count, int pos, int page) {
    ThumbBar bar;
    bar.trackRect = QRect(100, 90, 200, 5);
    bar.horizontal = true;
    bar.maxPos = count - 1;
    bar.pos = pos;
    bar.page = page;
    return bar;
}

} // namespace

TEST(ButtonPlaces, StepButtonsStandInTheMiddleOfThePictureArea) {
    const auto strip = gallery::ShapeOf(QRect(0, 520, 600, 95));
    const auto places = gallery::ButtonPlaces(QRect(5, 15, 600, 500), strip);
    EXPECT_EQ(places[gallery::kPrevPic], QRect(15, 220, 50, 90));
    EXPECT_EQ(places[gallery::kNextPic], QRect(545, 220, 50, 90));
}

TEST(ButtonPlaces, PageButtonsTouchTheCellsOfAHorizontalStrip) {
    const auto strip = gallery::ShapeOf(QRect(5, 490, 545, 95));
    const auto places = gallery::ButtonPlaces(QRect(0, 0, 600, 480), strip);
    EXPECT_EQ(places[gallery::kThumbLeft], QRect(5, 490, 30, 85));
    EXPECT_EQ(places[gallery::kThumbRight], QRect(520, 490, 30, 85));
    EXPECT_TRUE(places[gallery::kThumbUp].isEmpty());
    EXPECT_TRUE(places[gallery::kThumbDown].isEmpty());
}

TEST(ButtonPlaces, PageButtonsTouchTheCellsOfAVerticalStrip) {
    const auto strip = gallery::ShapeOf(QRect(700, 35, 120, 480));
    const auto places = gallery::ButtonPlaces(QRect(0, 0, 695, 515), strip);
    EXPECT_EQ(places[gallery::kThumbUp], QRect(700, 35, 110, 30));
    EXPECT_EQ(places[gallery::kThumbDown], QRect(700, 485, 110, 30));
    EXPECT_TRUE(places[gallery::kThumbLeft].isEmpty());
    EXPECT_TRUE(places[gallery::kThumbRight].isEmpty());
}

TEST(BarTrack, LiesBesideTheCellsLessAQuarterAtEachEnd) {
    EXPECT_EQ(gallery::BarTrack(gallery::ShapeOf(QRect(0, 0, 460, 95))), QRect(130, 90, 200, 5));
    EXPECT_EQ(gallery::BarTrack(gallery::ShapeOf(QRect(0, 0, 120, 460))), QRect(115, 130, 5, 200));
    EXPECT_TRUE(gallery::BarTrack(gallery::ShapeOf(QRect())).isEmpty());
}

TEST(BarThumb, ShowsPlaceAndPartOfTheVisibleItems) {
    EXPECT_EQ(gallery::BarThumb(HorizontalBar(20, 5, 4)), QRect(150, 90, 40, 5));
    ThumbBar bar = HorizontalBar(20, 5, 4);
    bar.horizontal = false;
    bar.trackRect = QRect(90, 100, 5, 200);
    EXPECT_EQ(gallery::BarThumb(bar), QRect(90, 150, 5, 40));
}

TEST(BarThumb, CutsOffWhatIsNotAWholePixel) {
    // Of 200: 3/7 is 85.71, 5/7 is 142.86; 2/7 is 57.14, 6/7 is 171.43, 4/11 is 72.73.
    EXPECT_EQ(gallery::BarThumb(HorizontalBar(7, 3, 2)), QRect(185, 90, 57, 5));
    EXPECT_EQ(gallery::BarThumb(HorizontalBar(7, 5, 2)), QRect(242, 90, 57, 5));
    EXPECT_EQ(gallery::BarThumb(HorizontalBar(7, 0, 6)), QRect(100, 90, 171, 5));
    EXPECT_EQ(gallery::BarThumb(HorizontalBar(11, 4, 4)), QRect(172, 90, 72, 5));
    ThumbBar upright = HorizontalBar(11, 4, 4);
    upright.horizontal = false;
    upright.trackRect = QRect(90, 100, 5, 200);
    EXPECT_EQ(gallery::BarThumb(upright), QRect(90, 172, 5, 72));
}

TEST(BarThumb, IsAtLeastTwentyLongHoweverLongTheList) {
    EXPECT_EQ(gallery::BarThumb(HorizontalBar(100000, 0, 4)).width(), 20);
}

TEST(BarThumb, StaysAsItIsForASingleItemOrWithoutATrack) {
    ThumbBar bar = HorizontalBar(1, 0, 4);
    bar.thumbRect = QRect(1, 2, 3, 4);
    EXPECT_EQ(gallery::BarThumb(bar), QRect(1, 2, 3, 4));
    bar = HorizontalBar(20, 0, 4);
    bar.thumbRect = QRect(1, 2, 3, 4);
    bar.trackRect = {};
    EXPECT_EQ(gallery::BarThumb(bar), QRect(1, 2, 3, 4));
}

TEST(BarThumb, CountsFromTheFirstPosition) {
    ThumbBar bar = HorizontalBar(30, 15, 4);
    bar.minPos = 10;
    EXPECT_EQ(gallery::BarThumb(bar), QRect(150, 90, 40, 5));
    bar.pos = 10;
    EXPECT_EQ(gallery::BarThumb(bar), QRect(100, 90, 40, 5));
}
