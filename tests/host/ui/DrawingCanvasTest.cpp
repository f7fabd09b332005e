// The sheet on the screen: what is painted, and what mouse and keyboard do.
#include "host/ui/drawing/DrawingCanvas.h"
#include "host/ui/drawing/DrawingPane.h"
#include "tests/host/drawings/TestDrawings.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Look.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

constexpr QSizeF kSheet(1000, 800);

class SheetOnTheScreen : public testing::Test {
protected:
    SheetOnTheScreen() {
        pane.resize(900, 700);
        pane.show();
        QObject::connect(&canvas, &DrawingCanvas::FlagOpened,
                         [this](qint32 point) { opened.push_back(point); });
        QObject::connect(&canvas, &DrawingCanvas::PlaceClicked,
                         [this](const SheetPlace& place) { places.push_back(place); });
        QObject::connect(&canvas, &DrawingCanvas::MenuWanted,
                         [this](const SheetMenuRequest& request) { menus.push_back(request); });
        QObject::connect(&canvas, &DrawingCanvas::Left, [this] { ++left; });
        canvas.SetFlags({{11, 3, 0, {0.25, 0.25}, u"质量"_s, Qt::red, 2},
                         {12, 1, 0, {0.75, 0.75}, u"安全"_s, Qt::green, 0},
                         {13, 2, 1, {0.5, 0.5}, {}, Qt::blue, 1}});
    }
    void Open(const QByteArray& bytes) {
        QFile file(folder.Path(u"甲.pdf"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        pane.Store().Open(file.fileName());
        ASSERT_TRUE(
            WaitFor([this] { return pane.Store().Present() != SheetStore::State::Opening; }));
    }
    void OpenTwoPages() {
        Open(drawingtest::PlainPdf(2, kSheet));
        ASSERT_TRUE(WaitFor([this] { return pane.Store().IsComplete(); }));
        canvas.setFocus();
    }
    [[nodiscard]] QPoint PixelOf(double x, double y) const {
        return ToPane(canvas.View(), canvas.size(), {x * kSheet.width(), y * kSheet.height()})
            .toPoint();
    }
    [[nodiscard]] QPoint OnFlag(qint32 point) const {
        return canvas.RectOf(point).center().toPoint() - QPoint(0, 3);
    }
    void Turn(const QPoint& at, int notches, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QWheelEvent event(at, canvas.mapToGlobal(at), {}, QPoint(0, notches * 120), Qt::NoButton,
                          keys, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas, &event);
    }
    void Drag(const QPoint& from, const QPoint& way) {
        QTest::mousePress(&canvas, Qt::LeftButton, {}, from);
        for (int part = 1; part <= 4; ++part) {
            QMouseEvent move(QEvent::MouseMove, from + way * part / 4,
                             canvas.mapToGlobal(from + way * part / 4), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&canvas, &move);
        }
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, from + way);
    }

    support::TempFolder folder;
    DrawingPane pane{nullptr};
    DrawingCanvas& canvas = pane.Canvas();
    std::vector<qint32> opened;
    std::vector<SheetPlace> places;
    std::vector<SheetMenuRequest> menus;
    int left = 0;
};

TEST_F(SheetOnTheScreen, AnOpenDrawingShowsItsWholeFirstPage) {
    OpenTwoPages();
    EXPECT_EQ(canvas.View(), FitSheet(kSheet, canvas.size()));
    const QImage shown = canvas.grab().toImage();
    EXPECT_EQ(shown.pixel(PixelOf(0.4, 0.9)), qRgb(0, 0, 0));
    EXPECT_EQ(shown.pixel(PixelOf(0.6, 0.9)), qRgb(255, 255, 255));
    EXPECT_EQ(shown.pixel(PixelOf(0.4, 0.4)), qRgb(255, 255, 255));
    EXPECT_EQ(pane.findChild<QLabel*>(u"pageNumber"_s)->text(), u"1 / 2"_s);
}

TEST_F(SheetOnTheScreen, TheWheelZoomsAboutThePointerAndWhatIsThereIsSeenAtOnce) {
    OpenTwoPages();
    const QPoint at = PixelOf(0.4, 0.9);
    const QPointF before = canvas.PlaceUnder(at)->at;
    Turn(at, 4);
    EXPECT_NEAR(canvas.PlaceUnder(at)->at.x(), before.x(), 1e-9);
    EXPECT_NEAR(canvas.View().scale, FitSheet(kSheet, canvas.size()).scale * 2.44140625, 1e-9);
    EXPECT_FALSE(pane.Store().IsComplete());
    EXPECT_EQ(canvas.grab().toImage().pixel(at), qRgb(0, 0, 0)) << "not sharp yet";
    ASSERT_TRUE(WaitFor([this] { return pane.Store().IsComplete(); }));
    EXPECT_EQ(canvas.grab().toImage().pixel(at), qRgb(0, 0, 0));
    Turn(at, -20);
    EXPECT_EQ(canvas.View(), FitSheet(kSheet, canvas.size()));
}

TEST_F(SheetOnTheScreen, AnotherPageIsRenderedAsItIsShown) {
    OpenTwoPages();
    EXPECT_TRUE(pane.Store().Tiles().KeysOf(1).empty());
    canvas.ShowPage(1);
    EXPECT_FALSE(pane.Store().IsComplete()) << "squares of that page";
    ASSERT_TRUE(WaitFor([this] { return pane.Store().IsComplete(); }));
    EXPECT_FALSE(pane.Store().Tiles().KeysOf(1).empty());
    EXPECT_EQ(canvas.grab().toImage().pixel(PixelOf(0.4, 0.9)), qRgb(0, 0, 0));
}

TEST_F(SheetOnTheScreen, AnotherPageIsShownWholeAndNoFlagOfTheOneBeforeStaysChosen) {
    OpenTwoPages();
    QTest::keyClick(&canvas, Qt::Key_Down, Qt::ControlModifier);
    canvas.Zoom(4);
    canvas.ShowPage(1);
    EXPECT_EQ(canvas.View(), FitSheet(kSheet, canvas.size()));
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_TRUE(opened.empty());
    canvas.Zoom(4);
    const SheetView view = canvas.View();
    canvas.ShowPage(1);
    canvas.ShowPage(2);
    canvas.ShowPage(-1);
    EXPECT_EQ(canvas.View(), view) << "the same page, and none at all";
    EXPECT_EQ(canvas.Page(), 1);
}

TEST_F(SheetOnTheScreen, AFlagUnderTheMouseIsNotSetOffOnAnotherPageThatHasOneOfItsPlace) {
    canvas.SetFlags(
        {{11, 1, 0, {0.5, 0.5}, {}, Qt::red, 0}, {12, 2, 1, {0.5, 0.5}, {}, Qt::red, 0}});
    OpenTwoPages();
    const QImage plain = canvas.grab().toImage();
    QTest::mouseMove(&canvas, OnFlag(11));
    EXPECT_NE(canvas.grab().toImage(), plain);
    canvas.ShowPage(1);
    canvas.ShowPage(0);
    ASSERT_TRUE(WaitFor([this] { return pane.Store().IsComplete(); }));
    EXPECT_EQ(canvas.grab().toImage(), plain);
}

TEST_F(SheetOnTheScreen, FlagsStandOnTheirPageInTheColourOfTheirMarkWithTheirNumber) {
    OpenTwoPages();
    const auto colours = [this](qint32 point) {
        const QRect head = canvas.RectOf(point).toRect().adjusted(3, 3, -3, -9);
        const QImage shown = canvas.grab(head).toImage();
        std::map<QRgb, int> count;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                ++count[shown.pixel(x, y)];
            }
        }
        return count;
    };
    const auto isMostOf = [](const std::map<QRgb, int>& count, QRgb colour) {
        return std::all_of(count.begin(), count.end(), [&](const auto& entry) {
            return entry.first == colour || entry.second < count.at(colour);
        });
    };
    const auto red = colours(11);
    ASSERT_TRUE(red.contains(qRgb(255, 0, 0)));
    EXPECT_TRUE(isMostOf(red, qRgb(255, 0, 0)));
    EXPECT_GT(red.size(), 1U) << "its number";
    EXPECT_TRUE(isMostOf(colours(12), QColor(Qt::green).rgb()));
    EXPECT_TRUE(canvas.RectOf(13).isEmpty()) << "of the other page";
    canvas.ShowPage(1);
    EXPECT_TRUE(isMostOf(colours(13), qRgb(0, 0, 255)));
    EXPECT_TRUE(canvas.RectOf(11).isEmpty());
}

TEST_F(SheetOnTheScreen, AFlagThatIsChosenUnderTheMouseOrBlinkingIsSetOffEachInItsWay) {
    const SheetFlag flag{11, 3, 0, {0.5, 0.5}, u"质量"_s, Qt::red, 2};
    const auto painted = [&flag](const SheetFlagLook& look) {
        QImage image(60, 60, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PaintSheetFlag(painter, {20, 20, 22, 26}, flag, look);
        return image;
    };
    const std::vector<QImage> looks{painted({}), painted({true, false, false}),
                                    painted({false, true, false}), painted({false, false, true})};
    EXPECT_EQ(looks[0].pixel(18, 30), qRgb(255, 255, 255)) << "nothing around a plain one";
    EXPECT_NE(looks[3].pixel(18, 30), qRgb(255, 255, 255));
    for (size_t one = 0; one < looks.size(); ++one) {
        for (size_t other = one + 1; other < looks.size(); ++other) {
            EXPECT_NE(looks[one], looks[other]) << one << ' ' << other;
        }
    }
}

TEST_F(SheetOnTheScreen, ThePointerSaysWhatAClickDoes) {
    OpenTwoPages();
    const auto pointerAt = [this](const QPoint& at) {
        QTest::mouseMove(&canvas, at);
        QMouseEvent move(QEvent::MouseMove, at, canvas.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas, &move);
        return canvas.cursor().shape();
    };
    EXPECT_TRUE(canvas.hasMouseTracking());
    const QPoint onFlag = OnFlag(11);
    EXPECT_EQ(pointerAt(onFlag), Qt::PointingHandCursor);
    EXPECT_EQ(pointerAt(PixelOf(0.5, 0.5)), Qt::ArrowCursor);
    pane.SetPlacing(true);
    EXPECT_EQ(canvas.cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(pointerAt(onFlag), Qt::PointingHandCursor);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&canvas, &leave);
    EXPECT_EQ(canvas.cursor().shape(), Qt::CrossCursor);
    pane.SetPlacing(false);
    EXPECT_EQ(canvas.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SheetOnTheScreen, AFrameShowsThatTheSheetHasTheKeyboard) {
    OpenTwoPages();
    ASSERT_TRUE(WaitFor([this] { return canvas.hasFocus(); }));
    const QRgb with = canvas.grab().toImage().pixel(canvas.width() / 2, 0);
    canvas.clearFocus();
    EXPECT_NE(canvas.grab().toImage().pixel(canvas.width() / 2, 0), with);
    EXPECT_EQ(with, toolkit::Colors::Accent().rgb());
}

TEST_F(SheetOnTheScreen, ThePlacingButtonIsPressedAndLeftAgain) {
    OpenTwoPages();
    pane.SetMayChange(true);
    std::vector<bool> wanted;
    QObject::connect(&pane, &DrawingPane::PlacingWanted, [&](bool on) { wanted.push_back(on); });
    auto* place = pane.findChild<QToolButton*>(u"placeCheckpoint"_s);
    place->click();
    place->click();
    EXPECT_EQ(wanted, (std::vector<bool>{true, false}));
}

TEST_F(SheetOnTheScreen, SquaresLeaveNoSeams) {
    OpenTwoPages();
    Turn(PixelOf(0.25, 0.75), 7);
    ASSERT_TRUE(WaitFor([this] { return pane.Store().IsComplete(); }));
    canvas.SetFlags({});
    const QImage shown = canvas.grab().toImage();
    const QRect black(PixelOf(0.0, 0.5), PixelOf(0.5, 1.0));
    const QRect inside = black.adjusted(3, 3, -3, -3) & canvas.rect().adjusted(2, 2, -2, -2);
    for (int x = inside.left(); x <= inside.right(); ++x) {
        ASSERT_EQ(shown.pixel(x, inside.center().y()), qRgb(0, 0, 0)) << x;
    }
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        ASSERT_EQ(shown.pixel(inside.center().x(), y), qRgb(0, 0, 0)) << y;
    }
}

TEST_F(SheetOnTheScreen, AHandPansAndOpensNothing) {
    OpenTwoPages();
    Turn(PixelOf(0.5, 0.5), 5);
    const QPointF before = canvas.View().middle;
    Drag({400, 300}, {-100, 60});
    EXPECT_NEAR(canvas.View().middle.x(), before.x() + 100 / canvas.View().scale, 0.01);
    EXPECT_NEAR(canvas.View().middle.y(), before.y() - 60 / canvas.View().scale, 0.01);
    EXPECT_TRUE(opened.empty());
    Turn({400, 300}, 1, Qt::ShiftModifier);
    EXPECT_LT(canvas.View().middle.x(), before.x() + 100 / canvas.View().scale);
}

TEST_F(SheetOnTheScreen, AClickOnAFlagOpensItAndOneBesideOpensNothing) {
    OpenTwoPages();
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, OnFlag(12));
    EXPECT_EQ(opened, std::vector<qint32>{12});
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, PixelOf(0.5, 0.5));
    EXPECT_EQ(opened.size(), 1U);
    QTest::mousePress(&canvas, Qt::LeftButton, {}, OnFlag(11));
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, PixelOf(0.5, 0.5));
    EXPECT_EQ(opened.size(), 1U) << "the button went up elsewhere";
    EXPECT_EQ(canvas.PointUnder(OnFlag(11)), 11);
    EXPECT_EQ(canvas.PointUnder(PixelOf(0.5, 0.5)), 0);
}

TEST_F(SheetOnTheScreen, WhilePlacingAClickTellsThePlaceAlsoOnAFlag) {
    OpenTwoPages();
    canvas.SetPlacing(true);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, PixelOf(0.5, 0.25));
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, OnFlag(11));
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, QPoint(1, 1));
    ASSERT_EQ(places.size(), 2U) << "none beside the sheet";
    EXPECT_NEAR(places[0].at.x(), 0.5, 0.002);
    EXPECT_NEAR(places[0].at.y(), 0.25, 0.002);
    EXPECT_EQ(places[0].page, 0);
    EXPECT_TRUE(opened.empty());
}

TEST_F(SheetOnTheScreen, KeysReachEverything) {
    OpenTwoPages();
    QTest::keyClick(&canvas, Qt::Key_Plus);
    EXPECT_GT(canvas.View().scale, FitSheet(kSheet, canvas.size()).scale);
    QTest::keyClick(&canvas, Qt::Key_Plus);
    const QPointF before = canvas.View().middle;
    QTest::keyClick(&canvas, Qt::Key_Right);
    EXPECT_GT(canvas.View().middle.x(), before.x());
    QTest::keyClick(&canvas, Qt::Key_0);
    EXPECT_EQ(canvas.View(), FitSheet(kSheet, canvas.size()));
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_TRUE(opened.empty()) << "none is chosen";
    QTest::keyClick(&canvas, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(opened, std::vector<qint32>{12}) << "number 1";
    QTest::keyClick(&canvas, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(opened.back(), 11);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {0, 0}, canvas.mapToGlobal(QPoint(0, 0)));
    QCoreApplication::sendEvent(&canvas, &key);
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(menus[0].pointId, 11);
    QTest::keyClick(&canvas, Qt::Key_PageDown);
    EXPECT_EQ(canvas.Page(), 1);
    QTest::keyClick(&canvas, Qt::Key_PageDown);
    EXPECT_EQ(canvas.Page(), 1) << "the last one";
    QTest::keyClick(&canvas, Qt::Key_Escape);
    EXPECT_EQ(left, 1);
}

TEST_F(SheetOnTheScreen, ControlAndArrowsGoForwardAndBackAmongTheFlags) {
    canvas.SetFlags({{11, 1, 0, {0.2, 0.2}, {}, Qt::red, 0},
                     {12, 2, 0, {0.5, 0.5}, {}, Qt::red, 0},
                     {13, 3, 0, {0.8, 0.8}, {}, Qt::red, 0}});
    OpenTwoPages();
    const auto chosenAfter = [this](Qt::Key key) {
        QTest::keyClick(&canvas, key, Qt::ControlModifier);
        QTest::keyClick(&canvas, Qt::Key_Return);
        return opened.back();
    };
    EXPECT_EQ(chosenAfter(Qt::Key_Down), 11);
    EXPECT_EQ(chosenAfter(Qt::Key_Right), 12);
    EXPECT_EQ(chosenAfter(Qt::Key_Down), 13);
    EXPECT_EQ(chosenAfter(Qt::Key_Left), 12);
    EXPECT_EQ(chosenAfter(Qt::Key_Up), 11);
}

TEST_F(SheetOnTheScreen, TheMenuSaysFlagAndPlace) {
    OpenTwoPages();
    const QPoint at = PixelOf(0.5, 0.5);
    QContextMenuEvent beside(QContextMenuEvent::Mouse, at, canvas.mapToGlobal(at));
    QCoreApplication::sendEvent(&canvas, &beside);
    QContextMenuEvent on(QContextMenuEvent::Mouse, OnFlag(12), canvas.mapToGlobal(OnFlag(12)));
    QCoreApplication::sendEvent(&canvas, &on);
    QContextMenuEvent off(QContextMenuEvent::Mouse, {1, 1}, canvas.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&canvas, &off);
    ASSERT_EQ(menus.size(), 2U) << "none beside the sheet";
    EXPECT_EQ(menus[0].pointId, 0);
    EXPECT_NEAR(menus[0].place.at.x(), 0.5, 0.002);
    EXPECT_EQ(menus[1].pointId, 12);
}

TEST_F(SheetOnTheScreen, ALookedUpFlagComesIntoSightOnItsPageAndBlinksForAWhile) {
    OpenTwoPages();
    EXPECT_FALSE(canvas.LocateFlag(99));
    EXPECT_TRUE(canvas.LocateFlag(13));
    EXPECT_EQ(canvas.Page(), 1);
    EXPECT_TRUE(canvas.IsLit());
    EXPECT_TRUE(WaitFor([this] { return !canvas.IsLit(); }));
    canvas.ShowPage(0);
    Turn(PixelOf(0.9, 0.9), 8);
    EXPECT_FALSE(QRectF(canvas.rect()).contains(canvas.RectOf(11)));
    EXPECT_TRUE(canvas.LocateFlag(11));
    EXPECT_TRUE(QRectF(canvas.rect()).contains(canvas.RectOf(11)));
}

TEST_F(SheetOnTheScreen, OtherFlagsKeepTheChoiceOfTheCheckpoint) {
    OpenTwoPages();
    QTest::keyClick(&canvas, Qt::Key_Right, Qt::ControlModifier);
    canvas.SetFlags({{20, 9, 0, {0.1, 0.1}, {}, Qt::red, 0},
                     {12, 1, 0, {0.75, 0.75}, u"安全"_s, Qt::green, 0}});
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(opened, std::vector<qint32>{12});
    canvas.SetFlags({});
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(opened.size(), 1U);
}

TEST_F(SheetOnTheScreen, ABrokenDrawingSaysWhyAndIsTriedAgain) {
    int retried = 0;
    QObject::connect(&pane, &DrawingPane::RetryWanted, [&] { ++retried; });
    auto* retry = pane.findChild<QPushButton*>(u"retryDrawing"_s);
    EXPECT_FALSE(retry->isVisible());
    Open(drawingtest::EncryptedPdf());
    ASSERT_EQ(pane.Store().Present(), SheetStore::State::Broken);
    ASSERT_TRUE(retry->isVisible());
    retry->click();
    EXPECT_EQ(retried, 1);
    QTest::keyClick(&canvas, Qt::Key_Plus);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, QPoint(50, 50));
    Turn({50, 50}, 1);
    EXPECT_FALSE(canvas.PlaceUnder({50, 50}).has_value());
    EXPECT_FALSE(canvas.LocateFlag(11));
    OpenTwoPages();
    EXPECT_FALSE(retry->isVisible());
}

TEST_F(SheetOnTheScreen, AResizedPaneKeepsTheWholeSheetOrThePlace) {
    OpenTwoPages();
    pane.resize(700, 600);
    EXPECT_EQ(canvas.View(), FitSheet(kSheet, canvas.size()));
    Turn(canvas.rect().center(), 6);
    const SheetView before = canvas.View();
    pane.resize(800, 650);
    EXPECT_EQ(canvas.View().scale, before.scale);
    EXPECT_EQ(canvas.View().middle, before.middle);
}

TEST_F(SheetOnTheScreen, OnlyWhoMayChangeSeesThePlacingAndImportButtons) {
    auto* place = pane.findChild<QToolButton*>(u"placeCheckpoint"_s);
    auto* import = pane.findChild<QToolButton*>(u"importDrawing"_s);
    EXPECT_FALSE(place->isVisible());
    pane.SetMayChange(true);
    EXPECT_TRUE(place->isVisible());
    EXPECT_FALSE(place->isEnabled()) << "no drawing";
    EXPECT_TRUE(import->isEnabled());
    OpenTwoPages();
    EXPECT_TRUE(place->isEnabled());
}

TEST_F(SheetOnTheScreen, AHintSaysWhatAClickDoesAndCanBeLeft) {
    int given = 0;
    QObject::connect(&pane, &DrawingPane::HintLeft, [&] { ++given; });
    auto* leave = pane.findChild<QPushButton*>(u"leaveHint"_s);
    EXPECT_FALSE(leave->isVisible());
    pane.SetHint(u"请点击"_s);
    EXPECT_TRUE(leave->isVisible());
    leave->click();
    QTest::keyClick(&canvas, Qt::Key_Escape);
    EXPECT_EQ(given, 2);
    pane.SetHint({});
    EXPECT_FALSE(leave->isVisible());
}

} // namespace
} // namespace host
