// A coloured flag of the view: one mark at one place.
#pragma once

#include <QString>

#include <vector>

namespace host {

enum class MarkKind { Photos, Issues };

struct IssueName {
    QString questionId;
    QString theme;
};

struct MarkFlag {
    MarkKind kind = MarkKind::Photos;
    qint32 markId = 0;
    QString name;                  ///< of the mark; empty if the mark table doesn't know it
    qint32 color = 0;              ///< 0xBBGGRR
    qint32 count = 0;              ///< shown photos, or issues
    qint32 hidden = 0;             ///< photos of the mark at the place that have no flag
    qint32 ppid = 0;               ///< project; 0: not said
    QString floor;                 ///< empty: on no floor
    QString positionKey;           ///< of photos; empty on no floor
    QString placeText;             ///< where on the floor, as a person reads it; may be empty
    std::vector<IssueName> issues; ///< of issues; issues.size() == count
};

/// True for the same mark of the same kind at the same place, whatever its count.
[[nodiscard]] bool IsSameFlag(const MarkFlag& one, const MarkFlag& other);
/// Of a mark that the mark table doesn't know: a person knows no numbers of marks.
[[nodiscard]] QString UnknownMarkName();
/// "质量"; the above for a mark without a name.
[[nodiscard]] QString FlagName(const MarkFlag& flag);

} // namespace host
