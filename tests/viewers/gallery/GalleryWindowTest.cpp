// The gallery's window: sizes, repaints, its life.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QDir>
#include <QFile>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class GalleryWindow : public GalleryFixture {};

/// Counts the paint events of a widget.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget* watched) { watched->installEventFilter(this); }
    [[nodiscard]] int Count() const { return m_count; }

    bool eventFilter(QObject*, QEvent* event) override {
        m_count += event->type() == QEvent::Paint;
        return false;
    }

private:
    int m_count = 0;
};

} // namespace

TEST_F(GalleryWindow, AResizeStretchesThePictureAtOnceAndRendersItASecondLater) {
    Open();
    folder.Write(u"a.png"_s, support::PngBytes(support::CornerMarked({300, 200})));
    ShowItems(support::FolderGallery::ItemsOf({folder.Path(u"a.png"_s)}));
    Pane()->resize(700, 600);
    support::RunPendingEvents();
    const QRect place = State().picRect;
    EXPECT_EQ(place.width(), 690);
    QImage shown = Shown();
    EXPECT_EQ(shown.pixelColor(place.topLeft()), support::kTopLeft);
    EXPECT_EQ(shown.pixelColor(place.bottomRight()), support::kBottomRight);
    EXPECT_EQ(shown.pixelColor(place.left() - 1, place.top()), QColor(0xFA, 0xFA, 0xFA));
    // A stretched rendering and one of the true size differ where the colours meet.
    const QRect seam(place.center() - QPoint(3, 3), QSize(7, 7));
    const QImage stretched = shown.copy(seam);
    const PaintCounter paints(Pane());
    ASSERT_TRUE(support::WaitFor([&] { return paints.Count() > 0; }));
    EXPECT_NE(Shown().copy(seam), stretched);
}

TEST_F(GalleryWindow, ThePictureIsRenderedAnewASecondAfterTheLastPaint) {
    Open();
    ShowItems(OnDisk(1));
    const auto told = [this] {
        return std::count(gallery->timersTold.begin(), gallery->timersTold.end(),
                          gallery::kRenderTimer);
    };
    // Timers of the same kind, a little shorter and a little longer than that second.
    QTimer before;
    QTimer after;
    std::vector<std::pair<std::string, qptrdiff>> seen;
    for (QTimer* timer : {&before, &after}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer, &QTimer::timeout, [&, timer] {
            seen.emplace_back(timer == &before ? "before" : "after", told());
        });
    }
    before.start(850);
    gallery->SetPicRects(QRect(0, 0, 400, 250), QRect(5, 300, 490, 95));
    Pane()->repaint();
    after.start(1200);
    ASSERT_TRUE(support::WaitFor([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen.front(), (std::pair<std::string, qptrdiff>("before", 0)));
    EXPECT_EQ(seen.back(), (std::pair<std::string, qptrdiff>("after", 1))) << "and once";
}

TEST_F(GalleryWindow, WhatAnAreaLeavesFreeIsErasedOnTheScreenAtOnce) {
    Open();
    ShowItems(OnDisk(3));
    const auto onScreen = [this] {
        return Pane()->screen()->grabWindow(Pane()->winId()).toImage();
    };
    const QPoint freedPicture(450, 20);
    const QPoint freedStrip = State().buttons[gallery::kThumbRight].rect.center();
    ASSERT_EQ(onScreen().pixelColor(freedPicture), ColourOf(0));
    gallery->SetPicRects(QRect(0, 0, 300, 200), QRect(5, 300, 300, 95));
    const QImage image = onScreen();
    EXPECT_EQ(image.pixelColor(freedPicture), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(freedStrip), support::kPaneColour);
    EXPECT_EQ(image.pixelColor(State().picRect.center()), ColourOf(0));
    EXPECT_TRUE(State().paintEnabled);
}

TEST_F(GalleryWindow, WhatTheAreasLeaveFreeIsErased) {
    Open();
    SetItems(OnDisk(3));
    gallery->SetPicRects(QRect(50, 50, 200, 150), QRect(50, 250, 300, 95));
    const QImage shown = Shown();
    EXPECT_EQ(shown.pixelColor(400, 100), QColor(0xFA, 0xFA, 0xFA));
    EXPECT_EQ(shown.pixelColor(State().picRect.center()), ColourOf(0));
}

TEST_F(GalleryWindow, AnEmptyAreaLeavesThePlacesAsTheyAre) {
    Open();
    SetItems(OnDisk(3));
    const QRect before = State().bigArea;
    gallery->SetPicRects(QRect(), QRect(0, 0, 300, 95));
    gallery->SetPicRects(QRect(0, 0, 300, 300), QRect());
    EXPECT_EQ(State().bigArea, before);
}

TEST_F(GalleryWindow, AWindowThatEndsLeavesAFreshGalleryThatCanBeCreatedAgain) {
    Open();
    SetItems(OnDisk(5), 3);
    gallery->Destroy();
    EXPECT_TRUE(State().items.empty());
    EXPECT_EQ(State().currentIndex, 0);
    EXPECT_EQ(State().shownIndex, -1);
    Open();
    SetItems(OnDisk(5));
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
}

TEST_F(GalleryWindow, AResetOfALivePageKeepsItsPlaces) {
    Open();
    SetItems(OnDisk(5), 3);
    gallery->ResetGallery();
    EXPECT_TRUE(State().items.empty());
    SetItems(OnDisk(5), 2);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(2));
    EXPECT_EQ(State().visible, (gallery::ItemRange{0, 3}));
}

TEST_F(GalleryWindow, EndsWithItsParent) {
    auto parent = std::make_unique<QWidget>();
    const toolkit::WindowId id =
        toolkit::RegisterWindow(parent.get(), [](const toolkit::WindowEvent&) { return 0; });
    gallery->Create(id);
    EXPECT_EQ(Pane()->parentWidget(), parent.get());
    SetItems(OnDisk(5));
    parent.reset();
    EXPECT_FALSE(gallery->HasWindow());
    EXPECT_TRUE(State().items.empty());
}

TEST_F(GalleryWindow, AnObjectThatDiesLeavesItsPaneToTheEventLoop) {
    Open();
    SetItems(OnDisk(5));
    const QPointer<QWidget> pane = Pane();
    gallery.reset();
    if (pane) {
        QTest::keyClick(pane, Qt::Key_Right);
    }
    support::RunPendingEvents();
    EXPECT_TRUE(pane.isNull());
}

TEST_F(GalleryWindow, ButtonImagesComeFromTheWorkFolder) {
    folder.Write(u"work/left_pic.png"_s,
                 support::PngBytes(support::OneColour({200, 90}, Qt::darkRed)));
    folder.Write(u"work/down_thumb.png"_s,
                 support::PngBytes(support::OneColour({110, 120}, Qt::darkCyan)));
    Open(true, false);
    SetItems(OnDisk(20));
    EXPECT_TRUE(State().buttons[gallery::kPrevPic].HasImage());
    EXPECT_FALSE(State().buttons[gallery::kNextPic].HasImage());
    EXPECT_EQ(PixelAt(State().buttons[gallery::kPrevPic].rect.center()), QColor(Qt::darkRed));
    EXPECT_EQ(PixelAt(State().buttons[gallery::kThumbDown].rect.center()), QColor(Qt::darkCyan));
}

TEST_F(GalleryWindow, TheClientsImagesDressAllSixButtonsAndTheWaitingCells) {
    const QDir images(QCoreApplication::applicationDirPath() + u"/work"_s);
    for (const QString& name : images.entryList(QDir::Files)) {
        QFile::copy(images.filePath(name), folder.Path(u"work/"_s + name));
    }
    gallery = std::make_unique<support::FolderGallery>();
    folder.Write(u"module.log"_s, "");
    Open();
    host.script.FailAlways("GetDownloadState");
    SetItems(InStore(10, false), 5);
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_FALSE(ModuleLog().contains(u"找不到图片文件"_s));
    for (const CDirectUIButton& button : State().buttons) {
        EXPECT_TRUE(button.HasImage()) << button.id;
    }
    const QRect next = State().buttons[gallery::kNextPic].rect;
    const QPoint plate = next.topLeft() + QPoint(8, 8);
    QTest::mouseMove(Pane(), next.center());
    EXPECT_TRUE(support::WaitFor([&] { return State().buttons[gallery::kNextPic].IsHot(); }));
    EXPECT_TRUE(support::IsNear(PixelAt(plate), QColor(0xA9, 0xDA, 0xF5), 12)) << "hover";
    QTest::mousePress(Pane(), Qt::LeftButton, {}, next.center());
    EXPECT_TRUE(support::IsNear(PixelAt(plate), QColor(0x00, 0xB6, 0xF0), 12)) << "pressed";
    QTest::mouseRelease(Pane(), Qt::LeftButton, {}, PictureMiddle());
    const QRect cell = State().items[size_t(State().visible.first)].thumbRect;
    EXPECT_TRUE(
        support::IsNear(PixelAt(cell.topLeft() + QPoint(2, 2)), QColor(0x21, 0x94, 0xC5), 8))
        << "the default picture";
}

TEST_F(GalleryWindow, ItsOwnEventsAreAnsweredAndOthersAreNot) {
    Open();
    SetItems(OnDisk(2));
    for (const int number : {gallery::kSharpPartReady, gallery::kThumbReady, gallery::kPaneShown,
                             gallery::kPictureReady}) {
        EXPECT_EQ(toolkit::SendWindowEvent(gallery->Id(), number), 1) << number;
    }
    EXPECT_EQ(toolkit::SendWindowEvent(gallery->Id(), 4711), 0);
}

TEST_F(GalleryWindow, ASharpPartThatComesIsPainted) {
    Open();
    ShowItems(OnDisk(2));
    support::RunPendingEvents();
    const PaintCounter paints(Pane());
    toolkit::SendWindowEvent(gallery->Id(), gallery::kSharpPartReady);
    EXPECT_TRUE(support::WaitFor([&] { return paints.Count() > 0; }));
}

TEST_F(GalleryWindow, WithoutAWindowNoFileIsLookedAt) {
    const auto items = OnDisk(2);
    SetItems(items);
    QFile::remove(items[0].picPath);
    gallery->SetPicRects(QRect(0, 0, 500, 295), QRect(5, 300, 490, 95));
    ASSERT_FALSE(State().visible.IsNone());
    EXPECT_TRUE(State().items[0].fileThere) << "nobody sees whether it is";
    Open();
    EXPECT_FALSE(State().items[0].fileThere);
}
