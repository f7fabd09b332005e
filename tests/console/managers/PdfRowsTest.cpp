// Rows of drawing photos.
#include "console/PDFPicMng.h"
#include "tests/console/managers/ManagerFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class PdfRowsTest : public ManagerFixture {
protected:
    void Show(const KX_DATA::PdfPicRecord& photo) {
        Open(kModePdf);
        host.pics.pdfPics = {photo};
        Fetch();
        ASSERT_EQ(grid->GetRowCount(), 1);
    }
};

TEST_F(PdfRowsTest, EveryCellSaysWhatTheRecordHolds) {
    Show(DrawingPhoto(7));
    std::vector<std::string> cells;
    for (int column = 1; column <= 12; ++column) {
        cells.push_back(Cell(0, column));
    }
    EXPECT_THAT(cells, ElementsAre("1", "安全", "图片7.jpg", "示例工程", "一层平面", "zhang / li",
                                   "2026-01-01 08:00 / 2026-02-01 09:00", "检查点7", "裂缝 渗漏 ",
                                   "整改中", "描述7", "显示"));
    EXPECT_EQ(Row(0).GetItemCount(), 18);
}

TEST_F(PdfRowsTest, NoRowIsCheckedWhateverThePresetOfTheOtherKinds) {
    Open(kModePdf, 2);
    grid->picFilter.picId = 1;
    Fetch();
    EXPECT_FALSE(Item(0, 0).GetBool());
    EXPECT_FALSE(Item(1, 0).GetBool());
}

TEST_F(PdfRowsTest, CheckpointZeroIsFormattedLikeAnyOtherNumber) {
    KX_DATA::PdfPicRecord photo = DrawingPhoto(1);
    photo.checkpointNo = 0;
    Show(photo);
    EXPECT_EQ(Cell(0, 8), "检查点0");
}

TEST_F(PdfRowsTest, AnyStatusButZeroReadsHidden) {
    KX_DATA::PdfPicRecord photo = DrawingPhoto(1);
    photo.status = 12;
    Show(photo);
    EXPECT_EQ(Cell(0, 12), "隐藏");
}

TEST_F(PdfRowsTest, AMarkThatTheTableLacksLeavesItsCellEmpty) {
    KX_DATA::PdfPicRecord photo = DrawingPhoto(1);
    photo.markId = -1;
    Show(photo);
    EXPECT_EQ(Cell(0, 2), "");
    EXPECT_EQ(Cell(0, 3), "图片1.jpg");
}

TEST_F(PdfRowsTest, NamesAndTimesAreJudgedEachByItsOwnFields) {
    KX_DATA::PdfPicRecord photo = DrawingPhoto(1);
    photo.updaterName.clear();
    photo.updateTime = photo.uploadTime;
    Show(photo);
    EXPECT_EQ(Cell(0, 6), "zhang");
    EXPECT_EQ(Cell(0, 7), "2026-01-01 08:00");
}

TEST_F(PdfRowsTest, TheIconsStandOneColumnFurtherAndNoneIsDisabled) {
    Show(DrawingPhoto(1));
    std::vector<std::string> icons;
    for (int column = 13; column <= 17; ++column) {
        const auto* icon = dynamic_cast<CIconGridItem*>(&Item(0, column));
        ASSERT_NE(icon, nullptr) << column;
        icons.push_back(std::to_string(icon->Image()) + ' ' + icon->Tip().toStdString());
        EXPECT_TRUE(icon->IsEnabled()) << column;
        EXPECT_EQ(icon->Command(), int(RowCommand::Edit) + column - 13);
    }
    EXPECT_THAT(icons, ElementsAre("12 编辑", "5 反查", "4 预览", "2 下载", "11 删除"));
}

TEST_F(PdfRowsTest, TheViewIsAffectedByACheckedRowOfTheOpenDrawingJudgedByName) {
    Open(kModePdf, 3);
    host.pics.pdfPics[2].drawingName = u"二层平面"_s;
    host.pics.pdfPics[2].ppid = 2;
    Fetch();
    host.project.drawing = {77, u"二层平面"_s};
    EXPECT_FALSE(Manager().IsViewAffected());
    Check({0, 1});
    EXPECT_FALSE(Manager().IsViewAffected());
    Check({2});
    EXPECT_TRUE(Manager().IsViewAffected());
}

TEST_F(PdfRowsTest, ARowIsInViewOnTheOpenDrawingOnly) {
    Open(kModePdf, 1);
    Fetch();
    host.project.drawing = {500, u"二层平面"_s};
    EXPECT_FALSE(Manager().IsRowInView(Row(0)));
    host.project.drawing = {1, u"一层平面"_s};
    EXPECT_TRUE(Manager().IsRowInView(Row(0)));
}

TEST_F(PdfRowsTest, WithoutAnOpenProjectNoDrawingIsOpen) {
    Open(kModePdf, 1);
    Fetch();
    Check({0});
    host.project.drawing = {500, u"一层平面"_s};
    host.script.FailAlways("GetCurrentProject");
    EXPECT_FALSE(Manager().IsViewAffected());
    EXPECT_FALSE(Manager().IsRowInView(Row(0)));
}

TEST_F(PdfRowsTest, TheListForTheViewerHoldsEveryRow) {
    Open(kModePdf, 2);
    Fetch();
    std::vector<KX_DATA::PicViewItem> items;
    dynamic_cast<CPDFPicMng&>(Manager()).BuildPreviewList(items);
    ASSERT_EQ(items.size(), 2U);
    const KX_DATA::PicViewItem& item = items[1];
    EXPECT_EQ(item.picId, 2);
    EXPECT_EQ(item.ppid, 1);
    EXPECT_EQ(item.uuid, u"uuid2"_s);
    EXPECT_EQ(item.fileText, u"file2"_s);
    EXPECT_EQ(item.picName, u"图片2.jpg"_s);
    EXPECT_EQ(item.positionKey, QString());
    EXPECT_EQ(item.drawingId, 102);
    EXPECT_EQ(item.markId, 2);
    EXPECT_EQ(item.positionText, u"检查点2"_s);
    EXPECT_EQ(item.uploader, u"zhang"_s);
    EXPECT_EQ(item.uploadTime, u"2026-01-01 08:00"_s);
    EXPECT_EQ(item.updater, u"li"_s);
    EXPECT_EQ(item.updateTime, u"2026-02-01 09:00"_s);
    EXPECT_EQ(item.labelText, u"裂缝 渗漏 "_s);
    EXPECT_EQ(item.description, u"描述2"_s);
    EXPECT_EQ(item.rectifyText, u"整改中"_s);
}

TEST_F(PdfRowsTest, TheListForTheViewerNamesTheProjectOfEachRow) {
    KX_DATA::PdfPicRecord photo = DrawingPhoto(7);
    photo.ppid = 42;
    Show(photo);
    std::vector<KX_DATA::PicViewItem> items;
    dynamic_cast<CPDFPicMng&>(Manager()).BuildPreviewList(items);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].ppid, 42);
}

TEST_F(PdfRowsTest, TheListForTheViewerTakesTheLabelsFromTheCell) {
    Open(kModePdf, 1);
    Fetch();
    Row(0).SetText(9, u"别的标签 "_s);
    std::vector<KX_DATA::PicViewItem> items;
    dynamic_cast<CPDFPicMng&>(Manager()).BuildPreviewList(items);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].labelText, u"别的标签 "_s);
}

} // namespace
