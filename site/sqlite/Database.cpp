#include "site/sqlite/Database.h"

#include <QSqlError>

#include <atomic>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kPreparedLimit = 160;

QString NextConnectionName() {
    static std::atomic<int> number{0};
    return u"vesk-%1"_s.arg(++number);
}

/// Whatever happens to a question, its transaction ends.
class Ending final {
public:
    explicit Ending(Patience& owner) : m_patience(owner) { m_patience.SetEnding(true); }
    ~Ending() { m_patience.SetEnding(false); }
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;

private:
    Patience& m_patience;
};

} // namespace

Database::Database(const QString& path, int busyTimeoutMs)
    : name(NextConnectionName()), patience(busyTimeoutMs) {
    connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
    connection.setDatabaseName(path);
    connection.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMs));
    try {
        if (!connection.open()) {
            const Fault fault = sqlite::FaultOf(connection.lastError());
            throw DataError(fault, FaultText(fault, u"打开数据库"_s),
                            connection.lastError().text());
        }
        sqlite::Configure(connection);
        sqlite::AddFunctions(connection, &slot);
        sqlite::Obey(connection, &patience);
    } catch (...) {
        connection = QSqlDatabase();
        QSqlDatabase::removeDatabase(name);
        throw;
    }
}

Database::~Database() {
    prepared.clear();
    connection.close();
    connection = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

int Database::Exec(const QString& sql, const QVariantList& values) {
    Statement statement(*this, sql);
    statement.Run(values);
    return statement.Query().numRowsAffected();
}

qint64 Database::Insert(const QString& sql, const QVariantList& values) {
    Statement statement(*this, sql);
    statement.Run(values);
    return statement.Query().lastInsertId().toLongLong();
}

QVariant Database::Value(const QString& sql, const QVariantList& values) {
    Statement statement(*this, sql);
    statement.Run(values);
    return statement.Next() ? statement.Query().value(0) : QVariant();
}

void Database::ForEach(const QString& sql, const QVariantList& values,
                       const std::function<void(const Statement&)>& take) {
    Statement statement(*this, sql);
    statement.Run(values);
    while (statement.Next()) {
        take(statement);
    }
}

void Database::Scan(const QString& sql, const QVariantList& values, const sqlite::TakeRow& take) {
    const QSqlError error = sqlite::Scan(connection, sql, values, take);
    if (error.isValid()) {
        Fail(error, sql);
    }
}

Stamp Database::ChangeStamp() {
    return {Value(sqlite::DataVersionSql()).toLongLong(), sqlite::TotalChanges(connection)};
}

std::shared_ptr<Database::Prepared> Database::Take(const QString& sql) {
    const auto found = prepared.find(sql);
    if (found != prepared.end() && !found->second->inUse) {
        found->second->inUse = true;
        return found->second;
    }
    auto entry = std::make_shared<Prepared>();
    entry->query = QSqlQuery(connection);
    entry->query.setForwardOnly(true);
    entry->inUse = true;
    if (!entry->query.prepare(sql)) {
        Fail(entry->query.lastError(), sql);
    }
    if (found == prepared.end()) {
        prepared.emplace(sql, entry);
        preparedOrder.push_back(sql);
        if (preparedOrder.size() > kPreparedLimit) {
            prepared.erase(preparedOrder.front());
            preparedOrder.pop_front();
        }
    }
    return entry;
}

void Database::Fail(const QSqlError& error, const QString& sql) const {
    const bool isEnded = patience.IsOver() && sqlite::MayBeEndedEarly(error);
    const Fault fault = isEnded ? patience.Reason() : sqlite::FaultOf(error);
    if (faultWatch) {
        faultWatch(fault);
    }
    throw DataError(fault, FaultText(fault, {}), error.text() + u" | "_s + sql.left(400));
}

// Transactions are short texts that must not take a place among the prepared ones.
void Database::Plain(const QString& sql) {
    QSqlQuery query(connection);
    if (!query.exec(sql)) {
        Fail(query.lastError(), sql);
    }
}

Statement::Statement(Database& owner, const QString& text)
    : database(owner), sql(text), entry(owner.Take(text)) {
    if (database.depth == 0) {
        database.patience.Begin();
    }
}

Statement::~Statement() {
    // Otherwise the statement would hold its read lock and keep the log from being emptied.
    entry->query.finish();
    entry->inUse = false;
}

void Statement::Run(const QVariantList& values) {
    for (qsizetype i = 0; i < values.size(); ++i) {
        // A null text is an empty one; only an invalid value is NULL.
        const bool nullText =
            values[i].typeId() == QMetaType::QString && values[i].toString().isNull();
        entry->query.bindValue(static_cast<int>(i), nullText ? QVariant(u""_s) : values[i]);
    }
    if (!entry->query.exec()) {
        database.Fail(entry->query.lastError(), sql);
    }
}

bool Statement::Next() {
    if (entry->query.next()) {
        return true;
    }
    if (entry->query.lastError().isValid()) {
        database.Fail(entry->query.lastError(), sql);
    }
    return false;
}

qint64 Statement::Int64(int column) const {
    return entry->query.value(column).toLongLong();
}

QString Statement::Text(int column) const {
    return entry->query.value(column).toString();
}

Transaction::Transaction(Database& owner) : database(owner) {
    if (database.depth == 0) {
        // Taking the write lock at once lets the busy timeout work; an upgrade later could not
        // wait.
        database.patience.Begin();
        database.Plain(u"BEGIN IMMEDIATE"_s);
        database.doomed = false;
    }
    ++database.depth;
}

Transaction::~Transaction() {
    if (!open) {
        return;
    }
    --database.depth;
    database.doomed = true;
    if (database.depth == 0) {
        const Ending ending(database.patience);
        QSqlQuery(database.connection).exec(u"ROLLBACK"_s);
    }
}

void Transaction::Commit() {
    if (database.depth == 1) {
        if (database.doomed) {
            throw DataError(Fault::kOther, FaultText(Fault::kOther, {}), u"part undone"_s);
        }
        const Ending ending(database.patience);
        database.Plain(u"COMMIT"_s);
    }
    open = false;
    --database.depth;
}

ReadScope::ReadScope(Database& owner) : database(owner), own(owner.depth == 0) {
    if (own) {
        database.patience.Begin();
        database.Plain(u"BEGIN"_s);
        ++database.depth;
    }
}

ReadScope::~ReadScope() {
    if (own) {
        --database.depth;
        const Ending ending(database.patience);
        QSqlQuery(database.connection).exec(u"COMMIT"_s);
    }
}

} // namespace site
