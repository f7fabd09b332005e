#include "viewers/GalleryPainter.h"

#include "tests/viewers/support/SamplePictures.h"

#include <QPainter>
#include <gtest/gtest.h>

#include <functional>

using gallery::Cell;
using gallery::CellFrame;
using gallery::GalleryState;
using support::IsNear;

namespace {

const QColor kTrack(0xB1, 0xC3, 0xD9);
const QColor kAccent(0x00, 0xB6, 0xF0);
const QColor kHover(0xA9, 0xDA, 0xF5);
const QRect kRect(20, 20, 94, 79);

Cell SampleCell(qint32 state) {
    Cell cell;
    cell.rect = kRect;
    cell.state = state;
    return cell;
}

QImage Painted(const Cell& cell, qreal ratio = 1) {
    const QImage dark = support::OneColour(kRect.size(), QColor(40, 60, 80));
    QImage image(QSize(140, 120) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(support::kPaneColour);
    QPainter painter(&image);
    gallery::PaintCell(painter, cell, dark);
    return image;
}

/// Number of pixels of a rectangle near a colour.
int CountNear(const QImage& image, const QRect& rect, const QColor& colour, int tolerance = 40) {
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            count += IsNear(image.pixelColor(x, y), colour, tolerance);
        }
    }
    return count;
}

/// The band across the middle of the sample cell.
QRect Band() {
    return {20, 20 + 79 / 2 - 10, 94, 20};
}

/// Dark under white of 100 in 255.
const QColor kBandColour(124, 136, 149);

GalleryState WideState() {
    GalleryState state;
    state.items.resize(20);
    for (GalleryItem& item : state.items) {
        item.picState = kOnDisk;
    }
    state.stripBar.maxPos = 19;
    gallery::PlaceAreas(state, QRect(0, 0, 500, 295), QRect(5, 300, 490, 95),
                        [](int) { return QSize(300, 200); });
    return state;
}

QImage PaintedStrip(const GalleryState& state, const std::vector<Cell>& cells) {
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    gallery::PaintStrip(painter, state, cells, QImage());
    return image;
}

} // namespace

TEST(GalleryPainter, AWaitingCellHasABandWithWhiteTextOnTheDefaultPicture) {
    const QImage image = Painted(SampleCell(kWaiting));
    EXPECT_EQ(image.pixelColor(22, 22), QColor(40, 60, 80));
    EXPECT_EQ(image.pixelColor(22, Band().top() + 1), kBandColour);
    EXPECT_EQ(image.pixelColor(22, Band().top() - 1), QColor(40, 60, 80));
    EXPECT_EQ(image.pixelColor(22, Band().bottom() + 1), QColor(40, 60, 80));
    EXPECT_GT(CountNear(image, Band(), Qt::white), 60);
}

TEST(GalleryPainter, EveryStateSaysSomethingElse) {
    Cell gone = SampleCell(kOnDisk);
    gone.fileThere = false;
    const std::vector<QImage> images{Painted(SampleCell(kWaiting)),
                                     Painted(SampleCell(kDownloading)),
                                     Painted(SampleCell(kDownloadFailedState)), Painted(gone)};
    for (size_t i = 0; i < images.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            EXPECT_NE(images[i], images[j]) << i << " and " << j;
        }
    }
    EXPECT_GT(CountNear(images[2], Band(), QColor(255, 0, 0), 60), 40) << "failed: red text";
    EXPECT_GT(CountNear(images[3], Band(), Qt::white), 60);
}

TEST(GalleryPainter, TheTextOfAFailureIsPlainRed) {
    const QImage image = Painted(SampleCell(kDownloadFailedState));
    for (int y = Band().top(); y <= Band().bottom(); ++y) {
        for (int x = Band().left(); x <= Band().right(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            EXPECT_LE(colour.blue(), kBandColour.blue() + 3) << "nothing lighter than the band";
            EXPECT_LE(colour.green(), kBandColour.green() + 3);
        }
    }
}

TEST(GalleryPainter, TheProgressBandGrowsWithThePercent) {
    // 92 pixels between the band's edges, accent of 150 in 255 over the band's colour.
    const QColor accent(51, 163, 202);
    for (const int percent : {0, 1, 25, 50, 99, 100}) {
        Cell cell = SampleCell(kDownloading);
        cell.percent = percent;
        const QImage image = Painted(cell);
        const int row = Band().top() + 1;
        int filled = 0;
        for (int x = Band().left(); x <= Band().right(); ++x) {
            filled += IsNear(image.pixelColor(x, row), accent, 1);
        }
        EXPECT_EQ(filled, 92 * percent / 100) << percent;
        EXPECT_GT(CountNear(image, Band(), Qt::white), 15) << percent;
        EXPECT_EQ(image.pixelColor(60, Band().top()), kBandColour) << "its edge stays";
    }
}

TEST(GalleryPainter, APictureHasAFrameOfTwoPixels) {
    Cell cell = SampleCell(kOnDisk);
    cell.picture = support::OneColour({92, 77}, Qt::darkGreen);
    const QImage image = Painted(cell);
    EXPECT_EQ(image.pixelColor(18, 60), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(19, 60), kTrack);
    EXPECT_EQ(image.pixelColor(20, 60), kTrack);
    EXPECT_EQ(image.pixelColor(21, 60), QColor(Qt::darkGreen));
    EXPECT_EQ(image.pixelColor(112, 60), QColor(Qt::darkGreen));
    EXPECT_EQ(image.pixelColor(113, 60), kTrack);
    EXPECT_EQ(image.pixelColor(114, 60), kTrack);
    EXPECT_EQ(image.pixelColor(115, 60), support::kPaneColour);
}

TEST(GalleryPainter, CurrentAndHoverFramesLieThreePixelsWideAroundTheCell) {
    for (const auto& [frame, colour] :
         {std::pair(CellFrame::Current, kAccent), std::pair(CellFrame::Hover, kHover)}) {
        Cell cell = SampleCell(kWaiting);
        cell.frame = frame;
        const QImage image = Painted(cell);
        for (int outside = 1; outside <= 3; ++outside) {
            EXPECT_EQ(image.pixelColor(20 - outside, 40), colour);
            EXPECT_EQ(image.pixelColor(113 + outside, 40), colour);
            EXPECT_EQ(image.pixelColor(60, 20 - outside), colour);
            EXPECT_EQ(image.pixelColor(60, 98 + outside), colour);
        }
        EXPECT_EQ(image.pixelColor(16, 40), support::kPaneColour);
        EXPECT_EQ(image.pixelColor(20, 40), QColor(40, 60, 80));
    }
}

TEST(GalleryPainter, OnADenseScreenEveryPixelOfAFrameIsTwo) {
    Cell cell = SampleCell(kWaiting);
    cell.frame = CellFrame::Current;
    const QImage image = Painted(cell, 2);
    EXPECT_EQ(image.pixelColor(34, 80), kAccent);
    EXPECT_EQ(image.pixelColor(39, 80), kAccent);
    EXPECT_EQ(image.pixelColor(33, 80), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(40, 80), QColor(40, 60, 80));
}

TEST(GalleryPainter, CellsRenderedForASlideStandOnTheBackground) {
    const QImage image =
        gallery::RenderCells({SampleCell(kNothingToFetch)}, QImage(), {140, 120}, 2);
    EXPECT_EQ(image.size(), QSize(280, 240));
    EXPECT_EQ(image.devicePixelRatio(), 2);
    EXPECT_EQ(CountNear(image, image.rect(), support::kPaneColour, 0), 280 * 240);
}

TEST(GalleryPainter, ACellWithNothingToFetchIsEmpty) {
    const QImage image = Painted(SampleCell(kNothingToFetch));
    EXPECT_EQ(CountNear(image, kRect, support::kPaneColour, 0), 94 * 79);
}

TEST(GalleryPainter, TheIndicatorShowsTrackAndThumbWhereThereIsMoreThanTheStripShows) {
    GalleryState state = WideState();
    const QImage image = PaintedStrip(state, {});
    const QRect track = state.stripBar.trackRect;
    const QRect thumb = state.stripBar.thumbRect;
    ASSERT_FALSE(track.isEmpty());
    EXPECT_EQ(image.pixelColor(thumb.left(), thumb.top()), kAccent);
    EXPECT_EQ(image.pixelColor(thumb.right(), thumb.bottom()), kAccent);
    EXPECT_EQ(image.pixelColor(thumb.right() + 1, thumb.top()), kTrack);
    EXPECT_EQ(image.pixelColor(track.right(), track.bottom()), kTrack);
    EXPECT_EQ(image.pixelColor(track.right() + 1, track.top()), support::kPaneColour);
    state.stripBar.overflow = false;
    EXPECT_EQ(PaintedStrip(state, {}).pixelColor(thumb.topLeft()), support::kPaneColour);
}

TEST(GalleryPainter, TheIndicatorsThumbIsColouredByItsState) {
    GalleryState state = WideState();
    for (const auto& [hot, colour] :
         {std::pair(-1, kAccent), std::pair(0, kAccent), std::pair(1, QColor(0x0F, 0xC6, 0xD6)),
          std::pair(2, QColor(0x14, 0x90, 0xE0)), std::pair(3, QColor(0x14, 0x90, 0xE0))}) {
        state.stripBar.hotState = hot;
        EXPECT_EQ(PaintedStrip(state, {}).pixelColor(state.stripBar.thumbRect.center()), colour)
            << hot;
    }
}

TEST(GalleryPainter, TheStripFillsItsAreaAndNothingElse) {
    const QImage image = PaintedStrip(WideState(), {});
    EXPECT_EQ(image.pixelColor(5, 300), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(494, 394), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(4, 300), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(495, 394), QColor(Qt::magenta));
}

TEST(GalleryPainter, ACurrentIndexOutsideTheListLeavesTheStripEmpty) {
    GalleryState state = WideState();
    state.currentIndex = 20;
    Cell cell = SampleCell(kWaiting);
    cell.rect = state.items[0].thumbRect;
    const QImage image = PaintedStrip(state, {cell});
    EXPECT_EQ(CountNear(image, state.stripArea, support::kPaneColour, 0),
              state.stripArea.width() * state.stripArea.height());
}

TEST(GalleryPainter, WithoutAPictureTheAreaSaysSoInItsMiddle) {
    const GalleryState state = WideState();
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    gallery::PaintNoBigPicture(painter, state);
    const QRect middle(220, 135, 60, 25);
    EXPECT_GT(CountNear(image, middle, QColor(0x15, 0x42, 0x8B), 60), 60);
    EXPECT_EQ(image.pixelColor(150, 100), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(499, 294), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(499, 295), QColor(Qt::magenta));
}

TEST(GalleryPainter, TheBigPictureIsCopiedToItsPlaceOnTheBackground) {
    GalleryState state = WideState();
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    const QRect place = state.picRect;
    gallery::PaintBigPicture(painter, state,
                             {{QRectF(place), support::CornerMarked(place.size())}});
    EXPECT_EQ(image.pixelColor(place.topLeft()), support::kTopLeft);
    EXPECT_EQ(image.pixelColor(place.bottomRight()), support::kBottomRight);
    EXPECT_EQ(image.pixelColor(place.left() - 1, 5), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(0, 0), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(0, 295), QColor(Qt::magenta));
}

TEST(GalleryPainter, ASlideShowsBothImagesAtTheirOffsets) {
    const GalleryState state = WideState();
    gallery::SlideScene scene;
    scene.ofPicture = true;
    scene.slide = gallery::PictureSlide(
        {state.bigArea, QRect(100, 0, 300, 295), QRect(100, 0, 300, 295), true, 0, 1});
    scene.oldImage = support::OneColour({300, 295}, Qt::red);
    scene.newImage = support::OneColour({300, 295}, Qt::blue);
    scene.offset = 200;
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    gallery::PaintSlide(painter, state, scene);
    // Distance 401: the old one ends at 200, the new one begins at 301.
    EXPECT_EQ(image.pixelColor(199, 20), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(200, 20), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(300, 20), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(301, 20), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(301, 296), QColor(Qt::magenta));
}

TEST(GalleryPainter, AZoomLabelASlideAndAPictureLeaveThePainterAsItWas) {
    GalleryState state = WideState();
    state.zoom = {false, 2, {150, 100}};
    gallery::SlideScene scene;
    scene.slide = gallery::PictureSlide({state.bigArea, state.picRect, state.picRect, true, 0, 1});
    const std::vector<std::function<void(QPainter&)>> paints{
        [&](QPainter& painter) { gallery::PaintZoomLabel(painter, state); },
        [&](QPainter& painter) { gallery::PaintSlide(painter, state, scene); },
        [&](QPainter& painter) { gallery::PaintBigPicture(painter, state, {}); }};
    for (size_t i = 0; i < paints.size(); ++i) {
        QImage image(500, 400, QImage::Format_RGB32);
        QPainter painter(&image);
        QFont font;
        font.setPixelSize(31);
        painter.setFont(font);
        painter.setPen(QPen(Qt::red, 7));
        painter.setBrush(Qt::green);
        paints[i](painter);
        EXPECT_EQ(painter.font().pixelSize(), 31) << i;
        EXPECT_EQ(painter.pen(), QPen(Qt::red, 7)) << i;
        EXPECT_EQ(painter.brush(), QBrush(Qt::green)) << i;
        EXPECT_FALSE(painter.hasClipping()) << i;
        EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing)) << i;
    }
}

TEST(GalleryPainter, TheCellBehindAWaitingOneIsNotClippedToIt) {
    QImage image(300, 120, QImage::Format_RGB32);
    image.fill(support::kPaneColour);
    QPainter painter(&image);
    const QImage dark = support::OneColour({300, 300}, QColor(40, 60, 80));
    gallery::PaintCell(painter, SampleCell(kWaiting), dark);
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_EQ(image.pixelColor(114, 22), support::kPaneColour) << "nor does its picture reach out";
    EXPECT_EQ(image.pixelColor(113, 22), QColor(40, 60, 80));
}

TEST(GalleryPainter, TheZoomLabelStandsOnALightPlateAboveTheLowerEdge) {
    GalleryState state = WideState();
    state.zoom = {false, 1, {150, 100}};
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    gallery::PaintZoomLabel(painter, state);
    // 64 by 24 about 249, 270; white of 220 in 255.
    const QRect plate(218, 259, 64, 24);
    EXPECT_EQ(image.pixelColor(plate.left() + 6, plate.top()), QColor(220, 220, 220));
    EXPECT_EQ(image.pixelColor(plate.left(), plate.top() + 6), QColor(220, 220, 220));
    EXPECT_EQ(image.pixelColor(plate.right() - 6, plate.bottom()), QColor(220, 220, 220));
    EXPECT_EQ(image.pixelColor(plate.left() + 6, plate.top() - 1), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(plate.left() - 1, plate.top() + 6), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(plate.right() + 1, plate.top() + 6), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(plate.left() + 6, plate.bottom() + 1), QColor(Qt::black));
    EXPECT_NE(image.pixelColor(plate.topLeft()), QColor(220, 220, 220)) << "round corners";
}

TEST(GalleryPainter, ASlideStaysWithinItsBounds) {
    GalleryState state = WideState();
    gallery::SlideScene scene;
    const QRect bounds(100, 50, 300, 200);
    scene.slide = gallery::PictureSlide({bounds, bounds, bounds, true, 0, 1});
    scene.oldImage = support::OneColour(bounds.size(), Qt::red);
    scene.newImage = support::OneColour(bounds.size(), Qt::blue);
    scene.offset = 150;
    QImage image(500, 400, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    gallery::PaintSlide(painter, state, scene);
    EXPECT_EQ(image.pixelColor(100, 60), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(399, 60), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(99, 60), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(400, 60), QColor(Qt::magenta));
}

TEST(GalleryPainter, APictureThatIsAWholePixelTooLargeIsFittedToItsPlace) {
    const GalleryState state = WideState();
    const QRectF place(100, 50, 100, 100);
    const auto painted = [&](const QSize& size) {
        QImage image(500, 400, QImage::Format_RGB32);
        QPainter painter(&image);
        gallery::PaintBigPicture(painter, state, {{place, support::OneColour(size, Qt::red)}});
        return image;
    };
    EXPECT_EQ(painted({101, 100}).pixelColor(199, 60), QColor(Qt::red));
    EXPECT_EQ(painted({101, 100}).pixelColor(200, 60), support::kPaneColour);
    EXPECT_EQ(painted({100, 101}).pixelColor(110, 149), QColor(Qt::red));
    EXPECT_EQ(painted({100, 101}).pixelColor(110, 150), support::kPaneColour);
}
