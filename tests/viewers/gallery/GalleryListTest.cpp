// What a list makes of the gallery.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QFile>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using support::IsNear;
using testing::ElementsAre;

namespace {

class GalleryList : public GalleryFixture {};

} // namespace

TEST_F(GalleryList, AnEmptyListShowsNoPictureDisablesTheButtonsAndStartsNothing) {
    Open();
    SetItems(OnDisk(10));
    Log().Clear();
    gallery->told.clear();
    SetItems({});
    for (const CDirectUIButton& button : State().buttons) {
        EXPECT_FALSE(button.IsEnabled());
    }
    EXPECT_TRUE(SaysNoPicture());
    EXPECT_EQ(PixelAt({100, 340}), support::kPaneColour) << "the old thumbnails are gone";
    EXPECT_EQ(Log().CountOf("StartDownload"), 0);
    EXPECT_TRUE(gallery->told.empty());
}

TEST_F(GalleryList, AListOfOneItemHasBothStepButtonsDisabled) {
    Open();
    SetItems(OnDisk(1));
    EXPECT_FALSE(State().buttons[gallery::kPrevPic].IsEnabled());
    EXPECT_FALSE(State().buttons[gallery::kNextPic].IsEnabled());
    EXPECT_FALSE(State().stripBar.overflow);
    EXPECT_THAT(gallery->told, ElementsAre(0));
}

TEST_F(GalleryList, PicturesOnDiskAreShownByTheFirstPaintAndNotFetched) {
    Open();
    SetItems(OnDisk(10), 2);
    EXPECT_THAT(gallery->told, ElementsAre(2));
    const QImage shown = Shown();
    EXPECT_EQ(shown.pixelColor(PictureMiddle()), ColourOf(2));
    for (int i = State().visible.first; i <= State().visible.last; ++i) {
        EXPECT_EQ(shown.pixelColor(ThumbMiddle(i)), ColourOf(i)) << i;
    }
    EXPECT_EQ(Log().CountOf("StartDownload"), 0);
    EXPECT_EQ(State().items[9].picState, kOnDisk);
    EXPECT_EQ(State().items[0].audioState, kNothingToFetch);
}

TEST_F(GalleryList, AWindowThatIsShownLaterShowsAll) {
    Open(false);
    SetItems(OnDisk(10));
    Pane()->show();
    EXPECT_TRUE(support::WaitFor([this] { return State().items[3].thumbDC != nullptr; }));
    EXPECT_EQ(PixelAt(ThumbMiddle(3)), ColourOf(3));
    EXPECT_EQ(State().shownIndex, 0);
}

TEST_F(GalleryList, TheThumbnailShowsTheCoverCrop) {
    Open();
    folder.Write(u"wide.jpg"_s, support::JpegBytes(support::CornerMarked({1200, 200})));
    SetItems(support::FolderGallery::ItemsOf({folder.Path(u"wide.jpg"_s)}));
    const QImage shown = Shown();
    const QRect thumb = State().items[0].thumbRect;
    EXPECT_EQ(State().items[0].coverRect, QRect(481, 0, 238, 200));
    EXPECT_TRUE(IsNear(shown.pixelColor(thumb.topLeft() + QPoint(3, 3)), support::kTopLeft));
    EXPECT_TRUE(
        IsNear(shown.pixelColor(thumb.bottomRight() - QPoint(3, 3)), support::kBottomRight));
    EXPECT_TRUE(IsNear(shown.pixelColor(thumb.center() + QPoint(-4, -4)), support::kTopLeft, 40));
}

TEST_F(GalleryList, AMissingDefaultPictureIsLoggedAndItsBandsStandAlone) {
    Open();
    EXPECT_TRUE(
        ModuleLog().contains(u"找不到图片文件："_s + folder.Path(u"work/DefaultPic.jpg"_s)));
    host.script.FailAlways("GetDownloadState");
    SetItems(InStore(3, false));
    EXPECT_TRUE(WaitForDownloads());
    EXPECT_EQ(PixelAt(State().items[0].thumbRect.topLeft() + QPoint(10, 10)), support::kPaneColour);
}

TEST_F(GalleryList, TheDefaultPictureStandsUnderTheBands) {
    folder.Write(u"work/DefaultPic.jpg"_s,
                 support::PngBytes(support::OneColour({200, 200}, Qt::darkMagenta)));
    Open();
    host.script.FailAlways("GetDownloadState");
    SetItems(InStore(3, false));
    EXPECT_TRUE(WaitForDownloads());
    EXPECT_EQ(PixelAt(State().items[1].thumbRect.topLeft() + QPoint(10, 10)),
              QColor(Qt::darkMagenta));
}

TEST_F(GalleryList, TheListMayBeTheGallerysOwn) {
    Open();
    SetItems(OnDisk(5));
    gallery->SetPicItems(State().items);
    EXPECT_EQ(State().Count(), 5);
    EXPECT_EQ(PixelAt(ThumbMiddle(3)), ColourOf(3));
}

TEST_F(GalleryList, AVerticalStripStandsBesideThePicture) {
    Open(true, false);
    SetItems(OnDisk(10));
    EXPECT_FALSE(State().strip.horizontal);
    EXPECT_EQ(PixelAt(ThumbMiddle(2)), ColourOf(2));
    EXPECT_FALSE(State().buttons[gallery::kThumbDown].rect.isEmpty());
}

TEST_F(GalleryList, ThumbnailsFarFromTheStripAreFreed) {
    Open();
    SetItems(OnDisk(120));
    (void)Shown();
    EXPECT_NE(State().items[0].thumbDC, nullptr);
    gallery->SelectPic(119, gallery::kCurrentLast);
    (void)Shown();
    EXPECT_NE(State().items[119].thumbDC, nullptr);
    EXPECT_EQ(State().items[0].thumbDC, nullptr);
}

TEST_F(GalleryList, TheSizeOfAPictureIsItsFilesWhateverTheStateOfItsDownload) {
    Open();
    host.script.FailAlways("GetDownloadState");
    std::vector<GalleryItem> items = InStore(3, false);
    SetItems(items);
    ASSERT_TRUE(WaitForDownloads());
    ASSERT_EQ(State().items[1].picState, kDownloadFailedState);
    folder.Write(u"cache/p1.jpg"_s,
                 support::PngBytes(support::OneColour({300, 200}, Qt::darkCyan)));
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(PixelAt(PictureMiddle()), QColor(Qt::darkCyan));
    EXPECT_EQ(State().items[1].picState, kDownloadFailedState);
}
