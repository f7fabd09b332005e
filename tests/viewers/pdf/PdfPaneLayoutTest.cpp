// Places of the drawing photo viewer's parts.
#include "viewers/PdfPaneLayout.h"

#include <gtest/gtest.h>

namespace {

constexpr int kW = 1003;
constexpr int kH = 701;

const gallery::PdfPaneLayout kAt = gallery::LayoutPdfPane(QSize(kW, kH), QSize(80, 25));

TEST(PdfPaneLayout, ThePicturesTakeWhatTheColumnLeaves) {
    EXPECT_EQ(kAt.bigArea, QRect(0, 0, kW - 235, kH - 110));
    EXPECT_EQ(kAt.stripArea, QRect(5, kH - 110, kW - 240, 105));
}

TEST(PdfPaneLayout, TheGroupsStandOneBelowTheOther) {
    EXPECT_EQ(kAt.picGroup, QRect(kW - 230, 5, 225, 125));
    EXPECT_EQ(kAt.noteGroup, QRect(kW - 230, 140, 225, 70));
    EXPECT_EQ(kAt.checkpointGroup, QRect(kW - 230, 220, 225, kH - 225));
}

TEST(PdfPaneLayout, ThePicturesLinesStandAtTheirHeights) {
    EXPECT_EQ(kAt.uploader, QRect(kW - 220, 30, 210, 20));
    EXPECT_EQ(kAt.uploadTime, QRect(kW - 220, 50, 210, 20));
    EXPECT_EQ(kAt.updater, QRect(kW - 220, 70, 210, 20));
    EXPECT_EQ(kAt.updateTime, QRect(kW - 220, 90, 210, 20));
    EXPECT_EQ(kAt.picDescription, QRect(kW - 220, 110, 210, 20));
    EXPECT_EQ(kAt.deleteLink, QRect(kW - 80, 15, 70, 20));
}

TEST(PdfPaneLayout, ThePlayerStandsInItsGroup) {
    EXPECT_EQ(kAt.noteButton, QPoint(kW - 225, 160));
    EXPECT_EQ(kAt.noteProgress, QRect(kW - 175, 190, 160, 5));
    EXPECT_EQ(kAt.noteStatus, QRect(kW - 175, 170, 160, 20));
}

TEST(PdfPaneLayout, TheCheckpointsLinesStandAtTheirHeights) {
    EXPECT_EQ(kAt.mark, QRect(kW - 225, 240, 80, 20));
    EXPECT_EQ(kAt.editLink, QRect(kW - 85, 240, 60, 20));
    EXPECT_EQ(kAt.labels, QRect(kW - 220, 270, 210, 20));
    EXPECT_EQ(kAt.cpDescription, QRect(kW - 220, 290, 210, 20));
    EXPECT_EQ(kAt.cpUpdateTime, QRect(kW - 220, 310, 210, 20));
    EXPECT_EQ(kAt.remark, QRect(kW - 220, 330, 210, 20));
}

TEST(PdfPaneLayout, TheCommentsTakeTheHeightThatIsLeft) {
    EXPECT_EQ(kAt.comments, QRect(kW - 225, 350, 215, kH - 445));
    EXPECT_EQ(kAt.commentBox, QRect(kW - 225, kH - 85, 215, 50));
}

TEST(PdfPaneLayout, TheButtonsStandAtTheBottomInTheirOwnSize) {
    for (const QSize& own : {QSize(80, 25), QSize(91, 31)}) {
        const gallery::PdfPaneLayout at = gallery::LayoutPdfPane(QSize(kW, kH), own);
        EXPECT_EQ(at.send.size(), own);
        EXPECT_EQ(at.send.x() + at.send.width(), kW - 10);
        EXPECT_EQ(at.send.y() + at.send.height(), kH - 10);
        EXPECT_EQ(at.report.size(), own);
        EXPECT_EQ(at.report.x(), kW - 225);
        EXPECT_EQ(at.report.y() + at.report.height(), kH - 10);
    }
}

TEST(PdfPaneLayout, TheColumnIsDrawnAnewFromItsLeftEdge) {
    EXPECT_EQ(kAt.column, QRect(kW - 225, 0, 225, kH));
}

TEST(PdfPaneLayout, APaneTooSmallHasNoPictures) {
    const gallery::PdfPaneLayout at = gallery::LayoutPdfPane(QSize(100, 100), QSize(80, 25));
    EXPECT_TRUE(at.bigArea.isEmpty());
    EXPECT_TRUE(at.stripArea.isEmpty());
}

} // namespace
