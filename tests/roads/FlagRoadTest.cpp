// From a flag of the plan to its photos, from there into the editor, and what the marks say after
// it.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::ModalVisit;
using support::WaitFor;
using tour::Console;

class FlagRoad : public PhotoRoad {
protected:
    /// The console on the photos of a flag, by the flag's menu.
    void ListFlag(const QString& key, qint32 markId, int photos) {
        ChooseOfFlag(Plan(), key, markId, u"在控制台中列出"_s);
        ASSERT_TRUE(WaitFor([photos] { return tour::ConsoleTotal() == photos; }));
    }
    static void Edit(const QString& fileName, const ModalVisit::Action& action) {
        const int row = RowOfPhoto(fileName);
        ASSERT_GE(row, 0) << fileName.toStdString();
        const ModalVisit visit(tour::kPhotoEditor, action);
        ClickRowIcon(row, u"编辑"_s);
    }
    int CountAt(const QString& key, qint32 markId) const {
        return PhotoFlag(Plan(), key, markId).count;
    }
};

TEST_F(FlagRoad, FromAFlagOverTheNextPictureIntoTheEditorAndToTheFlagOfAnotherPlaceAndMark) {
    ClickInPanel(u"noneButton"_s);
    ASSERT_TRUE(WaitFor([this] { return FlagCounts().empty(); }));
    ToggleFloor(u"-1层"_s);
    ToggleFloor(u"1层"_s);
    ASSERT_TRUE(WaitFor([this] { return CountAt(site.positionKey, 1) == 5; }));

    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
    EXPECT_TRUE(WaitFor([] { return hands::PressKey(Viewer(), Qt::Key_Right); }));
    EXPECT_EQ(ViewerTitle(), u"照片3.jpg   (2/5)"_s);
    EXPECT_EQ(ViewerText(u"posText"_s), u"位置：-1层 2/B"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(3)); }));

    ListFlag(site.positionKey, 1, 5);
    Edit(u"照片3.jpg"_s, [](QWidget& editor) {
        ChooseIn(editor, u"markCombo"_s, u"安全"_s);
        ChooseIn(editor, u"floorCombo"_s, u"1"_s);
        ClickOn(editor, u"okButton"_s);
    });

    const KX_DATA::BimPicDetail photo = Other().Photo(site.firstProject, site.photos[3]);
    EXPECT_EQ(photo.markId, 2);
    EXPECT_EQ(photo.positionKey, upstairsKey);
    EXPECT_EQ(photo.fileName, u"照片3.jpg"_s);
    EXPECT_EQ(CountAt(site.positionKey, 1), 4);
    EXPECT_EQ(PanelCount(u"-1层"_s, u"质量"_s), 5);
    EXPECT_EQ(PanelCount(u"1层"_s, u"安全"_s), 2);

    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/4)"_s);
    Plan().SetFloor(1);
    EXPECT_EQ(CountAt(upstairsKey, 2), 2);
    ClickFlag(Plan(), upstairsKey, 2);
    EXPECT_EQ(ViewerTitle(), u"照片3.jpg   (1/2)"_s);
    EXPECT_EQ(ViewerText(u"markText"_s), u"安全"_s);
    EXPECT_EQ(ViewerText(u"posText"_s), u"位置：1层 1/A"_s);
    EXPECT_EQ(ViewerText(u"updaterText"_s), u"   更新人：张伟"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(3)); }));
}

TEST_F(FlagRoad, TheOnlyPhotoOfAFlagTakesTheFlagAlongToItsNewMark) {
    ListFlag(cornerKey, 1, 1);
    Edit(u"转角.jpg"_s, [](QWidget& editor) {
        ChooseIn(editor, u"markCombo"_s, u"安全"_s);
        ClickOn(editor, u"okButton"_s);
    });
    EXPECT_EQ(CountAt(cornerKey, 1), 0);
    EXPECT_EQ(CountAt(cornerKey, 2), 1);
    EXPECT_EQ(PhotoFlag(Plan(), cornerKey, 2).color, 0x00FF00);
    EXPECT_EQ(PanelCount(u"-1层"_s, u"质量"_s), 5);
    EXPECT_EQ(PanelCount(u"-1层"_s, u"安全"_s), 1);
}

TEST_F(FlagRoad, APhotoEditedIntoAFloorThatIsNotTickedHasNoFlagThere) {
    ToggleFloor(u"1层"_s);
    ListFlag(cornerKey, 1, 1);
    Edit(u"转角.jpg"_s, [](QWidget& editor) {
        ChooseIn(editor, u"floorCombo"_s, u"1"_s);
        ClickOn(editor, u"okButton"_s);
    });
    EXPECT_EQ(Other().Photo(site.firstProject, cornerPhoto).floor, u"1"_s);
    EXPECT_EQ(CountAt(cornerKey, 1), 0);
    EXPECT_EQ(PanelCount(u"1层"_s, u"质量"_s), 1);
    Plan().SetFloor(1);
    EXPECT_TRUE(FlagCounts().empty());
}

TEST_F(FlagRoad, ACancelledEditLeavesFlagsAndCounts) {
    ListFlag(cornerKey, 1, 1);
    Edit(u"转角.jpg"_s, [](QWidget& editor) {
        ChooseIn(editor, u"markCombo"_s, u"安全"_s);
        ClickOn(editor, u"cancelButton"_s);
    });
    EXPECT_EQ(CountAt(cornerKey, 1), 1);
    EXPECT_EQ(CountAt(cornerKey, 2), 0);
    EXPECT_EQ(PanelCount(u"-1层"_s, u"质量"_s), 6);
}

TEST_F(FlagRoad, APhotoEditedFromTheMenuOfItsFlagMovesTheFlag) {
    const ModalVisit visit(tour::kPhotoEditor, [this](QWidget& editor) {
        EXPECT_EQ(editor.parentWidget(), client->Window());
        ChooseIn(editor, u"floorCombo"_s, u"1"_s);
        ClickOn(editor, u"okButton"_s);
    });
    ChooseOfFlag(Plan(), cornerKey, 1, u"编辑照片/转角.jpg"_s);
    EXPECT_EQ(Other().Photo(site.firstProject, cornerPhoto).positionKey, upstairsKey);
    EXPECT_EQ(CountAt(cornerKey, 1), 0);
    EXPECT_EQ(PanelCount(u"1层"_s, u"质量"_s), 1);
    Plan().SetFloor(1);
    EXPECT_EQ(CountAt(upstairsKey, 1), 1);
}

TEST_F(FlagRoad, ClosingAViewerThatAFlagOpenedBringsNoConsole) {
    ClickFlag(Plan(), site.positionKey, 1);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(4)); }));
    CloseViewer();
    support::RunPendingEvents();
    EXPECT_EQ(Console(), nullptr);
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
}

TEST_F(FlagRoad, TheMenuOfAFlagOpensTheViewerOnTheChosenPhoto) {
    ChooseOfFlag(Plan(), site.positionKey, 1, u"照片1.jpg"_s);
    EXPECT_EQ(ViewerTitle(), u"照片1.jpg   (4/5)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(1)); }));
}

TEST_F(FlagRoad, ASecondFlagIsShownInTheWindowThatIsOpen) {
    ClickFlag(Plan(), site.positionKey, 1);
    const QWidget* window = Viewer();
    ClickFlag(Plan(), cornerKey, 1);
    EXPECT_EQ(Viewer(), window);
    EXPECT_EQ(ViewerTitle(), u"转角.jpg   (1/1)"_s);
    EXPECT_EQ(ViewerText(u"posText"_s), u"位置：-1层 1/A"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(kCornerColor); }));
}

} // namespace
} // namespace roads
