// Which way to a page of ids is the cheapest.
#pragma once

#include <QtGlobal>

namespace site {

/// Where a page lies, seen from the nearer end of the list.
struct PageSpan {
    qint64 offset = 0;    ///< rows to pass over in the direction of the walk
    qint64 count = 0;     ///< rows of the page; 0: there is no such page
    bool fromEnd = false; ///< the walk goes against the order, the rows come out turned round
};

/// `page` counts from 1; anything outside the list gives an empty span.
[[nodiscard]] PageSpan SpanOf(qint64 total, qint64 page, qint64 pageSize);

/// What is known of a search before its page is fetched.
struct PlanFacts {
    qint64 total = 0;         ///< rows that match everything
    qint64 walkRows = 0;      ///< entries of the sort index that the walk may have to look at
    qint64 sourceRows = 0;    ///< entries from which the matching rows are gathered for sorting
    bool keyInSource = false; ///< these entries hold the sort key, the row needn't be fetched
    bool hits = false;        ///< each entry is judged by a hit set as well
    bool clustered = false;   ///< the matching rows may lie together at one end of the sort index
    int projects = 1;
};

enum class PagePlan {
    Walk, ///< along the sort index until the page is full
    Sort, ///< gather all matching rows, sort them
};

[[nodiscard]] PagePlan ChoosePlan(const PlanFacts& facts, const PageSpan& span);

} // namespace site
