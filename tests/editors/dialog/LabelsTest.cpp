// The label tree of the editor and its row for new labels.
#include "editors/LabelTreeEdit.h"
#include "tests/editors/dialog/EditorFixture.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::BalloonAt;
using support::Click;
using support::TypeOver;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kNoBlanks[] = "标签中不允许输入空格！";

class LabelsTest : public EditorFixture {
protected:
    void Add(const QString& label) {
        TypeOver(NewLabel(), label);
        Click(&AddLabel());
    }
    void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        NewLabel().setFocus();
        Key(Qt::Key_V, Qt::ControlModifier);
    }
    /// Balloons since the last time that events ran.
    int Balloons() { return int(Window()->findChildren<QWidget*>(u"balloonTip"_s).size()); }
};

TEST_F(LabelsTest, AClickOnABoxChecksItsLabelAndTheRootFollows) {
    Open();
    ClickBox(*Root().child(1));
    ClickBox(*Root().child(3));
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "x 空鼓", "x 渗漏", "x 返工"));
    EXPECT_EQ(CTreeCtrl3StateBase::Get3StateCheck(Root()), CTreeCtrl3StateBase::kChecked);
}

TEST_F(LabelsTest, ATreeThatIsFilledAgainHoldsEachLabelOnce) {
    Open();
    LabelTreeEdit again(Editor(), {&Tree(), &NewLabel(), &NewLabel(), &AddLabel()}, {});
    again.Fill({u"返工"_s});
    EXPECT_EQ(Tree().topLevelItemCount(), 1);
    EXPECT_THAT(Labels(), ElementsAre("  裂缝", "  空鼓", "  渗漏", "x 返工"));
}

TEST_F(LabelsTest, TheRootChecksAndUnchecksAll) {
    Open();
    ClickBox(Root());
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "x 空鼓", "x 渗漏", "x 返工"));
    ClickBox(Root());
    EXPECT_THAT(Labels(), ElementsAre("  裂缝", "  空鼓", "  渗漏", "  返工"));
    EXPECT_TRUE(Save());
    EXPECT_THAT(Sent().labelIds, IsEmpty()) << "the root is no label";
}

TEST_F(LabelsTest, TheSpaceBarChecksTheCurrentLabel) {
    Open();
    Tree().setFocus();
    Tree().setCurrentItem(Root().child(0));
    Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "x 空鼓", "x 渗漏", "  返工"));
}

TEST_F(LabelsTest, CheckedLabelsAreSentByIdInTheOrderOfTheTree) {
    Open();
    ClickBox(*Root().child(3));
    ClickBox(*Root().child(0));
    EXPECT_TRUE(Save());
    EXPECT_THAT(Sent().labelIds, ElementsAre(u"l3"_s, u"l4"_s));
}

TEST_F(LabelsTest, TheButtonWorksExactlyWhileThereIsText) {
    Open();
    EXPECT_FALSE(AddLabel().isEnabled());
    TypeOver(NewLabel(), u"a"_s);
    EXPECT_TRUE(AddLabel().isEnabled());
    Key(Qt::Key_Backspace);
    EXPECT_FALSE(AddLabel().isEnabled());
}

TEST_F(LabelsTest, ATypedBlankGoesAtOnceWithATip) {
    Open();
    TypeOver(NewLabel(), u"ab"_s);
    EXPECT_EQ(BalloonAt(&NewLabel()), "");
    Key(Qt::Key_Space);
    EXPECT_EQ(NewLabel().text(), u"ab"_s);
    EXPECT_EQ(BalloonAt(&NewLabel()), kNoBlanks);
    EXPECT_TRUE(AddLabel().isEnabled());
    EXPECT_TRUE(NewLabel().hasFocus());
}

TEST_F(LabelsTest, ABlankTypedInTheMiddleLeavesTheCursorThere) {
    Open();
    TypeOver(NewLabel(), u"ac"_s);
    Key(Qt::Key_Left);
    Key(Qt::Key_Space);
    QTest::keyClick(&NewLabel(), 'b');
    EXPECT_EQ(NewLabel().text(), u"abc"_s);
}

TEST_F(LabelsTest, BlanksInTheMiddleAreRemovedOneByOneEachWithTheTip) {
    Open();
    Paste(u" 外 墙 渗漏"_s);
    EXPECT_EQ(NewLabel().text(), u"外墙渗漏"_s);
    EXPECT_EQ(Balloons(), 3);
    EXPECT_EQ(BalloonAt(&NewLabel()), kNoBlanks);
}

TEST_F(LabelsTest, NothingButBlanksLeavesNothing) {
    Open();
    Paste(u"   "_s);
    EXPECT_EQ(NewLabel().text(), QString());
    EXPECT_EQ(Balloons(), 3);
    EXPECT_FALSE(AddLabel().isEnabled());
}

TEST_F(LabelsTest, ALabelOf127CharactersIsAccepted) {
    Open();
    const QString label(127, u'签');
    Paste(label + u"长"_s);
    EXPECT_EQ(NewLabel().text(), label);
    Click(&AddLabel());
    EXPECT_EQ(host.docs.labels.back().labelName, label);
    EXPECT_EQ(Root().child(4)->text(0), label);
}

TEST_F(LabelsTest, AnAddedLabelIsTheLastOfTheTreeAndChecked) {
    Open();
    Log().Clear();
    Add(u"外墙"_s);
    EXPECT_THAT(Log().Lines(), ElementsAre("AddLabel(kind=2,label=外墙,value=2,parent=0)"));
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工", "x 外墙"));
    EXPECT_EQ(BalloonAt(&AddLabel()), "标签添加成功！");
    EXPECT_EQ(NewLabel().text(), QString());
    EXPECT_FALSE(AddLabel().isEnabled());
    EXPECT_TRUE(Save());
    EXPECT_THAT(Sent().labelIds, ElementsAre(u"l1"_s, u"l3"_s, u"5"_s));
}

TEST_F(LabelsTest, AddingReadsAllFields) {
    Open();
    TypeOver(Name(), u"新名"_s);
    Add(u"外墙"_s);
    EXPECT_EQ(Editor().Fields().newLabel, u"外墙"_s);
    EXPECT_EQ(Editor().Fields().picName, u"新名"_s);
    EXPECT_EQ(Name().text(), u"新名"_s);
}

TEST_F(LabelsTest, SeveralCanBeAddedOneAfterTheOther) {
    Open();
    Add(u"外墙"_s);
    EXPECT_TRUE(NewLabel().hasFocus());
    Add(u"屋面"_s);
    EXPECT_TRUE(Save());
    EXPECT_THAT(Sent().labelIds, ElementsAre(u"l1"_s, u"l3"_s, u"5"_s, u"6"_s));
}

TEST_F(LabelsTest, AddingToAnEmptyTreeShowsTheNewLabel) {
    host.docs.labels.clear();
    Open();
    Add(u"外墙"_s);
    EXPECT_THAT(Labels(), ElementsAre("x 外墙"));
    EXPECT_TRUE(Root().isExpanded());
    EXPECT_FALSE(Tree().visualItemRect(Root().child(0)).isEmpty());
    EXPECT_EQ(CTreeCtrl3StateBase::Get3StateCheck(Root()), CTreeCtrl3StateBase::kChecked);
}

TEST_F(LabelsTest, EnterInTheBoxAddsAndDoesNotSave) {
    Open();
    TypeOver(NewLabel(), u"外墙"_s);
    Key(Qt::Key_Return);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Root().child(4)->text(0), u"外墙"_s);
    EXPECT_EQ(Saves(), 0);
    TypeOver(NewLabel(), u"屋面"_s);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Root().childCount(), 6);
    // With nothing to add it means what it means everywhere.
    Key(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Saves(), 1);
}

TEST_F(LabelsTest, ALabelThatIsThereIsRefusedAtTheBox) {
    Open();
    Log().Clear();
    Add(u"空鼓"_s);
    EXPECT_EQ(BalloonAt(&NewLabel()), "此标签已存在！");
    EXPECT_TRUE(NewLabel().hasFocus());
    EXPECT_THAT(Log().Lines(), IsEmpty());
    EXPECT_EQ(NewLabel().text(), u"空鼓"_s);
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工"));
}

TEST_F(LabelsTest, AnAddedLabelIsThereToo) {
    Open();
    Add(u"外墙"_s);
    Add(u"外墙"_s);
    EXPECT_EQ(BalloonAt(&NewLabel()), "此标签已存在！");
    EXPECT_EQ(Log().CountOf("AddLabel"), 1);
}

TEST_F(LabelsTest, ATextThatIsTrimmedAwayIsRefusedAtTheBox) {
    Open();
    TypeOver(NewLabel(), u"　"_s);
    ASSERT_TRUE(AddLabel().isEnabled());
    Click(&AddLabel());
    EXPECT_EQ(BalloonAt(&NewLabel()), "标签不能为空！");
    EXPECT_EQ(Log().CountOf("AddLabel"), 0);
}

TEST_F(LabelsTest, ALabelIsTrimmedBeforeItIsCompared) {
    Open();
    Add(u"　空鼓　"_s);
    EXPECT_EQ(BalloonAt(&NewLabel()), "此标签已存在！");
}

TEST_F(LabelsTest, ALabelThatTheServiceRefusesIsToldAtTheButtonAndChangesNothing) {
    Open();
    host.script.FailNext("AddLabel");
    Add(u"外墙"_s);
    EXPECT_EQ(BalloonAt(&AddLabel()), "添加标签出错！");
    EXPECT_TRUE(AddLabel().hasFocus());
    EXPECT_EQ(NewLabel().text(), u"外墙"_s);
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工"));
    Click(&AddLabel());
    EXPECT_EQ(BalloonAt(&AddLabel()), "标签添加成功！");
}

TEST_F(LabelsTest, AnyOtherStatusIsToldAtTheDialog) {
    Open();
    host.script.During("AddLabel",
                       [] { throw ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus::LabelsFailed; });
    prompts.ExpectMessage(u"获取标签出错！"_s);
    Add(u"外墙"_s);
    EXPECT_THAT(prompts.Parents(), ElementsAre(Editor().Id()));
    EXPECT_EQ(NewLabel().text(), u"外墙"_s);
}

TEST_F(LabelsTest, AnAddedLabelStaysOnTheServerWhenTheDialogIsCancelled) {
    Open();
    Add(u"外墙"_s);
    Click(&Cancel());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(host.docs.labels.back().labelName, u"外墙"_s);
    EXPECT_EQ(Saves(), 0);
}

TEST_F(LabelsTest, ClosedWhileTheServiceAddsNothingElseHappens) {
    Open();
    host.script.During("AddLabel", [this] { Editor().Destroy(); });
    Add(u"外墙"_s);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(BalloonAt(nullptr), "");
}

TEST_F(LabelsTest, AfterLabelsThatCouldNotBeReadAddingWorks) {
    host.script.FailNext("GetLabels");
    prompts.ExpectMessage(u"获取标签出错！"_s);
    Open();
    Add(u"外墙"_s);
    EXPECT_THAT(Labels(), ElementsAre("x 外墙"));
    EXPECT_TRUE(Root().isExpanded());
}

TEST_F(LabelsTest, LabelsOfAThousandCharactersAndMarkupAreShownAsTheyAre) {
    host.docs.labels = {{u"l1"_s, u"<b>x</b>"_s}, {u"l2"_s, QString(1000, u'长')}};
    Open();
    EXPECT_EQ(Root().child(0)->text(0), u"<b>x</b>"_s);
    EXPECT_EQ(Tree().visualItemRect(Root().child(0)).height(),
              Tree().visualItemRect(Root().child(1)).height());
    EXPECT_FALSE(Tree().horizontalScrollBar()->isVisible());
}

} // namespace
