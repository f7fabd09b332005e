// Looking closely.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/Decoders.h"
#include "viewers/DownloadWorker.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

/// A picture of 1200 by 900 in which every pixel has its own colour.
QImage Ruler() {
    QImage image(1200, 900, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256) * 16 + y / 256));
        }
    }
    return image;
}

class GalleryZoom : public GalleryFixture {
protected:
    GalleryZoom() {
        Open();
        const QString ruler = folder.Write(u"ruler.png"_s, support::PngBytes(Ruler()));
        auto items = support::FolderGallery::ItemsOf({ruler});
        const auto others = OnDisk(3);
        items.insert(items.end(), others.begin(), others.end());
        SetItems(items);
    }

    void DoubleClick(const QPoint& point) { QTest::mouseDClick(Pane(), Qt::LeftButton, {}, point); }
    void Wheel(int delta, const QPoint& point) {
        QWheelEvent event(point, Pane()->mapToGlobal(point), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Pane(), &event);
    }
    /// The image pixel that the window shows at a point; needs the sharp part.
    QPoint ImagePixelAt(const QPoint& point) {
        const QRgb pixel = Shown().pixel(point);
        return {qRed(pixel) + qBlue(pixel) / 16 * 256, qGreen(pixel) + qBlue(pixel) % 16 * 256};
    }
    bool WaitForPixel(const QPoint& point, const QPoint& wanted) {
        return support::WaitFor([&] { return ImagePixelAt(point) == wanted; });
    }
};

} // namespace

TEST_F(GalleryZoom, ADoubleClickShowsOneImagePixelOnOneScreenPixel) {
    DoubleClick(PictureMiddle());
    EXPECT_EQ(State().zoom.scale, 1);
    const QPoint corner =
        gallery::ZoomedRect(State().zoom, gallery::ViewOf(State(), 1)).topLeft().toPoint();
    for (const QPoint& point : {QPoint(120, 60), QPoint(121, 60), QPoint(400, 250)}) {
        EXPECT_TRUE(WaitForPixel(point, point - corner));
    }
    DoubleClick(PictureMiddle());
    EXPECT_TRUE(State().zoom.fit);
}

TEST_F(GalleryZoom, TheWheelZoomsAboutThePointer) {
    const QPoint pointer(200, 100);
    DoubleClick(pointer);
    const QPoint corner =
        gallery::ZoomedRect(State().zoom, gallery::ViewOf(State(), 1)).topLeft().toPoint();
    const QPoint under = pointer - corner;
    Wheel(120, pointer);
    EXPECT_NEAR(State().zoom.scale, 1.25, 1e-9);
    const QRectF place = gallery::ZoomedRect(State().zoom, gallery::ViewOf(State(), 1));
    EXPECT_NEAR((pointer.x() - place.x()) / 1.25, under.x(), 1);
    EXPECT_NEAR((pointer.y() - place.y()) / 1.25, under.y(), 1);
    EXPECT_EQ(State().currentIndex, 0) << "the wheel with Ctrl steps to no other picture";
}

TEST_F(GalleryZoom, DraggingPans) {
    DoubleClick(PictureMiddle());
    const QRectF before = gallery::ZoomedRect(State().zoom, gallery::ViewOf(State(), 1));
    QTest::mousePress(Pane(), Qt::LeftButton, {}, {250, 150});
    EXPECT_EQ(Pane()->cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseMove(Pane(), {220, 170});
    QTest::mouseRelease(Pane(), Qt::LeftButton, {}, {220, 170});
    const QRectF after = gallery::ZoomedRect(State().zoom, gallery::ViewOf(State(), 1));
    EXPECT_EQ(after, before.translated(-30, 20));
    EXPECT_EQ(Pane()->cursor().shape(), Qt::OpenHandCursor);
    EXPECT_TRUE(WaitForPixel({300, 200}, QPoint(300, 200) - after.topLeft().toPoint()));
}

TEST_F(GalleryZoom, AStepGoesBackToFitted) {
    DoubleClick(PictureMiddle());
    QTest::keyClick(Pane(), Qt::Key_Right);
    EXPECT_TRUE(State().zoom.fit);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
    QTest::keyClick(Pane(), Qt::Key_Left);
    EXPECT_TRUE(State().zoom.fit);
}

TEST_F(GalleryZoom, ZoomingOutEndsFitted) {
    DoubleClick(PictureMiddle());
    for (int i = 0; i < 12; ++i) {
        Wheel(-120, PictureMiddle());
    }
    EXPECT_TRUE(State().zoom.fit);
}

TEST_F(GalleryZoom, WithoutAPictureNothingZooms) {
    SetItems({});
    DoubleClick(PictureMiddle());
    Wheel(120, PictureMiddle());
    EXPECT_TRUE(State().zoom.fit);
}

TEST_F(GalleryZoom, CopyOffersTheFileAndThePicture) {
    QTest::keyClick(Pane(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    ASSERT_TRUE(data->hasUrls());
    EXPECT_EQ(data->urls().front().toLocalFile(), folder.Path(u"ruler.png"_s));
    EXPECT_TRUE(data->hasImage());
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(1200, 900));
}

TEST_F(GalleryZoom, CopyWithoutAPictureLeavesTheClipboard) {
    QApplication::clipboard()->setText(u"text"_s);
    SetItems({});
    QTest::keyClick(Pane(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"text");
}

TEST_F(GalleryZoom, OnlyThePictureIsDragged) {
    DoubleClick(PictureMiddle());
    const QPointF before = State().zoom.centre;
    const QPoint beside(2, 298);
    ASSERT_FALSE(State().bigArea.contains(beside));
    const QPoint button = State().buttons[gallery::kNextPic].rect.center();
    ASSERT_TRUE(State().bigArea.contains(button));
    for (const QPoint& start : {beside, button}) {
        QTest::mousePress(Pane(), Qt::LeftButton, {}, start);
        QTest::mouseMove(Pane(), {200, 200});
        QTest::mouseRelease(Pane(), Qt::LeftButton, {}, {200, 200});
        EXPECT_EQ(State().zoom.centre, before) << start.x();
    }
}

TEST_F(GalleryZoom, AFittedPictureIsNotDragged) {
    QTest::mousePress(Pane(), Qt::LeftButton, {}, PictureMiddle());
    EXPECT_EQ(Pane()->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(Pane(), ThumbMiddle(2));
    EXPECT_EQ(State().hoverIndex, 2) << "the mouse means what it is over";
    QTest::mouseRelease(Pane(), Qt::LeftButton, {}, ThumbMiddle(2));
    EXPECT_TRUE(State().zoom.fit);
}

TEST_F(GalleryZoom, ASharpPartThatComesIsPainted) {
    DoubleClick(PictureMiddle());
    support::RunPendingEvents();
    class PaintSeen final : public QObject {
    public:
        bool eventFilter(QObject*, QEvent* event) override {
            seen = seen || event->type() == QEvent::Paint;
            return false;
        }
        bool seen = false;
    } paint;
    gallery::JoinDecoders();
    support::RunPendingEvents();
    Pane()->installEventFilter(&paint);
    toolkit::SendWindowEvent(gallery->Id(), gallery::kSharpPartReady);
    EXPECT_TRUE(support::WaitFor([&] { return paint.seen; }, std::chrono::seconds(3)));
}

TEST_F(GalleryZoom, AnotherPictureThatArrivesLeavesItAsItIs) {
    DoubleClick(PictureMiddle());
    toolkit::PostWindowEvent(gallery->Id(), gallery::kDownloadDone, 0, 0,
                             std::make_unique<gallery::KeyPayload>(
                                 gallery::DownloadKey{1, gallery::DownloadKind::Picture}));
    toolkit::DeliverPostedEvents();
    EXPECT_FALSE(State().zoom.fit);
    EXPECT_EQ(State().zoom.scale, 1);
}
