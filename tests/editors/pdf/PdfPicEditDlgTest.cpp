// Opening, saving and leaving the editor of a drawing photo.
#include "tests/editors/pdf/PdfPicEditFixture.h"

using namespace Qt::StringLiterals;

namespace {

using support::BalloonAt;
using support::Choose;
using support::TypeOver;
using testing::ElementsAre;

class PdfPicEditTest : public PdfPicEditFixture {};

TEST_F(PdfPicEditTest, OpeningShowsThePhotoInPlaceOfTheConsole) {
    ASSERT_TRUE(IsConsoleVisible());
    KX_DATA::PdfPicRecord photo = host.pics.pdfPics[0];
    photo.fileName = u"照片.甲.PNG"_s;
    photo.description = u"两行\n描述"_s;
    photo.status = KX_DATA::kStatusHidden;
    Log().Clear();
    Open(photo);
    EXPECT_THAT(Log().LinesOf({"GetPdfPicDetail", "GetMarkTable"}),
                ElementsAre("GetPdfPicDetail(ppid=1,id=1)", "GetMarkTable()"));
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_FALSE(IsConsoleVisible());
    EXPECT_EQ(Window()->windowTitle(), u"编辑照片"_s);
    EXPECT_EQ(Name().text(), u"照片.甲"_s);
    EXPECT_EQ(Find<QLabel>("extensionText").text(), u".PNG"_s);
    EXPECT_EQ(Description().toPlainText(), u"两行\n描述"_s);
    EXPECT_EQ(Entries(Drawing()), QStringList{u"一层平面"_s});
    EXPECT_FALSE(Drawing().isEnabled());
    EXPECT_EQ(Drawing().currentData().toInt(), 500);
    EXPECT_EQ(Entries(Point()), QStringList{u"检查点%1"_s.arg(photo.checkpointNo)});
    EXPECT_EQ(Point().currentData().toInt(), photo.drawingId);
    EXPECT_EQ(Status().currentText(), u"隐藏"_s);
    EXPECT_FALSE(Mark().isEnabled());
    EXPECT_EQ(Mark().currentText(), host.marks.marks.at(photo.markId).name);
    EXPECT_TRUE(Find<QLineEdit>("checkLabelEdit").text().isEmpty());
    EXPECT_TRUE(Find<QLineEdit>("checkLabelEdit").isReadOnly());
    QStringList captions;
    for (const char* name : {"picNameCaption", "drawingCaption", "pointCaption", "markCaption",
                             "statusCaption", "labelCaption", "descriptionCaption"}) {
        captions << Find<QLabel>(name).text();
    }
    EXPECT_EQ(captions,
              (QStringList{u"照片名称："_s, u"照片图纸："_s, u"照片位置："_s, u"检查点标识："_s,
                           u"状态："_s, u"检查点标签："_s, u"描述："_s}));
}

TEST_F(PdfPicEditTest, ButtonsBearTheirCaptionsAndTheStatusItsTwoTexts) {
    Open();
    EXPECT_EQ(Find<QPushButton>("pickButton").text(), u"更改插入点"_s);
    EXPECT_EQ(Find<QPushButton>("okButton").text(), u"确定"_s);
    EXPECT_EQ(Find<QPushButton>("cancelButton").text(), u"取消"_s);
    EXPECT_EQ(Entries(Status()), (QStringList{u"显示"_s, u"隐藏"_s}));
}

TEST_F(PdfPicEditTest, TabFollowsTheEye) {
    Open();
    ASSERT_TRUE(support::WaitFor([] { return Window()->isActiveWindow(); }));
    EXPECT_THAT(support::TabOrder(&Name()),
                ElementsAre("picNameEdit", "pointCombo", "statusCombo", "checkLabelEdit",
                            "descriptionEdit", "pickButton", "okButton", "cancelButton"));
}

TEST_F(PdfPicEditTest, NothingIsCutAtItsLeastSize) {
    Open();
    Window()->resize(Window()->minimumSizeHint());
    support::RunPendingEvents();
    for (const QWidget* control : Window()->findChildren<QWidget*>()) {
        const bool isText = qobject_cast<const QLabel*>(control) != nullptr ||
                            qobject_cast<const QPushButton*>(control) != nullptr;
        if (isText && control->isVisible()) {
            const std::string name = control->objectName().toStdString();
            EXPECT_GE(control->width(), control->sizeHint().width()) << name;
            EXPECT_GE(control->height(), control->sizeHint().height()) << name;
        }
    }
}

TEST_F(PdfPicEditTest, EnterInTheNameSavesAndEscapeLosesNothing) {
    Open();
    TypeOver(Name(), u"新名"_s);
    QTest::keyClick(&Name(), Qt::Key_Escape);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Name().text(), u"新名"_s);
    QTest::keyClick(&Name(), Qt::Key_Return);
    EXPECT_EQ(Sent().fileName, u"新名.jpg"_s);
    EXPECT_FALSE(Editor().HasWindow());
}

TEST_F(PdfPicEditTest, UntouchedTextsAreSentAsTheyCame) {
    KX_DATA::PdfPicRecord photo = host.pics.pdfPics[0];
    photo.description = u"一\r\n二\u00a0"_s + QString(300, u'长');
    Open(photo);
    Click("okButton");
    EXPECT_EQ(Sent().description, photo.description);
    EXPECT_EQ(Sent().fileName, photo.fileName);
}

TEST_F(PdfPicEditTest, MarksAreThoseOfTheTableByTheirIdsAndOfTwoWithOneNameTheFirstIsSelected) {
    host.marks.marks = {{7, {u"乙"_s, 0x00FF00}}, {2, {u"甲"_s, 0x0000FF}}, {9, {u"乙"_s, 0}}};
    KX_DATA::PdfPicRecord photo = host.pics.pdfPics[0];
    photo.markId = 9;
    Open(photo);
    EXPECT_EQ(Entries(Mark()), (QStringList{u"甲"_s, u"乙"_s, u"乙"_s}));
    EXPECT_EQ(Mark().currentIndex(), 1);
}

TEST_F(PdfPicEditTest, APhotoThatTheConsoleJustShowedOrHidHasNoStatusAndTheServiceLeavesIts) {
    KX_DATA::PdfPicRecord photo = host.pics.pdfPics[0];
    // The number of the status column, as the console leaves it there.
    photo.status = 12;
    Open(photo);
    EXPECT_EQ(Status().currentIndex(), -1);
    Click("okButton");
    EXPECT_EQ(Sent().status, -1);
    EXPECT_EQ(host.pics.pdfPics[0].status, KX_DATA::kStatusShown);
}

TEST_F(PdfPicEditTest, NameAndDescriptionTake255Characters) {
    Open();
    EXPECT_EQ(Name().maxLength(), 255);
    Description().setPlainText(QString());
    Description().insertPlainText(QString(300, u'字'));
    EXPECT_EQ(Description().toPlainText().size(), 255);
}

TEST_F(PdfPicEditTest, WithoutTheRightTheStatusIsHiddenAndGoesBackAsItWas) {
    host.auth.rights.erase(38);
    KX_DATA::PdfPicRecord photo = host.pics.pdfPics[0];
    photo.status = KX_DATA::kStatusHidden;
    Open(photo);
    EXPECT_FALSE(Status().isVisible());
    EXPECT_FALSE(Find<QLabel>("statusCaption").isVisible());
    Click("okButton");
    EXPECT_EQ(Sent().status, KX_DATA::kStatusHidden);
}

TEST_F(PdfPicEditTest, AMarkThatTheTableLacksSelectsNothing) {
    KX_DATA::PdfPicRecord photo = host.pics.pdfPics[0];
    photo.markId = 987;
    Open(photo);
    EXPECT_EQ(Mark().currentIndex(), -1);
    EXPECT_EQ(Mark().count(), int(host.marks.marks.size()));
}

TEST_F(PdfPicEditTest, WhatCannotBeLoadedIsToldAndTheConsoleStays) {
    host.script.FailNext("GetPdfPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Open();
    EXPECT_FALSE(Editor().HasWindow());
    EXPECT_TRUE(IsConsoleVisible());
    host.script.FailNext("GetMarkTable");
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    Open();
    EXPECT_FALSE(Editor().HasWindow());
    EXPECT_TRUE(IsConsoleVisible());
    Open();
    EXPECT_TRUE(Window()->isVisible());
}

TEST_F(PdfPicEditTest, WhatIsChangedIsSavedAndTheConsoleIsReadAnewAndComesBack) {
    Open();
    TypeOver(Name(), u"新名"_s);
    Choose(Status(), 1);
    Description().selectAll();
    QTest::keyClicks(&Description(), u"new text"_s);
    Log().Clear();
    bool wasOpen = false;
    host.script.During("QueryPdfPics", [&] { wasOpen = Editor().HasWindow(); });
    Click("okButton");
    EXPECT_THAT(Log().LinesOf({"UpdatePdfPic"}), ElementsAre("UpdatePdfPic(ppid=1,id=1)"));
    EXPECT_EQ(Sent().fileName, u"新名.jpg"_s);
    EXPECT_EQ(Sent().status, KX_DATA::kStatusHidden);
    EXPECT_EQ(Sent().description, u"new text"_s);
    EXPECT_EQ(Sent().pointId, host.pics.pdfPics[0].drawingId);
    EXPECT_EQ(Sent().drawingId, 500);
    EXPECT_EQ(Log().CountOf("QueryPdfPics"), 1);
    EXPECT_TRUE(wasOpen) << "the page is there before the editor's window ends";
    EXPECT_FALSE(Editor().HasWindow());
    EXPECT_TRUE(IsConsoleVisible());
}

TEST_F(PdfPicEditTest, AnEmptyNameIsRefusedAtItsBoxAndOneOfBlanksPasses) {
    Open();
    Name().clear();
    Click("okButton");
    EXPECT_EQ(BalloonAt(&Name()), "请输入照片名称！");
    EXPECT_EQ(Log().CountOf("UpdatePdfPic"), 0);
    TypeOver(Name(), u"  "_s);
    Click("okButton");
    EXPECT_EQ(Sent().fileName, u"  .jpg"_s);
    EXPECT_FALSE(Editor().HasWindow());
}

TEST_F(PdfPicEditTest, ARefusedSaveKeepsEverythingAndCanBeTriedAgain) {
    Open();
    TypeOver(Name(), u"新名"_s);
    host.script.FailNext("UpdatePdfPic");
    prompts.ExpectMessage(ZelvorNRQ_KXVeskPicture::GetStatusMessage(
        ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus::UpdateFailed));
    Click("okButton");
    ASSERT_TRUE(Editor().HasWindow());
    EXPECT_EQ(Name().text(), u"新名"_s);
    EXPECT_FALSE(IsConsoleVisible());
    Click("okButton");
    EXPECT_EQ(Log().CountOf("UpdatePdfPic"), 2);
    EXPECT_FALSE(Editor().HasWindow());
}

TEST_F(PdfPicEditTest, CancelAndTheWindowsCloseSaveNothingAndBringTheConsoleBack) {
    Open();
    TypeOver(Name(), u"新名"_s);
    Click("cancelButton");
    EXPECT_FALSE(Editor().HasWindow());
    EXPECT_TRUE(IsConsoleVisible());
    Open();
    EXPECT_EQ(Name().text(), u"图片1"_s);
    Window()->close();
    EXPECT_FALSE(Editor().HasWindow());
    EXPECT_TRUE(IsConsoleVisible());
    EXPECT_EQ(Log().CountOf("UpdatePdfPic"), 0);
}

TEST_F(PdfPicEditTest, TheSelectedPlaceChangesNoMarkAndOnlyNoSelectionAsksForOne) {
    Open();
    const QString before = Mark().currentText();
    Log().Clear();
    emit Point().activated(0);
    EXPECT_EQ(Log().CountOf("GetDrawing"), 0);
    EXPECT_EQ(Mark().currentText(), before);
    host.drawings.drawings[-1].markName = host.marks.marks.rbegin()->second.name;
    Point().setCurrentIndex(-1);
    emit Point().activated(-1);
    EXPECT_THAT(Log().LinesOf({"GetDrawing"}), ElementsAre("GetDrawing(drawing=-1)"));
    EXPECT_EQ(Mark().currentText(), host.marks.marks.rbegin()->second.name);
    host.drawings.drawings.erase(-1);
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    emit Point().activated(-1);
}

TEST_F(PdfPicEditTest, ServicesThatEndTheWindowAreSurvived) {
    for (const char* call : {"GetPdfPicDetail", "GetMarkTable", "HasRight", "UpdatePdfPic"}) {
        Open();
        if (Editor().HasWindow()) {
            host.script.During(call, [] { Editor().Destroy(); });
            if (std::string(call) != "UpdatePdfPic") {
                Editor().Destroy();
                Open();
            } else {
                Click("okButton");
            }
        }
        support::RunPendingEvents();
        host.script.During(call, nullptr);
        EXPECT_FALSE(Editor().HasWindow()) << call;
        Console().Widget()->show();
    }
}

TEST_F(PdfPicEditTest, TheConsoleThatEndsTakesItsEditorAlong) {
    Open();
    Console().CloseConsole();
    support::RunPendingEvents();
    EXPECT_FALSE(Editor().HasWindow());
    Facade().ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
    Open();
    EXPECT_TRUE(Window()->isVisible());
}

} // namespace
