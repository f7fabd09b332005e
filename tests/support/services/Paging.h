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

/// Copies the page of `all` that is asked for and counts. A page behind the last one is empty.
template <class Row>
void TakePage(const std::vector<Row>& all, const KX_DATA::PageRequest& request,
              const QueryScript& script, KX_DATA::PageResult& result, std::vector<Row>& rows) {
    const auto size = std::size_t(std::max(request.pageSize, 1));
    const std::size_t first = std::min(all.size(), std::size_t(request.page - 1) * size);
    const std::size_t last = std::min(all.size(), first + size);
    rows.assign(all.begin() + std::ptrdiff_t(first), all.begin() + std::ptrdiff_t(last));
    result.totalCount = qint32(all.size());
    result.pageCount = qint32((all.size() + size - 1) / size);
    if (script.totals)
        result = *script.totals;
}

/// "page=1,size=30,sort=last_modifytime desc"
inline std::string RequestText(const KX_DATA::PageRequest& request) {
    return Arg("page", request.page) + "," + Arg("size", request.pageSize) + "," +
           Arg("sort", request.sortField + u' ' + request.sortOrder);
}

} // namespace support
