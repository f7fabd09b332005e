#include "tests/site/crash/SiteText.h"

#include "site/IBimPhotos.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlRecord>

#include <map>

namespace crashtest {

using namespace Qt::StringLiterals;

namespace {

/// Path of each file in store and bin, by its name.
using Files = std::map<QString, QString>;

Files FilesBelow(const QString& folder) {
    Files files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        // Whoever died between making a lock and writing into it may still be writing, for all that
        // a client which comes at once can know.
        if (walk.fileName() != u"lock.pid"_s || walk.fileInfo().size() > 0) {
            files.emplace(walk.fileName(), walk.filePath());
        }
    }
    return files;
}

QString ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"unreadable"_s;
}

/// The text with every given name told by its file.
QString WithoutNames(QString text, const Files& store, const Files& bin) {
    static const QRegularExpression given(
        u"[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}"_s);
    for (auto match = given.match(text); match.hasMatch(); match = given.match(text)) {
        const QString name = match.captured();
        QString told = u"<nowhere>"_s;
        if (const auto found = store.find(name); found != store.end()) {
            told = u"<store: %1>"_s.arg(ContentOf(found->second));
        } else if (const auto binned = bin.find(name); binned != bin.end()) {
            told = u"<bin: %1>"_s.arg(ContentOf(binned->second));
        }
        text.replace(name, told);
    }
    return text;
}

QStringList Column(site::Database& database, const QString& sql) {
    QStringList texts;
    database.ForEach(sql, {}, [&](const site::Statement& row) { texts << row.Text(0); });
    return texts;
}

QStringList Lines(site::Database& database, const QString& sql) {
    QStringList lines;
    database.ForEach(sql, {}, [&](const site::Statement& row) {
        QStringList values;
        for (int column = 0; column < row.Query().record().count(); ++column) {
            values << row.Query().value(column).toString();
        }
        lines << values.join(u" | "_s);
    });
    return lines;
}

QString Found(site::DataFolder& folder, const QString& keyword) {
    site::SqliteSite engine(folder);
    site::ListFilter filter;
    filter.ppids = {1};
    filter.keyword = keyword;
    QStringList found;
    const auto tell = [&](const auto& page, const auto& idOf) {
        found << u"%1 rows:"_s.arg(page.total);
        for (const auto& row : page.rows) {
            found << idOf(row);
        }
    };
    tell(engine.BimPhotos().PageOf(filter, {{}, 1, 100}),
         [](const auto& row) { return QString::number(row.picId); });
    tell(engine.PdfPhotos().PageOf(filter, {{}, 1, 100}),
         [](const auto& row) { return QString::number(row.picId); });
    tell(engine.Issues().PageOf(filter, {{}, 1, 100}),
         [](const auto& row) { return row.questionId; });
    return keyword + u": "_s + found.join(u' ');
}

void ComparePair(site::Database& database, const QString& what, const QString& kept,
                 const QString& counted, QStringList& lines) {
    QStringList have = Lines(database, kept);
    QStringList want = Lines(database, counted);
    have.sort();
    want.sort();
    if (have != want) {
        lines << u"%1 are [%2], counting gives [%3]"_s.arg(what, have.join(u"; "_s),
                                                           want.join(u"; "_s));
    }
}

void CompareCounts(site::Database& database, QStringList& lines) {
    for (const QString& table : {u"bim_photo"_s, u"pdf_photo"_s, u"issue"_s}) {
        const QString tally = table.section(u'_', 0, 0) + u"_tally"_s;
        ComparePair(
            database, tally, u"SELECT ppid, mark_id, state, n FROM %1 WHERE n <> 0"_s.arg(tally),
            u"SELECT ppid, mark_id, state, count(*) FROM %1 GROUP BY 1, 2, 3"_s.arg(table), lines);
    }
    const QString place = u"SELECT pos_text, floor, mark_id, n FROM %1 JOIN bim_place USING (place,"
                          " ppid)"_s;
    const QString counted = u"SELECT pos_text, floor, mark_id, count(*) FROM bim_photo WHERE status"
                            " %1 0 GROUP BY pos_text, floor, position_key, mark_id"_s;
    ComparePair(database, u"shown photos"_s, place.arg(u"bim_place_tally"_s), counted.arg(u"="_s),
                lines);
    ComparePair(database, u"hidden photos"_s, place.arg(u"bim_hidden_tally"_s),
                counted.arg(u"<>"_s), lines);
    ComparePair(database, u"photos by time"_s, u"SELECT id, modified FROM bim_place_photo"_s,
                u"SELECT id, modified FROM bim_photo WHERE status = 0"_s, lines);
}

void CompareRichTexts(site::Database& database, QStringList& lines) {
    ComparePair(database, u"photos of another state than their place"_s,
                u"SELECT b.id FROM bim_photo b JOIN rich_text t ON t.ppid = b.ppid AND"
                " t.checkpoint_id = 0 AND t.position_key = b.position_key AND"
                " t.mark_id = b.mark_id WHERE t.state <> b.state UNION ALL SELECT p.id FROM"
                " pdf_photo p JOIN rich_text t ON t.checkpoint_id = p.checkpoint_id"
                " WHERE t.state <> p.state"_s,
                u"SELECT 1 WHERE 0"_s, lines);
    ComparePair(database, u"files of records"_s,
                u"SELECT DISTINCT t.id, f.uuid FROM rich_text t JOIN rich_version v ON"
                " v.rich_id = t.id JOIN rich_file f ON f.version_id = v.id"_s,
                u"SELECT owner, uuid FROM file WHERE kind = 10"_s, lines);
}

void CompareFiles(const Files& files, QStringList rows, const QString& what, QStringList& lines) {
    QStringList names;
    for (const auto& file : files) {
        names << file.first;
    }
    rows.sort();
    if (names != rows) {
        lines << u"%1 has [%2], its rows are [%3]"_s.arg(what, names.join(u' '), rows.join(u' '));
    }
}

} // namespace

QStringList TextOf(site::DataFolder& folder) {
    const Files store = FilesBelow(folder.StorePath());
    const Files bin = FilesBelow(folder.BinPath());
    site::Database& database = folder.Db();
    QStringList text;
    for (const QString& table :
         Column(database,
                u"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT IN"
                " ('bim_text', 'pdf_text', 'issue_text', 'schema_version', 'change', 'filing')"
                " AND name NOT LIKE '%\\_text\\_%' ESCAPE '\\' ORDER BY name"_s)) {
        // When something was uploaded is the clock's.
        const QString columns = table == u"upload"_s ? u"uuid"_s : u"*"_s;
        QStringList rows = Lines(database, u"SELECT %1 FROM %2"_s.arg(columns, table));
        for (QString& row : rows) {
            row = table + u": "_s + WithoutNames(row, store, bin);
        }
        rows.sort();
        text << rows;
    }
    // Numbers of openings differ, and what was undone has none.
    for (const QString& row : Lines(database, u"SELECT kind, ppid, object, person FROM change"
                                              " ORDER BY seq"_s)) {
        text << u"change: "_s + row;
    }
    for (const QString& row :
         Lines(database, u"SELECT kind, ppid, object FROM filing ORDER BY seq"_s)) {
        text << u"filing: "_s + row;
    }
    for (const QString& keyword : {QString(), u"第"_s, u"照片"_s, u"问题"_s, u"1"_s}) {
        text << Found(folder, keyword);
    }
    return text;
}

QStringList ContradictionsIn(site::DataFolder& folder) {
    site::Database& database = folder.Db();
    QStringList lines;
    if (const QString said = database.Value(u"PRAGMA integrity_check"_s).toString();
        said != u"ok"_s) {
        lines << said;
    }
    lines << Lines(database, u"PRAGMA foreign_key_check"_s);
    CompareFiles(FilesBelow(folder.StorePath()), Column(database, u"SELECT uuid FROM file"_s),
                 u"the store"_s, lines);
    CompareFiles(FilesBelow(folder.BinPath()), Column(database, u"SELECT uuid FROM bin_file"_s),
                 u"the bin"_s, lines);
    CompareCounts(database, lines);
    CompareRichTexts(database, lines);
    return lines;
}

} // namespace crashtest
