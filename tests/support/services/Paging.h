// One page out of a list in memory, as the query operations deliver it.
#pragma once

#include "services/PageQuery.h"
#include "tests/support/ArgText.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace support {

/// What every double with a query has: what the next queries answer beyond their records.
struct QueryScript {
    std::optional<qint32> status;              ///< instead of the status of success
    std::optional<KX_DATA::PageResult> totals; ///< instead of those of the records in memory
    KX_DATA::PageRequest lastRequest;
};

/// Copies the page of `all` that is asked for and counts. A page behind the last one, or below 1,
/// is empty; pages of less than one row count as none.
template <class Row>
void TakePage(const std::vector<Row>& all, const KX_DATA::PageRequest& request,
              const QueryScript& script, KX_DATA::PageResult& result, std::vector<Row>& rows) {
    const auto count = qint64(all.size());
    const qint64 size = std::max(request.pageSize, 0);
    const qint64 first = request.page < 1 ? count : std::min(count, (request.page - 1) * size);
    const qint64 last = std::min(count, first + size);
    rows.assign(all.begin() + first, all.begin() + last);
    result = {};
    result.totalCount = qint32(count);
    result.pageCount = size > 0 ? qint32((count + size - 1) / size) : 0;
    if (script.totals) {
        result = *script.totals;
    }
}

/// "page=1,size=30,sort=last_modifytime desc"
inline std::string RequestText(const KX_DATA::PageRequest& request) {
    return Arg("page", request.page) + "," + Arg("size", request.pageSize) + "," +
           Arg("sort", request.sortField + u' ' + request.sortOrder);
}

} // namespace support
