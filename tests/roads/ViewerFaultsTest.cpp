// What other clients and a failing database do to an open photo viewer, and to one that is to be
// opened.
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
using support::WaitFor;
using testing::UnorderedElementsAre;

class ViewerFaults : public PhotoRoad {
protected:
    static void PressInViewer(Qt::Key key) {
        EXPECT_TRUE(WaitFor([key] { return hands::PressKey(Viewer(), key); }));
    }
};

TEST_F(ViewerFaults, APlaceWhosePhotosAreAllGoneOpensWithoutAPictureUntilItsFlagGoesToo) {
    Other().DeletePhotos(site.photos);
    ASSERT_EQ(PhotoFlag(Plan(), site.positionKey, 1).count, 5) << "nobody has told";
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_NE(Viewer(), nullptr);
    EXPECT_EQ(ViewerTitle(), u"vesk照片查看"_s);
    EXPECT_EQ(ViewerText(u"posText"_s), QString());
    PressInViewer(Qt::Key_Right);
    PressInViewer(Qt::Key_End);
    CloseViewer();
    ASSERT_TRUE(WaitFor([this] { return hands::PressKey(client->Window(), Qt::Key_F5); }));
    EXPECT_EQ(PhotoFlag(Plan(), site.positionKey, 1).count, 0);
    EXPECT_EQ(FlagCounts(), std::vector<int>{1});
}

TEST_F(ViewerFaults, APlaceThatIsEmptiedWhileItIsOpenKeepsItsTextsAndShowsNoPicture) {
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_TRUE(WaitFor([] { return ViewerShows(ColorOf(4)); }));
    Other().DeletePhotos(site.photos);
    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerText(u"posText"_s), u"位置：-1层 2/B"_s);
    EXPECT_TRUE(WaitFor([] { return !ViewerShows(ColorOf(4)); }));
    ClickFlag(Plan(), cornerKey, 1);
    EXPECT_EQ(ViewerTitle(), u"转角.jpg   (1/1)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(kCornerColor); }));
}

TEST_F(ViewerFaults, APhotoThatAnotherClientDeletesIsToldOnceItIsSteppedToAndTheOthersStay) {
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
    Other().DeletePhotos({site.photos[3]});
    EXPECT_EQ(BoxDuring([] { PressInViewer(Qt::Key_Right); }), kNotHad);
    ASSERT_NE(Viewer(), nullptr);
    PressInViewer(Qt::Key_Right);
    EXPECT_EQ(ViewerTitle(), u"照片2.jpg   (3/5)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(2)); }));
    EXPECT_EQ(BoxDuring([] { PressInViewer(Qt::Key_Left); }), kNotHad) << "asked for again";
    PressInViewer(Qt::Key_Left);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
}

TEST_F(ViewerFaults, ThePhotoInSightMayBeDeletedAndIsGoneAtTheNextOpening) {
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_TRUE(WaitFor([] { return ViewerShows(ColorOf(4)); }));
    Other().DeletePhotos({site.photos[4]});
    PressInViewer(Qt::Key_Right);
    EXPECT_EQ(ViewerTitle(), u"照片3.jpg   (2/5)"_s);
    PressInViewer(Qt::Key_Left);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s) << "its details were fetched before";
    CloseViewer();
    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerTitle(), u"照片3.jpg   (1/4)"_s);
}

TEST_F(ViewerFaults, APhotoChosenInTheMenuThatIsGoneByThenIsToldAndOpensNothing) {
    OtherClient other = Other();
    const QString told = BoxDuring([&] {
        ChooseOfFlag(Plan(), site.positionKey, 1, u"照片1.jpg"_s,
                     [&] { other.DeletePhotos({site.photos[1]}); });
    });
    EXPECT_EQ(told, u"当前照片状态为隐藏，不支持直接定位！"_s);
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
}

TEST_F(ViewerFaults, AFlagWhosePhotosCannotBeReadIsToldAndLeavesTheMainWindowAlone) {
    OtherClient other = Other();
    other.TakePhotosAway();
    EXPECT_THAT(BoxesDuring([this] { ClickFlag(Plan(), site.positionKey, 1); }),
                UnorderedElementsAre(kNotHad, kRecordNotHad));
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
    EXPECT_FALSE(Messages().filter(u"读取照片文件失败"_s).isEmpty())
        << Messages().join(u'\n').toStdString();
    other.BringPhotosBack();
    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
}

TEST_F(ViewerFaults, AnOpenViewerWhoseNextPlaceCannotBeReadIsClosed) {
    ClickFlag(Plan(), site.positionKey, 1);
    WaitForRecord();
    OtherClient other = Other();
    other.TakePhotosAway();
    EXPECT_THAT(BoxesDuring([this] { ClickFlag(Plan(), cornerKey, 1); }),
                UnorderedElementsAre(kNotHad, kRecordNotHad));
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
    other.BringPhotosBack();
}

TEST_F(ViewerFaults, AnotherProjectEndsTheViewerAndTheFirstOneOpensItAgain) {
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_NE(Viewer(), nullptr);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(4)); }));
}

} // namespace
} // namespace roads
