#include "site/sqlite/BinContent.h"

#include "site/StoreName.h"
#include "site/sqlite/Database.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlRecord>
#include <QStringList>

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// One table that belongs to an object, found by the object's id.
struct Section {
    QString table;
    QString keyColumn;
    std::vector<QString> fileColumns;
    bool isLater = false; ///< entries of earlier clients haven't got it
};

/// Of photos of both kinds.
Section FactSection() {
    return {u"photo_fact"_s, u"photo_id"_s, {u"original_uuid"_s}, true};
}

std::vector<Section> SectionsOf(BinKind kind) {
    switch (kind) {
    case BinKind::BimPhoto:
        return {{u"bim_photo"_s, u"id"_s, {u"file_uuid"_s, u"audio_uuid"_s}},
                {u"bim_label"_s, u"photo_id"_s, {}},
                FactSection()};
    case BinKind::PdfPhoto:
        return {{u"pdf_photo"_s, u"id"_s, {u"file_uuid"_s}}, FactSection()};
    case BinKind::Issue:
        return {{u"issue"_s, u"id"_s, {u"voice_uuid"_s}},
                {u"rectification"_s, u"issue_id"_s, {u"voice_uuid"_s}},
                {u"issue_pic"_s, u"issue_id"_s, {u"file_uuid"_s, u"thumb_uuid"_s}},
                {u"issue_history"_s, u"issue_id"_s, {}, true}};
    case BinKind::Checkpoint:
        return {{u"checkpoint"_s, u"id"_s, {u"audio_uuid"_s}},
                {u"checkpoint_label"_s, u"checkpoint_id"_s, {}},
                {u"comment"_s, u"checkpoint_id"_s, {}}};
    case BinKind::Drawing:
        return {{u"drawing"_s, u"id"_s, {u"file_uuid"_s}}};
    case BinKind::IssuePic:
        return {{u"issue_pic"_s, u"id"_s, {u"file_uuid"_s, u"thumb_uuid"_s}}};
    }
    return {};
}

QJsonObject BinRowOf(const Statement& statement) {
    QJsonObject row;
    const QSqlRecord record = statement.Query().record();
    for (int i = 0; i < record.count(); ++i) {
        // A number that isn't known would else become 0.
        const QVariant value = statement.Query().value(i);
        row.insert(record.fieldName(i),
                   value.isNull() ? QJsonValue() : QJsonValue::fromVariant(value));
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

/// The table of files is that of every kind.
Section FileSection() {
    return {u"file"_s, u"owner"_s, {u"uuid"_s}};
}

QStringList ColumnsOf(Database& database, const QString& table) {
    QStringList columns;
    database.ForEach(u"SELECT name FROM pragma_table_info(?)"_s, {table},
                     [&](const Statement& row) { columns.append(row.Text(0)); });
    return columns;
}

bool NamesFiles(const Section& section, const QJsonObject& row) {
    return std::all_of(section.fileColumns.begin(), section.fileColumns.end(),
                       [&](const QString& column) {
                           const QString uuid = row.value(column).toString();
                           return uuid.isEmpty() || IsStoreName(uuid);
                       });
}

bool InsertRow(Database& database, const Section& section, const QStringList& columns,
               const QJsonObject& row) {
    QStringList marks;
    QVariantList values;
    for (const QString& column : row.keys()) {
        if (!columns.contains(column)) {
            return false;
        }
        marks.append(u"?"_s);
        values.append(row.value(column).toVariant());
    }
    if (row.isEmpty() || !NamesFiles(section, row)) {
        return false;
    }
    database.Exec(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(section.table, row.keys().join(u", "_s),
                                                           marks.join(u", "_s)),
                  values);
    return true;
}

bool InsertRows(Database& database, const Section& section, const QJsonArray& rows) {
    const QStringList columns = ColumnsOf(database, section.table);
    return std::all_of(rows.begin(), rows.end(), [&](const auto& row) {
        return InsertRow(database, section, columns, row.toObject());
    });
}

/// Whose it is, and how a person knows it.
void NameContent(Database& database, BinKind kind, const QJsonObject& row, BinContent& content) {
    QString title = row.value(kind == BinKind::Issue ? u"theme"_s : u"name"_s).toString();
    content.ppid = row.value(u"ppid"_s).toInt();
    content.changed = row.value(u"id"_s).toInteger();
    if (kind == BinKind::IssuePic) {
        content.changed = row.value(u"issue_id"_s).toInteger();
        content.ppid =
            database.Value(u"SELECT ppid FROM issue WHERE id = ?"_s, {content.changed}).toInt();
    }
    if (kind == BinKind::Checkpoint) {
        database.ForEach(u"SELECT ppid, name FROM drawing WHERE id = ?"_s,
                         {row.value(u"drawing_id"_s).toInteger()}, [&](const Statement& drawing) {
                             content.ppid = drawing.Int(0);
                             title = u"%1 检查点%2"_s.arg(
                                 drawing.Text(1), QString::number(row.value(u"number"_s).toInt()));
                         });
    }
    content.title = title.isNull() ? u""_s : title;
}

} // namespace

QString TableOf(BinKind kind) {
    return SectionsOf(kind).front().table;
}

BinContent TakeContent(Database& database, BinKind kind, qint64 objectId) {
    BinContent content;
    QJsonArray fileRows;
    for (const Section& section : SectionsOf(kind)) {
        const QJsonArray rows = RowsOf(database, section.table, section.keyColumn, objectId);
        if (content.sections.isEmpty()) {
            if (rows.isEmpty()) {
                return content;
            }
            NameContent(database, kind, rows.first().toObject(), content);
        }
        content.sections.append(QJsonObject{{u"table"_s, section.table}, {u"rows"_s, rows}});
        AddFiles(database, section, rows, fileRows, content.files);
    }
    content.sections.append(QJsonObject{{u"table"_s, FileSection().table}, {u"rows"_s, fileRows}});
    return content;
}

bool PutContent(Database& database, BinKind kind, qint64 objectId, const QString& text) {
    std::vector<Section> sections = SectionsOf(kind);
    sections.push_back(FileSection());
    const QJsonArray found = QJsonDocument::fromJson(text.toUtf8()).array();
    const QJsonArray own = found.first().toObject().value(u"rows"_s).toArray();
    if (own.size() != 1 || own.first().toObject().value(u"id"_s).toInteger() != objectId) {
        return false;
    }
    qsizetype at = 0;
    for (const Section& expected : sections) {
        const QJsonObject section = found[at].toObject();
        const bool isThere = section.value(u"table"_s).toString() == expected.table;
        if (!isThere && expected.isLater) {
            continue;
        }
        if (!isThere || !InsertRows(database, expected, section.value(u"rows"_s).toArray())) {
            return false;
        }
        ++at;
    }
    return at == found.size();
}

void RefreshFromCheckpoint(Database& database, qint64 photoId) {
    database.Exec(u"UPDATE pdf_photo SET (drawing_id, drawing_name, checkpoint_no, mark_id) ="
                  " (SELECT d.id, d.name, c.number, c.mark_id FROM checkpoint c JOIN drawing d"
                  " ON d.id = c.drawing_id WHERE c.id = pdf_photo.checkpoint_id) WHERE id = ?"_s,
                  {photoId});
}

} // namespace site
