#include "host/data/BinContent.h"

#include "host/data/Database.h"

#include <QJsonObject>
#include <QSqlRecord>
#include <QStringList>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// One table that belongs to an object, found by the object's id.
struct Section {
    QString table;
    QString keyColumn;
    std::vector<QString> fileColumns;
};

std::vector<Section> SectionsOf(BinKind kind) {
    switch (kind) {
    case BinKind::kBimPhoto:
        return {{u"bim_photo"_s, u"id"_s, {u"file_uuid"_s, u"audio_uuid"_s}},
                {u"bim_label"_s, u"photo_id"_s, {}}};
    case BinKind::kPdfPhoto:
        return {{u"pdf_photo"_s, u"id"_s, {u"file_uuid"_s}}};
    case BinKind::kIssue:
        return {{u"issue"_s, u"id"_s, {u"voice_uuid"_s}},
                {u"rectification"_s, u"issue_id"_s, {u"voice_uuid"_s}},
                {u"issue_pic"_s, u"issue_id"_s, {u"file_uuid"_s, u"thumb_uuid"_s}}};
    }
    return {};
}

QJsonObject BinRowOf(const Statement& statement) {
    QJsonObject row;
    const QSqlRecord record = statement.Query().record();
    for (int i = 0; i < record.count(); ++i) {
        row.insert(record.fieldName(i), QJsonValue::fromVariant(statement.Query().value(i)));
    }
    return row;
}

QJsonArray RowsOf(Database& database, const QString& table, const QString& column,
                  const QVariant& key) {
    QJsonArray rows;
    database.ForEach(u"SELECT * FROM %1 WHERE %2 = ?"_s.arg(table, column), {key},
                     [&](const Statement& statement) { rows.append(BinRowOf(statement)); });
    return rows;
}

void AddFiles(Database& database, const Section& section, const QJsonArray& rows,
              QJsonArray& fileRows, std::vector<QString>& files) {
    for (const auto& row : rows) {
        for (const QString& column : section.fileColumns) {
            const QString uuid = row.toObject().value(column).toString();
            const QJsonArray found = RowsOf(database, u"file"_s, u"uuid"_s, uuid);
            // One file may stand in two columns: a picture that is its own thumbnail.
            if (!found.isEmpty() && !fileRows.contains(found.first())) {
                fileRows.append(found.first());
                files.push_back(uuid);
            }
        }
    }
}

void InsertRow(Database& database, const QString& table, const QJsonObject& row) {
    QStringList marks;
    QVariantList values;
    for (const QString& column : row.keys()) {
        marks.append(u"?"_s);
        values.append(row.value(column).toVariant());
    }
    database.Exec(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(table, row.keys().join(u", "_s),
                                                           marks.join(u", "_s)),
                  values);
}

} // namespace

BinContent TakeContent(Database& database, BinKind kind, qint64 objectId) {
    BinContent content;
    QJsonArray fileRows;
    for (const Section& section : SectionsOf(kind)) {
        const QJsonArray rows = RowsOf(database, section.table, section.keyColumn, objectId);
        if (content.sections.isEmpty()) {
            if (rows.isEmpty()) {
                return content;
            }
            const QJsonObject row = rows.first().toObject();
            content.ppid = row.value(u"ppid"_s).toInt();
            const QString title =
                row.value(kind == BinKind::kIssue ? u"theme"_s : u"name"_s).toString();
            content.title = title.isNull() ? u""_s : title;
        }
        content.sections.append(QJsonObject{{u"table"_s, section.table}, {u"rows"_s, rows}});
        AddFiles(database, section, rows, fileRows, content.files);
    }
    content.sections.append(QJsonObject{{u"table"_s, u"file"_s}, {u"rows"_s, fileRows}});
    return content;
}

void PutContent(Database& database, const QJsonArray& sections) {
    for (const auto& section : sections) {
        const QString table = section.toObject().value(u"table"_s).toString();
        for (const auto& row : section.toObject().value(u"rows"_s).toArray()) {
            InsertRow(database, table, row.toObject());
        }
    }
}

void RefreshFromCheckpoint(Database& database, qint64 photoId) {
    database.Exec(u"UPDATE pdf_photo SET (drawing_id, drawing_name, checkpoint_no, mark_id) ="
                  " (SELECT d.id, d.name, c.number, c.mark_id FROM checkpoint c JOIN drawing d"
                  " ON d.id = c.drawing_id WHERE c.id = pdf_photo.checkpoint_id) WHERE id = ?"_s,
                  {photoId});
}

} // namespace host
