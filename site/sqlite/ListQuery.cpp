#include "site/sqlite/ListQuery.h"

#include <QStringList>

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kKeptTotals = 200;
constexpr qint64 kFewHits = 20000;

QString Marks(size_t count) {
    QStringList marks;
    marks.fill(u"?"_s, static_cast<qsizetype>(count));
    return marks.join(u", "_s);
}

QVariantList Values(const std::vector<qint32>& numbers) {
    return QVariantList(numbers.begin(), numbers.end());
}

QString OrderBy(const SortShape& sort, bool descending) {
    const QString direction = descending ? u" DESC"_s : QString();
    QString text = u" ORDER BY "_s;
    for (const QString& column : sort.columns) {
        text += column + direction + u", "_s;
    }
    return text + u"id"_s + direction;
}

QString IdList(const std::vector<qint64>& ids) {
    QString text = u"["_s;
    for (const qint64 id : ids) {
        text += text.size() > 1 ? u","_s + QString::number(id) : QString::number(id);
    }
    return text + u']';
}

// These columns stand at the end of every sort index.
bool IsKeyInEveryIndex(const SortShape& sort) {
    return sort.columns.empty() || (sort.columns.size() == 1 && (sort.columns[0] == u"modified"_s ||
                                                                 sort.columns[0] == u"mark_id"_s ||
                                                                 sort.columns[0] == u"state"_s));
}

// in_hits() reads this set for as long as the object lives.
class HitSource {
public:
    HitSource(Database& owner, const std::shared_ptr<ListHits::Hits>& hits) : m_database(owner) {
        m_database.Hits().hits = hits ? &hits->set : nullptr;
    }
    ~HitSource() { m_database.Hits().hits = nullptr; }
    HitSource(const HitSource&) = delete;
    HitSource& operator=(const HitSource&) = delete;

private:
    Database& m_database;
};

} // namespace

quint64 ListQuery::StateOf(ListKind kind, const Projects& ppids) const {
    switch (kind) {
    case ListKind::PdfPhotos:
        return m_database.Log().StateOf({ChangeKind::PdfPhoto, ChangeKind::Checkpoint}, ppids);
    case ListKind::Issues:
        return m_database.Log().StateOf({ChangeKind::Issue}, ppids);
    case ListKind::BimPhotos:
        break;
    }
    // Which photos have no mark goes by the marks, too.
    return m_database.Log().StateOf({ChangeKind::BimPhoto, ChangeKind::Mark}, ppids);
}

ListPage ListQuery::Fetch(ListKind kind, ListFilter filter, const PageAsked& asked) {
    ListPage result;
    Normalize(filter);
    if (filter.ppids.empty() || filter.nothing) {
        return result;
    }
    const ReadScope scope(m_database);
    m_database.Log().CatchUp();
    m_state = StateOf(kind, filter.ppids);
    if (m_totals.size() > kKeptTotals) {
        m_totals.clear();
    }
    const ListShape& shape = ShapeOf(kind);
    const Search search{shape,
                        filter,
                        SortOf(shape, asked.order.field),
                        asked.order.descending,
                        m_listHits.Of(shape, filter, m_state),
                        FixedOf(kind, filter)};
    const HitSource hits(m_database, search.hits);
    result.total = TotalOf(search);
    const PageSpan span = SpanOf(result.total, asked.page, asked.pageSize);
    if (span.count > 0) {
        result.ids = Ids(search, result.total, span);
    }
    return result;
}

std::vector<qint64> ListQuery::Ids(const Search& search, qint64 total, const PageSpan& span) {
    const Source source = BestSource(search);
    PlanFacts facts;
    facts.total = total;
    facts.walkRows = WalkRows(search);
    facts.sourceRows = source.rows;
    facts.keyInSource = IsKeyInEveryIndex(search.sort);
    facts.hits = search.hits != nullptr;
    facts.clustered = search.filter.modified.has_value();
    facts.projects = static_cast<int>(search.filter.ppids.size());
    const bool canSort = !source.column.isEmpty();
    const bool backwards = search.descending != span.fromEnd;
    Part sql = canSort && ChoosePlan(facts, span) == PagePlan::Sort
                   ? SortSql(search, source, backwards)
                   : WalkSql(search, backwards);
    sql.text += u" LIMIT ? OFFSET ?"_s;
    sql.values << span.count << span.offset;
    std::vector<qint64> ids;
    m_database.ForEach(sql.text, sql.values,
                       [&](const Statement& row) { ids.push_back(row.Int64(0)); });
    if (span.fromEnd) {
        std::reverse(ids.begin(), ids.end());
    }
    return ids;
}

qint64 ListQuery::TotalOf(const Search& search) {
    const QString key = KeyOf(search.shape.kind, search.filter);
    const auto found = m_totals.constFind(key);
    if (found != m_totals.cend() && found->state == m_state) {
        return found->count;
    }
    const qint64 total = CountRows(search);
    m_totals.insert(key, {m_state, total});
    return total;
}

qint64 ListQuery::CountRows(const Search& search) {
    const ListFilter& filter = search.filter;
    if (search.hits && !filter.markId && !filter.state && !filter.modified &&
        search.fixed.IsEmpty()) {
        return search.hits->count;
    }
    if (!search.hits && !filter.modified && search.fixed.IsEmpty()) {
        return Tally(search.shape, filter, true, true);
    }
    if (search.hits && search.hits->count == 0) {
        return 0;
    }
    const Source source = BestSource(search);
    if (search.hits && source.column != u"id"_s && IsComplementSmaller(search, source)) {
        return search.hits->count - CountOutside(search, source);
    }
    const Part conditions = Conditions(search);
    QString from = search.shape.table + sqlite::UseIndex(source.index);
    QVariantList values;
    if (source.column == u"id"_s) {
        from = HitRows(search, true);
        values << IdList(search.hits->set.Ids());
    }
    return m_database
        .Value(u"SELECT count(*) FROM %1 WHERE ppid IN (%2)%3"_s.arg(
                   from, Marks(filter.ppids.size()), conditions.text),
               values + Values(filter.ppids) + conditions.values)
        .toLongLong();
}

QString ListQuery::HitRows(const Search& search, bool byIndex) const {
    const QString index = byIndex ? sqlite::UseIndex(search.shape.prefix + u"_by_id"_s) : QString();
    return u"(SELECT value AS hit FROM json_each(?)) CROSS JOIN %1%2 ON id = hit"_s.arg(
        search.shape.table, index);
}

bool ListQuery::IsComplementSmaller(const Search& search, const Source& source) {
    const ListFilter& filter = search.filter;
    const int limits = (filter.markId ? 1 : 0) + (filter.state ? 1 : 0) + (filter.modified ? 1 : 0);
    return limits == 1 && search.fixed.IsEmpty() &&
           source.rows > Tally(search.shape, filter, false, false) / 2;
}

qint64 ListQuery::CountOutside(const Search& search, const Source& source) {
    const ListFilter& filter = search.filter;
    const QVariant low =
        filter.modified ? filter.modified->first : filter.markId.value_or(filter.state.value_or(0));
    const QVariant high = filter.modified ? QVariant(filter.modified->second) : low;
    qint64 count = 0;
    for (const auto& [sign, limit] : {std::pair{u"<"_s, low}, std::pair{u">"_s, high}}) {
        count +=
            m_database
                .Value(u"SELECT count(*) FROM %1%2 WHERE ppid IN (%3) AND %4 %5 ?"
                       " AND in_hits(id)"_s.arg(search.shape.table, sqlite::UseIndex(source.index),
                                                Marks(filter.ppids.size()), source.column, sign),
                       Values(filter.ppids) << limit)
                .toLongLong();
    }
    return count;
}

qint64 ListQuery::Tally(const ListShape& shape, const ListFilter& filter, bool marks, bool states) {
    QString sql = u"SELECT coalesce(sum(n), 0) FROM %1 WHERE ppid IN (%2)"_s.arg(
        shape.tally, Marks(filter.ppids.size()));
    QVariantList values = Values(filter.ppids);
    if (marks && filter.markId) {
        sql += u" AND mark_id = ?"_s;
        values << *filter.markId;
    }
    if (states && filter.state) {
        sql += u" AND state = ?"_s;
        values << *filter.state;
    }
    return m_database.Value(sql, values).toLongLong();
}

qint64 ListQuery::CountModified(const ListShape& shape, const ListFilter& filter) {
    ListFilter part;
    part.ppids = filter.ppids;
    part.modified = filter.modified;
    const QString key = KeyOf(shape.kind, part);
    const auto found = m_totals.constFind(key);
    if (found != m_totals.cend() && found->state == m_state) {
        return found->count;
    }
    const qint64 count =
        m_database
            .Value(
                u"SELECT count(*) FROM %1%2 WHERE ppid IN (%3) AND modified BETWEEN ? AND ?"_s.arg(
                    shape.table, sqlite::UseIndex(shape.prefix + u"_by_time"_s),
                    Marks(filter.ppids.size())),
                Values(filter.ppids) << filter.modified->first << filter.modified->second)
            .toLongLong();
    m_totals.insert(key, {m_state, count});
    return count;
}

ListQuery::Source ListQuery::BestSource(const Search& search) {
    const ListFilter& filter = search.filter;
    const QString& prefix = search.shape.prefix;
    std::vector<Source> sources;
    if (!search.fixed.IsEmpty()) {
        // Few rows by their nature: all photos of an intersection, all issues of a component.
        return {search.fixed.index, 0, search.fixed.values.front().first};
    }
    if (search.hits && search.hits->count <= kFewHits) {
        sources.push_back({{}, search.hits->count, u"id"_s});
    }
    if (filter.markId) {
        sources.push_back(
            {prefix + u"_by_mark"_s, Tally(search.shape, filter, true, false), u"mark_id"_s});
    }
    if (filter.state) {
        sources.push_back(
            {prefix + u"_by_state"_s, Tally(search.shape, filter, false, true), u"state"_s});
    }
    if (filter.modified) {
        sources.push_back(
            {prefix + u"_by_time"_s, CountModified(search.shape, filter), u"modified"_s});
    }
    const auto best =
        std::min_element(sources.begin(), sources.end(),
                         [](const Source& a, const Source& b) { return a.rows < b.rows; });
    return best != sources.end() ? *best : Source{};
}

qint64 ListQuery::WalkRows(const Search& search) {
    const QString& first = search.sort.columns.empty() ? QString() : search.sort.columns.front();
    if (first == u"modified"_s && search.filter.modified) {
        return CountModified(search.shape, search.filter);
    }
    return Tally(search.shape, search.filter, first == u"mark_id"_s, first == u"state"_s);
}

ListQuery::Part ListQuery::Conditions(const Search& search) const {
    Part part;
    const ListFilter& filter = search.filter;
    for (const auto& [column, value] : search.fixed.values) {
        part.text += u" AND %1 = ?"_s.arg(column);
        part.values << value;
    }
    if (filter.markId) {
        part.text += u" AND mark_id = ?"_s;
        part.values << *filter.markId;
    }
    if (filter.state) {
        part.text += u" AND state = ?"_s;
        part.values << *filter.state;
    }
    if (filter.modified) {
        part.text += u" AND modified BETWEEN ? AND ?"_s;
        part.values << filter.modified->first << filter.modified->second;
    }
    if (search.hits) {
        part.text += u" AND in_hits(id)"_s;
    }
    return part;
}

ListQuery::Part ListQuery::WalkSql(const Search& search, bool backwards) const {
    const Part conditions = Conditions(search);
    const QString from = u" FROM %1%2 WHERE ppid = ?%3"_s.arg(
        search.shape.table, sqlite::UseIndex(search.sort.index), conditions.text);
    Part part;
    const std::vector<qint32>& ppids = search.filter.ppids;
    if (ppids.size() == 1) {
        part.text = u"SELECT id"_s + from + OrderBy(search.sort, backwards);
        part.values << ppids.front();
        part.values += conditions.values;
        return part;
    }
    // One walk for each project, merged: each has its order from the index.
    QString columns = u"id"_s;
    for (const QString& column : search.sort.columns) {
        columns += u", "_s + column;
    }
    if (search.sort.columns.empty()) {
        columns = u"id, ppid"_s;
    }
    QStringList walks;
    for (const qint32 ppid : ppids) {
        walks << u"SELECT "_s + columns + from;
        part.values << ppid;
        part.values += conditions.values;
    }
    SortShape sort = search.sort;
    if (sort.columns.empty()) {
        sort.columns = {u"ppid"_s};
    }
    part.text = walks.join(u" UNION ALL "_s) + OrderBy(sort, backwards);
    return part;
}

ListQuery::Part ListQuery::SortSql(const Search& search, const Source& source,
                                   bool backwards) const {
    const Part conditions = Conditions(search);
    SortShape sort = search.sort;
    if (sort.columns.empty()) {
        sort.columns = {u"ppid"_s};
    }
    const QString where = u" WHERE ppid IN (%1)"_s.arg(Marks(search.filter.ppids.size()));
    Part part;
    if (source.column == u"id"_s) {
        part.text = u"SELECT id FROM "_s + HitRows(search, IsKeyInEveryIndex(search.sort));
        part.values << IdList(search.hits->set.Ids());
    } else {
        part.text = u"SELECT id FROM "_s + search.shape.table + sqlite::UseIndex(source.index);
    }
    part.text += where + conditions.text + OrderBy(sort, backwards);
    part.values += Values(search.filter.ppids);
    part.values += conditions.values;
    return part;
}

} // namespace site
