#include "site/sqlite/Migrations.h"

#include "site/sqlite/Database.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

qint64 CountTables(Database& database, const QString& condition) {
    return database
        .Value(u"SELECT count(*) FROM sqlite_master WHERE type = 'table' AND "_s + condition)
        .toLongLong();
}

/// 0: nothing in it yet.
qint64 VersionOf(Database& database) {
    if (CountTables(database, u"name = 'schema_version'"_s) == 0) {
        if (CountTables(database, u"name NOT LIKE 'sqlite_%'"_s) > 0) {
            throw DataError(Fault::Damaged, FaultText(Fault::Damaged, {}), u"no versions"_s);
        }
        return 0;
    }
    const QVariant latest = database.Value(u"SELECT max(version) FROM schema_version"_s);
    const qint64 version = latest.toLongLong();
    const bool isOurs = latest.typeId() == QMetaType::LongLong && version > 0 &&
                        CountTables(database, u"name = 'bim_photo'"_s) == 1;
    if (!isOurs) {
        throw DataError(Fault::Damaged, FaultText(Fault::Damaged, {}), u"version of no site"_s);
    }
    return version;
}

void RunStep(Database& database, int version, const std::vector<QString>& statements, qint64 now) {
    Transaction transaction(database);
    // Another process may have been quicker while this one waited for the lock.
    if (VersionOf(database) >= version) {
        return;
    }
    for (const QString& statement : statements) {
        database.Exec(statement);
    }
    database.Exec(u"INSERT INTO schema_version (version, applied) VALUES (?, ?)"_s, {version, now});
    transaction.Commit();
}

} // namespace

void Migrate(Database& database, qint64 now) {
    const qint64 found = VersionOf(database);
    if (found > kSchemaVersion) {
        throw DataError(Fault::Newer, FaultText(Fault::Newer, {}), u"version %1"_s.arg(found));
    }
    const auto steps = SchemaSteps();
    for (int version = static_cast<int>(found) + 1; version <= kSchemaVersion; ++version) {
        RunStep(database, version, steps[static_cast<size_t>(version - 1)], now);
    }
}

} // namespace site
