#include "site/sqlite/Database.h"
#include "site/sqlite/Migrations.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QFile>
#include <QFileInfo>

#include <limits>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

constexpr int kShortTimeoutMs = 100;

QString FaultOfOpening(const QString& path, Fault expected) {
    DataFolder folder(path);
    const auto fault = folder.Open({kShortTimeoutMs, true});
    EXPECT_TRUE(fault.has_value());
    EXPECT_FALSE(folder.IsOpen());
    if (!fault) {
        return {};
    }
    EXPECT_EQ(fault->fault, expected) << fault->text.toStdString();
    return fault->text;
}

void Overwrite(const QString& path, qint64 at, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(at));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

} // namespace

TEST(DataFolder, AFreshFolderHasItsPartsAndThePresentSchema) {
    TempSite site;
    for (const QString& path : {site.folder.StorePath(), site.folder.BinPath(),
                                site.folder.WorkPath(), site.folder.LogPath()}) {
        EXPECT_TRUE(QFileInfo(path).isDir()) << path.toStdString();
    }
    Database& db = site.folder.Db();
    EXPECT_EQ(db.Value(u"SELECT max(version) FROM schema_version"_s).toInt(), kSchemaVersion);
    EXPECT_EQ(db.Value(u"PRAGMA journal_mode"_s).toString(), u"wal"_s);
    EXPECT_EQ(db.Value(u"PRAGMA foreign_keys"_s).toInt(), 1);
    EXPECT_EQ(db.Value(u"PRAGMA synchronous"_s).toInt(), 2) << "FULL";
}

TEST(DataFolder, OpeningAgainKeepsTheDataAndMigratesNothing) {
    TempSite site;
    const qint32 ppid = SiteWriter(site.folder).AddProject(u"一号楼"_s);
    site.folder.Close();
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_EQ(SiteWriter(site.folder).FindProject(u"一号楼"_s), ppid);
    EXPECT_EQ(site.folder.Db().Value(u"SELECT count(*) FROM schema_version"_s).toInt(),
              kSchemaVersion);
}

TEST(DataFolder, ADatabaseOfALaterVersionIsRefused) {
    TempSite site;
    site.folder.Db().Exec(u"INSERT INTO schema_version VALUES (?, 0)"_s, {kSchemaVersion + 1});
    site.folder.Close();
    EXPECT_TRUE(FaultOfOpening(site.folder.Path(), Fault::Newer).contains(u"升级"_s));
}

TEST(DataFolder, AVersionOutOfRangeIsASentence) {
    for (const auto& [version, fault] : std::vector<std::pair<QVariant, Fault>>{
             {-1, Fault::Damaged},
             {0, Fault::Damaged},
             {4'294'967'297LL, Fault::Newer},
             {std::numeric_limits<qint64>::max(), Fault::Newer},
         }) {
        TempSite site;
        site.folder.Db().Exec(u"DELETE FROM schema_version"_s);
        site.folder.Db().Exec(u"INSERT INTO schema_version VALUES (?, 0)"_s, {version});
        site.folder.Close();
        EXPECT_FALSE(FaultOfOpening(site.folder.Path(), fault).isEmpty());
    }
}

TEST(DataFolder, ATableOfVersionsOfAnotherProgramIsDamage) {
    TempSite site;
    site.folder.Close();
    QFile::remove(site.folder.DatabasePath());
    {
        Database other(site.folder.DatabasePath(), kShortTimeoutMs);
        other.Exec(u"CREATE TABLE schema_version (version TEXT)"_s);
        other.Exec(u"INSERT INTO schema_version VALUES ('2.1')"_s);
    }
    FaultOfOpening(site.folder.Path(), Fault::Damaged);
    Database other(site.folder.DatabasePath(), kShortTimeoutMs);
    EXPECT_EQ(other.Value(u"SELECT count(*) FROM sqlite_master"_s).toInt(), 1);
}

TEST(DataFolder, AFileThatIsNoDatabaseIsDamage) {
    TempSite site;
    site.folder.Close();
    Overwrite(site.folder.DatabasePath(), 0, QByteArray(200, 'x'));
    EXPECT_TRUE(FaultOfOpening(site.folder.Path(), Fault::Damaged).contains(u"损坏"_s));
}

TEST(DataFolder, ATruncatedDatabaseIsDamage) {
    TempSite site;
    site.folder.Close();
    QFile file(site.folder.DatabasePath());
    ASSERT_TRUE(file.resize(file.size() / 2));
    FaultOfOpening(site.folder.Path(), Fault::Damaged);
}

TEST(DataFolder, ADatabaseOfAnotherProgramIsRefusedAndLeftAlone) {
    TempSite site;
    site.folder.Close();
    QFile::remove(site.folder.DatabasePath());
    {
        Database other(site.folder.DatabasePath(), kShortTimeoutMs);
        other.Exec(u"CREATE TABLE recipes (id INTEGER)"_s);
    }
    FaultOfOpening(site.folder.Path(), Fault::Damaged);
    Database other(site.folder.DatabasePath(), kShortTimeoutMs);
    EXPECT_EQ(other.Value(u"SELECT count(*) FROM sqlite_master"_s).toInt(), 1);
}

TEST(DataFolder, AfterASuspicionTheWholeDatabaseIsRead) {
    TempSite site;
    SiteWriter(site.folder).AddProject(u"一号楼"_s);
    const int page = site.folder.Db()
                         .Value(u"SELECT rootpage FROM sqlite_master WHERE name = 'bim_by_name'"_s)
                         .toInt();
    site.folder.Close();
    constexpr int kPageSize = 8192;
    Overwrite(site.folder.DatabasePath(), static_cast<qint64>(page - 1) * kPageSize,
              QByteArray(64, '\xff'));
    DataFolder unsuspecting(site.folder.Path());
    EXPECT_FALSE(unsuspecting.Open().has_value());
    EXPECT_THROW((void)unsuspecting.Db().Value(
                     u"SELECT count(*) FROM bim_photo INDEXED BY bim_by_name WHERE ppid = 1"_s),
                 DataError);
    unsuspecting.Close();
    FaultOfOpening(site.folder.Path(), Fault::Damaged);
}

TEST(DataFolder, ADatabaseThatAnotherProcessHoldsIsToldAsLocked) {
    TempSite site;
    site.folder.Close();
    Database holder(site.folder.DatabasePath(), kShortTimeoutMs);
    holder.Exec(u"PRAGMA locking_mode = EXCLUSIVE"_s);
    holder.Exec(u"CREATE TABLE held (id INTEGER)"_s);
    EXPECT_TRUE(FaultOfOpening(site.folder.Path(), Fault::Locked).contains(u"占用"_s));
}

TEST(DataFolder, AFolderThatCannotBeMadeIsNotWritable) {
    QTemporaryDir dir;
    QFile file(dir.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(
        FaultOfOpening(dir.filePath(u"file/site"_s), Fault::NotWritable).contains(u"权限"_s));
}

TEST(DataFolder, ASecondOpeningOfTheSameFolderSeesTheChangesOfTheFirst) {
    TempSite site;
    DataFolder second(site.folder.Path());
    ASSERT_FALSE(second.Open().has_value());
    ChangeLog& log = second.Db().Log();
    log.StartHere();
    log.CatchUp();
    EXPECT_TRUE(log.TakeUntold().empty());
    SiteWriter(site.folder).AddProject(u"一号楼"_s);
    log.CatchUp();
    EXPECT_EQ(log.TakeUntold().size(), 1U);
    EXPECT_NE(SiteWriter(second).FindProject(u"一号楼"_s), 0);
}

TEST(DataFolder, CachesLieOutsideTheStore) {
    TempSite site;
    const QString cache =
        SqliteSite(site.folder).Folders().CacheOf(3, IClientFolders::Cache::Pictures);
    EXPECT_TRUE(QFileInfo(cache).isDir());
    EXPECT_FALSE(cache.startsWith(site.folder.StorePath()));
}

} // namespace site
