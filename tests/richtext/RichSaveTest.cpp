// What a save of a rich text is promised to do, step by step, and the check before it.
#include "tests/richtext/RichFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <utility>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

const std::string kSaving = "Strip.ShowProgressBar(富文本信息保存中......,0)";
const std::string kSavingEnds = "Strip.CloseProgressBar()";
const std::string kChecked = "GetRichText(id=A-1)";

class RichSaveTest : public RichFixture {
protected:
    void OpenWritten() {
        Open();
        Write(u"，我的"_s);
        host.Log().Clear();
    }
    /// What the other person's save has made of the record.
    void OtherSaves() {
        OnServer().docName = u"doc2"_s;
        OnServer().updateTime = 1772600000;
        OnServer().editorName = u"王五"_s;
        OnServer().versionText = u"v2"_s;
        OnServer().attachments = {Stored("<p>别人的</p>", u".html"_s)};
    }
    bool SaveAfter(const support::ModalVisit::Action& answer) {
        const support::ModalVisit visit(u"HistroyTip"_s, answer);
        const bool mayGoOn = pane.SaveRichText();
        EXPECT_TRUE(visit.HasCome());
        return mayGoOn;
    }
    /// A question that comes all the same would hold the test for ever.
    bool SaveUnasked() {
        QTimer watch;
        watch.callOnTimeout([] {
            if (QWidget* open = QApplication::activeModalWidget()) {
                ADD_FAILURE() << "came: " << open->objectName().toStdString();
                open->close();
            }
        });
        watch.start(2);
        return pane.SaveRichText();
    }
    bool SaveOver() {
        return SaveAfter([](QWidget& question) {
            support::Click(question.findChild<QPushButton*>(u"okButton"_s));
        });
    }
    [[nodiscard]] size_t EventsToTheHost() {
        support::RunPendingEvents();
        return Log().LinesOf({"MainWindow"}).size();
    }
    void ExpectForgotten() {
        const RichContext& context = pane.Context();
        EXPECT_EQ(context.objectId, QString());
        EXPECT_EQ(context.subId + context.ownerId + context.objectType + context.projectId, 0);
        EXPECT_EQ(pane.Message().docName, QString());
        EXPECT_EQ(pane.GetEditorName(), QString());
        EXPECT_EQ(pane.Message().versionText, QString());
        EXPECT_EQ(pane.Message().stateText, QString());
        EXPECT_THAT(pane.Message().attachments, IsEmpty());
        EXPECT_EQ(pane.Message().updateTime, clock.NowSeconds());
    }
};

} // namespace

TEST_F(RichSaveTest, ASavedOneLeavesAnEmptyContextAndARecordOfThePresentTime) {
    OpenWritten();
    clock.Advance(5000);
    EXPECT_TRUE(pane.SaveRichText());
    ExpectForgotten();
    EXPECT_EQ(Text(), u"雨后渗水，我的") << "it stays on screen";
}

TEST_F(RichSaveTest, AnUnchangedOneIsForgottenToo) {
    Open();
    clock.Advance(5000);
    EXPECT_TRUE(pane.SaveRichText());
    ExpectForgotten();
}

TEST_F(RichSaveTest, WithoutAStateNothingIsForgottenAndAStateChosenLaterSavesTheText) {
    OnServer().stateText.clear();
    OpenWritten();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(pane.Context().objectId, u"A-1");
    EXPECT_EQ(pane.Message().docName, u"doc");
    Choose(u"待整改"_s);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(Log().LinesOf({"SaveRichText"}),
                ElementsAre(StartsWith("SaveRichText(id=A-1,state=待整改,removed=[uuid-")));
    EXPECT_THAT(host.richTexts.lastAdded, SizeIs(1));
}

TEST_F(RichSaveTest, TheCheckIsMadeBeforeThePaneIsDisabledTheRestBehindTheStrip) {
    OpenWritten();
    Calls enabled;
    for (const char* call : {"GetRichText", "UploadFile", "SaveRichText"}) {
        host.script.During(call, [&, call] {
            enabled.push_back(call + std::string(pane.Widget()->isEnabled() ? " on" : " off"));
        });
    }
    EXPECT_TRUE(pane.SaveRichText());
    for (const char* call : {"GetRichText", "UploadFile", "SaveRichText"}) {
        host.script.During(call, nullptr);
    }
    EXPECT_THAT(enabled, ElementsAre("GetRichText on", "UploadFile off", "SaveRichText off"));
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichSaveTest, AFailedUploadIsToldWhileTheStripStandsAndNothingIsSaved) {
    OpenWritten();
    host.script.FailNext("UploadFile");
    prompts.ExpectMessage(u"上传文件失败：scripted failure"_s);
    EXPECT_FALSE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), ElementsAre(kChecked, kSaving, StartsWith("UploadFile("),
                                       "ShowMessage(上传文件失败：scripted failure)", kSavingEnds));
    EXPECT_EQ(pane.Context().objectId, u"A-1");
    EXPECT_THAT(pane.Message().attachments, SizeIs(2));
}

TEST_F(RichSaveTest, WhatWentUpBeforeTheFailingFileIsNotSavedAndTheNextTrySendsAllAgain) {
    const KX_DATA::RichAttachment picture = Stored("no picture", u".png"_s);
    folder.Write(u"rich/"_s + picture.name, "no picture");
    OnServer().attachments = {
        Stored("<p>甲<img src=\"" + picture.name.toUtf8() + "\"></p>", u".html"_s)};
    OpenWritten();
    bool isFirst = true;
    host.script.During("UploadFile", [&] {
        if (std::exchange(isFirst, false)) {
            host.script.FailAlways("UploadFile");
        }
    });
    prompts.ExpectMessage(u"上传文件失败：scripted failure"_s);
    EXPECT_FALSE(pane.SaveRichText());
    host.script.During("UploadFile", nullptr);
    host.script.Succeed("UploadFile");
    EXPECT_EQ(Log().CountOf("UploadFile"), 2);
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("UploadFile"), 4);
    EXPECT_THAT(host.richTexts.lastAdded, SizeIs(2));
}

TEST_F(RichSaveTest, AFailedSaveIsToldWhileTheStripStandsAndNobodyHearsOfAState) {
    OpenWritten();
    Choose(u"已整改"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    EXPECT_FALSE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), ElementsAre(kChecked, kSaving, StartsWith("UploadFile("),
                                       StartsWith("SaveRichText("),
                                       "ShowMessage(富文本信息保存服务调用失败！)", kSavingEnds));
    EXPECT_EQ(EventsToTheHost(), 0U);
    EXPECT_EQ(pane.Context().objectId, u"A-1");
    EXPECT_EQ(pane.Message().docName, u"doc");
    EXPECT_EQ(pane.Message().stateText, u"整改中");
}

TEST_F(RichSaveTest, AChangedTextInAnUnchangedStateIsNoNewsForTheHost) {
    OpenWritten();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
    EXPECT_EQ(EventsToTheHost(), 0U);
}

TEST_F(RichSaveTest, TheHostHearsOfAnotherStateOnceTheCallerHasGoneOn) {
    OpenWritten();
    Choose(u"已整改"_s);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("MainWindow"), 0) << "posted, not sent";
    EXPECT_EQ(EventsToTheHost(), 1U);
    EXPECT_THAT(Log().LinesOf({"MainWindow"}),
                ElementsAre("MainWindow(event=7540,first=1,second=0)"));
}

TEST_F(RichSaveTest, OfADrawingTheEventSaysSo) {
    RichContext drawing = Place();
    drawing.objectType = 2;
    Open(drawing);
    Choose(u"已整改"_s);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(EventsToTheHost(), 1U);
    EXPECT_THAT(Log().LinesOf({"MainWindow"}),
                ElementsAre("MainWindow(event=7540,first=2,second=0)"));
}

TEST_F(RichSaveTest, WithoutAConflictTheRecordStaysAsItWasRead) {
    OpenWritten();
    const QString page = OnServer().attachments[0].uuid;
    const QString attached = OnServer().attachments[1].uuid;
    OtherSaves();
    OnServer().versionText = u"v1"_s;
    OnServer().stateText = u"已整改"_s;
    EXPECT_TRUE(SaveUnasked()) << "the version alone is compared";
    EXPECT_THAT(Log().LinesOf({"SaveRichText"}),
                ElementsAre("SaveRichText(id=A-1,state=整改中,removed=[" + page.toStdString() +
                            " " + attached.toStdString() + "],added=1)"));
    EXPECT_EQ(host.richTexts.lastSaved.docName, u"doc");
    EXPECT_EQ(host.richTexts.lastSaved.editorName, u"李四");
    EXPECT_EQ(host.richTexts.lastSaved.stateText, u"整改中");
    EXPECT_EQ(EventsToTheHost(), 0U);
}

TEST_F(RichSaveTest, AFreshRecordOfNobodyIsNoConflictAndNothingIsTakenFromIt) {
    OpenWritten();
    OtherSaves();
    OnServer().editorName.clear();
    EXPECT_TRUE(SaveUnasked());
    EXPECT_EQ(host.richTexts.lastSaved.versionText, u"v1");
    EXPECT_EQ(host.richTexts.lastSaved.docName, u"doc");
    EXPECT_THAT(host.richTexts.lastSaved.attachments, SizeIs(2));
}

TEST_F(RichSaveTest, VersionsAreComparedExactly) {
    OpenWritten();
    OnServer().versionText = u"V1"_s;
    EXPECT_TRUE(SaveOver());
    EXPECT_EQ(host.richTexts.lastSaved.versionText, u"V1");
}

TEST_F(RichSaveTest, AnOverwritingSaveStartsFromAllOfTheOthersRecord) {
    OpenWritten();
    OtherSaves();
    OnServer().stateText = u"待整改"_s;
    EXPECT_TRUE(SaveOver());
    const KX_DATA::RichTextMsg& sent = host.richTexts.lastSaved;
    EXPECT_EQ(sent.docName, u"doc2");
    EXPECT_EQ(sent.updateTime, 1772600000);
    EXPECT_EQ(sent.editorName, u"王五");
    EXPECT_EQ(sent.versionText, u"v2");
    EXPECT_EQ(sent.stateText, u"待整改");
    ASSERT_THAT(sent.attachments, SizeIs(1));
    EXPECT_EQ(sent.attachments[0].uuid, OnServer().attachments[0].uuid);
    EXPECT_THAT(host.richTexts.lastAdded, SizeIs(1)) << "listed under the name from before";
    EXPECT_THAT(CallsOf(),
                ElementsAre(kChecked, kSaving, StartsWith("UploadFile("),
                            StartsWith("SaveRichText(id=A-1,state=整改中,removed=["), kSavingEnds))
        << "the question comes before the strip";
}

TEST_F(RichSaveTest, AnOverwritingSaveRemovesTheFilesOfTheFreshList) {
    OpenWritten();
    OtherSaves();
    host.richTexts.filesInListOnly = true;
    EXPECT_TRUE(SaveOver());
    EXPECT_THAT(Log().LinesOf({"SaveRichText"}),
                ElementsAre("SaveRichText(id=A-1,state=整改中,removed=[" +
                            OnServer().attachments[0].uuid.toStdString() + "],added=1)"));
    EXPECT_THAT(host.richTexts.lastSaved.attachments, SizeIs(1));
}

TEST_F(RichSaveTest, BackAtADocumentThatWasSavedNothingIsSentAgain) {
    OpenWritten();
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
    pane.GoTo(Place());
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty()) << "all places have a document of one name";
}

TEST_F(RichSaveTest, BackAtADocumentWhoseEditWasDroppedNothingIsSent) {
    OpenWritten();
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(u"富文本信息获取服务调用失败！"_s);
    pane.GoTo(Place());
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty());
}

TEST_F(RichSaveTest, OverwritingTheHostHearsOfAStateThatDiffersFromTheOthers) {
    OpenWritten();
    OtherSaves();
    OnServer().stateText = u"待整改"_s;
    EXPECT_TRUE(SaveOver());
    EXPECT_EQ(EventsToTheHost(), 1U) << "the own one is unchanged, the site's was another";
}

TEST_F(RichSaveTest, OverwritingWithTheStateThatTheOtherChoseIsNoNews) {
    OpenWritten();
    Choose(u"已整改"_s);
    OtherSaves();
    OnServer().stateText = u"已整改"_s;
    EXPECT_TRUE(SaveOver());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
    EXPECT_EQ(EventsToTheHost(), 0U);
}

TEST_F(RichSaveTest, WhoSaidToOverwriteIsNotAskedAgainAfterAFailedSave) {
    OpenWritten();
    OtherSaves();
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    EXPECT_FALSE(SaveOver());
    EXPECT_EQ(pane.Message().versionText, u"v2");
    OnServer().docName = u"doc"_s;
    EXPECT_TRUE(SaveUnasked());
}

TEST_F(RichSaveTest, AStateAloneIsCheckedAsATextIs) {
    Open();
    Choose(u"已整改"_s);
    OtherSaves();
    EXPECT_TRUE(SaveOver());
    EXPECT_THAT(Log().LinesOf({"SaveRichText"}),
                ElementsAre("SaveRichText(id=A-1,state=已整改,removed=[],added=0)"));
}

TEST_F(RichSaveTest, AQuestionClosedByItsFrameIsARefusal) {
    OpenWritten();
    OtherSaves();
    EXPECT_TRUE(SaveAfter([](QWidget& question) { question.close(); }));
    EXPECT_THAT(CallsOf(), ElementsAre(kChecked));
    ExpectForgotten();
}

TEST_F(RichSaveTest, ARefusalShowsNoStripAndLeavesNothingToSave) {
    OpenWritten();
    OtherSaves();
    EXPECT_TRUE(SaveAfter([](QWidget& question) {
        support::Click(question.findChild<QPushButton*>(u"cancelButton"_s));
    }));
    EXPECT_THAT(CallsOf(), ElementsAre(kChecked));
    ExpectForgotten();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), ElementsAre(kChecked));
}

TEST_F(RichSaveTest, AfterARefusalTheNextDocumentIsShownAndTheDroppedEditStaysDropped) {
    OpenWritten();
    OtherSaves();
    const support::ModalVisit visit(u"HistroyTip"_s, [](QWidget& question) {
        support::Click(question.findChild<QPushButton*>(u"cancelButton"_s));
    });
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(pane.Context().objectId, u"B-2");
    EXPECT_EQ(Text(), u"别人的");
    pane.GoTo(Place());
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("UploadFile") + Log().CountOf("SaveRichText"), 0);
}

TEST_F(RichSaveTest, AFailedCheckIsToldWithoutAStripAndDropsTheEdit) {
    OpenWritten();
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(u"富文本信息获取服务调用失败！"_s);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), ElementsAre(kChecked, "ShowMessage(富文本信息获取服务调用失败！)"));
    ExpectForgotten();
}

TEST_F(RichSaveTest, TheCheckAsksWithTheWholeKey) {
    OpenWritten();
    KX_DATA::RichTextKey asked;
    host.script.During("GetRichText", [&] { asked = host.richTexts.lastKey; });
    EXPECT_TRUE(pane.SaveRichText());
    host.script.During("GetRichText", nullptr);
    EXPECT_EQ(asked.objectId, u"A-1");
    EXPECT_EQ(asked.subId, 7);
    EXPECT_EQ(asked.ownerId, 1);
    EXPECT_EQ(asked.projectId, 1);
    EXPECT_EQ(asked.objectType, 1);
}
