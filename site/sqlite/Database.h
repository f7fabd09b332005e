// One connection to the site's database: statements, transactions, and what they change.
#pragma once

#include "site/sqlite/ChangeLog.h"
#include "site/sqlite/Patience.h"
#include "site/sqlite/Sqlite.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <functional>
#include <list>
#include <memory>
#include <unordered_map>

namespace site {

class Statement;

/// Opened at construction, closed at destruction. All operations throw DataError.
/// Thread: the one that made it.
class Database final {
public:
    Database(const QString& path, int busyTimeoutMs);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs one statement that answers nothing; returns the number of changed rows.
    int Exec(const QString& sql, const QVariantList& values = {});
    /// Runs an insertion; returns the id of the new row.
    qint64 Insert(const QString& sql, const QVariantList& values);
    /// First column of the first row; invalid if there is no row.
    [[nodiscard]] QVariant Value(const QString& sql, const QVariantList& values = {});
    /// Every row in turn; the statement is ready to read when `take` is called.
    void ForEach(const QString& sql, const QVariantList& values,
                 const std::function<void(const Statement&)>& take);

    /// The same for very many rows: about five times as fast, and prepared anew each time.
    void Scan(const QString& sql, const QVariantList& values, const sqlite::TakeRow& take);

    /// Written with each commit, also those of other programs.
    [[nodiscard]] QString LogFile() const {
        return m_connection.databaseName() + QStringLiteral("-wal");
    }
    [[nodiscard]] ChangeLog& Log() { return m_log; }
    /// Rows that this connection has changed so far.
    [[nodiscard]] qint64 RowsChanged() const { return sqlite::TotalChanges(m_connection); }
    /// Inside of a transaction.
    [[nodiscard]] bool IsWriting() const { return m_writing; }
    /// Inside of a transaction or of several reads of one state.
    [[nodiscard]] bool IsBusy() const { return m_depth > 0; }
    /// Statements that were run so far, beginning and end of transactions among them.
    [[nodiscard]] qint64 StatementsRun() const { return m_statementsRun; }

    /// How long its statements may go on.
    [[nodiscard]] Patience& Patient() { return m_patience; }
    /// See Sqlite.h.
    [[nodiscard]] sqlite::HitSlot& Hits() { return m_slot; }
    [[nodiscard]] bool PassesQuickCheck() { return sqlite::PassesQuickCheck(m_connection); }
    /// Called with each fault of a statement before it is thrown.
    void SetFaultWatch(std::function<void(Fault)> watch) { m_faultWatch = std::move(watch); }

private:
    friend class Statement;
    friend class Transaction;
    friend class ReadScope;

    struct Prepared {
        QSqlQuery query;
        bool inUse = false;
    };
    [[nodiscard]] std::shared_ptr<Prepared> Take(const QString& sql);
    [[noreturn]] void Fail(const QSqlError& error, const QString& sql) const;
    /// Throws once the limits are passed.
    void RequirePatience() const;
    void Plain(const QString& sql);

    QString m_name;
    Patience m_patience; ///< outlives the connection
    QSqlDatabase m_connection;
    sqlite::HitSlot m_slot;
    std::unordered_map<QString, std::shared_ptr<Prepared>> m_prepared;
    std::list<QString> m_preparedOrder;
    std::function<void(Fault)> m_faultWatch;
    int m_depth = 0; ///< open transactions inside each other
    bool m_doomed = false;
    bool m_writing = false;
    qint64 m_statementsRun = 0;
    ChangeLog m_log{*this};
};

/// One run of a prepared statement; gives it back, reset, at the end of its life.
class Statement final {
public:
    Statement(Database& owner, const QString& text);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Run(const QVariantList& values);
    [[nodiscard]] bool Next();
    [[nodiscard]] qint64 Int64(int column) const;
    [[nodiscard]] qint32 Int(int column) const { return static_cast<qint32>(Int64(column)); }
    [[nodiscard]] QString Text(int column) const;
    [[nodiscard]] const QSqlQuery& Query() const { return m_entry->query; }

private:
    Database& m_database;
    QString m_sql;
    std::shared_ptr<Database::Prepared> m_entry;
};

/// A change: all of it or nothing. One inside another joins it. Without Commit it is undone.
class Transaction final {
public:
    explicit Transaction(Database& owner);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    Database& m_database;
    bool m_open = true;
};

/// Several reads of one state of the data.
class ReadScope final {
public:
    explicit ReadScope(Database& owner);
    ~ReadScope();
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;

private:
    Database& m_database;
    bool m_own;
};

} // namespace site
