// The record below the pictures of a checkpoint.
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/viewers/pdf/PdfViewFixture.h"
#include "tests/viewers/support/RecordPane.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::RecordPane;
using testing::SizeIs;

class PdfRecordTest : public PdfViewFixture {
protected:
    static CRichEditorDlg& Record() { return Wrap().RichEditor(); }
    void OpenLoaded() {
        ASSERT_TRUE(Open());
        support::RunPendingEvents();
        ASSERT_TRUE(Record().IsEditorReady());
    }

    RecordPane record{host};
};

} // namespace

TEST_F(PdfRecordTest, WithoutRichTextThePicturesHaveTheWindowToThemselves) {
    host.richAuth.enabled = false;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().UpDownView(), nullptr);
    EXPECT_FALSE(Record().HasWindow());
}

TEST_F(PdfRecordTest, TheDividerStartsWithABottomHeightOf150) {
    OpenLoaded();
    ASSERT_NE(Wrap().UpDownView(), nullptr);
    EXPECT_EQ(Record().Widget()->height(), 150);
    EXPECT_EQ(Wrap().UpDownView()->geometry(), Wrap().Widget()->rect());
}

TEST_F(PdfRecordTest, TheRecordIsThatOfTheDrawingAloneAndOfItsProject) {
    OpenLoaded();
    EXPECT_EQ(RecordPane::ContextOf(Record()), u",0,101,2,0,1");
    const KX_DATA::RichTextKey& asked = host.richTexts.lastKey;
    EXPECT_EQ(asked.objectId, QString());
    EXPECT_EQ(asked.subId, 0);
    EXPECT_EQ(asked.ownerId, 101);
    EXPECT_EQ(asked.projectId, 1);
    EXPECT_EQ(asked.objectType, 2);
}

TEST_F(PdfRecordTest, ItIsReadOnlyForPeopleWithoutTheRightAndInAWorkset) {
    host.richAuth.readOnly = true;
    OpenLoaded();
    EXPECT_EQ(Record().Context().readOnly, 1);
    Wrap().Widget()->close();
    host.richAuth.readOnly = false;
    host.OpenWorkset({{1, u"一"_s}});
    OpenLoaded();
    EXPECT_EQ(Record().Context().readOnly, 1);
}

TEST_F(PdfRecordTest, AnotherCheckpointIsLoadedOnceTheFirstIsSaved) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    Log().Clear();
    ASSERT_TRUE(Open(102));
    EXPECT_THAT(Log().LinesOf({"SaveRichText", "GetDrawing"}),
                testing::ElementsAre(testing::StartsWith("SaveRichText"),
                                     testing::StartsWith("GetDrawing")));
    EXPECT_EQ(RecordPane::ContextOf(Record()), u",0,102,2,0,1");
}

TEST_F(PdfRecordTest, ASaveThatFailsKeepsTheRecordAndThePicturesMoveOn) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    ASSERT_TRUE(Open(102));
    EXPECT_EQ(RecordPane::ContextOf(Record()), u",0,101,2,0,1");
    EXPECT_EQ(Wrap().drawingId, 102);
}

TEST_F(PdfRecordTest, ClosingSavesAndTellsTheHostOfAnotherState) {
    OpenLoaded();
    auto& states = *Record().Widget()->findChild<QComboBox*>(u"stateCombo"_s);
    states.setCurrentIndex(states.findText(u"已整改"_s));
    Wrap().Widget()->close();
    support::RunPendingEvents();
    EXPECT_THAT(Log().LinesOf({"SaveRichText", "MainWindow"}),
                testing::ElementsAre("SaveRichText(id=,state=已整改,removed=[],added=0)",
                                     "MainWindow(event=7540,first=2,second=0)"));
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(PdfRecordTest, AChangeOfProjectsSavesNothingAndKeepsADraft) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    CVeskPicProjChangeObs observer;
    observer.OnProjChange();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    ASSERT_THAT(host.drafts.kept, SizeIs(1));
    EXPECT_EQ(host.drafts.kept[0].key.ownerId, 101);
}
