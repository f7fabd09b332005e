// The labels of a checkpoint in its editor.
#include "tests/editors/checkpoint/CheckPtFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CheckPtLabelsTest : public CheckPtFixture {
protected:
    void Add(const QString& label) {
        support::TypeOver(NewLabel(), label);
        support::Click(&AddLabel());
    }
};

TEST_F(CheckPtLabelsTest, AnEmptyListIsATreeWithItsRootAlone) {
    host.docs.labels.clear();
    Open();
    EXPECT_EQ(Root().text(0), u"全部标签");
    EXPECT_THAT(Labels(), IsEmpty());
    Add(u"新"_s);
    EXPECT_THAT(Labels(), ElementsAre("x 新"));
}

TEST_F(CheckPtLabelsTest, AnAddedLabelIsCheckedSavedByItsIdAndTold) {
    Open();
    Add(u"新"_s);
    EXPECT_THAT(Log().LinesOf({"AddLabel"}),
                ElementsAre("AddLabel(kind=2,label=新,value=2,parent=0)"));
    EXPECT_EQ(Labels().back(), "x 新");
    EXPECT_TRUE(NewLabel().text().isEmpty());
    EXPECT_EQ(support::BalloonAt(&AddLabel()), "标签添加成功！");
    EXPECT_TRUE(Save());
    ASSERT_EQ(Sent().labelNames.size(), 3U);
    EXPECT_NE(Sent().labelNames.back(), u"新");
}

TEST_F(CheckPtLabelsTest, AddingReadsNoOtherField) {
    Open();
    Description().setPlainText(u"打字"_s);
    Description().document()->setModified(true);
    Add(u"新"_s);
    EXPECT_EQ(editor->Checkpoint().description, u"梁底裂缝");
    EXPECT_EQ(Description().toPlainText(), u"打字");
}

TEST_F(CheckPtLabelsTest, FaultsAreToldAtTheirControls) {
    Open();
    Add(u"裂缝"_s);
    EXPECT_EQ(support::BalloonAt(&NewLabel()), "此标签已存在！");
    host.script.FailNext("AddLabel");
    Add(u"新"_s);
    EXPECT_EQ(support::BalloonAt(&AddLabel()), "添加标签出错！");
    EXPECT_EQ(Log().CountOf("AddLabel"), 1);
    support::TypeOver(NewLabel(), u"a b"_s);
    EXPECT_EQ(support::BalloonAt(&NewLabel()), "标签中不允许输入空格！");
    EXPECT_EQ(NewLabel().text(), u"ab");
}

TEST_F(CheckPtLabelsTest, WithoutTheRightTheAddingRowIsHiddenAndTheTreeStillWorks) {
    host.auth.rights.erase(KX_DATA::kRightAddLabels);
    Open();
    for (const char* part : {"newLabelCaption", "newLabelEdit", "addLabelButton"}) {
        EXPECT_FALSE(Find<QWidget>(part).isVisible()) << part;
    }
    CTreeCtrl3StateBase::Set3StateCheck(*Root().child(0), CTreeCtrl3StateBase::kUnchecked);
    EXPECT_TRUE(Save());
    EXPECT_THAT(Sent().labelNames, ElementsAre(u"l3"_s));
}

TEST_F(CheckPtLabelsTest, ALabelAddedStaysOnTheServerWhenTheEditIsCancelled) {
    Open();
    Add(u"新"_s);
    support::Click(&Find<QPushButton>("cancelButton"));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(host.docs.labels.back().labelName, u"新");
    EXPECT_EQ(Log().CountOf("UpdateCheckpoint"), 0);
}

TEST_F(CheckPtLabelsTest, ANewLabelHasAtMostAHundredAndTwentySevenCharacters) {
    Open();
    EXPECT_EQ(NewLabel().maxLength(), 127);
}

} // namespace
