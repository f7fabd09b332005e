// How many shown BIM photos there are at each place with each mark: a table that triggers keep, so
// that every way of changing a photo keeps it right.
#pragma once

#include <QString>

#include <vector>

namespace host {

/// Table bim_place_tally (ppid, floor_sort, pos_text, position_key, mark_id, floor, n) and the
/// triggers on bim_photo. Rows with a count of 0 are removed. Photos without a floor share one
/// place with an empty key, whatever key they have.
[[nodiscard]] std::vector<QString> PlaceTallySchema();
/// Counts all photos anew into the table, which must be empty.
[[nodiscard]] QString PlaceTallyFillSql();

} // namespace host
