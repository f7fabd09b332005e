// The file side of a rich text, step by step: what is fetched, opened, listed and uploaded.
#include "richtext/RichFiles.h"
#include "tests/richtext/RichFixture.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class RichAttachmentTest : public RichFixture {
protected:
    RichAttachmentTest() {
        Named(u"报告.pdf"_s).kind = 2;
        host.files.stored[u"uuid-报告.pdf"_s] = "report";
    }
    /// Adds a file with the digest "m2" to the document; its name is a person's.
    KX_DATA::RichAttachment& Named(const QString& name) {
        KX_DATA::RichAttachment file;
        file.name = name;
        file.md5 = u"m2"_s;
        file.uuid = u"uuid-"_s + name;
        file.size = 6;
        OnServer().attachments.push_back(file);
        return OnServer().attachments.back();
    }
    void OpenCleared() {
        Open();
        host.Log().Clear();
    }
    [[nodiscard]] QString InOpenFolder(const QString& name) const {
        return folder.Path(u"rich/open/"_s + name);
    }
    [[nodiscard]] Calls OpeningCalls() {
        return Log().LinesOf({"DownloadFile", "Strip.ShowProgressBar", "Strip.CloseProgressBar",
                              "ShowMessage", "OpenFolder"});
    }
    static KX_DATA::RichAttachment Entry(const QString& name, qint32 kind) {
        return {name, u"m"_s + name.left(1), u"uuid-"_s + name, 10, kind};
    }
    static NoteFile Note(const QString& storeName, const QString& localPath) {
        NoteFile file;
        file.storeName = storeName;
        file.localPath = localPath;
        return file;
    }
};

} // namespace

TEST_F(RichAttachmentTest, AnAttachmentIsCalledByItsStoreNameNotByItsOwn) {
    OpenCleared();
    prompts.ExpectMessage(u"附件文件不存在！"_s);
    pane.OpenAttachment(u"doc"_s, u"报告.pdf"_s, u"m2.pdf"_s);
    EXPECT_THAT(OpeningCalls(), ElementsAre("ShowMessage(附件文件不存在！)"));
    prompts.ExpectOpenFolder(InOpenFolder(u"m2.pdf"_s));
    pane.OpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1);
}

TEST_F(RichAttachmentTest, ItIsKeptUnderTheStoreNameAndOpenedUnderTheAttachments) {
    OpenCleared();
    prompts.ExpectOpenFolder(InOpenFolder(u"m2.pdf"_s));
    pane.OpenAttachment(u"key"_s, u"m2.pdf"_s, u"kept.pdf"_s);
    EXPECT_EQ(folder.Read(u"rich/key/kept.pdf"_s), "report");
    EXPECT_EQ(folder.Read(u"rich/open/m2.pdf"_s), "report");
    EXPECT_THAT(OpeningCalls(),
                ElementsAre("Strip.ShowProgressBar(附件下载中......,0)",
                            "DownloadFile(uuid=uuid-报告.pdf,kind=5,flag=false,value=0)",
                            "Strip.CloseProgressBar()", StartsWith("OpenFolder(")));
}

TEST_F(RichAttachmentTest, OneThatLiesThereIsOpenedThoughTheRecordDoesNotKnowIt) {
    folder.Write(u"rich/doc/old.pdf"_s, "old");
    OpenCleared();
    prompts.ExpectOpenFolder(InOpenFolder(u"old.pdf"_s));
    pane.OpenAttachment(u"doc"_s, u"old.pdf"_s, u"old.pdf"_s);
    EXPECT_EQ(folder.Read(u"rich/open/old.pdf"_s), "old");
    EXPECT_THAT(OpeningCalls(), ElementsAre(StartsWith("OpenFolder("))) << "and no strip";
}

TEST_F(RichAttachmentTest, ACopyThatThePersonHasChangedIsOpenedAsItIs) {
    folder.Write(u"rich/doc/m2.pdf"_s, "report");
    folder.Write(u"rich/open/m2.pdf"_s, "with notes");
    OpenCleared();
    prompts.ExpectOpenFolder(InOpenFolder(u"m2.pdf"_s));
    pane.OpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
    EXPECT_EQ(folder.Read(u"rich/open/m2.pdf"_s), "with notes");
}

TEST_F(RichAttachmentTest, ACopyInTheOpenFolderDoesNotStandForTheFetchedFile) {
    folder.Write(u"rich/open/m2.pdf"_s, "with notes");
    OpenCleared();
    prompts.ExpectOpenFolder(InOpenFolder(u"m2.pdf"_s));
    pane.OpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1);
    EXPECT_EQ(folder.Read(u"rich/open/m2.pdf"_s), "with notes");
}

TEST_F(RichAttachmentTest, AFailedDownloadIsToldOnceTheStripHasGoneAndNothingIsOpened) {
    OpenCleared();
    host.script.FailNext("DownloadFile");
    bool wasEnabled = false;
    prompts.ExpectMessage(u"scripted failure"_s);
    prompts.Meanwhile([&] { wasEnabled = pane.Widget()->isEnabled(); });
    pane.OpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
    EXPECT_THAT(OpeningCalls(), ElementsAre("Strip.ShowProgressBar(附件下载中......,0)",
                                            StartsWith("DownloadFile("), "Strip.CloseProgressBar()",
                                            "ShowMessage(scripted failure)"));
    EXPECT_TRUE(wasEnabled);
    EXPECT_FALSE(QFile::exists(InOpenFolder(u"m2.pdf"_s)));
}

TEST_F(RichAttachmentTest, OneThatWasNeverUploadedDoesNotExist) {
    OnServer().attachments.back().uuid.clear();
    OpenCleared();
    prompts.ExpectMessage(u"附件文件不存在！"_s);
    pane.OpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
    EXPECT_THAT(OpeningCalls(), ElementsAre("ShowMessage(附件文件不存在！)")) << "without a strip";
}

TEST_F(RichAttachmentTest, AfterOpeningOneTheEditorIsPlacedAgain) {
    folder.Write(u"rich/doc/m2.pdf"_s, "report");
    OpenCleared();
    pane.Editor()->Widget()->setGeometry(1, 2, 3, 4);
    prompts.ExpectOpenFolder(InOpenFolder(u"m2.pdf"_s));
    pane.OpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
    EXPECT_EQ(pane.Editor()->Widget()->geometry(), QRect(0, 28, 800, 272));
}

TEST_F(RichAttachmentTest, TheEditorsLinkIsWhatOpensIt) {
    folder.Write(u"rich/doc/m2.pdf"_s, "report");
    OpenCleared();
    CRichEditorNotify notify;
    notify.pane = &pane;
    prompts.ExpectOpenFolder(InOpenFolder(u"m2.pdf"_s));
    notify.OnOpenAttachment(u"doc"_s, u"m2.pdf"_s, u"m2.pdf"_s);
}

TEST_F(RichAttachmentTest, EveryKindButPagesIsInTheMapAndOnlyPagesAndEmbeddedAreFetched) {
    const std::vector<KX_DATA::RichAttachment> files = {Entry(u"a.x"_s, 0), Entry(u"b.x"_s, 1),
                                                        Entry(u"c.x"_s, 2), Entry(u"d.x"_s, 3),
                                                        Entry(u"e.x"_s, 4)};
    host.files.stored[u"uuid-b.x"_s] = "b";
    host.files.stored[u"uuid-d.x"_s] = "d";
    const richtext::Prepared prepared = richtext::PrepareFiles(files);
    EXPECT_TRUE(prepared.isWhole);
    EXPECT_THAT(prepared.names, ElementsAre(u"b.x"_s));
    EXPECT_THAT(prepared.sizes, ElementsAre(Pair(u"ma.x"_s, 10U), Pair(u"mc.x"_s, 10U),
                                            Pair(u"md.x"_s, 10U), Pair(u"me.x"_s, 10U)));
    EXPECT_THAT(Log().LinesOf({"DownloadFile"}),
                ElementsAre("DownloadFile(uuid=uuid-b.x,kind=5,flag=false,value=0)",
                            "DownloadFile(uuid=uuid-d.x,kind=5,flag=false,value=0)"));
}

TEST_F(RichAttachmentTest, AFileOfThePageLiesUnderItsNameNotUnderItsStoreName) {
    folder.Write(u"rich/ma.x"_s, "elsewhere");
    host.files.stored[u"uuid-a.x"_s] = "a";
    EXPECT_TRUE(richtext::PrepareFiles({Entry(u"a.x"_s, 1)}).isWhole);
    EXPECT_EQ(folder.Read(u"rich/a.x"_s), "a");
    folder.Write(u"rich/b.x"_s, "there");
    EXPECT_TRUE(richtext::PrepareFiles({Entry(u"b.x"_s, 3)}).isWhole);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1) << "the second needs none";
}

TEST_F(RichAttachmentTest, TheSizeOfOneStoreNameIsTheFirstsWhateverTheKinds) {
    KX_DATA::RichAttachment first = Entry(u"a.x"_s, 2);
    KX_DATA::RichAttachment page = Entry(u"apage.x"_s, 1);
    KX_DATA::RichAttachment second = Entry(u"another.x"_s, 4);
    page.size = 5;
    second.size = 99;
    folder.Write(u"rich/apage.x"_s, "page");
    EXPECT_THAT(richtext::PrepareFiles({page, first, second}).sizes,
                ElementsAre(Pair(u"ma.x"_s, 10U)));
}

TEST_F(RichAttachmentTest, AListIsComparedByWhatStandsBeforeTheLastDotAndBehindTheLastBackslash) {
    KX_DATA::RichAttachment known;
    known.name = u"c.d.pdf"_s;
    known.md5 = u"a.b"_s;
    known.uuid = u"u"_s;
    const std::vector<NoteFile> same = {Note(u"a.b.pdf"_s, u"C:\\x.y\\c.d.pdf"_s)};
    EXPECT_THAT(richtext::ListRemoved({known}, same), IsEmpty());
    EXPECT_THAT(richtext::ListUploads({known}, same), IsEmpty());
    const std::vector<NoteFile> other = {Note(u"A.b.pdf"_s, u"C:\\x.y\\c.d.pdf"_s)};
    EXPECT_THAT(richtext::ListRemoved({known}, other), ElementsAre(u"u"_s));
    EXPECT_THAT(richtext::ListUploads({known}, other), SizeIs(1));
}

TEST_F(RichAttachmentTest, WithoutFilesAllIsRemovedInTheRecordsOrder) {
    EXPECT_THAT(richtext::ListRemoved({Entry(u"b"_s, 1), Entry(u"a"_s, 2)}, {}),
                ElementsAre(u"uuid-b"_s, u"uuid-a"_s));
    EXPECT_THAT(richtext::ListUploads({Entry(u"b"_s, 1)}, {}), IsEmpty());
}

TEST_F(RichAttachmentTest, WhatWentUpHasTheItemsNameAndKindAndTheServicesRest) {
    const QString path = folder.Write(u"on disk.bin"_s, "12345");
    const auto uploaded = richtext::UploadAll({{path, u"名.html"_s, 3}, {path, u"b"_s, 2}});
    EXPECT_TRUE(uploaded.isWhole);
    EXPECT_EQ(uploaded.error, QString());
    ASSERT_THAT(uploaded.files, SizeIs(2));
    EXPECT_EQ(uploaded.files[0].name, u"名.html");
    EXPECT_EQ(uploaded.files[0].kind, 3);
    EXPECT_EQ(uploaded.files[0].size, 5);
    EXPECT_EQ(uploaded.files[0].md5, u"827ccb0eea8a706c4c34a16891f84e7b");
    EXPECT_TRUE(host.files.stored.contains(uploaded.files[0].uuid));
    EXPECT_EQ(uploaded.files[1].kind, 2);
    const std::string call = "UploadFile(path=" + path.toStdString() + ",count=1)";
    EXPECT_THAT(Log().LinesOf({"UploadFile"}), ElementsAre(call, call));
}
