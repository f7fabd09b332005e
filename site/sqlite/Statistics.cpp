#include "site/sqlite/Statistics.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/ListShape.h"

#include <QStringList>

#include <set>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// What the counts of one list are asked of.
struct Counted {
    const ListShape& shape;
    QString projects; ///< "(?, ?)"
    QVariantList values;
};

std::vector<NumberCount> ByNumber(Database& database, const Counted& counted,
                                  const QString& column) {
    std::vector<NumberCount> counts;
    database.ForEach(u"SELECT %1, sum(n) FROM %2 WHERE ppid IN %3 GROUP BY %1 HAVING sum(n) > 0"
                     " ORDER BY %1"_s.arg(column, counted.shape.tally, counted.projects),
                     counted.values, [&](const Statement& row) {
                         counts.push_back({row.Int(0), row.Int64(1)});
                     });
    return counts;
}

/// Floors of several projects that have one name are one.
std::vector<PlaceCount> ByFloor(Database& database, const Counted& counted) {
    const QString index = counted.shape.prefix + u"_by_place"_s;
    std::vector<PlaceCount> counts;
    database.ForEach(
        u"SELECT floor, count(*) FROM %1%2 WHERE ppid IN %3 GROUP BY floor ORDER BY"
        " min(floor_sort)"_s.arg(counted.shape.table, sqlite::UseIndex(index), counted.projects),
        counted.values, [&](const Statement& row) {
            counts.push_back({row.Text(0), 0, row.Int64(1)});
        });
    return counts;
}

std::vector<PlaceCount> ByDrawing(Database& database, const Counted& counted) {
    std::vector<PlaceCount> counts;
    database.ForEach(u"SELECT drawing_name, drawing_id, count(*) FROM %1 WHERE ppid IN %2 GROUP BY"
                     " drawing_id ORDER BY drawing_name, drawing_id"_s.arg(counted.shape.table,
                                                                           counted.projects),
                     counted.values, [&](const Statement& row) {
                         counts.push_back({row.Text(0), row.Int(1), row.Int64(2)});
                     });
    return counts;
}

std::vector<qint64> BySpan(Database& database, const Counted& counted,
                           const std::vector<qint64>& bounds) {
    std::vector<qint64> counts;
    const QString sql =
        u"SELECT count(*) FROM %1%2 WHERE ppid IN %3 AND modified >= ? AND modified < ?"_s.arg(
            counted.shape.table, sqlite::UseIndex(counted.shape.prefix + u"_by_time"_s),
            counted.projects);
    for (std::size_t at = 1; at < bounds.size(); ++at) {
        counts.push_back(
            database.Value(sql, counted.values + QVariantList{bounds[at - 1], bounds[at]})
                .toLongLong());
    }
    return counts;
}

} // namespace

SiteStatistics Statistics::Of(ListKind kind, const Projects& projects,
                              const std::vector<qint64>& bounds) {
    const std::set<qint32> ppids(projects.begin(), projects.end());
    if (ppids.empty()) {
        return {{}, {}, {}, std::vector<qint64>(bounds.empty() ? 0 : bounds.size() - 1)};
    }
    const QStringList marks(static_cast<qsizetype>(ppids.size()), u"?"_s);
    const Counted counted{ShapeOf(kind), u'(' + marks.join(u", "_s) + u')',
                          QVariantList(ppids.begin(), ppids.end())};
    const ReadScope scope(m_database);
    return {ByNumber(m_database, counted, u"mark_id"_s), ByNumber(m_database, counted, u"state"_s),
            kind == ListKind::PdfPhotos ? ByDrawing(m_database, counted)
                                        : ByFloor(m_database, counted),
            BySpan(m_database, counted, bounds)};
}

} // namespace site
