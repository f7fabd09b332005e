#include "issues/IssuePaneLayout.h"

#include <gtest/gtest.h>

namespace issues {
namespace {

constexpr QSize kPage(1000, 700);

/// Left, top, width and height, as a failing test prints them.
std::vector<int> At(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

using Rect = std::vector<int>;

TEST(IssuePaneLayoutTest, PicturesTakeWhatTheColumnLeaves) {
    const QuestionPageLayout at = LayoutQuestionPage(kPage);
    EXPECT_EQ(At(at.bigArea), (Rect{0, 0, 750, 600}));
    EXPECT_EQ(At(at.stripArea), (Rect{5, 600, 745, 95}));
    const RectifyPageLayout other = LayoutRectifyPage(kPage);
    EXPECT_EQ(other.bigArea, at.bigArea);
    EXPECT_EQ(other.stripArea, at.stripArea);
}

TEST(IssuePaneLayoutTest, TheColumnOfTheIssue) {
    const QuestionPageLayout at = LayoutQuestionPage(kPage);
    EXPECT_EQ(At(at.photoGroup), (Rect{755, 10, 245, 125}));
    EXPECT_EQ(At(at.noteGroup), (Rect{755, 140, 245, 70}));
    EXPECT_EQ(At(at.infoGroup), (Rect{755, 215, 245, 480}));
    EXPECT_EQ(At(at.uploader), (Rect{765, 35, 230, 20}));
    EXPECT_EQ(At(at.uploadTime), (Rect{765, 55, 230, 20}));
    EXPECT_EQ(At(at.deleteButton), (Rect{920, 20, 70, 20}));
    EXPECT_EQ(at.noteButton, QPoint(760, 160));
    EXPECT_EQ(at.noteStatus.topLeft(), QPoint(807, 160));
    EXPECT_EQ(At(at.noteProgress), (Rect{812, 180, 170, 5}));
    EXPECT_EQ(At(at.mark), (Rect{760, 235, 80, 20}));
    EXPECT_EQ(At(at.editButton), (Rect{940, 235, 50, 20}));
    EXPECT_EQ(At(at.name), (Rect{760, 265, 230, 20}));
    EXPECT_EQ(At(at.component), (Rect{760, 285, 230, 20}));
    EXPECT_EQ(At(at.creator), (Rect{760, 305, 230, 20}));
    EXPECT_EQ(At(at.updater), (Rect{760, 325, 230, 20}));
    EXPECT_EQ(At(at.updateTime), (Rect{760, 345, 230, 20}));
    EXPECT_EQ(At(at.descriptionCaption), (Rect{760, 365, 230, 20}));
    EXPECT_EQ(At(at.description), (Rect{760, 385, 230, 295}));
}

TEST(IssuePaneLayoutTest, TheColumnOfTheRectification) {
    const RectifyPageLayout at = LayoutRectifyPage(kPage);
    EXPECT_EQ(At(at.uploadButton), (Rect{755, 145, 245, 40}));
    EXPECT_EQ(At(at.noteGroup), (Rect{755, 190, 245, 70}));
    EXPECT_EQ(At(at.infoGroup), (Rect{755, 265, 245, 430}));
    EXPECT_EQ(At(at.state), (Rect{760, 290, 160, 20}));
    EXPECT_EQ(At(at.editButton), (Rect{945, 293, 40, 15}));
    EXPECT_EQ(At(at.rectifier), (Rect{760, 313, 230, 20}));
    EXPECT_EQ(At(at.textCaption), (Rect{760, 336, 230, 20}));
    EXPECT_EQ(At(at.text), (Rect{760, 359, 230, 245}));
    EXPECT_EQ(At(at.noteProgress), (Rect{812, 230, 170, 5}));
}

TEST(IssuePaneLayoutTest, ReportAndPropertiesStandAtTheRightAboveThePages) {
    const IssueWrapLayout at = LayoutIssueWrap(kPage, QSize(80, 25), QSize(70, 24));
    EXPECT_EQ(At(at.tabs), (Rect{0, 2, 1000, 698}));
    EXPECT_EQ(at.report, QPoint(910, 2));
    EXPECT_EQ(at.properties, QPoint(810, 2));
}

} // namespace
} // namespace issues
