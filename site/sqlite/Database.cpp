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
    : m_name(NextConnectionName()), m_patience(busyTimeoutMs) {
    m_connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
    m_connection.setDatabaseName(path);
    m_connection.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMs));
    try {
        if (!m_connection.open()) {
            const Fault fault = sqlite::FaultOf(m_connection.lastError());
            throw DataError(fault, FaultText(fault, u"打开数据库"_s),
                            m_connection.lastError().text());
        }
        sqlite::Configure(m_connection);
        sqlite::AddFunctions(m_connection, &m_slot);
        sqlite::Obey(m_connection, &m_patience);
    } catch (...) {
        m_connection = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
        throw;
    }
}

Database::~Database() {
    m_prepared.clear();
    m_connection.close();
    m_connection = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
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
    if (m_depth == 0) {
        m_patience.Begin();
    }
    RequirePatience();
    ++m_statementsRun;
    const QSqlError error = sqlite::Scan(m_connection, sql, values, take);
    if (error.isValid()) {
        Fail(error, sql);
    }
}

std::shared_ptr<Database::Prepared> Database::Take(const QString& sql) {
    const auto found = m_prepared.find(sql);
    if (found != m_prepared.end() && !found->second->inUse) {
        found->second->inUse = true;
        return found->second;
    }
    auto entry = std::make_shared<Prepared>();
    entry->query = QSqlQuery(m_connection);
    entry->query.setForwardOnly(true);
    entry->inUse = true;
    if (!entry->query.prepare(sql)) {
        Fail(entry->query.lastError(), sql);
    }
    if (found == m_prepared.end()) {
        m_prepared.emplace(sql, entry);
        m_preparedOrder.push_back(sql);
        if (m_preparedOrder.size() > kPreparedLimit) {
            m_prepared.erase(m_preparedOrder.front());
            m_preparedOrder.pop_front();
        }
    }
    return entry;
}

void Database::Fail(const QSqlError& error, const QString& sql) const {
    const bool isEnded = m_patience.IsOver() && sqlite::MayBeEndedEarly(error);
    const Fault fault = isEnded ? m_patience.Reason() : sqlite::FaultOf(error);
    if (m_faultWatch) {
        m_faultWatch(fault);
    }
    throw DataError(fault, FaultText(fault, {}), error.text() + u" | "_s + sql.left(400));
}

// The engine asks only in the middle of long work.
void Database::RequirePatience() const {
    if (m_patience.IsOver()) {
        throw DataError(m_patience.Reason(), FaultText(m_patience.Reason(), {}), u"not begun"_s);
    }
}

// Transactions are short texts that must not take a place among the prepared ones.
void Database::Plain(const QString& sql) {
    RequirePatience();
    ++m_statementsRun;
    QSqlQuery query(m_connection);
    if (!query.exec(sql)) {
        Fail(query.lastError(), sql);
    }
}

Statement::Statement(Database& owner, const QString& text)
    : m_database(owner), m_sql(text), m_entry(owner.Take(text)) {
    if (m_database.m_depth == 0) {
        m_database.m_patience.Begin();
    }
}

Statement::~Statement() {
    // Otherwise the statement would hold its read lock and keep the log from being emptied.
    m_entry->query.finish();
    m_entry->inUse = false;
}

void Statement::Run(const QVariantList& values) {
    for (qsizetype i = 0; i < values.size(); ++i) {
        // A null text is an empty one; only an invalid value is NULL.
        const bool nullText =
            values[i].typeId() == QMetaType::QString && values[i].toString().isNull();
        m_entry->query.bindValue(static_cast<int>(i), nullText ? QVariant(u""_s) : values[i]);
    }
    m_database.RequirePatience();
    ++m_database.m_statementsRun;
    if (!m_entry->query.exec()) {
        m_database.Fail(m_entry->query.lastError(), m_sql);
    }
}

bool Statement::Next() {
    if (m_entry->query.next()) {
        return true;
    }
    if (m_entry->query.lastError().isValid()) {
        m_database.Fail(m_entry->query.lastError(), m_sql);
    }
    return false;
}

qint64 Statement::Int64(int column) const {
    return m_entry->query.value(column).toLongLong();
}

QString Statement::Text(int column) const {
    return m_entry->query.value(column).toString();
}

Transaction::Transaction(Database& owner) : m_database(owner) {
    if (m_database.m_depth == 0) {
        // Taking the write lock at once lets the busy timeout work; an upgrade later could not
        // wait.
        m_database.m_patience.Begin();
        m_database.Plain(u"BEGIN IMMEDIATE"_s);
        m_database.m_doomed = false;
        m_database.m_writing = true;
        m_database.m_log.Begin();
    }
    ++m_database.m_depth;
}

Transaction::~Transaction() {
    if (!m_open) {
        return;
    }
    --m_database.m_depth;
    m_database.m_doomed = true;
    if (m_database.m_depth == 0) {
        const Ending ending(m_database.m_patience);
        QSqlQuery(m_database.m_connection).exec(u"ROLLBACK"_s);
        m_database.m_writing = false;
        m_database.m_log.Undone();
    }
}

void Transaction::Commit() {
    if (m_database.m_depth == 1) {
        if (m_database.m_doomed) {
            throw DataError(Fault::Other, FaultText(Fault::Other, {}), u"part undone"_s);
        }
        const Ending ending(m_database.m_patience);
        m_database.m_log.Write();
        m_database.Plain(u"COMMIT"_s);
        m_database.m_writing = false;
    }
    m_open = false;
    --m_database.m_depth;
    if (m_database.m_depth == 0) {
        m_database.m_log.Committed();
    }
}

ReadScope::ReadScope(Database& owner) : m_database(owner), m_own(owner.m_depth == 0) {
    if (m_own) {
        m_database.m_patience.Begin();
        m_database.Plain(u"BEGIN"_s);
        ++m_database.m_depth;
    }
}

ReadScope::~ReadScope() {
    if (m_own) {
        --m_database.m_depth;
        const Ending ending(m_database.m_patience);
        ++m_database.m_statementsRun;
        QSqlQuery(m_database.m_connection).exec(u"COMMIT"_s);
    }
}

} // namespace site
