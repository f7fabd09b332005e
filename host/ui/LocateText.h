// The text by which a lookup in the console names a photo: floor-mark-picture.
#pragma once

#include <QString>

#include <optional>

namespace host {

struct LocateTarget {
    QString floor; ///< may be empty, and may hold "-" itself: "-1", "B-2"
    qint32 markId = 0;
    qint32 picId = 0;
};

/// Reads the text from its right end, since floors below ground begin with "-".
/// Nothing if it doesn't end with two numbers.
[[nodiscard]] std::optional<LocateTarget> ParseLocateText(const QString& text);

/// How a floor is named to a person: "-1层" for a number, other names as they stand, "无楼层" for
/// none.
[[nodiscard]] QString FloorCaption(const QString& floor);

} // namespace host
