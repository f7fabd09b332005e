#include "host/data/Migrations.h"

#include "host/data/Database.h"

#include <QDateTime>

namespace host {

using namespace Qt::StringLiterals;

namespace {

qint64 CountTables(Database& database, const QString& condition) {
    return database
        .Value(u"SELECT count(*) FROM sqlite_master WHERE type = 'table' AND "_s + condition)
        .toLongLong();
}

int VersionOf(Database& database) {
    if (CountTables(database, u"name = 'schema_version'"_s) == 0) {
        if (CountTables(database, u"name NOT LIKE 'sqlite_%'"_s) > 0) {
            throw DataError(Fault::kDamaged, FaultText(Fault::kDamaged, {}), u"no versions"_s);
        }
        return 0;
    }
    return database.Value(u"SELECT max(version) FROM schema_version"_s).toInt();
}

void RunStep(Database& database, int version, const std::vector<QString>& statements) {
    Transaction transaction(database);
    // Another process may have been quicker while this one waited for the lock.
    if (VersionOf(database) >= version) {
        return;
    }
    for (const QString& statement : statements) {
        database.Exec(statement);
    }
    database.Exec(u"INSERT INTO schema_version (version, applied) VALUES (?, ?)"_s,
                  {version, QDateTime::currentSecsSinceEpoch()});
    transaction.Commit();
}

} // namespace

void Migrate(Database& database) {
    const int found = VersionOf(database);
    if (found > kSchemaVersion) {
        throw DataError(Fault::kNewer, FaultText(Fault::kNewer, {}), u"version %1"_s.arg(found));
    }
    const auto steps = SchemaSteps();
    for (int version = found + 1; version <= kSchemaVersion; ++version) {
        RunStep(database, version, steps[static_cast<size_t>(version - 1)]);
    }
}

} // namespace host
