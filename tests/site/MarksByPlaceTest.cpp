#include "site/sqlite/MarksByPlace.h"

#include <gtest/gtest.h>

namespace site {

TEST(MarksByPlace, NothingIsAtAnyPlaceWithoutPhotos) {
    const MarksByPlace marks({}, MarksByPlace::Values::PicIds);
    EXPECT_TRUE(marks.MarksAt(0).empty());
    EXPECT_TRUE(marks.MarksAt(7).empty());
}

TEST(MarksByPlace, EachPlaceHasItsPhotosByMarkAndThoseOfAMarkInTheirOrder) {
    const MarksByPlace marks({{9, 2, 31}, {5, 4, 32}, {9, 1, 33}, {9, 2, 30}, {5, 4, 29}},
                             MarksByPlace::Values::PicIds);
    const std::vector<PanelMark> nine = marks.MarksAt(9);
    ASSERT_EQ(nine.size(), 2U);
    EXPECT_EQ(nine[0].markId, 1);
    EXPECT_EQ(nine[0].count, 1);
    EXPECT_EQ(nine[0].picIds, std::vector<qint32>{33});
    EXPECT_EQ(nine[1].markId, 2);
    EXPECT_EQ(nine[1].count, 2);
    EXPECT_EQ(nine[1].picIds, (std::vector<qint32>{31, 30}));
    ASSERT_EQ(marks.MarksAt(5).size(), 1U);
    EXPECT_EQ(marks.MarksAt(5)[0].picIds, (std::vector<qint32>{32, 29}));
}

TEST(MarksByPlace, PlacesBesideBelowAndAboveThoseWithPhotosAreEmpty) {
    const MarksByPlace marks({{5, 1, 1}, {9, 1, 2}}, MarksByPlace::Values::PicIds);
    for (const qint32 place : {-1, 0, 4, 6, 8, 10, 1000}) {
        EXPECT_TRUE(marks.MarksAt(place).empty()) << place;
    }
}

TEST(MarksByPlace, CountsStandWithoutPhotos) {
    const MarksByPlace marks({{5, 3, 40}, {5, 1, 2}, {6, 1, 1}}, MarksByPlace::Values::Counts);
    const std::vector<PanelMark> five = marks.MarksAt(5);
    ASSERT_EQ(five.size(), 2U);
    EXPECT_EQ(five[0].markId, 1);
    EXPECT_EQ(five[0].count, 2);
    EXPECT_EQ(five[1].count, 40);
    EXPECT_TRUE(five[1].picIds.empty());
}

} // namespace site
