#include "site/sqlite/SearchIndex.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/SearchText.h"

#include <QStringList>

namespace site {

using namespace Qt::StringLiterals;

namespace {

struct SearchSql {
    QString read;
    QString add;
    QString remove;
};

SearchSql SqlOf(const ListShape& shape) {
    const QStringList fields(shape.searchFields.begin(), shape.searchFields.end());
    const QStringList columns(shape.searchColumns.begin(), shape.searchColumns.end());
    QStringList marks;
    marks.fill(u"?"_s, fields.size());
    SearchSql sql;
    sql.read = u"SELECT ppid, %1 FROM %2 WHERE id = ?"_s.arg(columns.join(u", "_s), shape.table);
    sql.add = u"INSERT INTO %1 (rowid, %2) VALUES (?, %3)"_s.arg(
        shape.searchTable, fields.join(u", "_s), marks.join(u", "_s));
    // A table without content of its own has to be told what it forgets.
    sql.remove = u"INSERT INTO %1 (%1, rowid, %2) VALUES ('delete', ?, %3)"_s.arg(
        shape.searchTable, fields.join(u", "_s), marks.join(u", "_s));
    return sql;
}

const SearchSql& SqlOf(ListKind kind) {
    static const std::vector<SearchSql> all{SqlOf(ShapeOf(ListKind::BimPhotos)),
                                            SqlOf(ShapeOf(ListKind::PdfPhotos)),
                                            SqlOf(ShapeOf(ListKind::Issues))};
    return all[static_cast<size_t>(kind) - 1];
}

void Write(Database& database, ListKind kind, qint64 id, bool add) {
    const SearchSql& sql = SqlOf(kind);
    QVariantList values;
    database.ForEach(sql.read, {id}, [&](const Statement& row) {
        values.append(SearchRowId(row.Int(0), id));
        for (size_t i = 0; i < ShapeOf(kind).searchColumns.size(); ++i) {
            values.append(SearchWords(row.Text(static_cast<int>(i) + 1)));
        }
    });
    if (!values.isEmpty()) {
        database.Exec(add ? sql.add : sql.remove, values);
    }
}

} // namespace

void AddSearchRow(Database& database, ListKind kind, qint64 id) {
    Write(database, kind, id, true);
}

void RemoveSearchRow(Database& database, ListKind kind, qint64 id) {
    Write(database, kind, id, false);
}

} // namespace site
