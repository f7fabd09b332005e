// What the mark panel lists: floors with their marks and counts.
#pragma once

#include "services/EnvRecords.h"
#include "services/MarkGroups.h"

#include <map>
#include <vector>

namespace host {

struct MarkTreeMark {
    qint32 markId = 0;
    QString name;        ///< "未知" if the mark table doesn't know it
    qint32 color = 0;    ///< 0xBBGGRR
    qint32 count = 0;    ///< photos or issues that are shown
    bool isKnown = true; ///< to the mark table
    qint32 hidden = 0;   ///< photos
};

struct MarkTreeFloor {
    QString group;                   ///< name of its group: the floor's, or "其他"
    QString caption;                 ///< as a person reads it
    qint32 count = 0;                ///< photos or issues that are shown
    std::vector<MarkTreeMark> marks; ///< in the order of the mark table's ids
    qint32 hidden = 0;               ///< photos
};

/// Hidden photos of a floor, by mark; also of a floor that has none.
struct HiddenOfGroup {
    QString group;
    std::map<qint32, qint32> marks;
};

using MarkTree = std::vector<MarkTreeFloor>;

/// Floors in the order in which they come, "其他" last.
/// @param hidden  all floors in their order: what no entry names, having hidden photos alone, is
///                listed in its place among them.
[[nodiscard]] MarkTree MakeMarkTree(const std::vector<KX_DATA::PicFilterEntry>& entries,
                                    const std::map<qint32, KX_DATA::MarkRecord>& marks,
                                    const std::vector<HiddenOfGroup>& hidden = {});
[[nodiscard]] qint32 CountOf(const MarkTree& tree);
[[nodiscard]] qint32 HiddenCountOf(const MarkTree& tree);

/// The floors and marks whose caption or name holds the text, whatever its case; a floor whose
/// caption holds it comes with all its marks. An empty text takes everything.
/// @return  for each floor the indexes of its marks; a floor without marks isn't taken.
[[nodiscard]] std::vector<std::vector<int>> FilterMarkTree(const MarkTree& tree,
                                                           const QString& text);

} // namespace host
