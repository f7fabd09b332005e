// Drafts that no client of ours left so: other people can write into the folder too.
#include "site/DataError.h"
#include "site/blobs/DraftFolder.h"
#include "tests/support/TempFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using testing::IsEmpty;
using testing::SizeIs;

const QString kWho = u"张工"_s;
const QString kSomeId = u"6f1f0c9e-9b0b-4c0e-8f6e-0c6a3d0b7a11"_s;
constexpr qint64 kTwoHours = 7200;

/// The rights of somebody who owns nothing, for a test that the root of a machine runs.
class AsNobody final {
public:
    AsNobody() : m_before(geteuid()) { EXPECT_TRUE(m_before != 0 || seteuid(kNobody) == 0); }
    ~AsNobody() { EXPECT_EQ(seteuid(m_before), 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t m_before;
};

class CurrentFolder final {
public:
    explicit CurrentFolder(const QString& path) { EXPECT_TRUE(QDir::setCurrent(path)); }
    ~CurrentFolder() { QDir::setCurrent(m_before); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    QString m_before = QDir::currentPath();
};

class CraftedDraftsTest : public testing::Test {
protected:
    [[nodiscard]] KX_DATA::RichTextDraft OneText() const {
        KX_DATA::RichTextDraft draft;
        draft.key = {u"K"_s, 7, 1, 2, 1};
        draft.docName = u"doc"_s;
        draft.files = {{folder.Write(u"rich/01.html"_s, "<p>a</p>"), u"01.html"_s, 1}};
        return draft;
    }
    [[nodiscard]] QString Folder(const QString& name) const {
        return folder.Path(u"drafts/"_s + name);
    }
    /// A draft that was left open by a client of this name.
    void LeaveOpen(const QString& client) {
        drafts.Keep(OneText(), kWho);
        const QString told = u"drafts/"_s + drafts.Of(kWho).at(0).id + u"/draft.json"_s;
        QJsonObject words = QJsonDocument::fromJson(folder.Read(told)).object();
        words[u"client"_s] = client;
        folder.Write(told, QJsonDocument(words).toJson());
    }
    static void MakeOld(const QString& path) {
        const auto then =
            std::filesystem::file_time_type::clock::now() - std::chrono::seconds(kTwoHours);
        std::filesystem::last_write_time(path.toStdU16String(), then);
    }

    support::TempFolder folder;
    qint64 now = 1'000'000'000;
    site::DraftFolder drafts{folder.Path(u"drafts"_s), [this] { return now; }};
};

} // namespace

TEST_F(CraftedDraftsTest, ALinkAmongWhatACrashLeftTakesNothingWithIt) {
    const QString precious = folder.Write(u"precious/file"_s, "x");
    drafts.Keep(OneText(), kWho);
    MakeOld(folder.Path(u"precious"_s));
    ASSERT_TRUE(QFile::link(folder.Path(u"precious"_s), Folder(u".part-1"_s)));
    EXPECT_THAT(drafts.Of(kWho), SizeIs(1));
    EXPECT_TRUE(QFile::exists(precious));
}

TEST_F(CraftedDraftsTest, ALinkInPlaceOfADraftIsNoneAndTakesNothingWithIt) {
    drafts.Keep(OneText(), kWho);
    const QString id = drafts.Of(kWho).at(0).id;
    ASSERT_TRUE(QDir().rename(Folder(id), folder.Path(u"elsewhere"_s)));
    ASSERT_TRUE(QFile::link(folder.Path(u"elsewhere"_s), Folder(id)));
    EXPECT_THAT(drafts.Of(kWho), IsEmpty());
    EXPECT_FALSE(drafts.One(id, kWho));
    now += 2 * site::kDraftSeconds;
    EXPECT_THAT(drafts.Of(kWho), IsEmpty());
    EXPECT_TRUE(QFile::exists(folder.Path(u"elsewhere/01.html"_s)));
    drafts.Remove(id);
    EXPECT_TRUE(QFile::exists(folder.Path(u"elsewhere/01.html"_s)));
}

TEST_F(CraftedDraftsTest, ASignThatTellsOfNoProcessHidesNoDraft) {
    LeaveOpen(kSomeId);
    const QString sign = Folder(u".client-"_s + kSomeId);
    for (const QByteArray& bytes : {QByteArray(), QByteArray("x"), QByteArray("1\n2\n"),
                                    QByteArray(100'000, '\n'), QByteArray("-5\na\nb\n")}) {
        folder.Write(u"drafts/.client-"_s + kSomeId, bytes);
        EXPECT_THAT(drafts.Of(kWho), SizeIs(1)) << bytes.left(10).constData();
    }
    QFile::remove(sign);
    ASSERT_TRUE(QDir().mkdir(sign));
    EXPECT_THAT(drafts.Of(kWho), SizeIs(1)) << "a folder";
    ASSERT_TRUE(QDir().rmdir(sign));
    ASSERT_TRUE(QFile::link(folder.Write(u"other"_s, "1\na\nb\n"), sign));
    EXPECT_THAT(drafts.Of(kWho), SizeIs(1)) << "a link";
    EXPECT_EQ(drafts.AdoptOpen(kWho), 1);
}

TEST_F(CraftedDraftsTest, NobodyWaitsAtASignThatIsAPipe) {
    LeaveOpen(kSomeId);
    ASSERT_EQ(mkfifo(QFile::encodeName(Folder(u".client-"_s + kSomeId)).constData(), 0600), 0);
    EXPECT_THAT(drafts.Of(kWho), SizeIs(1));
}

TEST_F(CraftedDraftsTest, ANameOfAClientLeadsNowhereElse) {
    // A lock of an ended process goes when somebody asks whether it is held.
    const QByteArray ended = "2147483646\nvesk\n\n";
    folder.Write(u"precious.lock"_s, ended);
    const QString client = kSomeId + u"/../../precious.lock"_s;
    LeaveOpen(client);
    ASSERT_TRUE(QDir().mkpath(Folder(u".client-"_s + kSomeId)));
    EXPECT_THAT(drafts.Of(kWho), SizeIs(1));
    EXPECT_EQ(folder.Read(u"precious.lock"_s), ended);
}

TEST_F(CraftedDraftsTest, ADraftThatCannotBeRemovedKeepsNobodyFromKeeping) {
    drafts.Keep(OneText(), kWho);
    const QString id = drafts.Of(kWho).at(0).id;
    QFile(folder.Path()).setPermissions(QFile::Permissions(0x7755));
    QFile(Folder(u""_s)).setPermissions(QFile::Permissions(0x7777));
    now += site::kDraftSeconds + 1;
    KX_DATA::RichTextDraft text = OneText();
    text.files[0].path = u"rich/01.html"_s;
    {
        // From here: whoever has no rights can't come by the folders above.
        const CurrentFolder here(folder.Path());
        const AsNobody nobody;
        site::DraftFolder others(u"drafts"_s, [this] { return now; });
        EXPECT_NO_THROW(others.Keep(text, kWho));
        EXPECT_THAT(others.Of(kWho), SizeIs(1));
        EXPECT_THROW(others.Remove(id), site::DataError) << "a person who asks for it is told";
    }
    QFile(Folder(id)).setPermissions(QFile::Permissions(0x7777));
}

TEST_F(CraftedDraftsTest, FilesWithNamesInAnotherEncodingGoWithTheirDraft) {
    drafts.Keep(OneText(), kWho);
    const QString id = drafts.Of(kWho).at(0).id;
    const QByteArray odd = QFile::encodeName(Folder(id)) + "/\xff\xfe";
    ASSERT_EQ(mkdir(odd.constData(), 0700), 0);
    EXPECT_NO_THROW(drafts.Remove(id));
    EXPECT_FALSE(QFile::exists(Folder(id)));
}

TEST_F(CraftedDraftsTest, ATimeThatNobodyReachesIsATimeAllTheSame) {
    for (const char* at : {"9223372036854775807", "99999999999999"}) {
        drafts.Keep(OneText(), kWho);
        const QString told = u"drafts/"_s + drafts.Of(kWho).at(0).id + u"/draft.json"_s;
        folder.Write(told,
                     folder.Read(told).replace("\"at\":1000000000", QByteArray("\"at\":") + at));
        ASSERT_THAT(drafts.Of(kWho), SizeIs(1)) << at;
        EXPECT_LT(drafts.Of(kWho)[0].at, std::numeric_limits<qint64>::max() - site::kDraftSeconds);
        drafts.Remove(drafts.Of(kWho)[0].id);
    }
}

TEST_F(CraftedDraftsTest, ALinkBesideATextThatWasLeftOpenIsNotWrittenThrough) {
    LeaveOpen(kSomeId);
    const QString precious = folder.Write(u"precious"_s, "x");
    const QString id = drafts.Of(kWho).at(0).id;
    ASSERT_TRUE(QFile::link(precious, Folder(id + u"/draft.json.part-"_s)));
    EXPECT_EQ(drafts.AdoptOpen(kWho), 1);
    EXPECT_EQ(folder.Read(u"precious"_s), "x");
}

TEST_F(CraftedDraftsTest, OneWithoutAPageIsNone) {
    drafts.Keep(OneText(), kWho);
    const QString told = u"drafts/"_s + drafts.Of(kWho).at(0).id + u"/draft.json"_s;
    folder.Write(told, folder.Read(told).replace("\"kind\":1", "\"kind\":2"));
    EXPECT_THAT(drafts.Of(kWho), IsEmpty()) << "it would take the place of a text";
}

TEST_F(CraftedDraftsTest, EachFieldOfAnyShapeIsReadOrLeavesTheDraftOut) {
    drafts.Keep(OneText(), kWho);
    const QString told = u"drafts/"_s + drafts.Of(kWho).at(0).id + u"/draft.json"_s;
    const QByteArray whole = folder.Read(told);
    const QJsonObject words = QJsonDocument::fromJson(whole).object();
    const QJsonValue shapes[] = {QJsonValue(),
                                 -1,
                                 1e300,
                                 true,
                                 QString(100'000, u'长'),
                                 u""_s,
                                 u"../../x"_s,
                                 QJsonArray{1},
                                 QJsonObject{{u"a"_s, 1}},
                                 u"\0x"_s};
    int kept = 0;
    for (const QString& field : words.keys()) {
        for (const QJsonValue& shape : shapes) {
            QJsonObject other = words;
            other[field] = shape;
            folder.Write(told, QJsonDocument(other).toJson());
            if (field != u"at") { // whose time is over goes
                for (const site::Draft& draft : drafts.Of(kWho)) {
                    ++kept;
                    EXPECT_EQ(draft.person, kWho);
                    ASSERT_THAT(draft.text.files, SizeIs(1));
                    EXPECT_EQ(draft.text.files[0].path, draft.folder + u"01.html"_s);
                }
                EXPECT_NO_THROW(drafts.AdoptOpen(kWho));
            }
            for (const QString& of : {u"name"_s, u"kind"_s, u"file"_s}) {
                QJsonObject file = words[u"files"_s].toArray()[0].toObject();
                file[of] = shape;
                other = words;
                other[u"files"_s] = QJsonArray{file, 7};
                folder.Write(told, QJsonDocument(other).toJson());
                EXPECT_THAT(drafts.Of(kWho), IsEmpty()) << "one of the files is no file";
            }
        }
    }
    EXPECT_EQ(kept, 10 * 9) << "all fields but person, time and files";
    folder.Write(told, whole);
    EXPECT_THAT(drafts.Of(kWho), SizeIs(1));
}
