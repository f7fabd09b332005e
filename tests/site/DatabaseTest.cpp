#include "site/sqlite/Database.h"

#include "tests/site/TempSite.h"

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

Fault FaultThrownBy(const std::function<void()>& work) {
    try {
        work();
    } catch (const DataError& error) {
        return error.GetFault();
    }
    ADD_FAILURE() << "nothing was thrown";
    return Fault::Other;
}

qint64 Settings(Database& db) {
    return db.Value(u"SELECT count(*) FROM setting"_s).toLongLong();
}

void AddSetting(Database& db, const QString& key) {
    db.Exec(u"INSERT INTO setting (key, value) VALUES (?, 'x')"_s, {key});
}

} // namespace

TEST(Transaction, WithoutCommitNothingStays) {
    TempSite site;
    Database& db = site.folder.Db();
    {
        Transaction transaction(db);
        AddSetting(db, u"a"_s);
    }
    EXPECT_EQ(Settings(db), 0);
}

TEST(Transaction, AnInnerOneThatIsUndoneTakesTheOuterWithIt) {
    TempSite site;
    Database& db = site.folder.Db();
    {
        Transaction outer(db);
        AddSetting(db, u"a"_s);
        {
            Transaction inner(db);
            AddSetting(db, u"b"_s);
        }
        EXPECT_THROW(outer.Commit(), DataError);
    }
    EXPECT_EQ(Settings(db), 0);
    Transaction next(db);
    AddSetting(db, u"c"_s);
    next.Commit();
    EXPECT_EQ(Settings(db), 1);
}

TEST(Database, AWriterThatWaitsTooLongIsToldThatItIsLocked) {
    TempSite site;
    Database other(site.folder.DatabasePath(), 50);
    Transaction transaction(site.folder.Db());
    EXPECT_EQ(FaultThrownBy([&] { Transaction blocked(other); }), Fault::Locked);
}

TEST(Database, AFullDiskIsToldAsSuch) {
    TempSite site;
    Database& db = site.folder.Db();
    const qint64 pages = db.Value(u"PRAGMA page_count"_s).toLongLong();
    (void)db.Value(u"PRAGMA max_page_count = %1"_s.arg(pages));
    EXPECT_EQ(FaultThrownBy([&] {
                  Transaction transaction(db);
                  db.Exec(u"INSERT INTO setting (key, value) VALUES ('big', ?)"_s,
                          {QString(200000, u'x')});
                  transaction.Commit();
              }),
              Fault::DiskFull);
    EXPECT_EQ(Settings(db), 0);
}

TEST(Database, AMissingParentIsRefused) {
    TempSite site;
    EXPECT_EQ(
        FaultThrownBy([&] { site.folder.Db().Exec(u"INSERT INTO floor VALUES (99, '1', 'x')"_s); }),
        Fault::Refused);
}

TEST(Database, AnEmptyTextIsStoredAsATextAndNotAsNothing) {
    TempSite site;
    Database& db = site.folder.Db();
    db.Exec(u"INSERT INTO setting (key, value) VALUES ('k', ?)"_s, {QString()});
    EXPECT_EQ(db.Value(u"SELECT typeof(value) FROM setting"_s).toString(), u"text"_s);
}

TEST(Database, AStatementInUseCanBeRunInsideItself) {
    TempSite site;
    Database& db = site.folder.Db();
    AddSetting(db, u"a"_s);
    AddSetting(db, u"b"_s);
    int inner = 0;
    db.ForEach(u"SELECT key FROM setting"_s, {}, [&](const Statement&) {
        db.ForEach(u"SELECT key FROM setting"_s, {}, [&](const Statement&) { ++inner; });
    });
    EXPECT_EQ(inner, 4);
}

TEST(DatabaseScan, GivesEveryRowWithItsNumbersAndTexts) {
    TempSite site;
    Database& db = site.folder.Db();
    db.Exec(u"INSERT INTO setting (key, value) VALUES ('一', '质量'), ('b', '')"_s);
    QString seen;
    db.Scan(
        u"SELECT key, value, length(value), NULL FROM setting WHERE length(value) < ? AND key"
        " <> ? ORDER BY key DESC"_s,
        {5, QString()}, [&](const sqlite::RawRow& row) {
            seen +=
                u"%1=%2 %3 [%4];"_s.arg(row.Text(0), row.Text(1)).arg(row.Int(2)).arg(row.Text(3));
        });
    EXPECT_EQ(seen, u"一=质量 2 [];b= 0 [];"_s);
}

TEST(DatabaseScan, AFaultIsThrownAndToldToTheWatch) {
    TempSite site;
    Database& db = site.folder.Db();
    int told = 0;
    db.SetFaultWatch([&](Fault) { ++told; });
    EXPECT_EQ(FaultThrownBy([&] { db.Scan(u"SELECT x FROM nowhere"_s, {}, {}); }), Fault::Other);
    EXPECT_EQ(told, 1);
}

} // namespace site
