#include "tests/bulk/BulkSite.h"

#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/ListQuery.h"
#include "tests/site/TempSite.h"

#include <set>

namespace bulk {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

constexpr qint32 kRows = 400;

// One site for all tests of this file: none changes it.
TempSite& Bulk() {
    static auto* site = [] {
        auto* made = new TempSite;
        FillBulkSite(made->folder, {kRows, kRows, kRows, 3, 60});
        return made;
    }();
    return *site;
}

// What the plain statement says, for comparison.
std::vector<qint64> PlainIds(const site::ListShape& shape, const site::SortShape& sort,
                             bool descending, const QString& condition) {
    const QString direction = descending ? u" DESC"_s : QString();
    QString order;
    for (const QString& column : sort.columns) {
        order += column + direction + u", "_s;
    }
    if (sort.columns.empty()) {
        order = u"ppid"_s + direction + u", "_s;
    }
    std::vector<qint64> ids;
    Bulk().folder.Db().ForEach(u"SELECT id FROM %1 NOT INDEXED WHERE %2 ORDER BY %3id%4"_s.arg(
                                   shape.table, condition, order, direction),
                               {},
                               [&](const site::Statement& row) { ids.push_back(row.Int64(0)); });
    return ids;
}

std::vector<qint64> PagedIds(const site::ListShape& shape, const site::SortShape& sort,
                             bool descending, const site::ListFilter& filter) {
    site::ListQuery query(Bulk().folder.Db());
    std::vector<qint64> ids;
    for (qint64 page = 1;; ++page) {
        const site::ListPage found =
            query.Fetch(shape.kind, filter, {{sort.field, descending}, page, 30});
        if (found.ids.empty()) {
            EXPECT_EQ(static_cast<qint64>(ids.size()), found.total);
            return ids;
        }
        ids.insert(ids.end(), found.ids.begin(), found.ids.end());
    }
}

void ExpectSamePages(const site::ListFilter& filter, const QString& condition) {
    for (const site::ListKind kind :
         {site::ListKind::BimPhotos, site::ListKind::PdfPhotos, site::ListKind::Issues}) {
        for (const site::SortShape& sort : site::ShapeOf(kind).sorts) {
            for (const bool descending : {false, true}) {
                EXPECT_EQ(PagedIds(site::ShapeOf(kind), sort, descending, filter),
                          PlainIds(site::ShapeOf(kind), sort, descending, condition))
                    << site::ShapeOf(kind).table.toStdString() << ' ' << sort.field.toStdString()
                    << (descending ? " desc" : " asc");
            }
        }
    }
}

} // namespace

TEST(ListQuery, PagesOfEveryOrderOfOneProjectHoldEveryRowOnce) {
    site::ListFilter filter;
    filter.ppids = {1};
    ExpectSamePages(filter, u"ppid = 1"_s);
}

TEST(ListQuery, PagesOfEveryOrderOfSeveralProjectsHoldEveryRowOnce) {
    site::ListFilter filter;
    filter.ppids = {3, 1, 2, 1};
    ExpectSamePages(filter, u"ppid IN (1, 2, 3)"_s);
}

TEST(ListQuery, PagesOfAMarkAndAStateHoldEveryRowOnce) {
    site::ListFilter filter;
    filter.ppids = {1, 2};
    filter.markId = 1;
    filter.state = 2;
    ExpectSamePages(filter, u"ppid IN (1, 2) AND mark_id = 1 AND state = 2"_s);
}

TEST(ListQuery, PagesOfDaysHoldEveryRowOnce) {
    site::ListFilter filter;
    filter.ppids = {1};
    filter.modified = {1500000000, 1600000000};
    ExpectSamePages(filter, u"ppid = 1 AND modified BETWEEN 1500000000 AND 1600000000"_s);
}

TEST(ListQuery, PagesOfAKeywordHoldEveryRowThatHasIt) {
    site::ListFilter filter;
    filter.ppids = {1, 3};
    filter.keyword = u"柱"_s;
    filter.state = 2;
    for (const site::ListKind kind :
         {site::ListKind::BimPhotos, site::ListKind::PdfPhotos, site::ListKind::Issues}) {
        const site::ListShape& shape = site::ShapeOf(kind);
        QStringList fields;
        for (const QString& column : shape.searchColumns) {
            fields << u"instr(%1, '柱') > 0"_s.arg(column);
        }
        const QString condition =
            u"ppid IN (1, 3) AND state = 2 AND (%1)"_s.arg(fields.join(u" OR "_s));
        for (const site::SortShape& sort : shape.sorts) {
            EXPECT_EQ(PagedIds(shape, sort, true, filter), PlainIds(shape, sort, true, condition))
                << shape.table.toStdString() << ' ' << sort.field.toStdString();
        }
    }
}

TEST(ListQuery, PagesOfALabelHoldEveryRowThatCarriesIt) {
    site::ListFilter filter;
    filter.ppids = {1, 2, 3};
    filter.labelId = 2;
    const site::ListShape& bim = site::ShapeOf(site::ListKind::BimPhotos);
    EXPECT_EQ(PagedIds(bim, bim.sorts[2], false, filter),
              PlainIds(bim, bim.sorts[2], false,
                       u"id IN (SELECT photo_id FROM bim_label WHERE label_id = 2)"_s));
    const site::ListShape& pdf = site::ShapeOf(site::ListKind::PdfPhotos);
    EXPECT_EQ(PagedIds(pdf, pdf.sorts[4], false, filter),
              PlainIds(pdf, pdf.sorts[4], false,
                       u"checkpoint_id IN (SELECT checkpoint_id FROM checkpoint_label WHERE"
                       " label_id = 2)"_s));
}

TEST(ListQuery, EveryOrderWalksItsOwnIndexAndNothingElse) {
    site::Database& db = Bulk().folder.Db();
    for (const site::ListKind kind :
         {site::ListKind::BimPhotos, site::ListKind::PdfPhotos, site::ListKind::Issues}) {
        for (const site::SortShape& sort : site::ShapeOf(kind).sorts) {
            QString order;
            for (const QString& column : sort.columns) {
                order += column + u" DESC, "_s;
            }
            QString plan;
            db.ForEach(
                u"EXPLAIN QUERY PLAN SELECT id FROM %1 INDEXED BY %2 WHERE ppid = 1 AND"
                " mark_id = 1 AND state = 2 AND modified BETWEEN 1 AND 2 AND in_hits(id)"
                " ORDER BY %3id DESC LIMIT 30"_s.arg(site::ShapeOf(kind).table, sort.index, order),
                {}, [&](const site::Statement& row) { plan += row.Text(3) + u'\n'; });
            EXPECT_TRUE(plan.contains(u"COVERING INDEX "_s + sort.index)) << plan.toStdString();
            EXPECT_FALSE(plan.contains(u"TEMP B-TREE"_s)) << plan.toStdString();
        }
    }
}

TEST(ListQuery, ATotalIsCountedAnewWhenAnotherProcessChangesTheData) {
    TempSite site;
    FillBulkSite(site.folder, {50, 0, 0, 1, 100});
    site::ListQuery query(site.folder.Db());
    site::ListFilter filter;
    filter.ppids = {1};
    EXPECT_EQ(query.Fetch(site::ListKind::BimPhotos, filter, {{}, 1, 30}).total, 50);
    site::DataFolder other(site.folder.Path());
    ASSERT_FALSE(other.Open().has_value());
    other.Db().Exec(u"DELETE FROM bim_photo WHERE id <= 20"_s);
    EXPECT_EQ(query.Fetch(site::ListKind::BimPhotos, filter, {{}, 1, 30}).total, 30);
}

TEST(BulkSite, TheSameSizeGivesTheSameSite) {
    TempSite one;
    TempSite two;
    const QString sum = u"SELECT group_concat(name || description || mark_id || modified)"
                        " FROM bim_photo"_s;
    for (TempSite* site : {&one, &two}) {
        FillBulkSite(site->folder, {60, 10, 10, 2, 80});
    }
    EXPECT_EQ(one.folder.Db().Value(sum), two.folder.Db().Value(sum));
    EXPECT_EQ(one.folder.Db().Value(u"SELECT sum(n) FROM bim_tally"_s).toInt(), 60);
}

} // namespace bulk
