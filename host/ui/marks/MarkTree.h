// What the mark panel lists: floors with their marks and counts.
#pragma once

#include "services/EnvRecords.h"
#include "services/MarkGroups.h"

#include <map>
#include <vector>

namespace host {

struct MarkTreeMark {
    qint32 markId = 0;
    QString name;        ///< "标识 99" if the mark table doesn't know it
    qint32 color = 0;    ///< 0xBBGGRR
    qint32 count = 0;    ///< photos or issues
    bool isKnown = true; ///< to the mark table
};

struct MarkTreeFloor {
    QString group;   ///< name of its group: the floor's, or "其他"
    QString caption; ///< as a person reads it
    qint32 count = 0;
    std::vector<MarkTreeMark> marks; ///< in the order of the mark table's ids
};

using MarkTree = std::vector<MarkTreeFloor>;

/// Floors in the order in which they come, "其他" last.
[[nodiscard]] MarkTree MakeMarkTree(const std::vector<KX_DATA::PicFilterEntry>& entries,
                                    const std::map<qint32, KX_DATA::MarkRecord>& marks);
[[nodiscard]] qint32 CountOf(const MarkTree& tree);

/// The floors and marks whose caption or name holds the text, whatever its case; a floor whose
/// caption holds it comes with all its marks. An empty text takes everything.
/// @return  for each floor the indexes of its marks; a floor without marks isn't taken.
[[nodiscard]] std::vector<std::vector<int>> FilterMarkTree(const MarkTree& tree,
                                                           const QString& text);

} // namespace host
