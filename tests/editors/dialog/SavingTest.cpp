// Saving: what is sent, what is refused and where that is told, and what stays.
#include "tests/editors/dialog/EditorFixture.h"
#include "tests/support/WaitFor.h"

#include <QGuiApplication>
#include <gmock/gmock.h>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using support::BalloonAt;
using support::Choose;
using support::TypeOver;
using testing::ElementsAre;
using testing::IsEmpty;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

class SavingTest : public EditorFixture {
protected:
    /// All that a person could have changed, to see that a failed save loses nothing.
    [[nodiscard]] std::string Shown() {
        std::string text =
            Name().text().toStdString() + "|" + Mark().currentText().toStdString() + "|" +
            Status().currentText().toStdString() + "|" + Floor().currentText().toStdString() + "|" +
            AxisY().currentText().toStdString() + "|" + Description().toPlainText().toStdString();
        for (const std::string& label : Labels()) {
            text += "|" + label;
        }
        return text;
    }
    void ChangeEverything() {
        TypeOver(Name(), u"新名"_s);
        Choose(Mark(), 2);
        Choose(Status(), 1);
        Choose(Floor(), 1);
        Choose(AxisY(), 2);
        ClickBox(*Root().child(1));
        Description().selectAll();
        QTest::keyClicks(&Description(), u"new text"_s);
    }
    void ExpectEverythingSent() {
        EXPECT_EQ(Sent().fileName, u"新名.jpg"_s);
        EXPECT_EQ(Sent().markId, 3);
        EXPECT_EQ(Sent().status, KX_DATA::kStatusHidden);
        EXPECT_EQ(Sent().positionKey, u"N3"_s);
        EXPECT_EQ(Sent().description, u"new text"_s);
        EXPECT_EQ(Sent().picId, 1);
        EXPECT_THAT(Sent().labelIds, ElementsAre(u"l1"_s, u"l2"_s, u"l3"_s));
        EXPECT_EQ(Sent().text1 + Sent().text2 + Sent().text3, QString());
    }
};

TEST_F(SavingTest, AnUntouchedPhotoIsSentAsItIsAndTheDialogEnds) {
    Open();
    Log().Clear();
    EXPECT_TRUE(Save());
    EXPECT_THAT(Log().Lines(), ElementsAre("UpdateBimPic(ppid=1,id=1)"));
    EXPECT_EQ(Sent().fileName, u"照片1.jpg"_s);
    EXPECT_EQ(Sent().markId, 2);
    EXPECT_EQ(Sent().status, KX_DATA::kStatusShown);
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
    EXPECT_EQ(Sent().description, u"描述1"_s);
    EXPECT_THAT(Sent().labelIds, ElementsAre(u"l1"_s, u"l3"_s));
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(SavingTest, EverythingThatAPersonChangesIsSent) {
    Open();
    ChangeEverything();
    EXPECT_TRUE(Save());
    ExpectEverythingSent();
}

TEST_F(SavingTest, ANameOfBlanksCountsAsEmptyAndIsToldAtTheNameBox) {
    Open();
    for (const QString& name : {QString(), u"   "_s, u"　\t "_s}) {
        Name().setText(name);
        ExpectRefused(Name(), "请输入照片名称！");
        EXPECT_EQ(Name().text(), name);
    }
    TypeOver(Name(), u"a"_s);
    EXPECT_TRUE(Save());
}

TEST_F(SavingTest, TheNameIsSavedTrimmed) {
    Open();
    TypeOver(Name(), u"  a b  "_s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().fileName, u"a b.jpg"_s);
}

TEST_F(SavingTest, AnExtensionInCapitalsKeepsItsSpelling) {
    Open(PhotoNamed(u"IMG.v2.JPEG"_s));
    EXPECT_EQ(Name().text(), u"IMG.v2"_s);
    EXPECT_EQ(Find<QLabel>("extensionText").text(), u".JPEG"_s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().fileName, u"IMG.v2.JPEG"_s);
}

TEST_F(SavingTest, AnEndingThatIsNoPicturesIsSavedWithJpgBehindIt) {
    Open(PhotoNamed(u"scan.tif"_s));
    EXPECT_EQ(Window()->windowTitle(), u"编辑照片-scan.tif.jpg"_s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().fileName, u"scan.tif.jpg"_s);
}

TEST_F(SavingTest, FaultsAreToldOneAfterTheOther) {
    KX_DATA::BimPicRow row = Photo();
    row.status = 11;
    Open(row);
    host.pics.axesY.clear();
    support::DropDown(AxisY());
    support::CloseList(AxisY());
    Name().clear();
    ExpectRefused(Name(), "请输入照片名称！");
    TypeOver(Name(), u"a"_s);
    ExpectRefused(Status(), "请选择照片状态！");
    Choose(Status(), 0);
    ExpectRefused(AxisY(), "请设置正确的Y轴信息后重试！");
    EXPECT_EQ(Saves(), 0);
}

TEST_F(SavingTest, ARefusedSaveChangesNothing) {
    Open();
    ChangeEverything();
    Name().clear();
    const std::string before = Shown();
    EXPECT_FALSE(Save());
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(Editor().Fields().markId, 2);
    EXPECT_THAT(Editor().Fields().labelNames, ElementsAre(u"裂缝"_s, u"渗漏"_s));
}

TEST_F(SavingTest, AFailedSaveIsToldAtItsButtonAndTheSecondAttemptSendsTheSame) {
    Open();
    ChangeEverything();
    const std::string before = Shown();
    host.script.FailNext("UpdateBimPic");
    EXPECT_FALSE(Save());
    EXPECT_EQ(BalloonAt(&Ok()), "修改照片属性失败！");
    EXPECT_TRUE(Ok().hasFocus());
    EXPECT_EQ(Shown(), before);
    ExpectEverythingSent();
    EXPECT_EQ(Editor().Fields().markId, 3);
    EXPECT_THAT(Editor().Fields().labelNames, ElementsAre(u"l1"_s, u"l2"_s, u"l3"_s));
    host.pics.lastBimUpdate = {};
    EXPECT_TRUE(Save());
    ExpectEverythingSent();
    EXPECT_EQ(Saves(), 2);
}

TEST_F(SavingTest, EveryStatusPointsAtItsControl) {
    Open();
    const std::vector<std::tuple<e_VeskPicMngStatus, const char*, QWidget*>> controls = {
        {e_VeskPicMngStatus::NameMissing, "请输入照片名称！", &Name()},
        {e_VeskPicMngStatus::StatusMissing, "请选择照片状态！", &Status()},
        {e_VeskPicMngStatus::FloorWrong, "请设置正确的楼层信息后重试！", &Floor()},
        {e_VeskPicMngStatus::AxisXWrong, "请设置正确的X轴信息后重试！", &AxisX()},
        {e_VeskPicMngStatus::AxisYWrong, "请设置正确的Y轴信息后重试！", &AxisY()},
        {e_VeskPicMngStatus::UpdateFailed, "修改照片属性失败！", &Ok()},
    };
    for (const auto& [status, message, control] : controls) {
        host.script.During("UpdateBimPic", [raised = status] { throw raised; });
        EXPECT_FALSE(Save());
        EXPECT_EQ(BalloonAt(control), message);
        EXPECT_TRUE(control->hasFocus()) << message;
    }
}

TEST_F(SavingTest, AnyOtherStatusIsToldAtTheDialog) {
    Open();
    host.script.During("UpdateBimPic", [] { throw e_VeskPicMngStatus::PicDeleted; });
    prompts.ExpectMessage(u"照片已被删除！"_s);
    EXPECT_FALSE(Save());
    EXPECT_THAT(prompts.Parents(), ElementsAre(Editor().Id()));
}

TEST_F(SavingTest, AFailedSaveCanBeCancelled) {
    Open();
    host.script.FailNext("UpdateBimPic");
    EXPECT_FALSE(Save());
    support::Click(&Cancel());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Saves(), 1);
}

TEST_F(SavingTest, EnterSavesFromTheNameBox) {
    Open();
    Name().setFocus();
    Key(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Saves(), 1);
}

TEST_F(SavingTest, EnterInTheDescriptionIsALineBreak) {
    Open();
    Description().setFocus();
    Description().moveCursor(QTextCursor::End);
    Key(Qt::Key_Return);
    QTest::keyClicks(&Description(), u"b"_s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().description, u"描述1\nb"_s);
}

TEST_F(SavingTest, EscapeCancels) {
    Open();
    TypeOver(Name(), u"x"_s);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(support::WaitFor([this] { return !IsOpen(); }));
    EXPECT_EQ(Saves(), 0);
}

TEST_F(SavingTest, ClosingTheWindowCancels) {
    Open();
    TypeOver(Name(), u"x"_s);
    Window()->close();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Saves(), 0);
}

TEST_F(SavingTest, TheWaitCursorShowsWhileTheServiceSaves) {
    Open();
    bool during = false;
    host.script.During("UpdateBimPic",
                       [&] { during = QGuiApplication::overrideCursor() != nullptr; });
    EXPECT_TRUE(Save());
    EXPECT_TRUE(during);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
