// From a row of the console into its editor and back, on a real data folder.
#include "hands/Choices.h"
#include "tests/roads/ClientFixture.h"

#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/OtherClient.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QComboBox>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::ModalVisit;
using support::WaitFor;
using tour::ConsoleColumn;
using tour::ConsoleText;

const QString kPhotoEditor = u"BimPicEditDlg"_s;

class EditRoad : public ClientOnAFolder {
protected:
    void SetUp() override {
        ClientOnAFolder::SetUp();
        site::SiteWriter(support::FolderOf(session)).AddLabel(u"渗漏"_s);
        ASSERT_TRUE(Press(Qt::Key_1));
        ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 5; }));
    }
    /// Clicks the edit icon of the first row, its photo being the latest; back when the editor has
    /// ended.
    bool EditFirstRow(const ModalVisit::Action& action) {
        const ModalVisit visit(kPhotoEditor, action);
        return WaitFor(
            [] { return hands::ClickCell(tour::ConsoleGrid(), 0, ConsoleColumn(u"编辑"_s)); });
    }
    [[nodiscard]] qint32 Photo() const { return site.photos.back(); }
    [[nodiscard]] KX_DATA::BimPicDetail Detail() const {
        KX_DATA::BimPicDetail detail;
        EXPECT_EQ(GetVeskPicMng()->GetBimPicDetail(site.firstProject, Photo(), detail),
                  KX_DATA::kServiceOk);
        return detail;
    }
    void RenameFloor(const QString& from, const QString& to) {
        OtherClient(folder.Path(u"data"_s)).RenameFloor(site.firstProject, from, to);
    }
};

TEST_F(EditRoad, APhotoGetsAnotherNamePlaceMarkAndLabels) {
    ASSERT_TRUE(EditFirstRow([](QWidget& editor) {
        EXPECT_EQ(editor.windowTitle(), u"编辑照片-照片4.jpg"_s);
        Type(editor, u"picNameEdit"_s, u"新照片"_s);
        ChooseIn(editor, u"floorCombo"_s, u"1"_s);
        ChooseIn(editor, u"axisXCombo"_s, u"2"_s);
        ChooseIn(editor, u"axisYCombo"_s, u"B"_s);
        Type(editor, u"newLabelEdit"_s, u"外墙"_s);
        ClickOn(editor, u"addLabelButton"_s);
        ClickOn(editor, u"okButton"_s);
    }));
    EXPECT_TRUE(WaitFor([] { return ConsoleText(0, u"照片名称"_s) == u"新照片.jpg"_s; }));
    EXPECT_EQ(ConsoleText(0, u"位置"_s), u"1层2/B"_s);
    EXPECT_EQ(ConsoleText(0, u"标签"_s), u"外墙 "_s);
    EXPECT_EQ(ConsoleText(0, u"上传人/更新人"_s), u"张伟"_s);
    EXPECT_TRUE(Messages().isEmpty()) << Messages().join(u'\n').toStdString();
}

TEST_F(EditRoad, ACancelledEditChangesNothing) {
    const KX_DATA::BimPicDetail before = Detail();
    ASSERT_TRUE(EditFirstRow([](QWidget& editor) {
        Type(editor, u"picNameEdit"_s, u"新照片"_s);
        ClickOn(editor, u"cancelButton"_s);
    }));
    EXPECT_EQ(Detail().fileName, before.fileName);
    EXPECT_EQ(Detail().updateTime, before.updateTime);
    EXPECT_EQ(ConsoleText(0, u"照片名称"_s), u"照片4.jpg"_s);
}

TEST_F(EditRoad, AFloorRenamedWhileTheEditorIsOpenLosesNothing) {
    ASSERT_TRUE(EditFirstRow([this](QWidget& editor) {
        RenameFloor(u"-1"_s, u"地下室"_s);
        Type(editor, u"picNameEdit"_s, u"改名"_s);
        ClickOn(editor, u"okButton"_s);
    }));
    EXPECT_EQ(Detail().positionKey, site.positionKey);
    EXPECT_EQ(Detail().floor, u"地下室"_s);
    EXPECT_EQ(Detail().axisX + Detail().axisY, u"2B"_s);
    EXPECT_TRUE(WaitFor([] { return ConsoleText(0, u"位置"_s) == u"地下室层2/B"_s; }));
    EXPECT_EQ(Plan().Model().floors[0].name, u"1"_s);
    EXPECT_EQ(Plan().Model().floors[1].name, u"地下室"_s);
    Plan().SetFloor(1);
    EXPECT_EQ(PhotoFlag(Plan(), site.positionKey, 1).count, 5);
}

TEST_F(EditRoad, OfAFloorRenamedMeanwhileTheListOfFloorsLeavesThePlaceAlone) {
    ASSERT_TRUE(EditFirstRow([this](QWidget& editor) {
        RenameFloor(u"-1"_s, u"地下室"_s);
        // Its old name is no entry any more; looking at the list chooses nothing.
        ClickOn(editor, u"floorCombo"_s);
        ClickOn(editor, u"floorCombo"_s);
        ClickOn(editor, u"okButton"_s);
    }));
    EXPECT_EQ(Detail().positionKey, site.positionKey);
    EXPECT_EQ(Detail().floor, u"地下室"_s);
}

TEST_F(EditRoad, OfAFloorRenamedMeanwhileTheAxesAreGoneAndTheSaveIsRefused) {
    const KX_DATA::BimPicDetail before = Detail();
    ASSERT_TRUE(EditFirstRow([this](QWidget& editor) {
        RenameFloor(u"-1"_s, u"地下室"_s);
        ClickOn(editor, u"axisYCombo"_s);
        ClickOn(editor, u"okButton"_s);
        const QWidget* balloon = tour::FindWindow(u"balloonTip"_s);
        ASSERT_NE(balloon, nullptr);
        EXPECT_EQ(balloon->accessibleName(), u"请设置正确的Y轴信息后重试！"_s);
        ClickOn(editor, u"cancelButton"_s);
    }));
    EXPECT_EQ(Detail().positionKey, before.positionKey);
    EXPECT_EQ(Detail().fileName, before.fileName);
}

TEST_F(EditRoad, APhotoDeletedByAnotherClientIsToldAndTheEditorStays) {
    ASSERT_TRUE(EditFirstRow([this](QWidget& editor) {
        OtherClient(folder.Path(u"data"_s)).DeletePhotos({Photo()});
        ClickOn(editor, u"okButton"_s);
        ASSERT_TRUE(editor.isVisible());
        const QWidget* balloon = tour::FindWindow(u"balloonTip"_s);
        ASSERT_NE(balloon, nullptr);
        EXPECT_EQ(balloon->accessibleName(), u"修改照片属性失败！"_s);
        EXPECT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
        ClickOn(editor, u"cancelButton"_s);
    }));
    EXPECT_TRUE(Messages().front().startsWith(u"修改照片失败：照片4.jpg"_s));
}

TEST_F(EditRoad, AnotherProjectEndsTheEditorWithTheConsole) {
    ASSERT_TRUE(EditFirstRow([this](QWidget&) {
        // A person can't reach the main window now; the push of another client can.
        auto* combo = client->Window()->findChild<QComboBox*>(u"projectChoice"_s);
        const int other = combo->findText(u"二期工程"_s);
        combo->setCurrentIndex(other);
        emit combo->activated(other);
        support::RunPendingEvents();
    }));
    EXPECT_EQ(tour::FindWindow(kPhotoEditor), nullptr);
    EXPECT_EQ(tour::Console(), nullptr);
    EXPECT_EQ(session.CurrentProject().ppid, site.secondProject);
}

TEST_F(EditRoad, TheClientEndsWhileTheEditorIsOpen) {
    ASSERT_TRUE(EditFirstRow([this](QWidget&) {
        client->Stop();
        support::RunPendingEvents();
    }));
    EXPECT_EQ(tour::FindWindow(kPhotoEditor), nullptr);
}

} // namespace
} // namespace roads
