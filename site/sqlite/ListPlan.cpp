#include "site/sqlite/ListPlan.h"

#include <algorithm>

namespace site {

PageSpan SpanOf(qint64 total, qint64 page, qint64 pageSize) {
    PageSpan span;
    const qint64 first = page < 1 || pageSize < 1 ? total : (page - 1) * pageSize;
    if (first >= total) {
        return span;
    }
    span.count = std::min(pageSize, total - first);
    span.offset = first;
    const qint64 behind = total - first - span.count;
    if (behind < first) {
        span.offset = behind;
        span.fromEnd = true;
    }
    return span;
}

PagePlan ChoosePlan(const PlanFacts& facts, const PageSpan& span) {
    // Microseconds for each entry, measured on a million rows; only their ratios matter.
    constexpr double kLook = 0.05;
    constexpr double kHitLook = 0.05;
    constexpr double kMerge = 0.08;
    constexpr double kGather = 0.05;
    constexpr double kReadIndex = 0.3;
    constexpr double kReadRow = 2.0;
    constexpr double kSort = 0.3;
    constexpr double kClusterShare = 0.5;
    if (facts.total == 0) {
        return PagePlan::Walk;
    }
    const auto wanted = static_cast<double>(span.offset + span.count);
    const auto total = static_cast<double>(facts.total);
    const double walkRows = std::max(static_cast<double>(facts.walkRows), total);
    const double look = kLook + (facts.hits ? kHitLook : 0.0);
    // Rows that come out of a walk over several projects are merged, one project after the other.
    const double merged = facts.projects > 1 ? wanted * kMerge * facts.projects : 0.0;
    double looked = wanted * walkRows / total;
    if (facts.clustered) {
        looked = std::max(looked, wanted + (walkRows - total) * kClusterShare);
    }
    const double gathered = static_cast<double>(facts.sourceRows) * kGather +
                            total * (facts.keyInSource ? kReadIndex : kReadRow) +
                            std::min(total, wanted) * kSort;
    return looked * look + merged <= gathered ? PagePlan::Walk : PagePlan::Sort;
}

} // namespace site
