#include "site/sqlite/PhotoFactTable.h"

#include "site/sqlite/Database.h"

#include <cmath>

namespace site {

using namespace Qt::StringLiterals;

namespace {

template <typename Number> QVariant OrNull(const std::optional<Number>& value) {
    return value ? QVariant(*value) : QVariant();
}

std::optional<double> RealOf(const Statement& row, int column) {
    const QVariant value = row.Query().value(column);
    return value.isNull() ? std::nullopt : std::optional(value.toDouble());
}

bool IsWithin(const std::optional<double>& value, double lowest, double highest) {
    return !value || (std::isfinite(*value) && *value >= lowest && *value <= highest);
}

QString DetailsSql(const QString& table) {
    return u"SELECT p.ppid, p.name, p.uploader, p.uploaded, p.file_uuid, f.taken, f.camera,"
           " f.latitude, f.longitude, f.direction, f.original_name, f.original_uuid FROM %1 p"
           " LEFT JOIN photo_fact f ON f.photo_id = p.id WHERE p.id = ?"_s.arg(table);
}

} // namespace

std::vector<QString> PhotoFactSchema() {
    std::vector<QString> statements{
        u"CREATE TABLE photo_fact (photo_id INTEGER PRIMARY KEY, ppid INTEGER NOT NULL REFERENCES"
        " project(ppid), taken INTEGER, camera TEXT NOT NULL, latitude REAL, longitude REAL,"
        " direction REAL, original_name TEXT NOT NULL, original_uuid TEXT NOT NULL)"_s};
    for (const QString& table : {u"bim_photo"_s, u"pdf_photo"_s}) {
        statements.push_back(
            u"CREATE TRIGGER %1_fact_gone AFTER DELETE ON %1 BEGIN DELETE FROM photo_fact"
            " WHERE photo_id = old.id; END"_s.arg(table));
    }
    return statements;
}

bool PhotoFactTable::IsSound(const PhotoFacts& facts) {
    return facts.latitude.has_value() == facts.longitude.has_value() &&
           IsWithin(facts.latitude, -90, 90) && IsWithin(facts.longitude, -180, 180) &&
           IsWithin(facts.direction, 0, std::nextafter(360.0, 0.0));
}

void PhotoFactTable::Note(Database& database, qint32 ppid, qint64 photoId, const PhotoFacts& facts,
                          const QString& originalName, const QString& originalUuid) {
    if (!facts.IsEmpty() || !originalUuid.isEmpty()) {
        database.Exec(u"INSERT INTO photo_fact (photo_id, ppid, taken, camera, latitude, longitude,"
                      " direction, original_name, original_uuid) VALUES (?, ?, ?, ?, ?, ?, ?, ?,"
                      " ?)"_s,
                      {photoId, ppid, OrNull(facts.taken), facts.camera, OrNull(facts.latitude),
                       OrNull(facts.longitude), OrNull(facts.direction), originalName,
                       originalUuid});
    }
}

bool PhotoFactTable::Read(qint32 picId, PhotoDetails& details) {
    for (const QString& table : {u"bim_photo"_s, u"pdf_photo"_s}) {
        m_database.ForEach(DetailsSql(table), {picId}, [&](const Statement& row) {
            const QVariant taken = row.Query().value(5);
            details.picId = picId;
            details.ppid = row.Int(0);
            details.name = row.Text(1);
            details.uploader = row.Text(2);
            details.filed = row.Int64(3);
            details.uuid = row.Text(4);
            details.facts.taken = taken.isNull() ? std::nullopt : std::optional(taken.toLongLong());
            details.facts.camera = row.Text(6);
            details.facts.latitude = RealOf(row, 7);
            details.facts.longitude = RealOf(row, 8);
            details.facts.direction = RealOf(row, 9);
            details.originalName = row.Text(10);
            details.originalUuid = row.Text(11);
        });
        if (details.picId != 0) {
            return true;
        }
    }
    return false;
}

std::vector<PhotoDetails> PhotoFactTable::Of(const Projects& projects,
                                             const std::vector<qint32>& picIds) {
    const ReadScope snapshot(m_database);
    std::vector<PhotoDetails> all;
    for (const qint32 picId : picIds) {
        PhotoDetails details;
        if (Read(picId, details) && Has(projects, details.ppid)) {
            all.push_back(std::move(details));
        }
    }
    return all;
}

} // namespace site
