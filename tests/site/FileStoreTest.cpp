#include "site/blobs/FileStore.h"

#include "site/sqlite/Database.h"
#include "tests/site/TempSite.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

// A note as a process leaves it that died between storing a file and writing its row.
QString LeaveDeadNote(DataFolder& folder, const QByteArray& bytes) {
    const StoredFile file = folder.Store().Put({{}, bytes});
    const QString dead = folder.StorePath() + u"/incoming/dead"_s;
    QDir().mkpath(dead);
    const QString place = folder.Store().PathOf(file.uuid);
    EXPECT_TRUE(QFile::copy(place, dead + u'/' + file.uuid));
    folder.Store().Settle(file.uuid);
    return file.uuid;
}

int NotesBelow(const DataFolder& folder, const QString& name) {
    return static_cast<int>(
        QDir(folder.StorePath() + u"/incoming/"_s + name).entryList(QDir::Files).size());
}

} // namespace

TEST(FileStore, NamesThatAreNoUuidsNeverReachTheFileSystem) {
    TempSite site;
    for (const QString& name : {u"../site.db"_s, u"C:x"_s, u"a/b"_s, u""_s}) {
        EXPECT_FALSE(site.folder.Store().Has(name));
        try {
            (void)site.folder.Store().PathOf(name);
            ADD_FAILURE() << name.toStdString();
        } catch (const DataError& error) {
            EXPECT_EQ(error.GetFault(), Fault::BadName);
        }
    }
}

TEST(FileStore, AFileThatIsNotThereIsNamedInTheMessage) {
    TempSite site;
    try {
        (void)site.folder.Store().PathOf(u"nowhere"_s);
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.GetFault(), Fault::Missing);
        EXPECT_TRUE(error.Text().contains(u"nowhere"_s));
    }
}

TEST(FileStore, APathThatCannotBeReadStoresNothing) {
    TempSite site;
    EXPECT_THROW((void)site.folder.Store().Put({u"/nowhere/at/all.jpg"_s, {}}), DataError);
}

TEST(FileStore, AFileWhoseProcessDiedBeforeItsRowWasWrittenIsRemoved) {
    TempSite site;
    const QString uuid = LeaveDeadNote(site.folder, "orphan");
    site.folder.Close();
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_FALSE(site.folder.Store().Has(uuid));
    EXPECT_FALSE(QDir(site.folder.StorePath() + u"/incoming/dead"_s).exists());
}

TEST(FileStore, AFileWhoseProcessDiedAfterItsRowWasWrittenStays) {
    TempSite site;
    const QString uuid = LeaveDeadNote(site.folder, "filed");
    site.folder.Db().Exec(u"INSERT INTO file VALUES (?, '', 5, 1, 1, 1)"_s, {uuid});
    site.folder.Close();
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_TRUE(site.folder.Store().Has(uuid));
    EXPECT_FALSE(QDir(site.folder.StorePath() + u"/incoming/dead"_s).exists());
}

TEST(FileStore, AFileOfADeadProcessThatWentToTheBinStays) {
    TempSite site;
    const QString uuid = LeaveDeadNote(site.folder, "deleted");
    site.folder.Db().Exec(u"INSERT INTO bin VALUES (1, 1, 1, 1, '', '', ?, '')"_s,
                          {QDateTime::currentSecsSinceEpoch()});
    site.folder.Db().Exec(u"INSERT INTO bin_file VALUES (?, 1)"_s, {uuid});
    site.folder.Close();
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_EQ(site.folder.Store().PathOf(uuid), site.folder.BinPath() + u'/' + uuid);
}

TEST(FileStore, NotesOfALivingProcessAreLeftAlone) {
    TempSite site;
    const StoredFile file = site.folder.Store().Put({{}, "on its way"});
    DataFolder second(site.folder.Path());
    ASSERT_FALSE(second.Open().has_value());
    EXPECT_TRUE(site.folder.Store().Has(file.uuid));
    site.folder.Store().Settle(file.uuid);
}

TEST(FileStore, ASettledFileLeavesNoNoteAndADiscardedOneNothing) {
    TempSite site;
    const StoredFile kept = site.folder.Store().Put({{}, "a"});
    const StoredFile gone = site.folder.Store().Put({{}, "b"});
    site.folder.Store().Settle(kept.uuid);
    site.folder.Store().Discard(gone.uuid);
    EXPECT_TRUE(site.folder.Store().Has(kept.uuid));
    EXPECT_FALSE(site.folder.Store().Has(gone.uuid));
    const QDir incoming(site.folder.StorePath() + u"/incoming"_s);
    for (const QString& name : incoming.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        EXPECT_LE(NotesBelow(site.folder, name), 1); // the lock alone
    }
}

} // namespace site
