// The record below the photos of a place in the model.
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/ModalVisit.h"
#include "tests/viewers/bim/BimViewFixture.h"
#include "tests/viewers/support/RecordPane.h"

#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::RecordPane;
using testing::IsEmpty;
using testing::SizeIs;

class BimRecordTest : public BimViewFixture {
protected:
    static CRichEditorDlg& Record() { return Wrap().RichEditor(); }
    /// Opens the viewer and waits until the record is loaded.
    void OpenLoaded() {
        ASSERT_TRUE(Open());
        support::RunPendingEvents();
        ASSERT_TRUE(Record().IsEditorReady());
    }
    bool OpenPlace(const QString& positionKey, qint32 markId) {
        return Facade().OpenBimPicView(1, u"2"_s, positionKey, markId);
    }

    RecordPane record{host};
};

} // namespace

TEST_F(BimRecordTest, WithoutRichTextThePicturesHaveTheWindowToThemselves) {
    host.richAuth.enabled = false;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().UpDownView(), nullptr);
    EXPECT_FALSE(Record().HasWindow());
    EXPECT_EQ(Log().CountOf("GetRichText"), 0);
    Wrap().Widget()->close();
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(BimRecordTest, WithTheRichTextPaneTheDividerStartsWithABottomHeightOf300) {
    OpenLoaded();
    ASSERT_NE(Wrap().UpDownView(), nullptr);
    EXPECT_EQ(Wrap().UpDownView()->geometry(), Wrap().Widget()->rect());
    EXPECT_EQ(Record().Widget()->height(), 300);
    EXPECT_TRUE(Pane().Widget()->isVisible());
    EXPECT_TRUE(Record().Widget()->isVisible());
}

TEST_F(BimRecordTest, TheRecordIsThatOfThePositionTheMarkAndTheProject) {
    OpenLoaded();
    EXPECT_EQ(RecordPane::ContextOf(Record()), u"K,1,1,1,0,1");
    const KX_DATA::RichTextKey& asked = host.richTexts.lastKey;
    EXPECT_EQ(asked.objectId, u"K");
    EXPECT_EQ(asked.subId, 1);
    EXPECT_EQ(asked.ownerId, 1);
    EXPECT_EQ(asked.projectId, 1);
    EXPECT_EQ(asked.objectType, 1);
    EXPECT_EQ(RecordPane::Text(Record()), u"雨后渗水");
    EXPECT_EQ(Log().CountOf("GetRichText"), 1) << "loaded by the ready event alone";
}

TEST_F(BimRecordTest, ItIsReadOnlyForPeopleWithoutTheRightAndInAWorkset) {
    for (const bool isForbidden : {false, true}) {
        for (const bool isWorkset : {false, true}) {
            host.richAuth.readOnly = isForbidden;
            host.global.worksetMode = isWorkset;
            ASSERT_EQ(host.global.IsWorksetMode(), isWorkset);
            OpenLoaded();
            EXPECT_EQ(Record().Context().readOnly, isForbidden || isWorkset ? 1 : 0)
                << isForbidden << isWorkset;
            EXPECT_EQ(Record().Editor()->Sheet()->isReadOnly(), isForbidden || isWorkset);
            Wrap().Widget()->close();
        }
    }
}

TEST_F(BimRecordTest, AnotherPlaceIsLoadedOnceTheFirstIsSaved) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    Log().Clear();
    ASSERT_TRUE(OpenPlace(u"L"_s, 7));
    EXPECT_THAT(Log().LinesOf({"GetRichText", "SaveRichText", "GetPicFilesByPosition"}),
                testing::ElementsAre(testing::StartsWith("GetRichText(id=K"),
                                     testing::StartsWith("SaveRichText(id=K"),
                                     testing::StartsWith("GetRichText(id=L"),
                                     testing::StartsWith("GetPicFilesByPosition")));
    EXPECT_EQ(RecordPane::ContextOf(Record()), u"L,7,1,1,0,1");
    EXPECT_EQ(RecordPane::Text(Record()), u"雨后渗水");
}

TEST_F(BimRecordTest, ASaveThatFailsKeepsTheRecordAndThePicturesMoveOn) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    Log().Clear();
    ASSERT_TRUE(OpenPlace(u"L"_s, 7));
    EXPECT_EQ(RecordPane::ContextOf(Record()), u"K,1,1,1,0,1");
    EXPECT_EQ(RecordPane::Text(Record()), u"雨后渗水，已注浆");
    EXPECT_EQ(Log().CountOf("GetPicFilesByPosition"), 1);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}

TEST_F(BimRecordTest, APlaceOpenedBeforeTheEditorIsReadyIsTheOneThatIsLoaded) {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(OpenPlace(u"L"_s, 7));
    support::RunPendingEvents();
    EXPECT_EQ(Log().CountOf("GetRichText"), 1);
    EXPECT_EQ(host.richTexts.lastKey.objectId, u"L");
}

TEST_F(BimRecordTest, ClosingSaves) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    Wrap().Widget()->close();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Record().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(BimRecordTest, ARecordThatCannotBeSavedHoldsNoClosingBackAndBecomesADraft) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    host.script.FailNext("UploadFile");
    prompts.ExpectMessage(u"上传文件失败：scripted failure"_s);
    Wrap().Widget()->close();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    ASSERT_THAT(host.drafts.kept, SizeIs(1));
    const KX_DATA::RichTextDraft& draft = host.drafts.kept[0];
    EXPECT_EQ(draft.key.objectId, u"K");
    EXPECT_EQ(draft.key.subId, 1);
    EXPECT_EQ(draft.key.projectId, 1);
    EXPECT_EQ(draft.key.objectType, 1);
    EXPECT_EQ(draft.docName, u"doc");
    EXPECT_EQ(draft.versionText, u"v1");
    EXPECT_EQ(draft.stateText, u"整改中");
    ASSERT_THAT(draft.files, SizeIs(1));
    EXPECT_TRUE(draft.files[0].name.endsWith(u".html"));
    EXPECT_EQ(draft.files[0].kind, 1);
}

TEST_F(BimRecordTest, WhoKeepsTheOtherVersionWhileClosingFindsTheOwnAmongTheDrafts) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    record.SomebodyElseSaves();
    const support::ModalVisit visit(u"HistroyTip"_s, [](QWidget& question) {
        question.findChild<QPushButton*>(u"cancelButton"_s)->click();
    });
    Wrap().Widget()->close();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_THAT(host.drafts.kept, SizeIs(1));
}

TEST_F(BimRecordTest, AnUnchangedRecordIsNoDraft) {
    OpenLoaded();
    Wrap().DestroyViews();
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(BimRecordTest, AChangeOfProjectsAsksNothingSavesNothingAndKeepsADraft) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已注浆"_s);
    CVeskPicProjChangeObs observer;
    observer.OnProjChange();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Record().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_THAT(host.drafts.kept, SizeIs(1));
}

TEST_F(BimRecordTest, ItCanBeOpenedAgainAfterItsEnd) {
    OpenLoaded();
    Wrap().Widget()->close();
    support::RunPendingEvents();
    OpenLoaded();
    EXPECT_EQ(RecordPane::Text(Record()), u"雨后渗水");
    EXPECT_EQ(Record().Widget()->height(), 300);
}

TEST_F(BimRecordTest, ClosedWhileTheRecordIsReadItEndsQuietly) {
    for (const char* call : {"GetRichText", "GetStateNames"}) {
        host.script.During(call, [] { Wrap().Widget()->close(); });
        static_cast<void>(Open());
        support::RunPendingEvents();
        host.script.During(call, nullptr);
        EXPECT_FALSE(Wrap().HasWindow()) << call;
    }
}

TEST_F(BimRecordTest, EnterAndEscapeInTheRecordCloseNothing) {
    OpenLoaded();
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        QTest::keyClick(Record().Editor()->Sheet(), Qt::Key(key));
        QTest::keyClick(Record().Widget(), Qt::Key(key));
    }
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Log().CountOf("OutputBimReport"), 0);
}
