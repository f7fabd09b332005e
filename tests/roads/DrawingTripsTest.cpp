// From the console to a drawing and back: a photo gets another checkpoint, or is looked up.
#include "tests/roads/DrawingRoad.h"

#include "hands/Hands.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/IBin.h"
#include "site/IComments.h"
#include "site/IIntake.h"
#include "site/IPdfPhotos.h"
#include "site/OpenSite.h"
#include "tests/host/drawings/TestDrawings.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>
#include <QtTest/QTest>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using host::SheetStore;
using support::WaitFor;
using tour::Console;
using tour::ConsoleText;

const QString kEditor = u"PdfPicEditDlg"_s;
const QString kPhoto = u"墙面.jpg"_s;

class DrawingTrips : public DrawingRoad {
protected:
    void SetUp() override {
        DrawingRoad::SetUp();
        client->Window()->ShowDrawingFace(false);
        ASSERT_TRUE(Press(Qt::Key_2));
        ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 2; }));
    }
    [[nodiscard]] static QWidget* Editor() { return tour::FindWindow(kEditor); }
    [[nodiscard]] static bool IsShown(const QWidget* window) {
        return window != nullptr && window->isVisible();
    }
    void Edit() {
        ClickRowIcon(RowOfPhoto(kPhoto), u"编辑"_s);
        ASSERT_TRUE(WaitFor([] { return IsShown(Editor()); }));
        ASSERT_FALSE(IsShown(Console()));
    }
    static void ClickInEditor(const QString& button) {
        ASSERT_TRUE(WaitFor([&] { return hands::Click(tour::FindIn(Editor(), button)); }));
    }
    void BeginPick() {
        ClickInEditor(u"pickButton"_s);
        ASSERT_TRUE(WaitFor([this] {
            return client->Window()->IsDrawingInFront() &&
                   Store().Present() == SheetStore::State::Open;
        }));
        ASSERT_FALSE(IsShown(Editor()));
        ASSERT_FALSE(IsShown(Console()));
        ASSERT_FALSE(Pane().Hint().isEmpty());
    }
    /// A second drawing with a checkpoint 9.
    qint32 AddOtherDrawing() {
        otherDrawing = session.Site().NewIntake()->AddDrawing(
            site.firstProject, u"二层平面图"_s, {{}, drawingtest::PlainPdf(1, kDrawingSheet)}, 1);
        const auto added = session.Site().Drawings().AddCheckpoint(
            {site.firstProject}, otherDrawing, {0, 500, 500}, 9, {u"张伟"_s, 1'700'000'000});
        EXPECT_TRUE(WaitFor([this] { return Choice()->findText(u"二层平面图"_s) >= 0; }));
        return added->id;
    }
    [[nodiscard]] qint32 PointOfPhoto() {
        for (const KX_DATA::DrawingPicRef& pic : Record(withPhoto).pics) {
            if (pic.picId == photo) {
                return withPhoto;
            }
        }
        return Record(without).pics.empty() ? 0 : without;
    }
    [[nodiscard]] KX_DATA::DrawingRecord Record(qint32 point) {
        KX_DATA::DrawingRecord record;
        static_cast<void>(
            session.Site().PdfPhotos().Checkpoint({site.firstProject}, point, record));
        return record;
    }

    qint32 otherDrawing = 0;
};

TEST_F(DrawingTrips, APhotoGetsAPointOnAnotherDrawingAndTheConsoleShowsIt) {
    const qint32 otherPoint = AddOtherDrawing();
    Edit();
    ASSERT_TRUE(WaitFor(
        [] { return hands::TypeOver(tour::FindIn(Editor(), u"picNameEdit"_s), u"新墙面"_s); }));
    BeginPick();
    Choose(u"二层平面图"_s);
    ASSERT_TRUE(WaitFor([this] {
        return Store().Present() == SheetStore::State::Open && Canvas().Flags().size() == 1U;
    }));
    EXPECT_FALSE(Pane().Hint().isEmpty()) << "the pick goes on";
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(otherPoint));
    ASSERT_TRUE(WaitFor([] { return IsShown(Editor()); }));
    EXPECT_TRUE(Pane().Hint().isEmpty());
    EXPECT_FALSE(IsShown(Console()));
    EXPECT_EQ(tour::ReadText(tour::FindIn(Editor(), u"pointCombo"_s)), u"检查点9"_s);
    EXPECT_EQ(tour::ReadText(tour::FindIn(Editor(), u"drawingCombo"_s)), u"二层平面图"_s);
    EXPECT_EQ(tour::ReadText(tour::FindIn(Editor(), u"picNameEdit"_s)), u"新墙面"_s);
    ClickInEditor(u"okButton"_s);
    ASSERT_TRUE(WaitFor([] { return IsShown(Console()); }));
    EXPECT_EQ(Editor(), nullptr);
    const int row = RowOfPhoto(u"新墙面.jpg"_s);
    ASSERT_GE(row, 0);
    EXPECT_EQ(ConsoleText(row, u"图纸"_s), u"二层平面图"_s);
    EXPECT_EQ(ConsoleText(row, u"位置"_s), u"检查点9"_s);
    EXPECT_TRUE(Record(withPhoto).pics.empty());
}

TEST_F(DrawingTrips, EscapeInTheDrawingGivesUpThePickAndNothingIsSaved) {
    Edit();
    BeginPick();
    QTest::keyClick(&Canvas(), Qt::Key_Escape);
    EXPECT_TRUE(WaitFor([] { return IsShown(Console()); }));
    EXPECT_FALSE(IsShown(Editor()));
    EXPECT_TRUE(Pane().Hint().isEmpty());
    EXPECT_EQ(PointOfPhoto(), withPhoto);
    QTest::keyClick(&Canvas(), Qt::Key_Escape);
    EXPECT_EQ(PointOfPhoto(), withPhoto);
}

TEST_F(DrawingTrips, LeavingTheDrawingGivesUpThePickToo) {
    Edit();
    BeginPick();
    client->Window()->ShowDrawingFace(false);
    EXPECT_TRUE(WaitFor([] { return IsShown(Console()); }));
    EXPECT_FALSE(IsShown(Editor()));
    Edit();
    BeginPick();
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(without));
    ASSERT_TRUE(WaitFor([] { return IsShown(Editor()); })) << "and another one goes on";
    ClickInEditor(u"okButton"_s);
    EXPECT_TRUE(WaitFor([this] { return PointOfPhoto() == without; }));
}

TEST_F(DrawingTrips, AnotherProjectWhileOneIsPickedEndsEverythingQuietly) {
    Edit();
    BeginPick();
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(Pane().Hint().isEmpty());
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Console(), nullptr);
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    EXPECT_EQ(PointOfPhoto(), withPhoto);
}

TEST_F(DrawingTrips, AfterAnotherProjectTheFirstClickOnAFlagOpensItsViewer) {
    Edit();
    BeginPick();
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    Choose(u"首层平面图"_s);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(withPhoto));
    EXPECT_TRUE(WaitFor([] { return IsShown(tour::FindWindow(u"PdfPicViewWrap"_s)); }));
}

TEST_F(DrawingTrips, WhoSetCheckpointsBeforePicksOneAndSetsNone) {
    client->Window()->ShowDrawingFace(true);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    QTest::mouseClick(PlaceButton(), Qt::LeftButton);
    ASSERT_TRUE(PlaceButton()->isChecked());
    Edit();
    BeginPick();
    EXPECT_FALSE(PlaceButton()->isChecked());
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(without));
    ASSERT_TRUE(WaitFor([] { return IsShown(Editor()); }));
    EXPECT_EQ(Points().size(), 2U);
    EXPECT_EQ(tour::ReadText(tour::FindIn(Editor(), u"pointCombo"_s)), u"检查点4"_s);
}

TEST_F(DrawingTrips, OpeningTheConsoleByItsKeyEndsThePickAndItsHint) {
    Edit();
    BeginPick();
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return IsShown(Console()); }));
    EXPECT_TRUE(Pane().Hint().isEmpty());
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(withPhoto));
    EXPECT_TRUE(WaitFor([] { return IsShown(tour::FindWindow(u"PdfPicViewWrap"_s)); }));
    EXPECT_FALSE(IsShown(Editor()));
    EXPECT_EQ(PointOfPhoto(), withPhoto);
}

TEST_F(DrawingTrips, TheClientEndsWhileOneIsPicked) {
    Edit();
    BeginPick();
    End();
}

TEST_F(DrawingTrips, APointOnADrawingThatWasRemovedMeanwhileIsRefusedAndNothingIsLost) {
    const qint32 otherPoint = AddOtherDrawing();
    Edit();
    BeginPick();
    Choose(u"二层平面图"_s);
    ASSERT_TRUE(WaitFor([this] {
        return Store().Present() == SheetStore::State::Open && Canvas().Flags().size() == 1U;
    }));
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(otherPoint));
    ASSERT_TRUE(WaitFor([] { return IsShown(Editor()); }));
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    const site::Signature by{u"李娜"_s, 1'700'000'000};
    ASSERT_TRUE(theirs.site->Bin().DeleteCheckpoint({site.firstProject}, otherPoint, by));
    ASSERT_TRUE(theirs.site->Bin().DeleteDrawing({site.firstProject}, otherDrawing, by));
    EXPECT_FALSE(BoxDuring([] { ClickInEditor(u"okButton"_s); }).isEmpty());
    EXPECT_TRUE(IsShown(Editor()));
    EXPECT_TRUE(Says(u"请重新选择插入点"_s));
    EXPECT_EQ(PointOfPhoto(), withPhoto);
    ClickInEditor(u"cancelButton"_s);
    EXPECT_TRUE(WaitFor([] { return IsShown(Console()); }));
}

TEST_F(DrawingTrips, FromARowToItsDrawingAndViewerAndBack) {
    ClickRowIcon(RowOfPhoto(kPhoto), u"反查"_s);
    const auto viewer = [] { return tour::FindWindow(u"PdfPicViewWrap"_s); };
    ASSERT_TRUE(WaitFor([&] { return IsShown(viewer()); }));
    EXPECT_TRUE(viewer()->windowTitle().startsWith(u"检查点3 - 墙面.jpg"_s));
    EXPECT_TRUE(Console()->isMinimized());
    EXPECT_TRUE(WaitFor([this] { return client->Window()->IsDrawingInFront(); }));
    EXPECT_TRUE(WaitFor([this] { return Canvas().IsLit(); }));
    EXPECT_TRUE(Pane().Hint().isEmpty()) << "nothing is picked";
    ASSERT_TRUE(WaitFor([&] { return hands::CloseWindow(viewer()); }));
    EXPECT_TRUE(WaitFor([] { return IsShown(Console()) && !Console()->isMinimized(); }));
    QTest::keyClick(&Canvas(), Qt::Key_Escape);
    EXPECT_FALSE(Console()->isMinimized());
}

TEST_F(DrawingTrips, AClickOnAFlagOpensItsViewerWithThePictures) {
    client->Window()->ShowDrawingFace(true);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(withPhoto));
    const auto viewer = [] { return tour::FindWindow(u"PdfPicViewWrap"_s); };
    ASSERT_TRUE(WaitFor([&] { return IsShown(viewer()); }));
    EXPECT_EQ(viewer()->windowTitle(), u"检查点3 - 墙面.jpg   (1/1)"_s);
}

TEST_F(DrawingTrips, WhatAnotherClientWritesAndDeletesIsThereWhenTheViewerOpensNext) {
    client->Window()->ShowDrawingFace(true);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    const auto viewer = [] { return tour::FindWindow(u"PdfPicViewWrap"_s); };
    const auto comments = [&] {
        return viewer()->findChild<QAbstractItemView*>(u"commentList"_s)->model();
    };
    const auto open = [&] {
        QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(withPhoto));
        return WaitFor([&] { return IsShown(viewer()); });
    };
    ASSERT_TRUE(open());
    EXPECT_EQ(comments()->rowCount(), 0);
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    const site::Signature by{u"李娜"_s, 1'700'000'000};
    ASSERT_TRUE(theirs.site->Comments()
                    .Add({site.firstProject}, withPhoto, u"李娜：请复查"_s, by)
                    .has_value());
    ASSERT_EQ(theirs.site->Bin().DeletePdfPhotos(site.firstProject, {photo}, by), 1);
    EXPECT_EQ(comments()->rowCount(), 0) << "what is shown stays";
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags()[0].photos == 0; }));
    ASSERT_TRUE(open());
    ASSERT_TRUE(WaitFor([&] { return comments()->rowCount() == 1; }));
    EXPECT_EQ(comments()->index(0, 0).data().toString(), u"李娜：请复查"_s);
}

} // namespace
} // namespace roads
