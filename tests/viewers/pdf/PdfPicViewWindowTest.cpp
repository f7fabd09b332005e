// The windows of the drawing photo viewer: places, keys, Tab order, the report.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/pdf/PdfViewFixture.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PdfPicViewWindowTest : public PdfViewFixture {
protected:
    void ExpectPlaces(int w, int h);
};

/// Lines grow up and down by what their face needs.
void ExpectLine(const QWidget* line, int x, int y, int width) {
    const std::string name = line->objectName().toStdString();
    EXPECT_EQ(line->x(), x) << name;
    EXPECT_EQ(line->width(), width) << name;
    EXPECT_TRUE(line->geometry().contains(QRect(x, y, width, 20))) << name;
    EXPECT_NEAR(line->geometry().center().y(), y + 10, 1) << name;
}

void PdfPicViewWindowTest::ExpectPlaces(int w, int h) {
    Wrap().Widget()->resize(w, h);
    ASSERT_EQ(Pane().Widget()->size(), QSize(w, h));
    EXPECT_EQ(Pane().State().bigArea, QRect(0, 0, w - 235, h - 110));
    EXPECT_EQ(Pane().State().stripArea, QRect(5, h - 110, w - 240, 105));
    EXPECT_EQ(Texts().picGroup->geometry(), QRect(w - 230, 5, 225, 125));
    EXPECT_EQ(Texts().noteGroup->geometry(), QRect(w - 230, 140, 225, 70));
    EXPECT_EQ(Texts().checkpointGroup->geometry(), QRect(w - 230, 220, 225, h - 225));
    ExpectLine(Texts().uploaderText, w - 220, 30, 210);
    ExpectLine(Texts().uploadTimeText, w - 220, 50, 210);
    ExpectLine(Texts().updaterText, w - 220, 70, 210);
    ExpectLine(Texts().updateTimeText, w - 220, 90, 210);
    ExpectLine(Texts().picDescText, w - 220, 110, 210);
    EXPECT_EQ(Pane().DeleteButton()->geometry(), QRect(w - 80, 15, 70, 20));
    EXPECT_EQ(Pane().Note().Button()->geometry(), QRect(w - 225, 160, 42, 43));
    EXPECT_EQ(Pane().Note().Progress()->geometry(), QRect(w - 175, 190, 160, 5));
    ExpectLine(Pane().Note().Status(), w - 175, 170, 160);
    EXPECT_EQ(Texts().markText->geometry(), QRect(w - 225, 240, 80, 20));
    EXPECT_EQ(Pane().EditButton()->geometry(), QRect(w - 85, 240, 60, 20));
    ExpectLine(Texts().cpLabelText, w - 220, 270, 210);
    ExpectLine(Texts().cpDescText, w - 220, 290, 210);
    ExpectLine(Texts().cpUpdateTimeText, w - 220, 310, 210);
    ExpectLine(Texts().remarkText, w - 220, 330, 210);
    EXPECT_EQ(List().geometry(), QRect(w - 225, 350, 215, h - 445));
    EXPECT_EQ(Box().geometry(), QRect(w - 225, h - 85, 215, 50));
    const QRect send = SendButton().geometry();
    EXPECT_EQ(QPoint(send.x() + send.width(), send.y() + send.height()), QPoint(w - 10, h - 10));
    const QRect report = Pane().ReportButton()->geometry();
    EXPECT_EQ(QPoint(report.x(), report.y() + report.height()), QPoint(w - 225, h - 10));
    EXPECT_TRUE(Pane().ReportButton()->isVisible());
}

} // namespace

TEST_F(PdfPicViewWindowTest, EveryControlStandsInItsPlace) {
    ASSERT_TRUE(Open());
    ExpectPlaces(1000, 700);
}

TEST_F(PdfPicViewWindowTest, EveryControlStandsInItsPlaceInTheLeastAndInTheFirstSize) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Widget()->size(), QSize(1200, 800));
    EXPECT_EQ(Wrap().Widget()->minimumSize(), QSize(800, 630));
    ExpectPlaces(800, 630);
    ExpectPlaces(1200, 800);
}

TEST_F(PdfPicViewWindowTest, TheButtonsAreAsLargeAsTheirTextsNeed) {
    ASSERT_TRUE(Open());
    for (const QPushButton* button : {&SendButton(), Pane().ReportButton()}) {
        EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 16);
        EXPECT_GE(button->height(), button->fontMetrics().height() + 4);
        EXPECT_FALSE(button->geometry().intersects(Box().geometry()));
    }
    EXPECT_FALSE(SendButton().geometry().intersects(Pane().ReportButton()->geometry()));
}

TEST_F(PdfPicViewWindowTest, TheStripRunsFromLeftToRight) {
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Pane().State().strip.horizontal);
}

TEST_F(PdfPicViewWindowTest, TheGallerysButtonsHaveTheWorkFoldersImages) {
    folder.Write(u"work/left_pic.png"_s, support::PngBytes(support::OneColour({200, 90}, Qt::red)));
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Pane().State().buttons[gallery::kPrevPic].HasImage());
}

TEST_F(PdfPicViewWindowTest, TabGoesAsTheEyeDoes) {
    GiveNote();
    ASSERT_TRUE(Open());
    ASSERT_TRUE(support::WaitFor([] { return Wrap().Widget()->isActiveWindow(); }));
    // The last one is the pane, which has no name of its own and takes the gallery's keys.
    EXPECT_THAT(support::TabOrder(Pane().DeleteButton()),
                ElementsAre("deleteButton", "noteButton", "editButton", "commentList",
                            "commentEdit", "reportButton", "sendButton", "PdfPicViewWrap"));
}

TEST_F(PdfPicViewWindowTest, EveryControlHasANameForReadersAndATipOrAText) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(List().accessibleName(), u"评论");
    EXPECT_EQ(Box().accessibleName(), u"评论内容");
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             Pane().DeleteButton(), Pane().EditButton(), &SendButton(), Pane().ReportButton(),
             Pane().Note().Button()}) {
        EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
    }
}

TEST_F(PdfPicViewWindowTest, EnterAndEscapeDoNothingWhereverTheKeyboardIs) {
    ASSERT_TRUE(Open());
    Box().setPlainText(u"一"_s);
    Log().Clear();
    for (QWidget* control : std::initializer_list<QWidget*>{
             Pane().DeleteButton(), Pane().Note().Button(), Pane().EditButton(), &List(), &Box(),
             Pane().ReportButton(), &SendButton(), Pane().Widget(), Wrap().Widget()}) {
        control->setFocus();
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QTest::keyClick(control, key);
        }
    }
    EXPECT_TRUE(Wrap().HasWindow());
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
    EXPECT_EQ(Box().toPlainText(), u"一");
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(PdfPicViewWindowTest, SpacePressesTheLinkThatHasTheFocus) {
    ASSERT_TRUE(Open());
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, false);
    QTest::keyClick(Pane().DeleteButton(), Qt::Key_Space);
    EXPECT_TRUE(prompts.AllAnswered());
}

TEST_F(PdfPicViewWindowTest, KeysOfTheGalleryAreSeenBeforeTheCommentBox) {
    ASSERT_TRUE(Open());
    Box().setPlainText(u"一二"_s);
    QTest::keyClick(&Box(), Qt::Key_Right);
    EXPECT_EQ(Current(), 1);
    QTest::keyClick(&Box(), Qt::Key_Home);
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(Box().toPlainText(), u"一二");
}

TEST_F(PdfPicViewWindowTest, WithoutPicturesTheKeysAreTheBoxes) {
    ASSERT_TRUE(Open(103));
    Box().setPlainText(u"一二"_s);
    QTest::keyClick(&Box(), Qt::Key_Right);
    EXPECT_EQ(Box().textCursor().position(), 1);
}

TEST_F(PdfPicViewWindowTest, AnotherTitleLaysOutAgain) {
    ASSERT_TRUE(Open());
    Pane().Widget()->resize(100, 100);
    Press(Qt::Key_Right);
    EXPECT_EQ(Pane().Widget()->geometry(), Wrap().Widget()->rect());
}

TEST_F(PdfPicViewWindowTest, TheReportBlocksTheClientUntilItIsGone) {
    QWidget* client = mainWindow.Widget();
    ASSERT_TRUE(Open());
    QWidget report;
    report.setWindowTitle(u"输出报告"_s);
    report.show();
    Click(Pane().ReportButton());
    EXPECT_FALSE(client->isEnabled());
    EXPECT_EQ(Log().CountOf("OutputPdfReport"), 1);
    Wrap().OnTimer(1);
    EXPECT_FALSE(client->isEnabled());
    report.hide();
    Wrap().OnTimer(1);
    EXPECT_TRUE(client->isEnabled());
    Click(Pane().ReportButton());
    Wrap().Widget()->close();
    EXPECT_TRUE(client->isEnabled());
}
