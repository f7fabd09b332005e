// Which files of a document are fetched, go up and go away.
#include "richtext/RichFiles.h"
#include "richtext/RichEditorNotify.h"
#include "tests/console/ModuleFixture.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

namespace {

KX_DATA::RichAttachment File(const QString& name, const QString& md5, qint32 kind,
                             qint32 size = 10) {
    return {name, md5, u"uuid-"_s + name, size, kind};
}

NoteFile Of(const QString& storeName, const QString& localPath, qint32 attached = 0,
            qint32 embedded = 0) {
    NoteFile file;
    file.storeName = storeName;
    file.localPath = localPath;
    file.isAttachment = attached;
    file.isEmbedded = embedded;
    return file;
}

class RichFilesTest : public ModuleFixture {};

} // namespace

TEST_F(RichFilesTest, AStoreNameIsTheDigestWithTheEndingOfTheName) {
    EXPECT_EQ(richtext::StoreNameOf(File(u"a.b.pdf"_s, u"md5"_s, 2)), u"md5.pdf");
    EXPECT_EQ(richtext::StoreNameOf(File(u"plain"_s, u"md5"_s, 2)), u"md5");
    EXPECT_EQ(richtext::StoreNameOf(File(u".pdf"_s, u"md5"_s, 2)), u"md5.pdf");
}

TEST_F(RichFilesTest, AnEmptyListWithoutTextKeepsAnOlderList) {
    CRichEditorNotify notify;
    EXPECT_EQ(notify.OnFilesChanged(u"doc"_s, {Of(u"a.html"_s, u"/a.html"_s)}, {}), 1);
    EXPECT_EQ(notify.OnFilesChanged(u"doc"_s, {}, {}), 1);
    EXPECT_THAT(notify.fileLists.at(u"doc"_s), SizeIs(1));
    EXPECT_EQ(notify.OnFilesChanged(u"doc"_s, {}, u"text"_s), 1);
    EXPECT_THAT(notify.fileLists.at(u"doc"_s), IsEmpty());
}

TEST_F(RichFilesTest, AnAttachmentIsNotFetchedBeforeOpeningAndListedInTheMapOnly) {
    const auto prepared = richtext::PrepareFiles({File(u"报告.pdf"_s, u"m2"_s, 2, 77)});
    EXPECT_TRUE(prepared.isWhole);
    EXPECT_THAT(prepared.names, IsEmpty());
    EXPECT_THAT(prepared.sizes, ElementsAre(Pair(u"m2.pdf"_s, 77U)));
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
}

TEST_F(RichFilesTest, PagesAndEmbeddedFilesAreFetchedOnceAndOnlyPagesAreListedByName) {
    host.files.stored[u"uuid-p.html"_s] = "page";
    host.files.stored[u"uuid-e.png"_s] = "embedded";
    const std::vector<KX_DATA::RichAttachment> files = {File(u"p.html"_s, u"m1"_s, 1),
                                                        File(u"e.png"_s, u"m3"_s, 3, 8)};
    const auto prepared = richtext::PrepareFiles(files);
    EXPECT_TRUE(prepared.isWhole);
    EXPECT_THAT(prepared.names, ElementsAre(u"p.html"_s));
    EXPECT_THAT(prepared.sizes, ElementsAre(Pair(u"m3.png"_s, 8U)));
    EXPECT_THAT(Log().LinesOf({"DownloadFile"}),
                ElementsAre("DownloadFile(uuid=uuid-p.html,kind=5,flag=false,value=0)",
                            "DownloadFile(uuid=uuid-e.png,kind=5,flag=false,value=0)"));
    EXPECT_TRUE(richtext::PrepareFiles(files).isWhole);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 2) << "they are there";
}

TEST_F(RichFilesTest, ANameThatLeadsOutOfTheFolderIsNoFileOfThePage) {
    std::vector<KX_DATA::RichAttachment> files;
    for (const QString& name : {u"../out.html"_s, u"a/out.html"_s, u"..\\out.html"_s, u".."_s,
                                u"."_s, u""_s, u"/out.html"_s, u"C:out.html"_s}) {
        files.push_back(File(name, u"m"_s, 1));
        files.push_back(File(name, u"m"_s, 3));
        host.files.stored[u"uuid-"_s + name] = "out";
    }
    const auto prepared = richtext::PrepareFiles(files);
    EXPECT_TRUE(prepared.isWhole) << "the rest is shown";
    EXPECT_THAT(prepared.names, IsEmpty());
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
}

TEST_F(RichFilesTest, TheFirstDownloadThatFailsEndsItWithTheServicesText) {
    host.files.stored[u"uuid-b.html"_s] = "b";
    const auto prepared =
        richtext::PrepareFiles({File(u"a.html"_s, u"m"_s, 1), File(u"b.html"_s, u"m"_s, 1)});
    EXPECT_FALSE(prepared.isWhole);
    EXPECT_EQ(prepared.error, u"scripted failure");
    EXPECT_EQ(Log().CountOf("DownloadFile"), 1);
}

TEST_F(RichFilesTest, OfTwoAttachmentsOfOneStoreNameTheFirstSizeStands) {
    const auto prepared =
        richtext::PrepareFiles({File(u"a.pdf"_s, u"m"_s, 2, 1), File(u"b.pdf"_s, u"m"_s, 2, 2)});
    EXPECT_THAT(prepared.sizes, ElementsAre(Pair(u"m.pdf"_s, 1U)));
}

TEST_F(RichFilesTest, AnUnchangedListLeadsToNothing) {
    const std::vector<KX_DATA::RichAttachment> known = {File(u"m1.html"_s, u"m1"_s, 1),
                                                        File(u"报告.pdf"_s, u"m2"_s, 2)};
    const std::vector<NoteFile> files = {Of(u"m1.html"_s, u"/rich/m1.html"_s),
                                         Of(u"m2.pdf"_s, u"C:\\rich\\报告.pdf"_s, 1)};
    EXPECT_THAT(richtext::ListRemoved(known, files), IsEmpty());
    EXPECT_THAT(richtext::ListUploads(known, files), IsEmpty());
}

TEST_F(RichFilesTest, AnotherNameOrOtherContentIsRemovedAndUploadedAgain) {
    const std::vector<KX_DATA::RichAttachment> known = {File(u"a.pdf"_s, u"m1"_s, 2),
                                                        File(u"b.pdf"_s, u"m2"_s, 2)};
    const std::vector<NoteFile> files = {Of(u"m1.pdf"_s, u"/x/new.pdf"_s, 1),
                                         Of(u"m3.pdf"_s, u"/x/b.pdf"_s, 1)};
    EXPECT_THAT(richtext::ListRemoved(known, files), ElementsAre(u"uuid-a.pdf"_s, u"uuid-b.pdf"_s));
    const auto items = richtext::ListUploads(known, files);
    ASSERT_THAT(items, SizeIs(2));
    EXPECT_EQ(items[0].path, u"/x/new.pdf");
    EXPECT_EQ(items[0].name, u"new.pdf");
    EXPECT_EQ(items[1].name, u"b.pdf");
}

TEST_F(RichFilesTest, AFilesKindIsEmbeddedBeforeAttachedBeforePage) {
    const auto items = richtext::ListUploads(
        {}, {Of(u"a"_s, u"/a"_s), Of(u"b"_s, u"/b"_s, 1), Of(u"c"_s, u"/c"_s, 1, 1)});
    ASSERT_THAT(items, SizeIs(3));
    EXPECT_EQ(items[0].kind, richtext::kPageFile);
    EXPECT_EQ(items[1].kind, richtext::kAttachment);
    EXPECT_EQ(items[2].kind, richtext::kEmbedded);
}

TEST_F(RichFilesTest, NamesWithoutDotOrFolderAreWholeKeys) {
    EXPECT_THAT(richtext::ListRemoved({File(u"n"_s, u"m"_s, 1)}, {Of(u"m"_s, u"n"_s)}), IsEmpty());
}

TEST_F(RichFilesTest, UploadsStopAtTheFirstThatFailsAndKeepWhatWentUp) {
    const QString one = folder.Write(u"one.html"_s, "1");
    const auto uploaded = richtext::UploadAll(
        {{one, u"one.html"_s, 1}, {folder.Path(u"gone"_s), u"gone"_s, 1}, {one, u"x"_s, 1}});
    EXPECT_FALSE(uploaded.isWhole);
    EXPECT_EQ(uploaded.error, u"scripted failure");
    ASSERT_THAT(uploaded.files, SizeIs(1));
    EXPECT_EQ(uploaded.files[0].name, u"one.html");
    EXPECT_EQ(uploaded.files[0].size, 1);
    EXPECT_EQ(uploaded.files[0].kind, 1);
    EXPECT_FALSE(uploaded.files[0].uuid.isEmpty());
    EXPECT_EQ(uploaded.files[0].md5.size(), 32);
    EXPECT_EQ(Log().CountOf("UploadFile"), 2);
}
