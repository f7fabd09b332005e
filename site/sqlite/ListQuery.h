// Pages of the three lists: exact totals and the ids of one page, fast at any size.
#pragma once

#include "site/ListFilter.h"
#include "site/sqlite/FixedColumns.h"
#include "site/sqlite/ListHits.h"
#include "site/sqlite/ListPlan.h"
#include "site/sqlite/ListShape.h"

#include <QHash>

#include <vector>

namespace site {

struct ListPage {
    qint64 total = 0;
    std::vector<qint64> ids; ///< in the order asked for
};

/// Totals and hit sets are kept until anybody changes what they count. Thread: the database's.
class ListQuery final {
public:
    explicit ListQuery(Database& owner) : m_database(owner), m_listHits(owner) {}

    /// The id is the last key of every order, so pages never share a row or lose one. A page behind
    /// the last one, or below 1, is empty. Throws DataError.
    [[nodiscard]] ListPage Fetch(ListKind kind, ListFilter filter, const PageAsked& asked);

private:
    struct Part {
        QString text;
        QVariantList values;
    };
    struct Search {
        const ListShape& shape;
        const ListFilter& filter;
        const SortShape& sort;
        bool descending;
        std::shared_ptr<ListHits::Hits> hits;
        FixedColumns fixed;
    };
    /// An index that begins with ppid and a filter's column, and how many entries it has for it.
    struct Source {
        QString index;
        qint64 rows = 0;
        QString column;
    };

    [[nodiscard]] quint64 StateOf(ListKind kind, const Projects& ppids) const;
    [[nodiscard]] qint64 TotalOf(const Search& search);
    [[nodiscard]] qint64 CountRows(const Search& search);
    /// Counting what a filter leaves out, where that is less.
    [[nodiscard]] bool IsComplementSmaller(const Search& search, const Source& source);
    [[nodiscard]] qint64 CountOutside(const Search& search, const Source& source);
    [[nodiscard]] qint64 Tally(const ListShape& shape, const ListFilter& filter, bool marks,
                               bool states);
    [[nodiscard]] qint64 CountModified(const ListShape& shape, const ListFilter& filter);
    [[nodiscard]] Source BestSource(const Search& search);
    [[nodiscard]] qint64 WalkRows(const Search& search);
    /// The hits as a source of rows; one place for the list of ids.
    [[nodiscard]] QString HitRows(const Search& search, bool byIndex) const;
    [[nodiscard]] Part Conditions(const Search& search) const;
    [[nodiscard]] Part WalkSql(const Search& search, bool backwards) const;
    [[nodiscard]] Part SortSql(const Search& search, const Source& source, bool backwards) const;
    [[nodiscard]] std::vector<qint64> Ids(const Search& search, qint64 total, const PageSpan& span);

    Database& m_database;
    ListHits m_listHits;
    /// How many rows there are, and the state of the data that it holds for.
    struct Kept {
        quint64 state = 0;
        qint64 count = 0;
    };
    quint64 m_state = 0;
    QHash<QString, Kept> m_totals;
};

} // namespace site
