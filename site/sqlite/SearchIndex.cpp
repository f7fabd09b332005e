#include "site/sqlite/SearchIndex.h"

#include "site/DataError.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SearchText.h"
#include "site/sqlite/Sqlite.h"

#include <QStringList>

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

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

/// The texts of a row as words, field by field.
struct RowWords {
    qint64 rowId = 0;
    QStringList words; ///< empty where there is no such row
};

RowWords WordsOf(Database& database, ListKind kind, qint64 id) {
    RowWords row;
    database.ForEach(SqlOf(kind).read, {id}, [&](const Statement& read) {
        row.rowId = SearchRowId(read.Int(0), id);
        for (size_t i = 0; i < ShapeOf(kind).searchColumns.size(); ++i) {
            row.words.append(SearchWords(read.Text(static_cast<int>(i) + 1)));
        }
    });
    return row;
}

/// A text of this many characters at most is looked for whole: the engine compares each word of a
/// phrase with each place of it.
constexpr qsizetype kLongestPhrase = 4000;

/// Phrases that a field has which holds these words from its beginning. Of a text that no client
/// lets a person type, its two ends.
QStringList PhrasesOf(const QString& field, const QString& words) {
    if (words.isEmpty()) {
        return {};
    }
    const QString whole = u"%1 : ^ \"%2\""_s;
    if (words.size() <= kLongestPhrase) {
        return {whole.arg(field, words)};
    }
    constexpr qsizetype kEnd = kLongestPhrase / 4;
    return {
        whole.arg(field, words.left(words.indexOf(u' ', kEnd))),
        u"%1 : \"%2\""_s.arg(field, words.mid(words.lastIndexOf(u' ', words.size() - kEnd) + 1))};
}

/// True if the index has the row with these words.
bool HasWords(Database& database, const ListShape& shape, const RowWords& row) {
    QStringList phrases;
    for (size_t i = 0; i < shape.searchFields.size(); ++i) {
        phrases += PhrasesOf(shape.searchFields[i], row.words[static_cast<qsizetype>(i)]);
    }
    const QString sql = u"SELECT 1 FROM %1 WHERE %1 MATCH ? AND rowid = ?"_s.arg(shape.searchTable);
    return phrases.isEmpty() ||
           database.Value(sql, {phrases.join(u" AND "_s), row.rowId}).isValid();
}

/// All words of the index with their places; gives its name.
QString TableOfWords(Database& database, const ListShape& shape) {
    const QString table = shape.searchTable + u"_words"_s;
    database.Exec(
        u"CREATE VIRTUAL TABLE IF NOT EXISTS temp.%1 USING fts5vocab(main, %2, instance)"_s.arg(
            table, shape.searchTable));
    return table;
}

/// What the index has of the row, whatever the row says; a look at all of the index.
QStringList IndexedWords(Database& database, const ListShape& shape, qint64 rowId) {
    const QString table = TableOfWords(database, shape);
    std::map<QString, QStringList> found;
    database.ForEach(u"SELECT col, term FROM temp.%1 WHERE doc = ? ORDER BY offset"_s.arg(table),
                     {rowId},
                     [&](const Statement& read) { found[read.Text(0)].append(read.Text(1)); });
    QStringList words;
    for (const QString& field : shape.searchFields) {
        words.append(found[field].join(u' '));
    }
    return found.empty() ? QStringList() : words;
}

void Tell(Database& database, const QString& sql, const RowWords& row) {
    if (row.words.isEmpty()) {
        return;
    }
    QVariantList values{row.rowId};
    for (const QString& words : row.words) {
        values.append(words);
    }
    database.Exec(sql, values);
}

/// A word of the index where it stands.
struct PlacedWord {
    int field = 0;
    qint64 offset = 0;
    QString word;
};
using WordsOfRows = std::unordered_map<qint64, std::vector<PlacedWord>>; ///< by row id

/// Fills in what the index has of these rows, in one look at all of it.
void ReadIndexedWords(Database& database, const ListShape& shape, WordsOfRows& rows) {
    std::map<std::string, int, std::less<>> fields;
    for (size_t i = 0; i < shape.searchFields.size(); ++i) {
        fields[shape.searchFields[i].toStdString()] = static_cast<int>(i);
    }
    database.Scan(
        u"SELECT doc, col, offset, term FROM temp.%1"_s.arg(TableOfWords(database, shape)), {},
        [&](const sqlite::RawRow& read) {
            const auto row = rows.find(read.Int64(0));
            const auto field = fields.find(read.Utf8(1));
            if (row != rows.end() && field != fields.end()) {
                row->second.push_back({field->second, read.Int64(2), read.Text(3)});
            }
        });
}

QStringList JoinedByField(const ListShape& shape, std::vector<PlacedWord> words) {
    std::sort(words.begin(), words.end(), [](const PlacedWord& one, const PlacedWord& other) {
        return std::pair(one.field, one.offset) < std::pair(other.field, other.offset);
    });
    std::vector<QStringList> fields(shape.searchFields.size());
    for (const PlacedWord& word : words) {
        fields[static_cast<size_t>(word.field)].append(word.word);
    }
    QStringList joined;
    for (const QStringList& field : fields) {
        joined.append(field.join(u' '));
    }
    return joined;
}

/// Of more rows than this all of the index is read once: a question about one row goes through the
/// lists of its words, and those of single letters and figures have nearly every row.
constexpr size_t kFewRows = 50;

/// Everything but one row. What other programs changed is found by its present texts from now on.
void FillWithout(Database& database, ListKind kind, qint64 id) {
    const ListShape& shape = ShapeOf(kind);
    database.Exec(u"INSERT INTO %1 (%1) VALUES ('delete-all')"_s.arg(shape.searchTable));
    std::vector<qint64> others;
    database.ForEach(u"SELECT id FROM %1 WHERE id <> ?"_s.arg(shape.table), {id},
                     [&](const Statement& read) { others.push_back(read.Int64(0)); });
    for (const qint64 other : others) {
        AddSearchRow(database, kind, other);
    }
}

/// Told to forget words that it never had, the index may call itself damaged.
void Forget(Database& database, ListKind kind, qint64 id, const RowWords& row) {
    try {
        Tell(database, SqlOf(kind).remove, row);
    } catch (const DataError& fault) {
        if (fault.GetFault() != Fault::Damaged) {
            throw;
        }
        FillWithout(database, kind, id);
    }
}

} // namespace

void AddSearchRow(Database& database, ListKind kind, qint64 id) {
    Tell(database, SqlOf(kind).add, WordsOf(database, kind, id));
}

void RemoveSearchRow(Database& database, ListKind kind, qint64 id) {
    Forget(database, kind, id, WordsOf(database, kind, id));
}

void RemoveSearchRowForEdit(Database& database, ListKind kind, qint64 id) {
    RowWords row = WordsOf(database, kind, id);
    if (!row.words.isEmpty() && !HasWords(database, ShapeOf(kind), row)) {
        row.words = IndexedWords(database, ShapeOf(kind), row.rowId);
    }
    Forget(database, kind, id, row);
}

std::set<qint64> RowsWithOtherWords(Database& database, ListKind kind,
                                    const std::vector<qint64>& ids) {
    const ListShape& shape = ShapeOf(kind);
    std::vector<std::pair<qint64, RowWords>> rows;
    WordsOfRows indexed;
    for (const qint64 id : ids) {
        RowWords row = WordsOf(database, kind, id);
        if (!row.words.isEmpty()) {
            indexed[row.rowId];
            rows.emplace_back(id, std::move(row));
        }
    }
    const bool isMany = rows.size() > kFewRows;
    if (isMany) {
        ReadIndexedWords(database, shape, indexed);
    }
    std::set<qint64> others;
    for (const auto& [id, row] : rows) {
        const bool has = isMany ? JoinedByField(shape, indexed[row.rowId]) == row.words
                                : HasWords(database, shape, row);
        if (!has) {
            others.insert(id);
        }
    }
    return others;
}

} // namespace site
