// Rows of BIM photos.
#include "console/BimPicMng.h"
#include "tests/console/managers/ManagerFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"

#include <QColor>
#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BimRowsTest : public ManagerFixture {
protected:
    /// The page of one photo.
    void Show(const KX_DATA::BimPicRow& photo) {
        Open(kModeBim);
        host.pics.bimPics = {photo};
        Fetch();
        ASSERT_EQ(grid->GetRowCount(), 1);
    }
};

TEST_F(BimRowsTest, EveryCellSaysWhatTheRecordHolds) {
    Show(BimPhoto(7));
    std::vector<std::string> cells;
    for (int column = 1; column <= 11; ++column) {
        cells.push_back(Cell(0, column));
    }
    EXPECT_THAT(cells, ElementsAre("1", "质量", "照片7.jpg", "示例工程", "zhang / li",
                                   "2026-01-01 08:00 / 2026-02-01 09:00", "1层A-7", "裂缝 渗漏 ",
                                   "待整改", "描述7", "显示"));
    EXPECT_EQ(Row(0).GetItemCount(), 17);
}

TEST_F(BimRowsTest, AServiceThatAnswersOneFailsBimPhotosAndPassesDrawingPhotos) {
    host.pics.bimQuery.status = 1;
    host.pics.pdfQuery.status = 1;
    Open(kModeBim, 3);
    Fetch();
    EXPECT_EQ(grid->GetRowCount(), 0);
    Open(kModePdf, 3);
    Fetch();
    EXPECT_EQ(grid->GetRowCount(), 3);
}

TEST_F(BimRowsTest, DeletingBimPhotosNamesNoProjectAndDeletingDrawingPhotosDoes) {
    Open(kModeBim, 1);
    Fetch();
    Check({0});
    Manager().DeleteChecked(9);
    EXPECT_EQ(Log().LinesOf({"DeleteBimPics"}).front(), "DeleteBimPics(ids=[1])");
    Open(kModePdf, 1);
    Fetch();
    Check({0});
    Manager().DeleteChecked(9);
    EXPECT_EQ(Log().LinesOf({"DeletePdfPics"}).front(), "DeletePdfPics(ppid=9,ids=[1])");
}

TEST_F(BimRowsTest, AnEmptyPageBuildsNoRow) {
    Open(kModeBim);
    Fetch();
    EXPECT_EQ(grid->GetRowCount(), 0);
    EXPECT_THAT(Log().LinesOf({"GetMarkTable", "GetProjectName"}), IsEmpty());
}

TEST_F(BimRowsTest, RowsComeInTheServicesOrderAndCountOverThePages) {
    Open(kModeBim, 65);
    Fetch(2);
    ASSERT_EQ(grid->GetRowCount(), 30);
    EXPECT_EQ(Cell(0, 1), "31");
    EXPECT_EQ(Cell(0, 3), "照片31.jpg");
    EXPECT_EQ(Cell(29, 1), "60");
    Fetch(3);
    ASSERT_EQ(grid->GetRowCount(), 5);
    EXPECT_EQ(Cell(4, 1), "65");
}

TEST_F(BimRowsTest, ThePhotoOfTheFilterIsCheckedFromTheStart) {
    Open(kModeBim, 3);
    grid->picFilter.picId = 2;
    Fetch();
    EXPECT_FALSE(Item(0, 0).GetBool());
    EXPECT_TRUE(Item(1, 0).GetBool());
    EXPECT_FALSE(Item(2, 0).GetBool());
}

TEST_F(BimRowsTest, WithoutAPhotoInTheFilterNoneIsCheckedNotEvenOneWithThatNumber) {
    Show(BimPhoto(KX_DATA::kNoPic));
    EXPECT_FALSE(Item(0, 0).GetBool());
}

TEST_F(BimRowsTest, CheckBoxesAreCheckBoxes) {
    Show(BimPhoto(1));
    EXPECT_NE(dynamic_cast<CCheckBoxItem*>(&Item(0, 0)), nullptr);
    EXPECT_EQ(Item(0, 0).GetValue().typeId(), QMetaType::Bool);
}

TEST_F(BimRowsTest, AMarkShowsItsColourAndName) {
    Show(BimPhoto(1));
    const auto* mark = dynamic_cast<CColorTxtItem*>(&Item(0, 2));
    ASSERT_NE(mark, nullptr);
    EXPECT_EQ(mark->Color(), 0x0000FF);
    EXPECT_EQ(mark->GetText(), u"质量"_s);
}

TEST_F(BimRowsTest, AMarkThatTheTableLacksLeavesItsCellEmptyAndTheRowNormal) {
    KX_DATA::BimPicRow photo = BimPhoto(1);
    photo.markId = 99;
    Show(photo);
    EXPECT_EQ(Cell(0, 2), "");
    EXPECT_EQ(dynamic_cast<CColorTxtItem*>(&Item(0, 2)), nullptr);
    EXPECT_EQ(Cell(0, 3), "照片1.jpg");
    EXPECT_TRUE(Item(0, 13).IsEnabled());
}

TEST_F(BimRowsTest, TheMarkTableIsFetchedOnceForEveryRow) {
    Open(kModeBim, 3);
    Fetch();
    EXPECT_EQ(Log().CountOf("GetMarkTable"), 3);
}

TEST_F(BimRowsTest, AFailingMarkTableLeavesTheCellsEmpty) {
    host.script.FailAlways("GetMarkTable");
    Show(BimPhoto(1));
    EXPECT_EQ(Cell(0, 2), "");
}

TEST_F(BimRowsTest, APhotoWithoutAFloorHasNoPositionAndCannotBeLookedUp) {
    KX_DATA::BimPicRow photo = BimPhoto(1);
    photo.floor.clear();
    Show(photo);
    EXPECT_EQ(Cell(0, 7), "");
    EXPECT_FALSE(Item(0, 13).IsEnabled());
    for (const int icon : {12, 14, 15, 16}) {
        EXPECT_TRUE(Item(0, icon).IsEnabled()) << icon;
    }
}

TEST_F(BimRowsTest, AnInvalidPositionIsRedWithOrWithoutText) {
    KX_DATA::BimPicRow photo = BimPhoto(1);
    photo.posValid = 0;
    Show(photo);
    EXPECT_EQ(Item(0, 7).GetTextColor(), QColor(255, 0, 0));
    EXPECT_EQ(Cell(0, 7), "1层A-1");
    photo.floor.clear();
    Show(photo);
    EXPECT_EQ(Item(0, 7).GetTextColor(), QColor(255, 0, 0));
}

TEST_F(BimRowsTest, AValidPositionHasTheGridsOwnColour) {
    KX_DATA::BimPicRow photo = BimPhoto(1);
    photo.posValid = -1;
    Show(photo);
    EXPECT_EQ(Item(0, 7).GetTextColor(), std::nullopt);
}

TEST_F(BimRowsTest, NamesAndTimesAreJudgedEachByItsOwnFields) {
    KX_DATA::BimPicRow photo = BimPhoto(1);
    photo.updaterName = photo.uploaderName;
    Show(photo);
    EXPECT_EQ(Cell(0, 5), "zhang");
    EXPECT_EQ(Cell(0, 6), "2026-01-01 08:00 / 2026-02-01 09:00");
    photo.updaterName.clear();
    Show(photo);
    EXPECT_EQ(Cell(0, 5), "zhang");
}

TEST_F(BimRowsTest, TwoLabelsEndInABlank) {
    Show(BimPhoto(1));
    EXPECT_EQ(Cell(0, 8), "裂缝 渗漏 ");
}

TEST_F(BimRowsTest, AnyStatusButZeroReadsHidden) {
    KX_DATA::BimPicRow photo = BimPhoto(1);
    photo.status = 1;
    Show(photo);
    EXPECT_EQ(Cell(0, 11), "隐藏");
    photo.status = 11;
    Show(photo);
    EXPECT_EQ(Cell(0, 11), "隐藏");
}

TEST_F(BimRowsTest, TheIconsHaveTheirImagesCommandsAndTips) {
    Show(BimPhoto(1));
    std::vector<std::string> icons;
    for (int column = 12; column <= 16; ++column) {
        const auto* icon = dynamic_cast<CIconGridItem*>(&Item(0, column));
        ASSERT_NE(icon, nullptr) << column;
        icons.push_back(std::to_string(icon->Image()) + ' ' + icon->Tip().toStdString());
        EXPECT_EQ(icon->Command(), int(RowCommand::Edit) + column - 12);
    }
    EXPECT_THAT(icons, ElementsAre("12 编辑", "5 反查", "4 预览", "2 下载", "11 删除"));
}

TEST_F(BimRowsTest, EveryRowPointsToItsRecord) {
    Open(kModeBim, 3);
    Fetch();
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(static_cast<KX_DATA::BimPicRow*>(Row(row).GetData())->picId, row + 1);
        EXPECT_EQ(Manager().GetRowPicId(Row(row)), row + 1);
    }
}

TEST_F(BimRowsTest, CollectingTellsWhetherAllPositionsAreValid) {
    Open(kModeBim, 3);
    host.pics.bimPics[1].posValid = 0;
    Fetch();
    const auto& manager = dynamic_cast<CBimPicMng&>(Manager());
    std::vector<qint32> ids;
    Check({0, 2});
    EXPECT_TRUE(manager.CollectCheckedIds(ids));
    ids.clear();
    Check({1});
    EXPECT_FALSE(manager.CollectCheckedIds(ids));
    EXPECT_THAT(ids, ElementsAre(3, 2, 1));
}

TEST_F(BimRowsTest, AValueOfAnotherTypeCountsAsTheBooleanThatItConvertsTo) {
    Open(kModeBim, 4);
    Fetch();
    Item(0, 0).SetValue(1);
    Item(1, 0).SetValue(0);
    Item(2, 0).SetValue(u"true"_s);
    Item(3, 0).SetValue(QVariant());
    std::vector<qint32> ids;
    dynamic_cast<CBimPicMng&>(Manager()).CollectCheckedIds(ids);
    EXPECT_THAT(ids, ElementsAre(3, 1));
}

TEST_F(BimRowsTest, AValueThatIsNoBooleanEndsTheWalkByAnException) {
    Open(kModeBim, 2);
    Fetch();
    Item(0, 0).SetValue(u"maybe"_s);
    std::vector<qint32> ids;
    EXPECT_THROW(dynamic_cast<CBimPicMng&>(Manager()).CollectCheckedIds(ids), BadCellValue);
    EXPECT_THROW(static_cast<void>(grid->HasCheckedRow()), BadCellValue);
}

TEST_F(BimRowsTest, TheListForTheViewerHoldsEveryRowAsItIsDisplayed) {
    Open(kModeBim, 2);
    host.pics.bimPics[1].floor.clear();
    Fetch();
    std::vector<KX_DATA::PicViewItem> items;
    dynamic_cast<CBimPicMng&>(Manager()).BuildPreviewList(items);
    ASSERT_EQ(items.size(), 2U);
    const KX_DATA::PicViewItem& item = items[0];
    EXPECT_EQ(item.picId, 1);
    EXPECT_EQ(item.ppid, 1);
    EXPECT_EQ(item.uuid, u"uuid1"_s);
    EXPECT_EQ(item.fileText, u"file1"_s);
    EXPECT_EQ(item.picName, u"照片1.jpg"_s);
    EXPECT_EQ(item.positionKey, u"K1"_s);
    EXPECT_EQ(item.markId, 1);
    EXPECT_EQ(item.positionText, u"1层A-1"_s);
    EXPECT_EQ(item.uploader, u"zhang"_s);
    EXPECT_EQ(item.uploadTime, u"2026-01-01 08:00"_s);
    EXPECT_EQ(item.updater, u"li"_s);
    EXPECT_EQ(item.updateTime, u"2026-02-01 09:00"_s);
    EXPECT_EQ(item.labelText, u"裂缝 渗漏 "_s);
    EXPECT_EQ(item.description, u"描述1"_s);
    EXPECT_EQ(item.rectifyText, u"待整改"_s);
    EXPECT_EQ(items[1].picId, 2);
    EXPECT_EQ(items[1].positionText, QString());
}

TEST_F(BimRowsTest, TheListForTheViewerNamesTheProjectOfEachRow) {
    KX_DATA::BimPicRow photo = BimPhoto(7);
    photo.ppid = 42;
    Show(photo);
    std::vector<KX_DATA::PicViewItem> items;
    dynamic_cast<CBimPicMng&>(Manager()).BuildPreviewList(items);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].ppid, 42);
}

TEST_F(BimRowsTest, EditRowRunsTheEditorOnTheRowsRecordAndAnswersHowItEnded) {
    KX_DATA::BimPicRow photo = BimPhoto(7);
    photo.ppid = 42;
    Show(photo);
    {
        const support::ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
            support::Click(editor.findChild<QPushButton*>(u"okButton"_s));
        });
        EXPECT_TRUE(Manager().EditRow(Row(0)));
    }
    EXPECT_THAT(Log().LinesOf({"GetBimPicDetail", "UpdateBimPic"}),
                ElementsAre("UpdateBimPic(ppid=42,id=7)"));
    EXPECT_EQ(host.pics.lastBimUpdate.positionKey, u"K7"_s);
    const support::ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
        support::Click(editor.findChild<QPushButton*>(u"cancelButton"_s));
    });
    EXPECT_FALSE(Manager().EditRow(Row(0)));
}

TEST_F(BimRowsTest, TheListForTheViewerTakesPositionAndLabelsFromTheCells) {
    Open(kModeBim, 1);
    Fetch();
    Row(0).SetText(7, u"别处"_s);
    Row(0).SetText(8, u"别的标签 "_s);
    std::vector<KX_DATA::PicViewItem> items;
    dynamic_cast<CBimPicMng&>(Manager()).BuildPreviewList(items);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].positionText, u"别处"_s);
    EXPECT_EQ(items[0].labelText, u"别的标签 "_s);
}

} // namespace
