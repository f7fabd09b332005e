// Lookups from the console that meet failing services, running downloads, the end of everything.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourNames.h"

#include <gmock/gmock.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using site::TransferFault;
using site::TransferRules;
using support::WaitFor;
using tour::Console;

class LookupFaults : public PhotoRoad {
protected:
    /// As a person does it who needs the console beside the viewer.
    static void RestoreConsole() {
        ASSERT_NE(Console(), nullptr);
        Console()->showNormal();
    }
    [[nodiscard]] static QStringList MainAndConsole() { return {tour::kConsole, tour::kMain}; }
};

TEST_F(LookupFaults, APlaceThatCannotBeReadLeavesTheConsoleInSightAndTheNextLookupWorks) {
    OpenConsole();
    OtherClient other = Other();
    other.TakePhotosAway();
    EXPECT_THAT(BoxesDuring([this] { LookUp(u"照片2.jpg"_s); }),
                testing::UnorderedElementsAre(kNotHad, kRecordNotHad));
    EXPECT_EQ(OpenWindows(), MainAndConsole());
    EXPECT_FALSE(Console()->isMinimized());
    EXPECT_EQ(tour::ConsoleRows(), 7);
    other.BringPhotosBack();
    LookUp(u"照片2.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片2.jpg   (3/5)"_s);
}

TEST_F(LookupFaults, AFailedSearchIsNoLongerToldOnceItSucceeds) {
    const auto told = [this] { return Messages().filter(u"查询BIM模型照片失败"_s).size(); };
    OpenConsole();
    OtherClient other = Other();
    other.TakePhotosAway();
    ClickOn(*Console(), u"searchButton"_s);
    EXPECT_TRUE(WaitFor([&] { return told() == 1; }));
    other.BringPhotosBack();
    ClickOn(*Console(), u"searchButton"_s);
    EXPECT_TRUE(WaitFor([&] { return told() == 0; })) << Messages().join(u'\n').toStdString();
    EXPECT_EQ(tour::ConsoleRows(), 7);
}

TEST_F(LookupFaults, AFailureOfASecondLookupClosesTheViewerAndBringsTheConsoleBack) {
    OpenConsole();
    LookUp(u"照片2.jpg"_s);
    WaitForRecord();
    RestoreConsole();
    OtherClient other = Other();
    other.TakePhotosAway();
    EXPECT_THAT(BoxesDuring([this] { LookUp(u"转角.jpg"_s); }),
                testing::UnorderedElementsAre(kNotHad, kRecordNotHad));
    EXPECT_EQ(OpenWindows(), MainAndConsole());
    EXPECT_FALSE(Console()->isMinimized());
    other.BringPhotosBack();
}

TEST_F(LookupFaults, APhotoOfAListThatIsOldOpensItsPlaceWithThePhotosThatAreLeft) {
    OpenConsole();
    Other().DeletePhotos({site.photos[2]});
    LookUp(u"照片2.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/4)"_s);
    CloseViewer();
    EXPECT_EQ(tour::ConsoleTotal(), 6);
    EXPECT_EQ(RowOfPhoto(u"照片2.jpg"_s), -1);
}

TEST_F(LookupFaults, AFloorThatIsRenamedUnderTheListIsLookedUpByItsPlace) {
    OpenConsole();
    Other().RenameFloor(site.firstProject, u"-1"_s, u"地下室"_s);
    LookUp(u"照片2.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片2.jpg   (3/5)"_s);
    EXPECT_EQ(ViewerText(u"posText"_s), u"位置：地下室层 2/B"_s);
    CloseViewer();
    EXPECT_EQ(tour::ConsoleText(RowOfPhoto(u"照片2.jpg"_s), u"位置"_s), u"地下室层2/B"_s);
    // Plan and marks are the old ones until somebody reads them anew.
    LookUp(u"照片0.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片0.jpg   (5/5)"_s);
}

TEST_F(LookupFaults, QuickLookupsOneAfterTheOtherWhileDownloadsRunEndOnTheLast) {
    session.Desk()->SetRules({400});
    OpenConsole();
    for (const QString& name : {u"照片0.jpg"_s, u"楼上.jpg"_s, u"照片3.jpg"_s, u"转角.jpg"_s}) {
        LookUp(name);
        EXPECT_TRUE(Console()->isMinimized());
        RestoreConsole();
    }
    EXPECT_LT(Cached().size(), 7) << "downloads run";
    EXPECT_EQ(ViewerTitle(), u"转角.jpg   (1/1)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(kCornerColor); }));
    LookUp(u"照片1.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片1.jpg   (4/5)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(1)); }));
    CloseViewer();
    EXPECT_EQ(OpenWindows(), MainAndConsole());
    EXPECT_FALSE(Console()->isMinimized());
    End();
    ExpectNothingHalf();
}

TEST_F(LookupFaults, EverythingIsClosedOneByOneDuringADownload) {
    for (const TransferRules& rules :
         {TransferRules{40}, TransferRules{0, TransferFault::NeverEnds}}) {
        session.Desk()->SetRules(rules);
        OpenConsole();
        LookUp(u"照片2.jpg"_s);
        CloseViewer();
        EXPECT_EQ(OpenWindows(), MainAndConsole());
        ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Console()); }));
        EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
    }
    EXPECT_TRUE(client->Window()->close());
    EXPECT_EQ(OpenWindows(), QStringList{});
    End();
    ExpectNothingHalf();
}

TEST_F(LookupFaults, TheMainWindowTakesViewerAndMinimisedConsoleAlongDuringADownload) {
    session.Desk()->SetRules({0, TransferFault::NeverEnds});
    OpenConsole();
    LookUp(u"照片2.jpg"_s);
    ASSERT_TRUE(Console()->isMinimized());
    EXPECT_TRUE(client->Window()->close());
    EXPECT_EQ(OpenWindows(), QStringList{});
    End();
    ExpectNothingHalf();
}

TEST_F(LookupFaults, AnotherProjectEndsViewerAndMinimisedConsole) {
    OpenConsole();
    LookUp(u"照片2.jpg"_s);
    ASSERT_TRUE(Console()->isMinimized());
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    support::RunPendingEvents();
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
    EXPECT_TRUE(FlagCounts().empty());
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 0; }));
    EXPECT_FALSE(Console()->isMinimized());
}

TEST_F(LookupFaults, AConsoleThatWentWithItsProjectComesBackWithTheNextViewerThatCloses) {
    OpenConsole();
    LookUp(u"照片2.jpg"_s);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
    CloseViewer();
    ASSERT_NE(Console(), nullptr);
    EXPECT_TRUE(Console()->isVisible());
    EXPECT_FALSE(Console()->isMinimized());
}

} // namespace
} // namespace roads
