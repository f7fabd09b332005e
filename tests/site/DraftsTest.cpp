// Texts that were not saved, in a folder.
#include "site/DataError.h"
#include "site/blobs/DraftFolder.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr qint64 kDay = 86400;
const QString kDraftPage = u"0123.html"_s;

class DraftsTest : public testing::Test {
protected:
    [[nodiscard]] KX_DATA::RichTextDraft Text(const QString& page = kDraftPage,
                                              const QByteArray& bytes = "<p>a</p>") const {
        KX_DATA::RichTextDraft draft;
        draft.key = {u"K"_s, 7, 1, 2, 1};
        draft.docName = u"doc"_s;
        draft.versionText = u"v3"_s;
        draft.stateText = u"整改中"_s;
        draft.files = {{folder.Write(u"rich/"_s + page, bytes), page, 1},
                       {folder.Write(u"rich/45.png"_s, "picture"), u"45.png"_s, 1},
                       {folder.Write(u"rich/表 1.pdf"_s, "attached"), u"表 1.pdf"_s, 2}};
        return draft;
    }
    [[nodiscard]] QStringList Entries() const {
        return QDir(folder.Path(u"drafts"_s))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] std::vector<site::Draft> Mine() { return drafts.Of(u"张工"_s); }
    void Keep(const KX_DATA::RichTextDraft& draft) { drafts.Keep(draft, u"张工"_s); }
    [[nodiscard]] static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    support::TempFolder folder;
    qint64 now = 1'000'000'000;
    site::DraftFolder drafts{folder.Path(u"drafts"_s), [this] { return now; }};
};

} // namespace

TEST_F(DraftsTest, OneComesBackAsItWasLeft) {
    Keep(Text());
    const std::vector<site::Draft> kept = Mine();
    ASSERT_THAT(kept, SizeIs(1));
    EXPECT_EQ(kept[0].at, now);
    EXPECT_EQ(kept[0].person, u"张工");
    const KX_DATA::RichTextDraft& text = kept[0].text;
    EXPECT_EQ(text.key.objectId, u"K");
    EXPECT_EQ(text.key.subId, 7);
    EXPECT_EQ(text.key.ownerId, 1);
    EXPECT_EQ(text.key.projectId, 2);
    EXPECT_EQ(text.key.objectType, 1);
    EXPECT_EQ(text.docName, u"doc");
    EXPECT_EQ(text.versionText, u"v3");
    EXPECT_EQ(text.stateText, u"整改中");
    ASSERT_THAT(text.files, SizeIs(3));
    EXPECT_EQ(text.files[0].path, kept[0].folder + kDraftPage)
        << "the page knows its pictures by name";
    EXPECT_EQ(text.files[2].name, u"表 1.pdf");
    EXPECT_EQ(text.files[2].kind, 2);
    EXPECT_EQ(Bytes(text.files[1].path), "picture");
    EXPECT_EQ(Bytes(text.files[2].path), "attached");
}

TEST_F(DraftsTest, TheFilesMayGoOnceItIsKept) {
    Keep(Text());
    QDir(folder.Path(u"rich"_s)).removeRecursively();
    EXPECT_EQ(Bytes(Mine().at(0).text.files[0].path), "<p>a</p>");
}

TEST_F(DraftsTest, EachPersonSeesTheOwnAloneLatestFirst) {
    Keep(Text(u"1.html"_s));
    now += 10;
    Keep(Text(u"2.html"_s));
    drafts.Keep(Text(u"3.html"_s), u"李四"_s);
    ASSERT_THAT(Mine(), SizeIs(2));
    EXPECT_EQ(Mine()[0].text.files[0].name, u"2.html");
    EXPECT_THAT(drafts.Of(u"王五"_s), IsEmpty());
}

TEST_F(DraftsTest, TheSamePageOfTheSameRecordIsKeptOnce) {
    Keep(Text());
    now += 10;
    Keep(Text());
    ASSERT_THAT(Mine(), SizeIs(1));
    EXPECT_EQ(Mine()[0].at, now);
    KX_DATA::RichTextDraft elsewhere = Text();
    elsewhere.key.subId = 8;
    Keep(elsewhere);
    Keep(Text(u"9.html"_s));
    EXPECT_THAT(Mine(), SizeIs(3));
}

TEST_F(DraftsTest, AfterThirtyDaysItGoes) {
    Keep(Text());
    now += 30 * kDay;
    EXPECT_THAT(Mine(), SizeIs(1));
    now += 1;
    EXPECT_THAT(Mine(), IsEmpty());
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DraftsTest, ARemovedOneIsGoneAndRemovingItAgainIsNothing) {
    Keep(Text());
    const QString id = Mine().at(0).id;
    drafts.Remove(id);
    drafts.Remove(id);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DraftsTest, OneIsFoundByItsIdAloneAndForItsPersonAlone) {
    Keep(Text(u"1.html"_s));
    Keep(Text(u"2.html"_s));
    for (const site::Draft& draft : Mine()) {
        const auto found = drafts.One(draft.id, u"张工"_s);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->text.files[0].name, draft.text.files[0].name);
        EXPECT_FALSE(drafts.One(draft.id, u"李四"_s));
    }
    EXPECT_FALSE(drafts.One(u"../drafts"_s, u"张工"_s));
    const QString id = Mine()[0].id;
    now += 30 * kDay + 1;
    EXPECT_FALSE(drafts.One(id, u"张工"_s));
}

TEST_F(DraftsTest, AnIdThatLeadsElsewhereRemovesNothing) {
    const QString precious = folder.Write(u"precious/file"_s, "x");
    Keep(Text());
    for (const QString& id : {u"../precious"_s, u""_s, u"."_s, u".."_s}) {
        drafts.Remove(id);
    }
    EXPECT_EQ(Bytes(precious), "x");
    EXPECT_THAT(Mine(), SizeIs(1));
}

TEST_F(DraftsTest, AFileThatIsNotThereIsToldAndNothingIsLeftBehind) {
    KX_DATA::RichTextDraft draft = Text();
    draft.files[1].path += u"x"_s;
    EXPECT_THROW(Keep(draft), site::DataError);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DraftsTest, WhatIsAttachedAndWasNeverFetchedKeepsItsNameAlone) {
    KX_DATA::RichTextDraft draft = Text();
    draft.files[2].path += u"x"_s;
    Keep(draft);
    draft.key.subId = 8;
    drafts.KeepOpen(draft, u"张工"_s);
    ASSERT_THAT(Mine(), SizeIs(1));
    const KX_DATA::UploadItem attached = Mine()[0].text.files.at(2);
    EXPECT_EQ(attached.path, QString());
    EXPECT_EQ(attached.name, u"表 1.pdf");
    EXPECT_EQ(attached.kind, 2);
}

TEST_F(DraftsTest, AFullDiskIsToldAndNothingIsLeftBehind) {
    const KX_DATA::RichTextDraft draft = Text(kDraftPage, QByteArray(100'000, 'a'));
    {
        const support::FileSizeLimit limit(50'000);
        EXPECT_THROW(Keep(draft), site::DataError);
    }
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DraftsTest, NamesWithPathPartsStayInTheFolder) {
    KX_DATA::RichTextDraft draft = Text();
    draft.files[1].name = u"../../outside.png"_s;
    draft.files[2].name = u"..\\outside.pdf"_s;
    Keep(draft);
    const site::Draft kept = Mine().at(0);
    for (const KX_DATA::UploadItem& file : kept.text.files) {
        EXPECT_EQ(QFileInfo(file.path).path() + u'/', kept.folder);
    }
    EXPECT_EQ(kept.text.files[1].name, u"../../outside.png") << "its name is its owner's affair";
}

TEST_F(DraftsTest, WhatCannotBeReadIsLeftOutAndLeftAlone) {
    Keep(Text());
    const QString told = u"drafts/"_s + Mine().at(0).id + u"/draft.json"_s;
    const QByteArray whole = folder.Read(told);
    const QByteArray stored = R"("file":"45.png")";
    ASSERT_TRUE(whole.contains(stored));
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("{"), QByteArray("[]"), QByteArray("\xff\xfe"), whole.left(40),
          QByteArray(whole).replace(stored, R"("file":"../../../x")"),
          QByteArray(whole).replace(stored, R"("file":"missing")")}) {
        folder.Write(told, bytes);
        EXPECT_THAT(Mine(), IsEmpty()) << bytes.constData();
    }
    folder.Write(told, whole);
    EXPECT_THAT(Mine(), SizeIs(1));
}

TEST_F(DraftsTest, WhatSomebodyIsMakingNowAndWhatIsForeignStays) {
    folder.Write(u"drafts/.part-young/x"_s, "1");
    folder.Write(u"drafts/foreign/x"_s, "1");
    EXPECT_THAT(Mine(), IsEmpty());
    EXPECT_THAT(Entries(), SizeIs(2));
}

namespace {

/// A sign of a client whose process has ended; no system gives so high a number.
QByteArray SignOfTheDead() {
    return "2147483646\nvesk\n" + QSysInfo::machineHostName().toUtf8() + "\n";
}

} // namespace

TEST_F(DraftsTest, WhatIsStillWrittenIsNoDraftInAnyClient) {
    KX_DATA::RichTextDraft text = Text();
    text.files.erase(text.files.begin());
    text.page = "<p>open</p>";
    drafts.KeepOpen(text, u"张工"_s);
    EXPECT_THAT(Mine(), IsEmpty());
    EXPECT_EQ(drafts.AdoptOpen(u"张工"_s), 0);
    site::DraftFolder other(folder.Path(u"drafts"_s), [this] { return now; });
    EXPECT_THAT(other.Of(u"张工"_s), IsEmpty());
    EXPECT_EQ(other.AdoptOpen(u"张工"_s), 0) << "its client runs";
}

TEST_F(DraftsTest, WhatAClientLeftOpenIsADraftWhenItHasEnded) {
    KX_DATA::RichTextDraft text = Text();
    text.files.erase(text.files.begin());
    text.page = "<p>open</p>";
    {
        site::DraftFolder ended(folder.Path(u"drafts"_s), [this] { return now; });
        ended.KeepOpen(text, u"张工"_s);
    }
    now += 100;
    EXPECT_EQ(drafts.AdoptOpen(u"李四"_s), 0) << "another person's";
    EXPECT_EQ(drafts.AdoptOpen(u"张工"_s), 1);
    EXPECT_EQ(drafts.AdoptOpen(u"张工"_s), 0) << "told once";
    ASSERT_THAT(Mine(), SizeIs(1));
    const site::Draft draft = Mine()[0];
    EXPECT_EQ(draft.at, now - 100) << "when it was written";
    EXPECT_EQ(draft.text.versionText, u"v3");
    ASSERT_THAT(draft.text.files, SizeIs(3));
    EXPECT_TRUE(draft.text.files[0].name.endsWith(u".html"_s));
    EXPECT_EQ(Bytes(draft.text.files[0].path), "<p>open</p>");
    EXPECT_EQ(Bytes(draft.text.files[1].path), "picture");
    EXPECT_EQ(draft.text.files[2].name, u"表 1.pdf");
    EXPECT_EQ(Bytes(draft.text.files[2].path), "attached");
}

TEST_F(DraftsTest, AClientThatWasKilledIsNotTakenForOneThatRuns) {
    KX_DATA::RichTextDraft text = Text();
    text.page = "<p>open</p>";
    QString sign;
    {
        site::DraftFolder killed(folder.Path(u"drafts"_s), [this] { return now; });
        killed.KeepOpen(text, u"张工"_s);
        sign = Entries().filter(u".client-"_s).at(0);
    }
    folder.Write(u"drafts/"_s + sign, SignOfTheDead());
    EXPECT_EQ(drafts.AdoptOpen(u"张工"_s), 1);
    EXPECT_THAT(Mine(), SizeIs(1));
    EXPECT_THAT(Entries(), SizeIs(1)) << "the sign has gone";
}

TEST_F(DraftsTest, OneDocumentIsKeptOpenOnceAndDroppedByItself) {
    KX_DATA::RichTextDraft text = Text();
    text.page = "<p>1</p>";
    drafts.KeepOpen(text, u"张工"_s);
    text.page = "<p>2</p>";
    drafts.KeepOpen(text, u"张工"_s);
    KX_DATA::RichTextDraft elsewhere = text;
    elsewhere.key.subId = 8;
    drafts.KeepOpen(elsewhere, u"张工"_s);
    EXPECT_THAT(Entries(), SizeIs(3)) << "two texts and the client's sign";
    drafts.DropOpen(text.key, u"another"_s, u"张工"_s);
    drafts.DropOpen(text.key, text.docName, u"李四"_s);
    EXPECT_THAT(Entries(), SizeIs(3));
    drafts.DropOpen(text.key, text.docName, u"张工"_s);
    EXPECT_THAT(Entries(), SizeIs(2));
}

TEST_F(DraftsTest, AGivenUpTextTakesThePlaceOfTheOpenOneAndLeavesOtherClients) {
    KX_DATA::RichTextDraft text = Text();
    text.page = "<p>open</p>";
    site::DraftFolder other(folder.Path(u"drafts"_s), [this] { return now; });
    other.KeepOpen(text, u"张工"_s);
    drafts.KeepOpen(text, u"张工"_s);
    Keep(Text());
    EXPECT_THAT(Mine(), SizeIs(1));
    drafts.DropOpen(text.key, text.docName, u"张工"_s);
    EXPECT_THAT(Mine(), SizeIs(1)) << "it is no open one any more";
    EXPECT_THAT(Entries(), SizeIs(4)) << "a draft, the other client's text, two signs";
}

TEST_F(DraftsTest, FilesOfAnOpenTextMayGoToo) {
    KX_DATA::RichTextDraft text = Text();
    text.page = "<p>open</p>";
    {
        site::DraftFolder ended(folder.Path(u"drafts"_s), [this] { return now; });
        ended.KeepOpen(text, u"张工"_s);
    }
    QDir(folder.Path(u"rich"_s)).removeRecursively();
    drafts.AdoptOpen(u"张工"_s);
    EXPECT_EQ(Bytes(Mine().at(0).text.files[2].path), "picture");
}
