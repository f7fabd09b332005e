// The gallery's renderings by themselves: sizes in device pixels, parts of files that fail.
#include "viewers/GalleryPictures.h"

#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using gallery::GalleryPictures;
using gallery::ItemRange;

namespace {

class GalleryPicturesTest : public testing::Test {
protected:
    ~GalleryPicturesTest() override { gallery::JoinDecoders(); }

    /// Fetched, its cell laid out at 94 by 79 and wholly covered.
    GalleryItem Item(const QString& path) const {
        GalleryItem item;
        item.picPath = path;
        item.picState = kOnDisk;
        item.picSize = {300, 200};
        item.thumbRect = QRect(10, 20, 94, 79);
        item.coverRect = QRect(0, 0, 300, 200);
        return item;
    }
    GalleryItem Item() {
        return Item(folder.Write(u"a.png"_s, support::PngBytes(support::CornerMarked({300, 200}))));
    }

    support::TempFolder folder;
    GalleryPictures pictures;
};

} // namespace

TEST_F(GalleryPicturesTest, DevicePixelsAreTheSizeTimesTheRatioRounded) {
    EXPECT_EQ(gallery::DeviceSize({92, 77}, 1), QSize(92, 77));
    EXPECT_EQ(gallery::DeviceSize({92, 77}, 2), QSize(184, 154));
    EXPECT_EQ(gallery::DeviceSize({92, 77}, 1.25), QSize(115, 96));
    EXPECT_EQ(gallery::DeviceSize({4, 3}, 0.5), QSize(2, 2));
}

TEST_F(GalleryPicturesTest, AThumbnailIsTheCellWithoutItsFrameInDevicePixels) {
    std::vector<GalleryItem> items{Item()};
    for (const qreal ratio : {1.0, 2.0, 1.5}) {
        pictures.MakeThumbs(items, {0, 0}, ratio, toolkit::kNoWindow);
        ASSERT_TRUE(items[0].thumbDC) << ratio;
        const QImage image = items[0].thumbDC->Bitmap();
        EXPECT_EQ(image.size(), gallery::DeviceSize({92, 77}, ratio));
        EXPECT_EQ(image.devicePixelRatio(), ratio);
        EXPECT_EQ(image.pixelColor(0, 0), support::kTopLeft);
        EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1), support::kBottomRight);
    }
    EXPECT_FALSE(pictures.AwaitsThumbs());
}

TEST_F(GalleryPicturesTest, TheBigPictureAndTheDefaultOneKnowTheirRatio) {
    const GalleryItem item = Item();
    const QImage big = pictures.Big(item, {60, 40}, 2);
    EXPECT_EQ(big.size(), QSize(120, 80));
    EXPECT_EQ(big.devicePixelRatio(), 2);
    EXPECT_TRUE(pictures.Default().isNull());
    pictures.MakeDefault(item.picPath, {94, 79}, 2);
    EXPECT_EQ(pictures.Default().size(), QSize(188, 158));
    EXPECT_EQ(pictures.Default().devicePixelRatio(), 2);
    pictures.MakeDefault(item.picPath, {10, 10}, 1);
    EXPECT_EQ(pictures.Default().size(), QSize(188, 158)) << "made once";
    pictures.Clear();
    EXPECT_TRUE(pictures.Default().isNull());
}

TEST_F(GalleryPicturesTest, AFileThatCannotBeDecodedIsMarkedAndAskedForNoMore) {
    std::vector<GalleryItem> items{Item(folder.Write(u"a.png"_s, "no picture"))};
    pictures.MakeThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    EXPECT_TRUE(items[0].unreadable);
    EXPECT_TRUE(items[0].picSize.isEmpty());
    EXPECT_TRUE(items[0].coverRect.isEmpty());
    EXPECT_FALSE(items[0].thumbDC);
    items[0].coverRect = QRect(0, 0, 300, 200);
    pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.AwaitsThumbs());
}

TEST_F(GalleryPicturesTest, OnlyWhatIsFetchedAndHasACoverAndNoThumbnailYetIsAskedFor) {
    std::vector<GalleryItem> items(4, Item());
    items[0].picState = kWaiting;
    items[1].coverRect = {};
    items[2].unreadable = true;
    pictures.WantThumbs(items, {0, 2}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.AwaitsThumbs());
    pictures.WantThumbs(items, {0, 3}, 1, toolkit::kNoWindow);
    EXPECT_TRUE(pictures.AwaitsThumbs());
    EXPECT_TRUE(support::WaitFor([&] { return !pictures.TakeThumbs(items, 1).empty(); }));
    EXPECT_TRUE(items[3].thumbDC);
    EXPECT_FALSE(items[0].thumbDC || items[1].thumbDC || items[2].thumbDC);
    pictures.WantThumbs(items, {0, 3}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.AwaitsThumbs()) << "it has one";
}

TEST_F(GalleryPicturesTest, ThumbnailsFartherThanFortyEightFromTheRangeAreFreed) {
    std::vector<GalleryItem> items(200);
    for (GalleryItem& item : items)
        item.thumbDC = std::make_shared<CKxMemDC>(support::OneColour({2, 2}, Qt::red));
    pictures.WantThumbs(items, {100, 103}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(items[51].thumbDC);
    EXPECT_TRUE(items[52].thumbDC);
    EXPECT_TRUE(items[151].thumbDC);
    EXPECT_FALSE(items[152].thumbDC);
}

TEST_F(GalleryPicturesTest, ASizeThatIsKnownIsNotReadAgainAndOneThatIsNotIs) {
    GalleryItem item = Item();
    item.picSize = {1, 2};
    EXPECT_EQ(GalleryPictures::SizeOf(item), QSize(1, 2));
    item.picSize = {};
    EXPECT_EQ(GalleryPictures::SizeOf(item), QSize(300, 200));
    EXPECT_EQ(item.picSize, QSize(300, 200));
    gallery::MarkUnreadable(item);
    EXPECT_TRUE(GalleryPictures::SizeOf(item).isEmpty()) << "nobody tries again";
}
