// What only SQLite knows: connection settings, error codes, the functions added to a connection.
#pragma once

#include "site/DataError.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QVariant>

#include <functional>
#include <string_view>

struct sqlite3_stmt;

namespace site {

class HitSet;
class Patience;

namespace sqlite {

/// The hit set that in_hits(id) and add_hit(id) work on; one for each connection. Thread: its own.
struct HitSlot {
    HitSet* hits = nullptr;
};

/// Looks at the bytes of a database file without opening it; a missing or empty file is none yet.
enum class FileLook { None, Good, Suspect, Bad };
[[nodiscard]] FileLook LookAtFile(const QString& path);

/// Settings of a fresh connection: WAL, foreign keys, cache. Throws DataError.
void Configure(QSqlDatabase& connection);
/// Adds in_hits(id), 1 if the slot's set has the id, and add_hit(id), which puts it in; `slot` must
/// outlive the connection.
void AddFunctions(QSqlDatabase& connection, HitSlot* slot);
/// Lets the patience end statements that run and decide how long a lock is waited for; it must
/// outlive the connection.
void Obey(QSqlDatabase& connection, Patience* patience);
/// True for the error of a statement that was ended early, or gave up a lock.
[[nodiscard]] bool MayBeEndedEarly(const QSqlError& error);
/// Rows that this connection has changed so far.
[[nodiscard]] qint64 TotalChanges(const QSqlDatabase& connection);
/// A number that changes when another connection has committed a change.
[[nodiscard]] QString DataVersionSql();
/// True if the database passes PRAGMA quick_check; reads all of it.
[[nodiscard]] bool PassesQuickCheck(QSqlDatabase& connection);
[[nodiscard]] Fault FaultOf(const QSqlError& error);

/// One row as SQLite holds it; its texts last until the next row.
class RawRow final {
public:
    explicit RawRow(sqlite3_stmt* rowStatement) : m_statement(rowStatement) {}

    [[nodiscard]] qint64 Int64(int column) const;
    [[nodiscard]] qint32 Int(int column) const { return static_cast<qint32>(Int64(column)); }
    [[nodiscard]] std::string_view Utf8(int column) const;
    [[nodiscard]] QString Text(int column) const;

private:
    sqlite3_stmt* m_statement;
};
using TakeRow = std::function<void(const RawRow&)>;
/// Every row of a query in turn, without a variant for each value. `values` are numbers and texts.
/// Gives the error, an invalid one if all went well.
[[nodiscard]] QSqlError Scan(const QSqlDatabase& connection, const QString& sql,
                             const QVariantList& values, const TakeRow& take);

/// Clause that makes the planner take an index; the names are ours, so it can't be missing.
[[nodiscard]] QString UseIndex(const QString& index);

} // namespace sqlite
} // namespace site
