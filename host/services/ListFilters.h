// The console's filters and requests as those of the lists.
#pragma once

#include "services/PageQuery.h"
#include "site/ListFilter.h"

namespace host {

/// A preset of the client's own (ListPresets.h) takes the place of what follows here.
/// presetKey is a position key; picId never limits.
[[nodiscard]] site::ListFilter BimFilterOf(const KX_DATA::PicQueryFilter& filter);
/// presetKey is a floor, presetExtra the handle of a component on it; labels don't limit.
[[nodiscard]] site::ListFilter IssueFilterOf(const KX_DATA::PicQueryFilter& filter);
[[nodiscard]] site::ListFilter PdfFilterOf(const KX_DATA::PdfQueryFilter& filter);

[[nodiscard]] site::PageAsked PageAskedOf(const KX_DATA::PageRequest& request);
/// Counts of the whole search; pages of less than one row count as none.
[[nodiscard]] KX_DATA::PageResult ResultOf(qint64 total, const KX_DATA::PageRequest& request);

} // namespace host
