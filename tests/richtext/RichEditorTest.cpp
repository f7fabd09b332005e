// The pane of rich texts: loading, saving, the check for somebody else's save, attachments.
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "tests/richtext/RichFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QtTest/QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class RichEditorTest : public RichFixture {
protected:
    /// Saves while the question of a conflict is answered.
    bool SaveAnswering(const char* button) {
        const support::ModalVisit visit(u"HistroyTip"_s, [button](QWidget& window) {
            support::Click(window.findChild<QPushButton*>(QString::fromLatin1(button)));
        });
        const bool mayGoOn = pane.SaveRichText();
        EXPECT_TRUE(visit.HasCome());
        return mayGoOn;
    }
    void SomebodyElseSaves() {
        OnServer().versionText = u"v2"_s;
        OnServer().editorName = u"王五"_s;
    }
};

} // namespace

TEST_F(RichEditorTest, LoadsTheDocumentOfItsContextWhenTheEditorIsReady) {
    pane.Create(ownerId);
    pane.GoTo(Place());
    EXPECT_EQ(Log().CountOf("GetRichText"), 0) << "the ready event will load it";
    support::RunPendingEvents();
    EXPECT_EQ(Text(), u"雨后渗水");
    EXPECT_EQ(States().currentText(), u"整改中");
    EXPECT_EQ(pane.GetStateText(), u"整改中");
    EXPECT_EQ(pane.GetEditorName(), u"李四");
    const KX_DATA::RichTextKey& key = host.richTexts.lastKey;
    EXPECT_EQ(key.objectId, u"A-1");
    EXPECT_EQ(key.subId, 7);
    EXPECT_EQ(key.ownerId, 1);
    EXPECT_EQ(key.projectId, 1);
    EXPECT_EQ(key.objectType, 1);
    QString html = pane.GetLastHtml();
    EXPECT_TRUE(html.contains(u"雨后渗水"_s));
}

TEST_F(RichEditorTest, ALoadIsShownByTheStripFromItsBeginToItsEnd) {
    Open();
    const Calls calls = CallsOf();
    ASSERT_THAT(calls, SizeIs(4));
    EXPECT_EQ(calls[0], "Strip.ShowProgressBar(富文本信息加载中......,0)");
    EXPECT_EQ(calls[1], "GetRichText(id=A-1)");
    EXPECT_EQ(calls[2].substr(0, 12), "DownloadFile");
    EXPECT_EQ(calls[3], "Strip.CloseProgressBar()");
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichEditorTest, TheStatesHaveNotTheOneOfFilters) {
    Open();
    QStringList names;
    for (int i = 0; i < States().count(); ++i) {
        names << States().itemText(i);
    }
    EXPECT_EQ(names, QStringList({u"待整改"_s, u"整改中"_s, u"已整改"_s}));
}

TEST_F(RichEditorTest, AStateThatIsNoneOfThemLeavesTheOneOfTheDocumentBefore) {
    Open();
    OnServer().stateText = u"整改"_s;
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(States().currentText(), u"整改中");
}

TEST_F(RichEditorTest, ADocumentThatNobodySavedYetIsNewAndItsNameIsKnownHereOnly) {
    OnServer() = {};
    Open();
    EXPECT_FALSE(pane.Message().docName.isEmpty());
    EXPECT_EQ(Text(), QString());
    EXPECT_TRUE(OnServer().docName.isEmpty());
    EXPECT_EQ(States().currentIndex(), -1);
}

TEST_F(RichEditorTest, ARecordThatCannotBeReadIsToldAndTheOldDocumentStays) {
    Open();
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(u"富文本信息获取服务调用失败！"_s);
    EXPECT_FALSE(pane.LoadRichText());
    EXPECT_EQ(Text(), u"雨后渗水");
    EXPECT_TRUE(pane.Widget()->isEnabled());
    EXPECT_EQ(Log().CountOf("Strip.ShowProgressBar"), Log().CountOf("Strip.CloseProgressBar"));
}

TEST_F(RichEditorTest, AFileThatCannotBeFetchedIsToldAndTheOldDocumentStays) {
    Open();
    OnServer().attachments = {Stored("<p>新</p>", u".html"_s)};
    host.script.FailNext("DownloadFile");
    prompts.ExpectMessage(u"scripted failure"_s);
    EXPECT_FALSE(pane.LoadRichText());
    EXPECT_EQ(Text(), u"雨后渗水");
}

TEST_F(RichEditorTest, AReadOnlyPaneNeverSavesAndClosesSilently) {
    RichContext context = Place();
    context.readOnly = 1;
    Open(context);
    EXPECT_FALSE(States().isEnabled());
    EXPECT_TRUE(pane.Editor()->Sheet()->isReadOnly());
    Choose(u"已整改"_s);
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    pane.ClosePane();
    EXPECT_THAT(CallsOf(), IsEmpty());
    EXPECT_FALSE(pane.HasWindow());
    EXPECT_FALSE(pane.IsEditorReady());
    EXPECT_EQ(pane.GetLastHtml(), QString());
}

TEST_F(RichEditorTest, AnUnchangedDocumentInAnUnchangedStateAsksNobody) {
    Open();
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty());
    EXPECT_TRUE(pane.Context().objectId.isEmpty());
    EXPECT_TRUE(pane.Message().docName.isEmpty());
    EXPECT_EQ(Text(), u"雨后渗水") << "it stays on screen";
}

TEST_F(RichEditorTest, AChangedTextGoesUpAndTheOldPageGoesAway) {
    Open();
    Write(u"，已注浆"_s);
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    const Calls calls = CallsOf();
    ASSERT_THAT(calls, SizeIs(5));
    EXPECT_EQ(calls[0], "GetRichText(id=A-1)");
    EXPECT_EQ(calls[1], "Strip.ShowProgressBar(富文本信息保存中......,0)");
    EXPECT_EQ(calls[2].substr(0, 10), "UploadFile");
    const QString page = OnServer().attachments[0].uuid;
    const QString attached = OnServer().attachments[1].uuid;
    EXPECT_EQ(calls[3], "SaveRichText(id=A-1,state=整改中,removed=[" + page.toStdString() + " " +
                            attached.toStdString() + "],added=1)")
        << "nothing in the text speaks of the attachment";
    EXPECT_EQ(calls[4], "Strip.CloseProgressBar()");
    ASSERT_THAT(host.richTexts.lastAdded, SizeIs(1));
    EXPECT_EQ(host.richTexts.lastAdded[0].kind, 1);
    EXPECT_EQ(host.richTexts.lastAdded[0].name, host.richTexts.lastAdded[0].md5 + u".html"_s);
    EXPECT_EQ(host.richTexts.lastSaved.docName, u"doc");
    EXPECT_EQ(host.richTexts.lastKey.subId, 7);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1) << "the context is empty";
}

TEST_F(RichEditorTest, AChangedStateAloneIsSavedWithTwoEmptyListsAndToldToTheMainWindow) {
    Open();
    Choose(u"已整改"_s);
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    support::RunPendingEvents();
    EXPECT_THAT(CallsOf(),
                ElementsAre("GetRichText(id=A-1)",
                            "Strip.ShowProgressBar(富文本信息保存中......,0)",
                            "SaveRichText(id=A-1,state=已整改,removed=[],added=0)",
                            "Strip.CloseProgressBar()", "MainWindow(event=7540,first=1,second=0)"));
}

TEST_F(RichEditorTest, WithoutASelectedStateNothingIsSavedThoughTheTextChanged) {
    OnServer().stateText.clear();
    Open();
    Write(u"新"_s);
    EXPECT_EQ(States().currentIndex(), -1);
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty());
    ASSERT_THAT(host.drafts.kept, SizeIs(1)) << "nobody loses what was written";
    EXPECT_EQ(host.drafts.kept[0].stateText, QString());
    EXPECT_EQ(host.drafts.kept[0].key.objectId, u"A-1");
}

TEST_F(RichEditorTest, AStateAloneIsNoDraft) {
    Open();
    Choose(u"已整改"_s);
    SomebodyElseSaves();
    EXPECT_TRUE(SaveAnswering("cancelButton"));
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(RichEditorTest, ADraftHasAllFilesOfTheDocumentAndNotOnlyNewOnes) {
    const KX_DATA::RichAttachment picture = Stored("no picture", u".png"_s);
    OnServer().attachments[0] =
        Stored("<p>甲<img src=\"" + picture.name.toUtf8() + "\"></p>", u".html"_s);
    OnServer().attachments.push_back(picture);
    Open();
    Write(u"我的"_s);
    SomebodyElseSaves();
    EXPECT_TRUE(SaveAnswering("cancelButton"));
    ASSERT_THAT(host.drafts.kept, SizeIs(1));
    ASSERT_THAT(host.drafts.kept[0].files, SizeIs(2));
    EXPECT_EQ(host.drafts.kept[0].files[1].name, picture.name);
    EXPECT_TRUE(QFile::exists(host.drafts.kept[0].files[1].path));
}

TEST_F(RichEditorTest, APaneThatEndsUnaskedKeepsADraftOnce) {
    Open();
    Write(u"我的"_s);
    pane.ClosePane();
    pane.ClosePane();
    EXPECT_THAT(host.drafts.kept, SizeIs(1));
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
}

TEST_F(RichEditorTest, WhatIsBeingWrittenIsKeptOpenUntilItIsSaved) {
    Open();
    Write(u"我的"_s);
    EXPECT_THAT(host.drafts.open, IsEmpty());
    ASSERT_TRUE(support::WaitFor([&] { return !host.drafts.open.empty(); }));
    const KX_DATA::RichTextDraft& draft = host.drafts.open[0];
    EXPECT_EQ(draft.key.objectId, u"A-1");
    EXPECT_EQ(draft.docName, u"doc");
    EXPECT_EQ(draft.versionText, u"v1");
    EXPECT_EQ(draft.stateText, u"整改中");
    EXPECT_TRUE(QString::fromUtf8(draft.page).contains(u"雨后渗水我的"_s));
    EXPECT_EQ(Log().CountOf("UploadFile"), 0);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
    EXPECT_THAT(host.drafts.open, IsEmpty());
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(RichEditorTest, WhatIsKeptOpenAndTakenBackIsNoChange) {
    Open();
    Write(u"我的"_s);
    ASSERT_TRUE(support::WaitFor([&] { return !host.drafts.open.empty(); }));
    pane.Editor()->Sheet()->undo();
    ASSERT_TRUE(support::WaitFor([&] { return host.drafts.open.empty(); }));
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0) << "keeping told nobody of a change";
}

TEST_F(RichEditorTest, AFullDiskAtTheEndLeavesWhatIsKeptOpen) {
    Open();
    Write(u"我的"_s);
    ASSERT_TRUE(support::WaitFor([&] { return !host.drafts.open.empty(); }));
    QString pages;
    GetVeskPathTool()->GetRichFolder(pages);
    QDir(pages).removeRecursively();
    QFile inTheWay(pages.chopped(1));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    pane.ClosePane();
    EXPECT_THAT(host.drafts.open, SizeIs(1));
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(RichEditorTest, WhatIsKeptOpenGoesWithASaveOverAnotherDocumentToo) {
    Open();
    Write(u"我的"_s);
    ASSERT_TRUE(support::WaitFor([&] { return !host.drafts.open.empty(); }));
    SomebodyElseSaves();
    OnServer().docName = u"doc2"_s;
    EXPECT_TRUE(SaveAnswering("okButton"));
    EXPECT_EQ(host.richTexts.lastSaved.docName, u"doc2");
    EXPECT_THAT(host.drafts.open, IsEmpty());
}

TEST_F(RichEditorTest, WhatHadNoStateIsGivenUpOnceWhenThePaneEndsBehindIt) {
    OnServer().stateText = u"不存在"_s;
    Open();
    Write(u"我的"_s);
    EXPECT_TRUE(pane.SaveRichText());
    pane.ClosePane();
    EXPECT_THAT(host.drafts.kept, SizeIs(1));
}

TEST_F(RichEditorTest, WhatIsWrittenAfterItWasGivenUpIsGivenUpAgain) {
    OnServer().stateText = u"不存在"_s;
    Open();
    Write(u"我的"_s);
    EXPECT_TRUE(pane.SaveRichText());
    Write(u"另外"_s);
    pane.ClosePane();
    EXPECT_THAT(host.drafts.kept, SizeIs(2));
}

TEST_F(RichEditorTest, NothingCanBeWrittenWhereALoadHasFailed) {
    Open();
    EXPECT_FALSE(pane.Editor()->Sheet()->isReadOnly());
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(u"富文本信息获取服务调用失败！"_s);
    pane.GoTo(Place(u"A-2"_s));
    EXPECT_EQ(Text(), u"雨后渗水") << "it stays on the screen";
    EXPECT_TRUE(pane.Editor()->Sheet()->isReadOnly());
    pane.GoTo(Place(u"A-3"_s));
    EXPECT_FALSE(pane.Editor()->Sheet()->isReadOnly());
    OnServer().attachments[0] = Stored("<p>anders</p>", u".html"_s);
    host.script.FailNext("DownloadFile");
    prompts.ExpectMessage(u"scripted failure"_s);
    pane.GoTo(Place(u"A-4"_s));
    EXPECT_TRUE(pane.Editor()->Sheet()->isReadOnly());
    pane.GoTo(Place(u"A-5"_s));
    EXPECT_FALSE(pane.Editor()->Sheet()->isReadOnly());
    EXPECT_EQ(Text(), u"anders");
}

TEST_F(RichEditorTest, AReadOnlyPaneKeepsNoDraft) {
    RichContext context = Place();
    context.readOnly = 1;
    Open(context);
    pane.ClosePane();
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(RichEditorTest, WhatIsSavedIsNoDraft) {
    Open();
    Write(u"我的"_s);
    EXPECT_TRUE(pane.SaveRichText());
    pane.ClosePane();
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(RichEditorTest, WhoKeepsTheOtherPersonsVersionGoesOnAndTheOwnTextIsNotSaved) {
    Open();
    Write(u"我的"_s);
    SomebodyElseSaves();
    EXPECT_TRUE(SaveAnswering("cancelButton"));
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_EQ(Log().CountOf("UploadFile"), 0);
    EXPECT_TRUE(pane.Message().docName.isEmpty());
}

TEST_F(RichEditorTest, WhoOverwritesSavesFromTheOtherPersonsVersion) {
    Open();
    Write(u"我的"_s);
    SomebodyElseSaves();
    OnServer().attachments = {Stored("<p>别人的</p>", u".html"_s)};
    EXPECT_TRUE(SaveAnswering("okButton"));
    EXPECT_EQ(host.richTexts.lastSaved.versionText, u"v2");
    EXPECT_EQ(host.richTexts.lastSaved.editorName, u"王五");
    EXPECT_THAT(Log().LinesOf({"SaveRichText"}),
                ElementsAre("SaveRichText(id=A-1,state=整改中,removed=[" +
                            OnServer().attachments[0].uuid.toStdString() + "],added=1)"));
}

TEST_F(RichEditorTest, OnOverwriteWithoutAFreshDocumentTheOwnNameSurvives) {
    Open();
    Write(u"我的"_s);
    SomebodyElseSaves();
    OnServer().docName.clear();
    EXPECT_TRUE(SaveAnswering("okButton"));
    EXPECT_EQ(host.richTexts.lastSaved.docName, u"doc");
}

TEST_F(RichEditorTest, WhatNobodySavedYetNeverConflicts) {
    OnServer().editorName.clear();
    Open();
    Write(u"我的"_s);
    OnServer().versionText = u"v9"_s;
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
}

TEST_F(RichEditorTest, ACheckThatCannotBeMadeIsToldAndDropsTheEdit) {
    Open();
    Write(u"我的"_s);
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(u"富文本信息获取服务调用失败！"_s);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_TRUE(pane.Message().docName.isEmpty());
}

TEST_F(RichEditorTest, AnUploadThatFailsIsToldAndTheCallerStaysAndCanTryAgain) {
    Open();
    Write(u"我的"_s);
    host.script.FailNext("UploadFile");
    prompts.ExpectMessage(u"上传文件失败：scripted failure"_s);
    EXPECT_FALSE(pane.SaveRichText());
    EXPECT_EQ(pane.Message().docName, u"doc");
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
}

TEST_F(RichEditorTest, ASaveThatFailsIsToldAndTheCallerStays) {
    Open();
    Write(u"我的"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    EXPECT_FALSE(pane.SaveRichText());
    EXPECT_TRUE(pane.Widget()->isEnabled());
    EXPECT_EQ(Log().CountOf("Strip.ShowProgressBar"), Log().CountOf("Strip.CloseProgressBar"));
    EXPECT_TRUE(pane.SaveRichText());
}

TEST_F(RichEditorTest, ATextThatCannotBeWrittenToTheDiskKeepsTheCaller) {
    Open();
    Write(u"我的"_s);
    toolkit::SetEditorFolders({folder.Write(u"file"_s, "x") + u"/in/"_s});
    host.Log().Clear();
    EXPECT_FALSE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty());
    EXPECT_EQ(pane.Message().docName, u"doc");
    EXPECT_EQ(Text(), u"雨后渗水我的");
}

TEST_F(RichEditorTest, TheKeysComeBackToTheTextAfterACall) {
    Open();
    owner.activateWindow();
    pane.Editor()->Sheet()->setFocus();
    pane.LoadRichText();
    EXPECT_EQ(owner.focusWidget(), pane.Editor()->Sheet());
}

TEST_F(RichEditorTest, GoingToAnotherDocumentSavesFirstAndStaysIfItMust) {
    Open();
    Write(u"我的"_s);
    host.script.FailNext("SaveRichText");
    prompts.ExpectMessage(u"富文本信息保存服务调用失败！"_s);
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(pane.Context().objectId, u"A-1");
    EXPECT_EQ(Text(), u"雨后渗水我的");
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(pane.Context().objectId, u"B-2");
    EXPECT_EQ(host.richTexts.lastKey.objectId, u"B-2");
    EXPECT_EQ(Text(), u"雨后渗水");
}

TEST_F(RichEditorTest, ThePaneIsDisabledWhileAServiceIsAsked) {
    Open();
    bool wasEnabled = true;
    host.script.During("GetRichText", [&] { wasEnabled = pane.Widget()->isEnabled(); });
    pane.LoadRichText();
    host.script.During("GetRichText", nullptr);
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichEditorTest, APaneThatEndsDuringACallEndsWithoutACrash) {
    for (const char* call : {"GetRichText", "DownloadFile"}) {
        host.script.During(call, [this] { pane.ClosePane(); });
        QFile::remove(folder.Path(u"rich/"_s + OnServer().attachments[0].name));
        pane.Create(ownerId);
        pane.GoTo(Place());
        support::RunPendingEvents();
        EXPECT_FALSE(pane.HasWindow()) << call;
        host.script.During(call, nullptr);
    }
    for (const char* call : {"GetRichText", "UploadFile", "SaveRichText"}) {
        Open();
        Write(u"我的"_s);
        host.script.During(call, [this] { pane.ClosePane(); });
        const bool mayGoOn = pane.SaveRichText();
        host.script.During(call, nullptr);
        EXPECT_FALSE(pane.HasWindow()) << call;
        EXPECT_TRUE(!mayGoOn || std::string(call) != "UploadFile") << "nothing was saved";
    }
}

TEST_F(RichEditorTest, AnAttachmentIsFetchedOnceAndOpenedFromTheOpenFolder) {
    Open();
    const QString store = OnServer().attachments[1].name;
    const QString opened = folder.Path(u"rich/open/"_s + store);
    host.Log().Clear();
    prompts.ExpectOpenFolder(opened);
    pane.OpenAttachment(u"doc"_s, store, store);
    EXPECT_EQ(folder.Read(u"rich/doc/"_s + store), "pdf");
    EXPECT_EQ(folder.Read(u"rich/open/"_s + store), "pdf");
    EXPECT_FALSE(QFile::permissions(opened).testFlag(QFile::ExeOwner));
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1);
    EXPECT_THAT(Log().LinesOf({"Strip.ShowProgressBar"}),
                ElementsAre("Strip.ShowProgressBar(附件下载中......,0)"));
    prompts.ExpectOpenFolder(opened);
    pane.OpenAttachment(u"doc"_s, store, store);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1) << "it is there";
}

TEST_F(RichEditorTest, AnAttachmentThatTheRecordDoesNotHaveCannotBeOpened) {
    Open();
    prompts.ExpectMessage(u"附件文件不存在！"_s);
    pane.OpenAttachment(u"doc"_s, u"none.pdf"_s, u"none.pdf"_s);
    OnServer().attachments[1].uuid.clear();
    pane.LoadRichText();
    prompts.ExpectMessage(u"附件文件不存在！"_s);
    pane.OpenAttachment(u"doc"_s, OnServer().attachments[1].name, OnServer().attachments[1].name);
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichEditorTest, AnAttachmentThatCannotBeFetchedIsToldWithTheServicesText) {
    Open();
    host.script.FailNext("DownloadFile");
    prompts.ExpectMessage(u"scripted failure"_s);
    pane.OpenAttachment(u"doc"_s, OnServer().attachments[1].name, OnServer().attachments[1].name);
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichEditorTest, AProgramIsOpenedOnlyAfterAQuestionThatNamesIt) {
    OnServer().attachments.push_back(Stored("anything", u".EXE"_s, 2));
    const QString store = OnServer().attachments[2].name;
    OnServer().attachments[2].name = u"安装.EXE"_s;
    Open();
    const QString question = u"附件“安装.EXE”是可以运行的程序，可能有害。确定要打开它吗？"_s;
    prompts.ExpectNoYes(question, false);
    pane.OpenAttachment(u"doc"_s, store, store);
    prompts.ExpectNoYes(question, true);
    prompts.ExpectOpenFolder(folder.Path(u"rich/open/"_s + store));
    pane.OpenAttachment(u"doc"_s, store, store);
}

TEST_F(RichEditorTest, AProgramIsKnownByItsBeginningToo) {
    for (const QByteArray& bytes : {QByteArray("#!/bin/sh\n"), QByteArray("MZ\x90"),
                                    QByteArray("\x7f"
                                               "ELF\x02"),
                                    QByteArray("\x7f"
                                               "EL")}) {
        OnServer().attachments.push_back(Stored(bytes, u".txt"_s, 2));
    }
    Open();
    for (std::size_t i = 2; i < 5; ++i) {
        const QString store = OnServer().attachments[i].name;
        prompts.ExpectNoYes(u"附件“%1”是可以运行的程序，可能有害。确定要打开它吗？"_s.arg(store),
                            false);
        pane.OpenAttachment(u"doc"_s, store, store);
    }
    prompts.ExpectOpenFolder(folder.Path(u"rich/open/"_s + OnServer().attachments[5].name));
    pane.OpenAttachment(u"doc"_s, OnServer().attachments[5].name, OnServer().attachments[5].name);
}

TEST_F(RichEditorTest, AnAttachmentThatNoProgramOpensIsTold) {
    Open();
    const QString store = OnServer().attachments[1].name;
    prompts.hasPrograms = false;
    prompts.ExpectOpenFolder(folder.Path(u"rich/open/"_s + store));
    prompts.ExpectMessage(u"没有可以打开该附件的程序：%1。请安装相应的程序后重试。"_s.arg(store));
    pane.OpenAttachment(u"doc"_s, store, store);
}

TEST_F(RichEditorTest, AnAttachmentWithoutANameOpensNothing) {
    Open();
    host.Log().Clear();
    CRichEditorNotify notify;
    notify.OnOpenAttachment(u"doc"_s, u"a.pdf"_s, u"a.pdf"_s);
    notify.pane = &pane;
    notify.OnOpenAttachment(u"doc"_s, {}, u"a.pdf"_s);
    EXPECT_EQ(Log().CountOf("GetAttachFolder"), 0);
}

TEST_F(RichEditorTest, ReturnAndEscapeStayInThePane) {
    Open();
    int reached = 0;
    class Watch final : public QObject {
    public:
        explicit Watch(int& keys) : m_keys(keys) {}
        bool eventFilter(QObject*, QEvent* event) override {
            m_keys += event->type() == QEvent::KeyPress ? 1 : 0;
            return false;
        }

    private:
        int& m_keys;
    } watch(reached);
    owner.installEventFilter(&watch);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(pane.Widget(), key);
        QTest::keyClick(pane.Editor()->Sheet(), key);
        QTest::keyClick(&States(), key);
    }
    EXPECT_EQ(reached, 0);
}

TEST_F(RichEditorTest, TheEditorLiesBelowTheRowWhateverTheSize) {
    Open();
    for (const QSize& size : {QSize(800, 300), QSize(400, 150)}) {
        pane.Widget()->resize(size);
        support::RunPendingEvents();
        EXPECT_EQ(pane.Editor()->Widget()->geometry(),
                  QRect(0, 28, size.width(), size.height() - 28));
    }
}
