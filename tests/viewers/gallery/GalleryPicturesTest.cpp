// The gallery's renderings by themselves: sizes in device pixels, parts of files that fail.
#include "viewers/GalleryPictures.h"

#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/windows/WindowObject.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/Decoders.h"

#include <QWidget>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
        pictures.AwaitThumbs(items, {0, 0}, ratio, toolkit::kNoWindow);
        ASSERT_TRUE(items[0].thumbDC) << ratio;
        const QImage image = items[0].thumbDC->Bitmap();
        EXPECT_EQ(image.size(), gallery::DeviceSize({92, 77}, ratio));
        EXPECT_EQ(image.devicePixelRatio(), ratio);
        EXPECT_EQ(image.pixelColor(0, 0), support::kTopLeft);
        EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1), support::kBottomRight);
    }
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay());
}

TEST_F(GalleryPicturesTest, TheBigPictureAndTheDefaultOneKnowTheirRatio) {
    const GalleryItem item = Item();
    const QImage big = pictures.AwaitBig(item, {60, 40}, 2);
    EXPECT_EQ(big.size(), QSize(120, 80));
    EXPECT_EQ(big.devicePixelRatio(), 2);
    EXPECT_TRUE(pictures.Default().isNull());
    pictures.AwaitDefault();
    EXPECT_TRUE(pictures.Default().isNull()) << "nobody asked";
    pictures.WantDefault(item.picPath, {94, 79}, 2, toolkit::kNoWindow);
    pictures.AwaitDefault();
    EXPECT_EQ(pictures.Default().size(), QSize(188, 158));
    EXPECT_EQ(pictures.Default().devicePixelRatio(), 2);
    pictures.WantDefault(item.picPath, {10, 10}, 1, toolkit::kNoWindow);
    pictures.AwaitDefault();
    EXPECT_EQ(pictures.Default().size(), QSize(188, 158)) << "made once";
    pictures.Clear();
    EXPECT_TRUE(pictures.Default().isNull());
}

TEST_F(GalleryPicturesTest, AFileThatCannotBeDecodedIsMarkedAndAskedForNoMore) {
    std::vector<GalleryItem> items{Item(folder.Write(u"a.png"_s, "no picture"))};
    pictures.AwaitThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    EXPECT_TRUE(items[0].unreadable);
    EXPECT_TRUE(items[0].picSize.isEmpty());
    EXPECT_TRUE(items[0].coverRect.isEmpty());
    EXPECT_FALSE(items[0].thumbDC);
    items[0].coverRect = QRect(0, 0, 300, 200);
    pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay());
}

TEST_F(GalleryPicturesTest, OnlyWhatIsFetchedAndHasACoverAndNoThumbnailYetIsAskedFor) {
    std::vector<GalleryItem> items(4, Item());
    items[0].picState = kWaiting;
    items[1].coverRect = {};
    items[2].unreadable = true;
    pictures.WantThumbs(items, {0, 2}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay());
    pictures.WantThumbs(items, {0, 3}, 1, toolkit::kNoWindow);
    EXPECT_TRUE(pictures.HasThumbsOnTheirWay());
    EXPECT_TRUE(support::WaitFor([&] { return !pictures.TakeThumbs(items, 1).empty(); }));
    EXPECT_TRUE(items[3].thumbDC);
    EXPECT_FALSE(items[0].thumbDC || items[1].thumbDC || items[2].thumbDC);
    pictures.WantThumbs(items, {0, 3}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay()) << "it has one";
}

TEST_F(GalleryPicturesTest, ThumbnailsFartherThanFortyEightFromTheRangeAreFreed) {
    std::vector<GalleryItem> items(200);
    for (GalleryItem& item : items) {
        item.thumbDC = std::make_shared<CKxMemDC>(support::OneColour({2, 2}, Qt::red));
    }
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

TEST_F(GalleryPicturesTest, AThumbnailIsCutFromTheBigPictureThatIsThere) {
    struct Case {
        QSize big;
        QRect cover;
        QColor colour;
    };
    for (const Case& c : {Case{{300, 200}, {150, 100, 150, 100}, support::kBottomRight},
                          Case{{300, 200}, {0, 100, 150, 100}, support::kBottomLeft},
                          Case{{600, 400}, {150, 0, 150, 100}, support::kTopRight}}) {
        std::vector<GalleryItem> items{Item()};
        items[0].coverRect = c.cover;
        (void)pictures.AwaitBig(items[0], c.big, 1);
        pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
        EXPECT_FALSE(pictures.HasThumbsOnTheirWay());
        ASSERT_TRUE(items[0].thumbDC);
        const QImage image = items[0].thumbDC->Bitmap();
        EXPECT_EQ(image.size(), QSize(92, 77));
        // Scaled, the quarters run into each other at their seams.
        const QRect clean = image.rect().adjusted(4, 4, -4, -4);
        EXPECT_EQ(image.copy(clean), support::OneColour(clean.size(), c.colour)) << c.big.width();
        pictures.Clear();
    }
}

TEST_F(GalleryPicturesTest, ABigPictureWithFewerPixelsThanTheThumbnailIsNotCut) {
    for (const QSize& big : {QSize(91, 77), QSize(92, 76), QSize(92, 77)}) {
        std::vector<GalleryItem> items{Item()};
        (void)pictures.AwaitBig(items[0], big, 1);
        pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
        EXPECT_EQ(pictures.HasThumbsOnTheirWay(), big != QSize(92, 77)) << big.width();
        pictures.Clear();
    }
}

TEST_F(GalleryPicturesTest, AThumbnailOnItsWayIsNotAskedForTwiceAndGivenUpWithItsPlace) {
    std::vector<GalleryItem> items(2, Item());
    pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    items[0].coverRect = {};
    pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay()) << "nothing has a use for it";
    pictures.WantThumbs(items, {1, 1}, 1, toolkit::kNoWindow);
    EXPECT_TRUE(pictures.HasThumbsOnTheirWay());
    pictures.WantThumbs(items, {}, 1, toolkit::kNoWindow);
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay());
}

TEST_F(GalleryPicturesTest, AThumbnailThatIsOnItsWayIsNotDecodedAgain) {
    std::vector<GalleryItem> items{Item()};
    QWidget widget;
    bool isReady = false;
    const toolkit::WindowId window =
        toolkit::RegisterWindow(&widget, [&](const toolkit::WindowEvent& event) -> qintptr {
            isReady = event.number == gallery::kThumbReady;
            return 0;
        });
    pictures.WantThumbs(items, {0, 0}, 1, window);
    ASSERT_TRUE(support::WaitFor([&] { return isReady; }));
    folder.Write(u"a.png"_s, support::PngBytes(support::OneColour({300, 200}, Qt::black)));
    pictures.WantThumbs(items, {0, 0}, 1, toolkit::kNoWindow);
    EXPECT_EQ(pictures.TakeThumbs(items, 1), std::vector<int>{0});
    ASSERT_TRUE(items[0].thumbDC);
    EXPECT_EQ(items[0].thumbDC->Bitmap().pixelColor(0, 0), support::kTopLeft);
}

TEST_F(GalleryPicturesTest, OneDecodingServesAllItemsOfOneFile) {
    std::vector<GalleryItem> items(3, Item());
    items[2].thumbRect.setWidth(60);
    pictures.WantThumbs(items, {0, 1}, 1, toolkit::kNoWindow);
    std::vector<int> changed;
    ASSERT_TRUE(support::WaitFor([&] {
        changed = pictures.TakeThumbs(items, 1);
        return !changed.empty();
    }));
    EXPECT_EQ(changed, (std::vector<int>{0, 1}));
    EXPECT_FALSE(items[2].thumbDC) << "of another size";
    EXPECT_FALSE(pictures.HasThumbsOnTheirWay());
}

namespace {

/// The sharp part of a picture of 1200 by 900 in an area of 500 by 295, looked at about a point.
class SharpPart : public GalleryPicturesTest {
protected:
    SharpPart() {
        QImage ruler(1200, 900, QImage::Format_RGB32);
        for (int y = 0; y < ruler.height(); ++y) {
            for (int x = 0; x < ruler.width(); ++x) {
                ruler.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256) * 16 + y / 256));
            }
        }
        Show(ruler, {600, 450}, 1);
    }

    void Show(const QImage& image, const QPointF& centre, double scale) {
        pictures.ForgetSharp();
        GalleryItem item = Item(folder.Write(u"ruler.png"_s, support::PngBytes(image)));
        item.picSize = image.size();
        state.items = {item};
        state.currentIndex = 0;
        state.bigArea = QRect(0, 0, 500, 295);
        state.picRect = QRect(53, 1, 393, 293);
        state.zoom = {false, scale, centre};
    }
    gallery::PlacedImage Decoded(qreal ratio = 1) {
        pictures.WantSharp(state, toolkit::kNoWindow, ratio);
        gallery::PlacedImage sharp;
        EXPECT_TRUE(support::WaitFor([&] {
            sharp = pictures.Sharp(state, ratio);
            return !sharp.image.isNull();
        }));
        return sharp;
    }
    /// The image pixel whose colour stands at the corner of the part.
    static QPoint CornerOf(const QImage& image) {
        const QRgb pixel = image.pixel(0, 0);
        return {qRed(pixel) + qBlue(pixel) / 16 * 256, qGreen(pixel) + qBlue(pixel) % 16 * 256};
    }
    [[nodiscard]] QPointF Origin() const {
        return gallery::ZoomedRect(state.zoom, gallery::ViewOf(state, 1)).topLeft();
    }

    gallery::GalleryState state;
};

} // namespace

TEST_F(SharpPart, ReachesAQuarterBeyondWhatShowsFromAWholeBlockOn) {
    ASSERT_EQ(gallery::VisiblePart(state.zoom, gallery::ViewOf(state, 1)),
              QRect(350, 303, 500, 295));
    const gallery::PlacedImage sharp = Decoded();
    EXPECT_EQ(CornerOf(sharp.image), QPoint(224, 224));
    EXPECT_EQ(sharp.image.size(), QSize(350 + 500 + 125 - 224, 303 + 295 + 73 - 224));
    EXPECT_EQ(sharp.place, QRectF(Origin() + QPointF(224, 224), QSizeF(sharp.image.size())));
}

TEST_F(SharpPart, EndsWithThePicture) {
    state.zoom.centre = {250, 147.5};
    EXPECT_EQ(CornerOf(Decoded().image), QPoint(0, 0));
    EXPECT_EQ(Decoded().image.size(), QSize(500 + 125, 295 + 73));
    pictures.ForgetSharp();
    state.zoom.centre = {950, 752.5};
    EXPECT_EQ(CornerOf(Decoded().image), QPoint(568, 528));
    EXPECT_EQ(Decoded().image.size(), QSize(1200 - 568, 900 - 528));
}

TEST_F(SharpPart, HasThePixelsOfItsScale) {
    state.zoom.scale = 2;
    // 250 by 149 show from 475, 376 on.
    const gallery::PlacedImage sharp = Decoded();
    EXPECT_EQ(sharp.image.size(), 2 * QSize(475 + 250 + 62 - 408, 376 + 148 + 37 - 336));
    EXPECT_EQ(sharp.place.topLeft(), Origin() + QPointF(816, 672));
}

TEST_F(SharpPart, OfAThinPictureIsAtLeastOnePixelHighAndWide) {
    Show(support::OneColour({3000, 3}, Qt::red), {1500, 1.5}, 0.2);
    EXPECT_EQ(Decoded().image.height(), 1);
    Show(support::OneColour({3, 3000}, Qt::red), {1.5, 1500}, 0.2);
    EXPECT_EQ(Decoded().image.width(), 1);
}

TEST_F(SharpPart, IsKeptWhileItHoldsWhatShowsAndAskedForAnewBeyondItAndAtAnotherScale) {
    const QImage first = Decoded().image;
    state.zoom.centre += QPointF(60, 40);
    EXPECT_EQ(Decoded().image, first);
    state.zoom.centre += QPointF(200, 0);
    pictures.WantSharp(state, toolkit::kNoWindow, 1);
    EXPECT_FALSE(pictures.Sharp(state, 1).image.isNull()) << "the one before shows meanwhile";
    ASSERT_TRUE(support::WaitFor([&] {
        return pictures.Sharp(state, 1).image.size() != first.size() ||
               CornerOf(pictures.Sharp(state, 1).image).x() > 224;
    }));
    state.zoom.scale = 2;
    EXPECT_TRUE(pictures.Sharp(state, 1).image.isNull()) << "of another scale";
    EXPECT_EQ(Decoded().image.width() % 2, 0);
}

TEST_F(SharpPart, IsNotAskedForWhileThePictureIsFitted) {
    state.zoom.fit = true;
    pictures.WantSharp(state, toolkit::kNoWindow, 1);
    state.zoom.fit = false;
    EXPECT_TRUE(pictures.Sharp(state, 1).image.isNull());
    gallery::JoinDecoders();
    EXPECT_TRUE(pictures.Sharp(state, 1).image.isNull());
}

namespace {

/// Counts the sharp parts of which its window is told.
class SharpListener final : public toolkit::WindowObject {
public:
    SharpListener() { Create(toolkit::kNoWindow); }
    ~SharpListener() override { Destroy(); }

    int told = 0;

protected:
    QWidget* MakeWindow(QWidget* parent) override { return new QWidget(parent, Qt::Window); }
    qintptr OnEvent(const toolkit::WindowEvent& event) override {
        told += event.number == gallery::kSharpPartReady;
        return 0;
    }
};

} // namespace

TEST_F(SharpPart, NobodyIsToldOfWhatIsForgottenWhileItIsDecoded) {
    for (const bool forgotten : {false, true}) {
        SharpListener listener;
        // A pipe that nobody writes to keeps the decoder where it is.
        const QString path = folder.Path(u"pipe%1"_s.arg(forgotten));
        ASSERT_EQ(mkfifo(path.toLocal8Bit().constData(), 0600), 0);
        state.items[0].picPath = path;
        pictures.WantSharp(state, listener.Id(), 1);
        int writer = -1;
        ASSERT_TRUE(support::WaitFor([&] {
            writer = open(path.toLocal8Bit().constData(), O_WRONLY | O_NONBLOCK);
            return writer >= 0;
        }));
        if (forgotten) {
            pictures.ForgetSharp();
        }
        close(writer);
        gallery::JoinDecoders();
        support::RunPendingEvents();
        EXPECT_EQ(listener.told, forgotten ? 0 : 1);
        pictures.ForgetSharp();
    }
}
