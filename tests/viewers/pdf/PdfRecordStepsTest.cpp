// The record below the pictures of a checkpoint: what comes before what, and what a refusal leaves.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/ModalVisit.h"
#include "tests/viewers/pdf/PdfViewFixture.h"
#include "tests/viewers/support/RecordPane.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::RecordPane;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class PdfRecordStepsTest : public PdfViewFixture {
protected:
    static CRichEditorDlg& Below() { return Wrap().RichEditor(); }
    void OpenReady() {
        ASSERT_TRUE(Open());
        support::RunPendingEvents();
        ASSERT_TRUE(Below().IsEditorReady());
        Log().Clear();
    }
    static void ChooseState(const QString& state) {
        auto& states = *Below().Widget()->findChild<QComboBox*>(u"stateCombo"_s);
        states.setCurrentIndex(states.findText(state));
    }
    [[nodiscard]] Calls RecordCalls() {
        return Log().LinesOf({"GetRichText", "SaveRichText", "UploadFile"});
    }

    RecordPane record{host};
};

} // namespace

TEST_F(PdfRecordStepsTest, ANextCheckpointSavesThenLoadsThenReadsTheCheckpoint) {
    OpenReady();
    ChooseState(u"已整改"_s);
    std::vector<qint32> owners;
    host.script.During("GetRichText", [&] { owners.push_back(host.richTexts.lastKey.ownerId); });
    ASSERT_TRUE(Open(102));
    host.script.During("GetRichText", nullptr);
    EXPECT_THAT(Log().LinesOf({"GetRichText", "SaveRichText", "GetDrawing"}),
                ElementsAre("GetRichText(id=)", StartsWith("SaveRichText("), "GetRichText(id=)",
                            StartsWith("GetDrawing(")));
    EXPECT_THAT(owners, ElementsAre(101, 102));
}

TEST_F(PdfRecordStepsTest, ACheckpointOpenedBeforeTheEditorIsReadyIsTheOneThatIsLoaded) {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Open(102));
    EXPECT_EQ(Log().CountOf("GetRichText"), 0);
    support::RunPendingEvents();
    EXPECT_EQ(Log().CountOf("GetRichText"), 1);
    EXPECT_EQ(host.richTexts.lastKey.ownerId, 102);
}

TEST_F(PdfRecordStepsTest, WhoMayWriteIsAskedAtEachCheckpoint) {
    OpenReady();
    host.richAuth.readOnly = true;
    ASSERT_TRUE(Open(102));
    EXPECT_EQ(RecordPane::ContextOf(Below()), u",0,102,2,1,1");
    host.richAuth.readOnly = false;
    ASSERT_TRUE(Open());
    EXPECT_EQ(RecordPane::ContextOf(Below()), u",0,101,2,0,1");
}

TEST_F(PdfRecordStepsTest, WhoKeepsTheOthersVersionMovesOnToTheNextRecord) {
    OpenReady();
    RecordPane::Write(Below(), u"，我的"_s);
    record.SomebodyElseSaves();
    const support::ModalVisit visit(u"HistroyTip"_s, [](QWidget& question) {
        question.findChild<QPushButton*>(u"cancelButton"_s)->click();
    });
    ASSERT_TRUE(Open(102));
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_EQ(RecordPane::ContextOf(Below()), u",0,102,2,0,1");
    EXPECT_EQ(RecordPane::Text(Below()), u"雨后渗水");
}

TEST_F(PdfRecordStepsTest, ClosingSavesBeforeTheNoteStopsAndTheConsoleComesBack) {
    GiveNote();
    Facade().ShowPicMng(2);
    Facade().reopenConsole = true;
    OpenReady();
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
    host.script.During("QueryPdfPics", look("QueryPdfPics"));
    Wrap().Widget()->close();
    host.script.During("SaveRichText", nullptr);
    host.script.During("QueryPdfPics", nullptr);
    EXPECT_THAT(seen, ElementsAre("SaveRichText playing there", "QueryPdfPics quiet there"));
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Below().HasWindow());
}

TEST_F(PdfRecordStepsTest, ClosingWithNothingChangedOrAsAReaderAsksNobody) {
    OpenReady();
    Wrap().Widget()->close();
    EXPECT_THAT(RecordCalls(), IsEmpty());
    host.richAuth.readOnly = true;
    OpenReady();
    ChooseState(u"已整改"_s);
    Wrap().Widget()->close();
    EXPECT_THAT(RecordCalls(), IsEmpty());
}

TEST_F(PdfRecordStepsTest, ClosingGoesOnThoughTheSaveFails) {
    OpenReady();
    RecordPane::Write(Below(), u"，我的"_s);
    host.script.FailNext("UploadFile");
    prompts.ExpectMessage(u"上传文件失败：scripted failure"_s);
    Wrap().Widget()->close();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Below().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
}

TEST_F(PdfRecordStepsTest, ADeletedPictureLeavesTheRecordAlone) {
    OpenReady();
    RecordPane::Write(Below(), u"，我的"_s);
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
    Click(Pane().DeleteButton());
    EXPECT_EQ(Log().CountOf("DeleteCheckpointPic"), 1);
    EXPECT_THAT(RecordCalls(), IsEmpty());
    EXPECT_EQ(RecordPane::Text(Below()), u"雨后渗水，我的");
}

TEST_F(PdfRecordStepsTest, ALargerWindowGivesItsHeightToThePicturesAndPlacesTheEditor) {
    OpenReady();
    const int height = Below().Widget()->height();
    Wrap().Widget()->resize(1300, 900);
    support::RunPendingEvents();
    EXPECT_EQ(Below().Widget()->size(), QSize(1300, height));
    EXPECT_EQ(Below().Editor()->Widget()->geometry(), QRect(0, 28, 1300, height - 28));
}
