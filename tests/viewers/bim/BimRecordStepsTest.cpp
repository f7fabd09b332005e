// The record below the photos of a place: what comes before what, and what a refusal leaves.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/ScriptedAudio.h"
#include "tests/viewers/bim/BimViewFixture.h"
#include "tests/viewers/support/RecordPane.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::RecordPane;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class BimRecordStepsTest : public BimViewFixture {
protected:
    static CRichEditorDlg& Below() { return Wrap().RichEditor(); }
    void OpenReady(qint32 wantedPicId = -1) {
        ASSERT_TRUE(Open(wantedPicId));
        support::RunPendingEvents();
        ASSERT_TRUE(Below().IsEditorReady());
        Log().Clear();
    }
    static bool GoTo(qint32 ppid, const QString& positionKey) {
        return Facade().OpenBimPicView(ppid, u"2"_s, positionKey, 7);
    }
    void ChooseState(const QString& state) {
        auto& states = *Below().Widget()->findChild<QComboBox*>(u"stateCombo"_s);
        states.setCurrentIndex(states.findText(state));
    }

    RecordPane record{host};
    support::ScriptedAudio audio;
};

} // namespace

TEST_F(BimRecordStepsTest, ClosingSavesBeforeTheNoteStopsAndTheConsoleComesBack) {
    Facade().ShowPicMng(1);
    Facade().reopenConsole = true;
    OpenReady(2);
    Click(Pane().Note().Button());
    ASSERT_TRUE(support::WaitFor([] { return Pane().Note().IsPlaying(); }));
    ChooseState(u"已整改"_s);
    Calls seen;
    const auto look = [&](const char* call) {
        return [&, call] {
            seen.push_back(call + std::string(Pane().Note().IsPlaying() ? " playing" : " quiet") +
                           (Wrap().HasWindow() && Below().HasWindow() ? " there" : " gone"));
        };
    };
    host.script.During("SaveRichText", look("SaveRichText"));
    host.script.During("QueryBimPics", look("QueryBimPics"));
    Wrap().Widget()->close();
    host.script.During("SaveRichText", nullptr);
    host.script.During("QueryBimPics", nullptr);
    EXPECT_THAT(seen, ElementsAre("SaveRichText playing there", "QueryBimPics quiet there"));
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Below().HasWindow());
}

TEST_F(BimRecordStepsTest, ClosingWithNothingChangedAsksNobodyAboutTheRecord) {
    OpenReady();
    Wrap().Widget()->close();
    EXPECT_THAT(Log().LinesOf({"GetRichText", "SaveRichText", "UploadFile"}), IsEmpty());
}

TEST_F(BimRecordStepsTest, ClosingAsAReaderIsSilentWhateverTheScreenShows) {
    host.richAuth.readOnly = true;
    OpenReady();
    ChooseState(u"已整改"_s);
    Wrap().Widget()->close();
    EXPECT_THAT(Log().LinesOf({"GetRichText", "SaveRichText", "UploadFile"}), IsEmpty());
}

TEST_F(BimRecordStepsTest, ClosingGoesOnThoughTheSaveFails) {
    OpenReady();
    ChooseState(u"已整改"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    Wrap().Widget()->close();
    support::RunPendingEvents();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("MainWindow"), 0);
}

TEST_F(BimRecordStepsTest, WhoMayWriteIsAskedAtEachPlace) {
    OpenReady();
    EXPECT_EQ(Below().Context().readOnly, 0);
    host.richAuth.readOnly = true;
    ASSERT_TRUE(GoTo(1, u"L"_s));
    EXPECT_EQ(RecordPane::ContextOf(Below()), u"L,7,1,1,1,1");
    EXPECT_TRUE(Below().Editor()->Sheet()->isReadOnly());
    host.richAuth.readOnly = false;
    ASSERT_TRUE(GoTo(1, u"M"_s));
    EXPECT_EQ(RecordPane::ContextOf(Below()), u"M,7,1,1,0,1");
    EXPECT_FALSE(Below().Editor()->Sheet()->isReadOnly());
}

TEST_F(BimRecordStepsTest, OwnerAndProjectAreThoseOfTheCall) {
    host.OpenWorkset({{1, u"示例工程"_s}, {2, u"二期"_s}});
    OpenReady();
    ASSERT_TRUE(GoTo(2, u"L"_s));
    EXPECT_EQ(RecordPane::ContextOf(Below()), u"L,7,2,1,1,2");
}

TEST_F(BimRecordStepsTest, WhoKeepsTheOthersVersionMovesOnToTheNextRecord) {
    OpenReady();
    RecordPane::Write(Below(), u"，我的"_s);
    record.SomebodyElseSaves();
    const support::ModalVisit visit(u"HistroyTip"_s, [](QWidget& question) {
        question.findChild<QPushButton*>(u"cancelButton"_s)->click();
    });
    ASSERT_TRUE(GoTo(1, u"L"_s));
    EXPECT_THAT(
        Log().LinesOf({"GetRichText", "SaveRichText", "GetPicFilesByPosition"}),
        ElementsAre("GetRichText(id=K)", "GetRichText(id=L)", StartsWith("GetPicFilesByPosition")));
    EXPECT_EQ(RecordPane::ContextOf(Below()), u"L,7,1,1,0,1");
    EXPECT_EQ(RecordPane::Text(Below()), u"雨后渗水");
}

TEST_F(BimRecordStepsTest, ASaveThatFailsLoadsNoOtherRecord) {
    OpenReady();
    ChooseState(u"已整改"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    ASSERT_TRUE(GoTo(1, u"L"_s));
    EXPECT_THAT(Log().LinesOf({"GetRichText", "SaveRichText", "GetPicFilesByPosition"}),
                ElementsAre("GetRichText(id=K)", StartsWith("SaveRichText(id=K,state=已整改"),
                            StartsWith("GetPicFilesByPosition")));
    EXPECT_EQ(Below().GetStateText(), u"已整改");
}

TEST_F(BimRecordStepsTest, AnotherPhotoOfThePlaceIsNoOtherRecord) {
    OpenReady();
    RecordPane::Write(Below(), u"，我的"_s);
    Press(Qt::Key_Right);
    ASSERT_EQ(Current(), 1);
    EXPECT_THAT(Log().LinesOf({"GetRichText", "SaveRichText"}), IsEmpty());
    EXPECT_EQ(RecordPane::Text(Below()), u"雨后渗水，我的");
}

TEST_F(BimRecordStepsTest, ALargerWindowGivesItsHeightToThePicturesAndPlacesTheEditor) {
    OpenReady();
    const int height = Below().Widget()->height();
    Wrap().Widget()->resize(1300, 900);
    support::RunPendingEvents();
    EXPECT_EQ(Wrap().UpDownView()->geometry(), Wrap().Widget()->rect());
    EXPECT_EQ(Below().Widget()->size(), QSize(1300, height));
    EXPECT_EQ(Below().Editor()->Widget()->geometry(), QRect(0, 28, 1300, height - 28));
    EXPECT_LT(Pane().Widget()->mapTo(Wrap().Widget(), QPoint()).y(),
              Below().Widget()->mapTo(Wrap().Widget(), QPoint()).y());
}

TEST_F(BimRecordStepsTest, ARecordThatCannotBeReadHoldsNoPicturesBack) {
    OpenReady();
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(u"富文本信息获取服务调用失败！"_s);
    EXPECT_TRUE(GoTo(1, u"L"_s));
    EXPECT_EQ(Log().CountOf("GetPicFilesByPosition"), 1);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}
