// From a row of the console to its photo's place and the viewer, and back to the console.
#include "hands/Hands.h"
#include "host/ui/Blink.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::Console;

class LookupRoad : public PhotoRoad {
protected:
    static void ExpectConsoleInSight() {
        ASSERT_NE(Console(), nullptr);
        EXPECT_FALSE(Console()->isMinimized());
    }
    static void ExpectConsoleInFront() {
        ExpectConsoleInSight();
        EXPECT_TRUE(WaitFor([] { return Console()->isActiveWindow(); }));
    }
    /// Latest of all, so that the others stand behind them.
    void FilePageOfPhotos() const {
        site::SiteWriter writer(support::FolderOf(session));
        writer.BeginBatch();
        for (int number = 0; number < 30; ++number) {
            site::NewBimPhoto photo;
            photo.ppid = site.firstProject;
            photo.fileName = u"更晚%1.jpg"_s.arg(number);
            photo.positionKey = cornerKey;
            photo.markId = 1;
            photo.uploader = u"张伟"_s;
            photo.uploadTime = 1'800'000'000 + number;
            writer.FilePhoto(photo, {QString(), JpegBytes(qRgb(number, 1, 1))});
        }
        writer.CommitBatch();
    }
};

TEST_F(LookupRoad, FromARowToItsPlaceAndPhotoAndBackToTheSameRow) {
    Plan().SetFloor(1);
    OpenConsole();
    const QStringList before = ConsoleColumnTexts(u"照片名称"_s);
    LookUp(u"照片2.jpg"_s);

    EXPECT_EQ(Plan().State().floor, 0);
    ASSERT_TRUE(Plan().Blinking() != nullptr);
    EXPECT_EQ(Plan().Blinking()->positionKey, site.positionKey);
    EXPECT_EQ(Plan().Blinking()->markId, 1);
    EXPECT_TRUE(Console()->isMinimized());

    ASSERT_NE(Viewer(), nullptr);
    EXPECT_TRUE(WaitFor([] { return Viewer()->isActiveWindow(); }));
    EXPECT_EQ(ViewerTitle(), u"照片2.jpg   (3/5)"_s);
    EXPECT_EQ(ViewerText(u"posText"_s), u"位置：-1层 2/B"_s);
    EXPECT_EQ(ViewerText(u"markText"_s), u"质量"_s);
    EXPECT_EQ(ViewerText(u"uploaderText"_s), u"    上传人：张伟"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(2)); }));

    EXPECT_TRUE(WaitFor([] { return hands::PressKey(Viewer(), Qt::Key_Right); }));
    EXPECT_EQ(ViewerTitle(), u"照片1.jpg   (4/5)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(1)); }));

    CloseViewer();
    ExpectConsoleInFront();
    EXPECT_EQ(ConsoleColumnTexts(u"照片名称"_s), before);
    EXPECT_EQ(tour::ConsolePage(), 1);
    EXPECT_EQ(SelectedRow(), RowOfPhoto(u"照片2.jpg"_s));
}

TEST_F(LookupRoad, TheConsoleComesBackWithItsKeywordAndItsHits) {
    OpenConsole();
    ASSERT_TRUE(WaitFor(
        [] { return hands::TypeOver(tour::ConsoleControl(u"keywordCombo"_s), u"照片3"_s); }));
    ClickOn(*Console(), u"searchButton"_s);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 1; }));
    LookUp(u"照片3.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片3.jpg   (2/5)"_s);
    CloseViewer();
    ExpectConsoleInFront();
    EXPECT_EQ(tour::ReadText(tour::ConsoleControl(u"keywordCombo"_s)), u"照片3"_s);
    EXPECT_EQ(ConsoleColumnTexts(u"照片名称"_s), QStringList{u"照片3.jpg"_s});
}

TEST_F(LookupRoad, ASecondLookupShowsItsOwnPhotoAndTheConsoleComesBackAgain) {
    OpenConsole();
    LookUp(u"楼上.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"楼上.jpg   (1/1)"_s);
    CloseViewer();
    ExpectConsoleInFront();
    LookUp(u"转角.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"转角.jpg   (1/1)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(kCornerColor); }));
    EXPECT_TRUE(Console()->isMinimized());
    CloseViewer();
    ExpectConsoleInFront();
}

TEST_F(LookupRoad, FromALaterPageTheConsoleComesBackWithASearchAnew) {
    FilePageOfPhotos();
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 37; }));
    ClickOn(*Console(), u"pagingNext"_s);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleRows() == 7; }));
    LookUp(u"照片2.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片2.jpg   (3/5)"_s);
    CloseViewer();
    ExpectConsoleInFront();
    // Coming back is a search, and a search begins with its first page; required as is.
    EXPECT_EQ(tour::ConsolePage(), 1);
    EXPECT_EQ(tour::ConsoleRows(), 30);
}

TEST_F(LookupRoad, ADoubleClickLooksUpToo) {
    OpenConsole();
    const int row = RowOfPhoto(u"照片0.jpg"_s);
    ASSERT_TRUE(WaitFor([row] {
        QAbstractItemView* grid = tour::ConsoleGrid();
        const QModelIndex cell = grid->model()->index(row, tour::ConsoleColumn(u"照片名称"_s));
        return hands::DoubleClickAt(grid->viewport(), grid->visualRect(cell).center());
    }));
    EXPECT_EQ(ViewerTitle(), u"照片0.jpg   (5/5)"_s);
    EXPECT_TRUE(Console()->isMinimized());
}

TEST_F(LookupRoad, WhileTheDisplayOfPhotoMarksIsOffTheConsoleStays) {
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_1,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    OpenConsole();
    EXPECT_EQ(BoxDuring([this] { LookUp(u"照片2.jpg"_s); }), u"请先开启vesk图形显示再定位！"_s);
    EXPECT_EQ(Viewer(), nullptr);
    ExpectConsoleInSight();
}

TEST_F(LookupRoad, AMarkThatIsNotTickedIsNotLookedUp) {
    ToggleFloor(u"-1层"_s);
    ASSERT_TRUE(WaitFor([this] { return FlagCounts().empty(); }));
    OpenConsole();
    EXPECT_EQ(BoxDuring([this] { LookUp(u"照片2.jpg"_s); }), u"请先开启vesk图形显示再定位！"_s);
    EXPECT_EQ(Viewer(), nullptr);
    ExpectConsoleInSight();
    LookUp(u"楼上.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"楼上.jpg   (1/1)"_s);
}

} // namespace
} // namespace roads
