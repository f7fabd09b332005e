// The console's filters and requests as those of the lists.
#pragma once

#include "host/data/ListQuery.h"
#include "services/PageQuery.h"

namespace host {

/// presetKey is a position key; picId never limits.
[[nodiscard]] ListFilter BimFilterOf(const KX_DATA::PicQueryFilter& filter);
/// presetKey is a floor, presetExtra the handle of a component on it; labels don't limit.
[[nodiscard]] ListFilter IssueFilterOf(const KX_DATA::PicQueryFilter& filter);
[[nodiscard]] ListFilter PdfFilterOf(const KX_DATA::PdfQueryFilter& filter);

[[nodiscard]] ListOrder OrderOf(const KX_DATA::PageRequest& request);
/// Counts of the whole search; pages of less than one row count as none.
[[nodiscard]] KX_DATA::PageResult ResultOf(const ListPage& page,
                                           const KX_DATA::PageRequest& request);

} // namespace host
