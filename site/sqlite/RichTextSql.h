// Tables of the records of places, and the statements that find the photos of a place.
#pragma once

#include "site/IChanges.h"
#include "site/IRichTexts.h"

#include <QVariant>

namespace site {

/// - rich_text (ppid, checkpoint_id, position_key, mark_id): the places that have a record, with
///   its state; those of checkpoints in the bin too, as their ids come back or never again.
/// - rich_version, rich_file: every save, with its files.
///
/// With the triggers by which photos take the state of the place where they are filed or moved to.
[[nodiscard]] std::vector<QString> RichTextSchema();

/// How the photos of a place are found.
struct RichPhotos {
    ChangeKind kind = ChangeKind::BimPhoto;
    QString table; ///< with the index that leads to them
    QString where;
    QVariantList values; ///< of the places in `where`
};
/// @param place  of a checkpoint: with the project that it is of.
[[nodiscard]] RichPhotos RichPhotosOf(const RichPlace& place);

/// State of the newest photo, by `values`.
[[nodiscard]] QString NewestStateSql(const RichPhotos& photos);
/// Ids of the photos that have another state, by `values` and the state.
[[nodiscard]] QString OtherStatesSql(const RichPhotos& photos);
/// Gives them the state, by the state, `values` and the state once more.
[[nodiscard]] QString SetStatesSql(const RichPhotos& photos);
/// All records of so many projects with what their places are called, by the projects.
[[nodiscard]] QString RichListSql(qsizetype projects);
/// Files of all versions, each once, by the record.
[[nodiscard]] QString RichUuidsSql();

} // namespace site
