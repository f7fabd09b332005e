#include "site/sqlite/Sqlite.h"

#include "site/sqlite/HitSet.h"
#include "site/sqlite/Patience.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>

#include <sqlite3.h>

#include <array>
#include <memory>

namespace site::sqlite {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kHeaderSize = 100;

// FULL: what was acknowledged outlasts a power cut; NORMAL lost every change since the last
// checkpoint. Pages of 8 KiB halve the reads of a long index walk; the cache holds a walk over a
// million entries and still leaves the client under its memory goal.
const std::array<QString, 6>& Settings() {
    static const std::array<QString, 6> settings{
        u"PRAGMA page_size = 8192"_s,    u"PRAGMA journal_mode = WAL"_s,
        u"PRAGMA foreign_keys = ON"_s,   u"PRAGMA synchronous = FULL"_s,
        u"PRAGMA cache_size = -65536"_s, u"PRAGMA temp_store = MEMORY"_s};
    return settings;
}

sqlite3* HandleOf(const QSqlDatabase& connection) {
    const QVariant handle = connection.driver()->handle();
    return handle.isValid() ? *static_cast<sqlite3* const*>(handle.constData()) : nullptr;
}

quint32 BigEndian(const QByteArray& bytes, qsizetype at, qsizetype count) {
    quint32 value = 0;
    for (qsizetype i = at; i < at + count; ++i) {
        value = (value << 8) | static_cast<quint8>(bytes[i]);
    }
    return value;
}

void InHits(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const auto* slot = static_cast<const HitSlot*>(sqlite3_user_data(context));
    const qint64 id = sqlite3_value_int64(values[0]);
    sqlite3_result_int(context, slot->hits != nullptr && slot->hits->Has(id) ? 1 : 0);
}

void AddHit(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const auto* slot = static_cast<const HitSlot*>(sqlite3_user_data(context));
    if (slot->hits != nullptr) {
        slot->hits->Add(sqlite3_value_int64(values[0]));
    }
    sqlite3_result_int(context, 1);
}

/// Ends a statement on every way out.
struct StatementEnd {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

QSqlError LastErrorOf(sqlite3* handle) {
    return QSqlError(QString(), QString::fromUtf8(sqlite3_errmsg(handle)),
                     QSqlError::StatementError, QString::number(sqlite3_extended_errcode(handle)));
}

void Bind(sqlite3_stmt* statement, int place, const QVariant& value) {
    if (value.typeId() == QMetaType::QString) {
        const QByteArray text = value.toString().toUtf8();
        sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    } else {
        sqlite3_bind_int64(statement, place, value.toLongLong());
    }
}

} // namespace

FileLook LookAtFile(const QString& path) {
    QFile file(path);
    if (!file.exists() || file.size() == 0) {
        return FileLook::None;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return FileLook::Suspect;
    }
    const QByteArray header = file.read(kHeaderSize);
    if (header.size() < kHeaderSize || !header.startsWith("SQLite format 3")) {
        return FileLook::Bad;
    }
    const quint32 storedPageSize = BigEndian(header, 16, 2);
    const qint64 pageSize = storedPageSize == 1 ? 65536 : storedPageSize;
    const qint64 pages = BigEndian(header, 28, 4);
    if (file.size() >= pages * pageSize) {
        return FileLook::Good;
    }
    // A checkpoint that was cut short may leave the file short while the log still has it all.
    return QFileInfo(path + u"-wal"_s).size() > 0 ? FileLook::Suspect : FileLook::Bad;
}

void Configure(QSqlDatabase& connection) {
    for (const QString& setting : Settings()) {
        QSqlQuery query(connection);
        if (!query.exec(setting)) {
            const Fault fault = FaultOf(query.lastError());
            throw DataError(fault, FaultText(fault, u"打开数据库"_s), query.lastError().text());
        }
    }
}

void AddFunctions(QSqlDatabase& connection, HitSlot* slot) {
    sqlite3* handle = HandleOf(connection);
    if (handle == nullptr) {
        throw DataError(Fault::Other, FaultText(Fault::Other, u"打开数据库"_s), u"no handle"_s);
    }
    sqlite3_create_function_v2(handle, "in_hits", 1, SQLITE_UTF8, slot, InHits, nullptr, nullptr,
                               nullptr);
    sqlite3_create_function_v2(handle, "add_hit", 1, SQLITE_UTF8, slot, AddHit, nullptr, nullptr,
                               nullptr);
}

void Obey(QSqlDatabase& connection, Patience* patience) {
    // Steps of the virtual machine between two looks: some hundred looks a second.
    constexpr int kSteps = 100'000;
    sqlite3* handle = HandleOf(connection);
    sqlite3_progress_handler(
        handle, kSteps, [](void* given) { return static_cast<Patience*>(given)->IsOver() ? 1 : 0; },
        patience);
    sqlite3_busy_handler(
        handle,
        [](void* given, int tries) {
            return static_cast<Patience*>(given)->WaitForLock(tries) ? 1 : 0;
        },
        patience);
}

bool MayBeEndedEarly(const QSqlError& error) {
    constexpr int kPrimaryMask = 0xff;
    const int code = error.nativeErrorCode().toInt() & kPrimaryMask;
    return code == SQLITE_INTERRUPT || code == SQLITE_BUSY;
}

qint64 TotalChanges(const QSqlDatabase& connection) {
    sqlite3* handle = HandleOf(connection);
    return handle != nullptr ? sqlite3_total_changes64(handle) : 0;
}

QString DataVersionSql() {
    return u"PRAGMA data_version"_s;
}

bool PassesQuickCheck(QSqlDatabase& connection) {
    QSqlQuery query(connection);
    return query.exec(u"PRAGMA quick_check(1)"_s) && query.next() &&
           query.value(0).toString() == u"ok"_s;
}

Fault FaultOf(const QSqlError& error) {
    constexpr int kPrimaryMask = 0xff;
    switch (error.nativeErrorCode().toInt() & kPrimaryMask) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Fault::Locked;
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return Fault::NotWritable;
    case SQLITE_FULL:
        return Fault::DiskFull;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return Fault::Damaged;
    case SQLITE_CONSTRAINT:
        return Fault::Refused;
    default:
        return Fault::Other;
    }
}

qint64 RawRow::Int64(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

std::string_view RawRow::Utf8(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return {text != nullptr ? text : "",
            static_cast<size_t>(sqlite3_column_bytes(m_statement, column))};
}

QString RawRow::Text(int column) const {
    const std::string_view text = Utf8(column);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QSqlError Scan(const QSqlDatabase& connection, const QString& sql, const QVariantList& values,
               const TakeRow& take) {
    sqlite3* handle = HandleOf(connection);
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle, text.constData(), static_cast<int>(text.size()), &prepared,
                           nullptr) != SQLITE_OK) {
        return LastErrorOf(handle);
    }
    const std::unique_ptr<sqlite3_stmt, StatementEnd> statement(prepared);
    for (qsizetype i = 0; i < values.size(); ++i) {
        Bind(statement.get(), static_cast<int>(i) + 1, values[i]);
    }
    int step = sqlite3_step(statement.get());
    for (; step == SQLITE_ROW; step = sqlite3_step(statement.get())) {
        take(RawRow(statement.get()));
    }
    return step == SQLITE_DONE ? QSqlError() : LastErrorOf(handle);
}

QString UseIndex(const QString& index) {
    return u" INDEXED BY "_s + index;
}

} // namespace site::sqlite
