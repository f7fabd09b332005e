// At which place each shown BIM photo is, and how many shown and hidden ones there are at each
// place with each mark: tables that triggers keep, so that every way of changing a photo keeps them
// right.
#pragma once

#include <QString>

#include <vector>

namespace site {

/// Tables of small numbers, so that a million photos are read quickly:
/// - bim_place (place, ppid, floor_sort, pos_text, position_key, floor) numbers the places that
///   have had a photo. Photos without a floor share one with an empty key, whatever key they
///   have.
/// - bim_place_photo (ppid, modified, id, place, mark_id): the shown photos by time.
/// - bim_place_tally (ppid, place, mark_id, n): their counts, without counts of 0.
/// With the triggers on bim_photo. Tables of the same names that earlier clients made are removed.
[[nodiscard]] std::vector<QString> PlaceTallySchema();
/// Takes all photos into the tables, which must be empty.
[[nodiscard]] std::vector<QString> PlaceTallyFillSql();

/// bim_hidden_tally (ppid, place, mark_id, n) with its triggers: the counts of the hidden photos,
/// without counts of 0; behind the tables above.
[[nodiscard]] std::vector<QString> HiddenTallySchema();
/// Counts all hidden photos; the table must be empty.
[[nodiscard]] std::vector<QString> HiddenTallyFillSql();
/// Columns of that table, from the hidden photos themselves.
/// @param condition  of more on them, as " AND photo.modified > ?"; may be empty.
[[nodiscard]] QString HiddenCountsSql(const QString& condition);

} // namespace site
