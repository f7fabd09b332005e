// What the gallery shows of files of all kinds, good and bad.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/FlatJpeg.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QBuffer>
#include <QFile>

using namespace Qt::StringLiterals;
using support::IsNear;

namespace {

class GalleryFiles : public GalleryFixture {
protected:
    GalleryFiles() { Open(); }

    /// The file between two good ones, and current.
    void ShowFile(const QByteArray& bytes, const QString& name = u"file.jpg"_s) {
        const std::vector<GalleryItem> good = OnDisk(2);
        SetItems(support::FolderGallery::ItemsOf(
                     {good[0].picPath, folder.Write(name, bytes), good[1].picPath}),
                 1);
    }
    /// The big area says that there is none, the cell shows its frame alone, and one can go on.
    void ExpectNoPicture(const std::string& what) {
        EXPECT_TRUE(SaysNoPicture()) << what;
        support::RunPendingEvents();
        EXPECT_TRUE(State().picRect.isEmpty()) << what;
        EXPECT_EQ(State().shownIndex, -1) << what;
        EXPECT_EQ(PixelAt(ThumbMiddle(1)), support::kPaneColour) << what;
        EXPECT_EQ(PixelAt(State().items[1].thumbRect.topLeft()), QColor(0xB1, 0xC3, 0xD9)) << what;
        gallery->SelectPic(2, gallery::kCurrentLast);
        EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(1)) << what;
        EXPECT_EQ(PixelAt(ThumbMiddle(0)), ColourOf(0)) << what;
    }
    /// Big picture and thumbnail have this colour in their middle.
    void ExpectColour(const QColor& colour) {
        EXPECT_TRUE(IsNear(PixelAt(State().picRect.center()), colour));
        EXPECT_TRUE(IsNear(PixelAt(ThumbMiddle(1)), colour));
    }
    static QByteArray Written(const QImage& image, const char* format) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        EXPECT_TRUE(image.save(&buffer, format));
        return bytes;
    }
};

} // namespace

TEST_F(GalleryFiles, AnEmptyFileWasNotFetched) {
    host.files.stored[u"file"_s] = support::PngBytes(support::OneColour({9, 9}, Qt::darkRed));
    ShowFile("");
    ASSERT_TRUE(support::WaitFor([this] { return State().items[1].picState == kOnDisk; }));
    EXPECT_EQ(Log().CountOf("StartDownload"), 1);
    EXPECT_TRUE(
        support::WaitFor([this] { return PixelAt(ThumbMiddle(1)) == QColor(Qt::darkRed); }));
    EXPECT_EQ(PixelAt(PictureMiddle()), QColor(Qt::darkRed));
}

TEST_F(GalleryFiles, ATextNamedJpgIsNoPicture) {
    ShowFile("a text named .jpg\n");
    ExpectNoPicture("text");
}

TEST_F(GalleryFiles, AFileOfAnotherKindIsNoPicture) {
    for (const char* bytes :
         {"%PDF-1.4\n1 0 obj\n<<>>\nendobj\n", "PK\x03\x04 an archive", "#!AMR\n a note",
          "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>"}) {
        ShowFile(bytes);
        ExpectNoPicture(bytes);
    }
}

TEST_F(GalleryFiles, AHeaderAloneIsNoPicture) {
    ShowFile(support::JpegBytes(support::CornerMarked({100, 100})).left(20));
    ExpectNoPicture("jpeg");
    ShowFile(support::PngBytes(support::CornerMarked({100, 100})).left(60));
    ExpectNoPicture("png");
}

TEST_F(GalleryFiles, ATruncatedPictureShowsWhatThereIsOfIt) {
    const QByteArray whole = support::JpegBytes(support::CornerMarked({300, 200}));
    ShowFile(whole.left(whole.size() * 2 / 3));
    EXPECT_TRUE(IsNear(PixelAt(State().picRect.topLeft() + QPoint(20, 20)), support::kTopLeft));
    EXPECT_EQ(State().shownIndex, 1);
}

TEST_F(GalleryFiles, ThePictureCountsNotTheNameOfTheFile) {
    const QImage image = support::OneColour({60, 40}, Qt::darkCyan);
    for (const char* format : {"png", "bmp"}) {
        ShowFile(Written(image, format));
        ExpectColour(Qt::darkCyan);
    }
}

TEST_F(GalleryFiles, APictureInInksIsShown) {
    ShowFile(support::FlatJpeg({64, 48}, {0, 255, 255, 255}));
    ExpectColour(QColor(0, 255, 255));
}

TEST_F(GalleryFiles, APictureOfSixteenBitsAChannelIsShown) {
    ShowFile(support::PngBytes(
        support::OneColour({60, 40}, Qt::darkYellow).convertToFormat(QImage::Format_RGBA64)));
    ExpectColour(Qt::darkYellow);
}

TEST_F(GalleryFiles, OfAnAnimationTheFirstFrameIsShown) {
    ShowFile(support::AnimatedGif());
    ExpectColour(Qt::red);
}

TEST_F(GalleryFiles, ThirtyThousandSquareIsShown) {
    ShowFile(support::FlatJpeg({30000, 30000}, {200}));
    EXPECT_EQ(State().items[1].picSize, QSize(30000, 30000));
    ExpectColour(QColor(200, 200, 200));
}

TEST_F(GalleryFiles, APictureTooLargeToBeOpenedSaysThatThereIsNone) {
    // A bitmap header of 30,000 by 30,000 at 24 bits, and no pixels.
    ShowFile(QByteArray::fromHex("424d36000000000000003600000028000000"
                                 "307500003075000001001800000000000000"
                                 "0000000000000000000000000000000000000000"));
    ExpectNoPicture("bitmap");
}

TEST_F(GalleryFiles, VeryThinAndVerySmallPicturesAreShown) {
    Open();
    const QStringList paths{
        folder.Write(u"dot.png"_s, support::PngBytes(support::OneColour({1, 1}, Qt::darkGreen))),
        folder.Write(u"thin.png"_s,
                     support::PngBytes(support::OneColour({10, 20000}, Qt::darkBlue)))};
    SetItems(support::FolderGallery::ItemsOf(paths));
    EXPECT_EQ(PixelAt(PictureMiddle()), QColor(Qt::darkGreen));
    EXPECT_EQ(PixelAt(ThumbMiddle(1)), QColor(Qt::darkBlue));
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(State().picRect.width(), 1);
    EXPECT_EQ(PixelAt(State().picRect.center()), QColor(Qt::darkBlue));
}

TEST_F(GalleryFiles, APictureFileThatVanishesIsSaidToBeMissing) {
    Open();
    SetItems(OnDisk(3));
    const QImage before = Shown();
    QFile::remove(State().items[1].picPath);
    const QImage after = Shown();
    EXPECT_EQ(after.copy(State().items[0].thumbRect), before.copy(State().items[0].thumbRect));
    EXPECT_NE(after.copy(State().items[1].thumbRect), before.copy(State().items[1].thumbRect));
    EXPECT_NE(after.pixelColor(ThumbMiddle(1) + QPoint(40, 30)), ColourOf(1));
}

TEST_F(GalleryFiles, ACurrentPictureThatVanishesLeavesNoPictureOnceItIsRenderedAnew) {
    SetItems(OnDisk(3), 1);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(1));
    QFile::remove(State().items[1].picPath);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(1)) << "its rendering is kept";
    gallery->SelectPic(1, gallery::kCurrentMiddle);
    EXPECT_TRUE(SaysNoPicture());
}

TEST_F(GalleryFiles, WordOfADecodedPictureMarksTheCurrentOneAloneAndOnlyIfItIsBad) {
    const auto tell = [this] { toolkit::SendWindowEvent(gallery->Id(), gallery::kPictureReady); };
    const auto marked = [this] {
        std::vector<int> indices;
        for (int i = 0; i < State().Count(); ++i) {
            if (State().items[size_t(i)].unreadable) {
                indices.push_back(i);
            }
        }
        return indices;
    };
    SetItems(OnDisk(3), 1);
    ASSERT_EQ(PixelAt(PictureMiddle()), ColourOf(1));
    tell();
    EXPECT_TRUE(marked().empty()) << "it shows by now";
    ShowFile("no picture");
    ASSERT_TRUE(SaysNoPicture());
    tell();
    EXPECT_TRUE(marked().empty()) << "nobody tried";
    std::vector<GalleryItem> items = OnDisk(3);
    items[1].picPath = folder.Write(u"bad.jpg"_s, "no picture");
    items[1].picSize = {300, 200};
    SetItems(items, 1);
    EXPECT_TRUE(support::WaitFor([&] { return marked() == std::vector<int>{1}; }));
    SetItems({});
    tell();
    EXPECT_TRUE(State().items.empty());
}

TEST_F(GalleryFiles, ADownloadsPercentShowsInItsCell) {
    const auto shows = [this](int percent) {
        GalleryItem item = InStore(1, false).front();
        item.picState = kDownloading;
        item.picProgress = percent;
        SetItems({item});
        return Shown().copy(State().items[0].thumbRect);
    };
    EXPECT_NE(shows(20), shows(80));
}
