#include "viewers/GalleryState.h"

#include <gtest/gtest.h>

using gallery::GalleryState;
using gallery::ItemRange;

namespace {

const QRect kBig(0, 0, 600, 400);
const QRect kStrip(0, 405, 460, 95); ///< four cells

QSize LandscapeSize(int) {
    return {300, 200};
}

QSize UnknownSize(int) {
    return {};
}

GalleryState Filled(int count, const gallery::SizeReader& sizeOf = LandscapeSize) {
    GalleryState state;
    state.items.resize(size_t(count));
    for (GalleryItem& item : state.items) {
        item.picState = kOnDisk;
    }
    state.stripBar.maxPos = count - 1;
    gallery::PlaceAreas(state, kBig, kStrip, sizeOf);
    gallery::UpdateStepButtons(state);
    return state;
}

} // namespace

TEST(GalleryState, PlacesPictureCellsButtonsAndBar) {
    const GalleryState state = Filled(10);
    EXPECT_EQ(state.picRect, QRect(5, 5, 590, 390));
    EXPECT_EQ(state.visible, (ItemRange{0, 3}));
    EXPECT_EQ(state.items[1].thumbRect, QRect(133, 408, 94, 79));
    EXPECT_FALSE(state.items[1].coverRect.isEmpty());
    EXPECT_TRUE(state.items[4].coverRect.isEmpty());
    EXPECT_TRUE(state.stripBar.overflow);
    EXPECT_TRUE(state.stripBar.horizontal);
    EXPECT_EQ(state.stripBar.page, 4);
}

TEST(GalleryState, AnUnknownSizeGivesNoPicturePlaceAndNoCover) {
    const GalleryState state = Filled(10, UnknownSize);
    EXPECT_TRUE(state.picRect.isEmpty());
    EXPECT_TRUE(state.items[0].coverRect.isEmpty());
}

TEST(GalleryState, OnlyPicturesOnDiskGetACover) {
    GalleryState state;
    state.items.resize(2);
    state.items[1].picState = kOnDisk;
    gallery::PlaceAreas(state, kBig, kStrip, LandscapeSize);
    EXPECT_TRUE(state.items[0].coverRect.isEmpty());
    EXPECT_FALSE(state.items[1].coverRect.isEmpty());
}

TEST(GalleryState, AnEmptyListEnablesNoButton) {
    const GalleryState state = Filled(0);
    for (const CDirectUIButton& button : state.buttons) {
        EXPECT_FALSE(button.IsEnabled());
    }
    EXPECT_TRUE(state.visible.IsNone());
}

TEST(GalleryState, AListOfOneItemHasBothStepButtonsDisabled) {
    const GalleryState state = Filled(1);
    EXPECT_FALSE(state.buttons[gallery::kPrevPic].IsEnabled());
    EXPECT_FALSE(state.buttons[gallery::kNextPic].IsEnabled());
}

TEST(GalleryState, AListOfTwoItemsStepsFromEachToTheOther) {
    GalleryState state = Filled(2);
    EXPECT_FALSE(state.buttons[gallery::kPrevPic].IsEnabled());
    EXPECT_TRUE(state.buttons[gallery::kNextPic].IsEnabled());
    gallery::MakeCurrent(state, 1, gallery::kCurrentLast, LandscapeSize);
    gallery::UpdateStepButtons(state);
    EXPECT_TRUE(state.buttons[gallery::kPrevPic].IsEnabled());
    EXPECT_FALSE(state.buttons[gallery::kNextPic].IsEnabled());
}

TEST(GalleryState, AnIndexBesideAListOfOneStepsNowhere) {
    GalleryState state = Filled(1);
    for (const int index : {-1, 1}) {
        state.currentIndex = index;
        gallery::UpdateStepButtons(state);
        EXPECT_FALSE(state.buttons[gallery::kPrevPic].IsEnabled()) << index;
        EXPECT_FALSE(state.buttons[gallery::kNextPic].IsEnabled()) << index;
    }
}

TEST(GalleryState, TheSixButtonsHaveTheirIdsNamesAndKeys) {
    const GalleryState state;
    const struct {
        int id;
        QStringView name;
        QStringView key;
    } wanted[] = {{24066, u"上一张", u"←"},       {24068, u"下一张", u"→"},
                  {24069, u"前一页", u"Page Up"}, {24070, u"后一页", u"Page Down"},
                  {24071, u"前一页", u"Page Up"}, {24073, u"后一页", u"Page Down"}};
    ASSERT_EQ(state.buttons.size(), std::size(wanted));
    for (size_t i = 0; i < std::size(wanted); ++i) {
        EXPECT_EQ(state.buttons[i].id, wanted[i].id);
        EXPECT_EQ(state.buttons[i].name, wanted[i].name);
        EXPECT_EQ(state.buttons[i].shortcut, wanted[i].key);
    }
}

TEST(GalleryState, ClearingTheListForgetsWhatItShowedAndKeepsPlacesAndCurrentIndex) {
    GalleryState state = Filled(10);
    state.currentIndex = 3;
    state.shownIndex = 3;
    state.zoom = {false, 2, {1, 1}};
    gallery::ClearItems(state);
    EXPECT_EQ(state.shownIndex, -1);
    EXPECT_TRUE(state.visible.IsNone());
    EXPECT_TRUE(state.items.empty());
    EXPECT_TRUE(state.picRect.isEmpty());
    EXPECT_TRUE(state.zoom.fit);
    EXPECT_EQ(state.currentIndex, 3);
    EXPECT_EQ(state.bigArea, kBig);
}

TEST(GalleryState, TheIndicatorAndThePageButtonsFollowTheVisibleRange) {
    GalleryState state = Filled(10);
    const auto enabled = [&](gallery::GalleryButton button) {
        return state.buttons[button].IsEnabled();
    };
    EXPECT_EQ(state.stripBar.pos, 0);
    EXPECT_EQ(state.visibleCount, 4);
    EXPECT_FALSE(enabled(gallery::kThumbLeft));
    EXPECT_TRUE(enabled(gallery::kThumbRight));
    gallery::PageStrip(state, true, LandscapeSize);
    EXPECT_EQ(state.stripBar.pos, 4);
    EXPECT_TRUE(enabled(gallery::kThumbLeft));
    EXPECT_TRUE(enabled(gallery::kThumbUp));
    EXPECT_TRUE(enabled(gallery::kThumbRight));
    EXPECT_TRUE(enabled(gallery::kThumbDown));
    gallery::PageStrip(state, true, LandscapeSize);
    EXPECT_FALSE(enabled(gallery::kThumbRight));
    EXPECT_FALSE(enabled(gallery::kThumbDown));
    EXPECT_EQ(Filled(4).stripBar.overflow, false) << "all fit";
    EXPECT_EQ(Filled(5).stripBar.overflow, true);
    EXPECT_EQ(Filled(3).visibleCount, 3);
    EXPECT_EQ(Filled(3).stripBar.page, 4) << "the cells that fit";
}

TEST(GalleryState, StepButtonsFollowTheCurrentItem) {
    GalleryState state = Filled(3);
    EXPECT_FALSE(state.buttons[gallery::kPrevPic].IsEnabled());
    EXPECT_TRUE(state.buttons[gallery::kNextPic].IsEnabled());
    gallery::MakeCurrent(state, 2, gallery::kCurrentLast, LandscapeSize);
    gallery::UpdateStepButtons(state);
    EXPECT_TRUE(state.buttons[gallery::kPrevPic].IsEnabled());
    EXPECT_FALSE(state.buttons[gallery::kNextPic].IsEnabled());
}

TEST(GalleryState, AnIndexThatIsCurrentOrOutsideChangesNothing) {
    GalleryState state = Filled(10);
    for (const int index : {0, -1, 10}) {
        EXPECT_FALSE(gallery::MakeCurrent(state, index, gallery::kCurrentMiddle, LandscapeSize));
    }
    EXPECT_EQ(state.currentIndex, 0);
}

TEST(GalleryState, SteppingPastTheVisibleRangeMovesTheStrip) {
    GalleryState state = Filled(10);
    gallery::MakeCurrent(state, 3, gallery::kCurrentLast, LandscapeSize);
    EXPECT_EQ(state.visible, (ItemRange{0, 3}));
    gallery::MakeCurrent(state, 4, gallery::kCurrentLast, LandscapeSize);
    EXPECT_EQ(state.visible, (ItemRange{1, 4}));
}

TEST(GalleryState, ADisabledPageButtonPagesNothing) {
    GalleryState state = Filled(10);
    EXPECT_FALSE(gallery::PageStrip(state, false, LandscapeSize));
    EXPECT_TRUE(gallery::PageStrip(state, true, LandscapeSize));
    EXPECT_TRUE(gallery::PageStrip(state, true, LandscapeSize));
    EXPECT_EQ(state.visible, (ItemRange{6, 9}));
    EXPECT_FALSE(gallery::PageStrip(state, true, LandscapeSize));
    EXPECT_EQ(state.visible, (ItemRange{6, 9}));
    EXPECT_EQ(state.prevVisible, (ItemRange{4, 7}));
    EXPECT_TRUE(state.stripSlidePending);
    EXPECT_EQ(state.currentIndex, 0);
}

TEST(GalleryState, AResetGalleryHasNoOverflow) {
    GalleryState state = Filled(9);
    ASSERT_TRUE(state.stripBar.overflow);
    gallery::ResetState(state);
    EXPECT_FALSE(state.stripBar.overflow);
}

TEST(GalleryState, AListShorterThanTheStripHasNoOverflow) {
    const GalleryState state = Filled(3);
    EXPECT_FALSE(state.stripBar.overflow);
    EXPECT_EQ(state.items[0].thumbRect.x(), 33);
}

TEST(GalleryState, AStripWithRoomForNoCellShowsNone) {
    GalleryState state = Filled(10);
    gallery::PlaceAreas(state, kBig, QRect(0, 405, 60, 20), LandscapeSize);
    EXPECT_TRUE(state.visible.IsNone());
    EXPECT_FALSE(gallery::PageStrip(state, true, LandscapeSize));
}

TEST(GalleryState, ThumbnailsAreFoundByTheirRectangles) {
    const GalleryState state = Filled(10);
    EXPECT_EQ(gallery::ThumbAt(state, {140, 420}), 1);
    EXPECT_EQ(gallery::ThumbAt(state, {131, 420}), -1) << "between two thumbnails";
    EXPECT_EQ(gallery::ThumbAt(Filled(0), {140, 420}), -1);
}

TEST(GalleryState, OnlyAChangeFromAShownPictureSlides) {
    GalleryState state = Filled(10);
    EXPECT_FALSE(gallery::SlidesPicture(state)) << "nothing was shown yet";
    state.shownIndex = 0;
    state.skipSlide = false;
    EXPECT_FALSE(gallery::SlidesPicture(state)) << "the same picture";
    gallery::MakeCurrent(state, 1, gallery::kCurrentLast, LandscapeSize);
    EXPECT_TRUE(gallery::SlidesPicture(state));
    state.skipSlide = true;
    EXPECT_FALSE(gallery::SlidesPicture(state));
    state.skipSlide = false;
    state.items[0].coverRect = {};
    EXPECT_FALSE(gallery::SlidesPicture(state)) << "the old picture isn't known";
}

TEST(GalleryState, AStepGoesBackToFittedAndAResizeKeepsTheZoom) {
    GalleryState state = Filled(10);
    state.zoom = {false, 1, {150, 100}};
    gallery::PlaceAreas(state, QRect(0, 0, 700, 400), kStrip, LandscapeSize);
    EXPECT_FALSE(state.zoom.fit);
    gallery::MakeCurrent(state, 1, gallery::kCurrentLast, LandscapeSize);
    EXPECT_TRUE(state.zoom.fit);
}

TEST(GalleryState, ResettingKeepsTheButtonsAndDisablesThem) {
    GalleryState state = Filled(10);
    QImage image(40, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    state.buttons[gallery::kPrevPic].SetImage(image, ClipType::SideBySide);
    state.currentIndex = 4;
    gallery::ResetState(state);
    EXPECT_EQ(state.currentIndex, 0);
    EXPECT_TRUE(state.skipSlide);
    EXPECT_TRUE(state.items.empty());
    EXPECT_TRUE(state.buttons[gallery::kPrevPic].HasImage());
    EXPECT_EQ(state.buttons[gallery::kNextPic].id, 24068);
    EXPECT_FALSE(state.buttons[gallery::kThumbDown].IsEnabled());
}

TEST(GalleryState, ResettingLeavesTheAreasOfALiveWindow) {
    GalleryState state = Filled(10);
    const QRect next = state.buttons[gallery::kNextPic].rect;
    gallery::ResetState(state);
    EXPECT_EQ(state.bigArea, kBig);
    EXPECT_EQ(state.stripArea, kStrip);
    EXPECT_EQ(state.strip.inner, QRect(30, 405, 400, 85));
    EXPECT_EQ(state.strip.cellWidth, 100);
    EXPECT_FALSE(state.strip.horizontal);
    EXPECT_EQ(state.buttons[gallery::kNextPic].rect, next);
    EXPECT_TRUE(state.picRect.isEmpty());
    EXPECT_TRUE(state.prevPicRect.isEmpty());
}

TEST(GalleryState, ThePairOfPageButtonsWithoutItsOrientationIsNotMoved) {
    GalleryState state = Filled(10);
    const QRect left = state.buttons[gallery::kThumbLeft].rect;
    ASSERT_EQ(left, QRect(0, 405, 30, 85));
    EXPECT_TRUE(state.buttons[gallery::kThumbUp].rect.isEmpty());
    gallery::PlaceAreas(state, QRect(0, 0, 400, 600), QRect(405, 0, 120, 460), LandscapeSize);
    EXPECT_EQ(state.buttons[gallery::kThumbLeft].rect, left);
    EXPECT_EQ(state.buttons[gallery::kThumbUp].rect, QRect(405, 0, 110, 30));
    gallery::PageStrip(state, true, LandscapeSize);
    ASSERT_TRUE(state.buttons[gallery::kThumbLeft].IsEnabled());
    EXPECT_FALSE(state.buttons[gallery::kThumbLeft].Hits(left.center())) << "nobody sees it there";
    EXPECT_TRUE(state.buttons[gallery::kThumbUp].Hits({410, 10}));
}
