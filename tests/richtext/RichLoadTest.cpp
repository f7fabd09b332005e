// What a pane of rich texts is promised to do when it is made and when it loads, step by step.
#include "tests/richtext/RichFixture.h"
#include "tests/support/WaitFor.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QFile>
#include <QLabel>

#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class RichLoadTest : public RichFixture {
protected:
    /// Texts of the row above the editor, from the left.
    [[nodiscard]] QStringList RowTexts() {
        QList<QLabel*> labels =
            pane.Widget()->findChild<QWidget*>(u"richRow"_s)->findChildren<QLabel*>();
        std::ranges::sort(labels, {}, [](const QLabel* label) { return label->x(); });
        QStringList texts;
        for (const QLabel* label : labels) {
            texts << label->text();
        }
        return texts;
    }
    /// Another document with a page that the service can deliver or not.
    void ServeOther(const QByteArray& page) {
        OnServer().docName = u"doc2"_s;
        OnServer().attachments = {Stored(page, u".html"_s)};
    }
    static RichContext Reading() {
        RichContext context = Place();
        context.readOnly = 1;
        return context;
    }
};

const std::string kLoading = "Strip.ShowProgressBar(富文本信息加载中......,0)";
const std::string kStripGone = "Strip.CloseProgressBar()";
const QString kUnread = u"富文本信息获取服务调用失败！"_s;

} // namespace

TEST_F(RichLoadTest, AWindowThatIsMadeListsTheStatesAndLoadsNothing) {
    pane.Create(ownerId);
    EXPECT_NE(pane.Editor(), nullptr);
    EXPECT_FALSE(pane.IsEditorReady());
    EXPECT_EQ(States().count(), 3);
    EXPECT_EQ(States().currentIndex(), -1);
    EXPECT_EQ(pane.GetStateText(), QString());
    EXPECT_EQ(Log().CountOf("GetStateNames"), 1);
    EXPECT_THAT(CallsOf(), IsEmpty());
}

TEST_F(RichLoadTest, AnEntryThatOnlyBeginsLikeTheOneOfFiltersIsAState) {
    host.pics.stateNames = {u"全部完成"_s, u"全部"_s, u"整改中"_s};
    Open();
    ASSERT_EQ(States().count(), 2);
    EXPECT_EQ(States().itemText(0), u"全部完成");
    EXPECT_EQ(States().itemText(1), u"整改中");
}

TEST_F(RichLoadTest, MadeAgainItAsksForTheStatesAgainAndHasEachOnce) {
    Open();
    pane.ClosePane();
    host.pics.stateNames = {u"全部"_s, u"整改中"_s};
    Open();
    EXPECT_EQ(States().count(), 1);
    EXPECT_EQ(Log().CountOf("GetStateNames"), 2);
    EXPECT_EQ(Text(), u"雨后渗水");
}

TEST_F(RichLoadTest, TheEventOfAReadyEditorIs8005AndLoads) {
    pane.Create(ownerId);
    toolkit::SendWindowEvent(pane.Id(), 8005);
    EXPECT_TRUE(pane.IsEditorReady());
    EXPECT_EQ(Log().CountOf("GetRichText"), 1);
}

TEST_F(RichLoadTest, ClosedBeforeTheEditorIsReadyItLoadsNothing) {
    pane.Create(ownerId);
    pane.GoTo(Place());
    pane.ClosePane();
    support::RunPendingEvents();
    EXPECT_FALSE(pane.IsEditorReady());
    EXPECT_THAT(CallsOf(), IsEmpty());
}

TEST_F(RichLoadTest, TheRowSaysWhatStateAndWhoSavedLastAsPlainText) {
    OnServer().editorName = u"<b>李四</b>"_s;
    Open();
    EXPECT_EQ(RowTexts(), QStringList({u"整改情况："_s, u"整改人："_s, u"<b>李四</b>"_s}));
    EXPECT_EQ(pane.Widget()->findChild<QLabel*>(u"editorText"_s)->textFormat(), Qt::PlainText);
    OnServer().editorName.clear();
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(RowTexts().last(), QString());
}

TEST_F(RichLoadTest, AFailedReadIsToldWhileTheStripStands) {
    Open();
    host.script.FailNext("GetRichText");
    host.Log().Clear();
    bool wasEnabled = true;
    prompts.ExpectMessage(kUnread);
    prompts.Meanwhile([&] { wasEnabled = pane.Widget()->isEnabled(); });
    EXPECT_FALSE(pane.LoadRichText());
    EXPECT_THAT(CallsOf(), ElementsAre(kLoading, "GetRichText(id=A-1)",
                                       "ShowMessage(" + kUnread.toStdString() + ")", kStripGone));
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichLoadTest, AFileThatCannotBeFetchedIsToldWhileTheStripStands) {
    Open();
    ServeOther("<p>新</p>");
    host.files.stored.clear();
    host.Log().Clear();
    bool wasEnabled = true;
    prompts.ExpectMessage(u"scripted failure"_s);
    prompts.Meanwhile([&] { wasEnabled = pane.Widget()->isEnabled(); });
    EXPECT_FALSE(pane.LoadRichText());
    EXPECT_THAT(CallsOf(), ElementsAre(kLoading, "GetRichText(id=A-1)", StartsWith("DownloadFile("),
                                       "ShowMessage(scripted failure)", kStripGone));
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichLoadTest, AFailedReadEmptiesTheListOfFilesAndNothingElse) {
    Open();
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(kUnread);
    EXPECT_FALSE(pane.LoadRichText());
    EXPECT_THAT(pane.Message().attachments, IsEmpty());
    EXPECT_EQ(pane.Message().docName, u"doc");
    EXPECT_EQ(pane.GetEditorName(), u"李四");
    EXPECT_EQ(pane.GetStateText(), u"整改中");
}

TEST_F(RichLoadTest, AfterAMoveWhoseReadFailedNothingIsEverSaved) {
    Open();
    host.script.FailNext("GetRichText");
    prompts.ExpectMessage(kUnread);
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(pane.Context().objectId, u"B-2");
    EXPECT_EQ(Text(), u"雨后渗水") << "it stays on screen";
    Write(u"，不知属于谁"_s);
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty());
}

TEST_F(RichLoadTest, AfterAMoveWhoseFilesFailedTheOldTextIsNotSavedAsTheNewDocuments) {
    Open();
    ServeOther("<p>乙</p>");
    host.files.stored.clear();
    prompts.ExpectMessage(u"scripted failure"_s);
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(pane.Message().docName, u"doc2");
    Write(u"，甲的"_s);
    host.Log().Clear();
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_THAT(CallsOf(), IsEmpty());
}

TEST_F(RichLoadTest, StatesAreComparedExactly) {
    host.pics.stateNames = {u"全部"_s, u"Done"_s, u"done"_s, u"open"_s};
    OnServer().stateText = u"done"_s;
    Open();
    EXPECT_EQ(States().currentIndex(), 1);
    for (const QString& other : {u"OPEN"_s, u"open "_s, u"op"_s, QString()}) {
        OnServer().stateText = other;
        pane.LoadRichText();
        EXPECT_EQ(States().currentIndex(), 1) << other.toStdString();
    }
}

TEST_F(RichLoadTest, WhoMayWriteIsTakenFromEachDocumentsContext) {
    Open(Reading());
    EXPECT_FALSE(States().isEnabled());
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_TRUE(States().isEnabled());
    EXPECT_FALSE(pane.Editor()->Sheet()->isReadOnly());
    pane.GoTo(Reading());
    EXPECT_FALSE(States().isEnabled());
    EXPECT_TRUE(pane.Editor()->Sheet()->isReadOnly());
}

TEST_F(RichLoadTest, ANewDocumentCannotBeWrittenByReaders) {
    OnServer() = {};
    Open(Reading());
    EXPECT_TRUE(pane.Editor()->Sheet()->isReadOnly());
    EXPECT_FALSE(States().isEnabled());
    EXPECT_FALSE(pane.Message().docName.isEmpty());
    EXPECT_THAT(CallsOf(), ElementsAre(kLoading, "GetRichText(id=A-1)", kStripGone));
}

TEST_F(RichLoadTest, ANewDocumentFetchesNothingThoughTheRecordHasFiles) {
    OnServer().docName.clear();
    Open();
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
    EXPECT_EQ(Text(), QString());
}

TEST_F(RichLoadTest, TheNameOfANewDocumentReachesTheServerWithTheFirstSave) {
    OnServer() = {};
    OnServer().stateText = u"待整改"_s;
    Open();
    const QString name = pane.Message().docName;
    Write(u"第一次"_s);
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(host.richTexts.lastSaved.docName, name);
    EXPECT_THAT(Log().LinesOf({"SaveRichText"}),
                ElementsAre("SaveRichText(id=A-1,state=待整改,removed=[],added=1)"));
}

TEST_F(RichLoadTest, TheFilesAreTakenAwayBeforeTheServiceIsAskedAndTheStripStandsBefore) {
    Open();
    size_t files = 9;
    bool wasOpen = false;
    host.script.During("GetRichText", [&] {
        files = pane.Message().attachments.size();
        wasOpen = host.strip.isOpen;
    });
    pane.LoadRichText();
    host.script.During("GetRichText", nullptr);
    EXPECT_EQ(files, 0U);
    EXPECT_TRUE(wasOpen);
    EXPECT_THAT(pane.Message().attachments, SizeIs(2));
}

TEST_F(RichLoadTest, TheFilesAreThoseOfTheListWhateverTheRecordHas) {
    host.richTexts.filesInListOnly = true;
    Open();
    EXPECT_EQ(Text(), u"雨后渗水");
    EXPECT_THAT(pane.Message().attachments, SizeIs(2));
}

TEST_F(RichLoadTest, EndedByItsOwnerItIsNotReadyAndMadeAgainItWaitsForItsEditor) {
    Open();
    pane.Destroy();
    EXPECT_FALSE(pane.IsEditorReady());
    pane.Create(ownerId);
    host.Log().Clear();
    pane.GoTo(Place(u"B-2"_s));
    EXPECT_EQ(Log().CountOf("GetRichText"), 0);
    support::RunPendingEvents();
    EXPECT_EQ(Log().CountOf("GetRichText"), 1);
}

TEST_F(RichLoadTest, ThePaneIsDisabledWhileFilesComeAndAttachmentsToo) {
    bool wasEnabled = true;
    host.script.During("DownloadFile", [&] { wasEnabled = pane.Widget()->isEnabled(); });
    Open();
    EXPECT_FALSE(wasEnabled);
    wasEnabled = true;
    const QString store = OnServer().attachments[1].name;
    prompts.ExpectOpenFolder(folder.Path(u"rich/open/"_s + store));
    pane.OpenAttachment(u"doc"_s, store, store);
    host.script.During("DownloadFile", nullptr);
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(pane.Widget()->isEnabled());
}

TEST_F(RichLoadTest, WithoutAWindowItsTextsAreEmptyAndNothingIsSaved) {
    EXPECT_EQ(pane.GetStateText(), QString());
    EXPECT_EQ(pane.GetEditorName(), QString());
    EXPECT_EQ(pane.GetLastHtml(), QString());
    EXPECT_TRUE(pane.SaveRichText());
    EXPECT_EQ(pane.Editor(), nullptr);
    pane.LayoutPane();
    pane.ClosePane();
    EXPECT_THAT(CallsOf(), IsEmpty());
    Open();
    pane.ClosePane();
    EXPECT_EQ(pane.Editor(), nullptr);
    EXPECT_EQ(pane.GetLastHtml(), QString());
    support::RunPendingEvents();
    EXPECT_EQ(pane.GetStateText(), QString());
}
