#include "site/sqlite/PhotoFactTable.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/IdChunks.h"

#include <cmath>
#include <unordered_map>

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
    return u"SELECT p.id, p.ppid, p.name, p.uploader, p.uploaded, p.file_uuid, f.taken, f.camera,"
           " f.latitude, f.longitude, f.direction, f.original_name, f.original_uuid FROM %1 p"
           " LEFT JOIN photo_fact f ON f.photo_id = p.id WHERE p.id IN (%2)"_s.arg(table,
                                                                                   IdMarks());
}

PhotoDetails DetailsOf(const Statement& row, bool isOfDrawing) {
    const QVariant taken = row.Query().value(6);
    PhotoDetails details;
    details.picId = row.Int(0);
    details.ppid = row.Int(1);
    details.isOfDrawing = isOfDrawing;
    details.name = row.Text(2);
    details.uploader = row.Text(3);
    details.filed = row.Int64(4);
    details.uuid = row.Text(5);
    details.facts.taken = taken.isNull() ? std::nullopt : std::optional(taken.toLongLong());
    details.facts.camera = row.Text(7);
    details.facts.latitude = RealOf(row, 8);
    details.facts.longitude = RealOf(row, 9);
    details.facts.direction = RealOf(row, 10);
    details.originalName = row.Text(11);
    details.originalUuid = row.Text(12);
    return details;
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

std::vector<PhotoDetails> PhotoFactTable::Of(const Projects& projects,
                                             const std::vector<qint32>& picIds) {
    const ReadScope snapshot(m_database);
    const std::vector<qint64> ids(picIds.begin(), picIds.end());
    std::unordered_map<qint64, PhotoDetails> found;
    for (const bool isOfDrawing : {false, true}) {
        const QString sql = DetailsSql(isOfDrawing ? u"pdf_photo"_s : u"bim_photo"_s);
        ForEachOfIds(m_database, sql, ids, [&](const Statement& row) {
            if (Has(projects, row.Int(1))) {
                found[row.Int64(0)] = DetailsOf(row, isOfDrawing);
            }
        });
    }
    std::vector<PhotoDetails> all;
    for (const qint64 id : ids) {
        if (const auto details = found.find(id); details != found.end()) {
            all.push_back(details->second);
        }
    }
    return all;
}

} // namespace site
