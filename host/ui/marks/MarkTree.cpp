#include "host/ui/marks/MarkTree.h"

#include "host/ui/LocateText.h"
#include "host/ui/marks/MarkFlag.h"

#include <algorithm>
#include <numeric>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kUnknownMarkColor = 0x9E9E9E;

const QString& OthersGroup() {
    static const QString name = u"其他"_s;
    return name;
}

MarkTreeMark TreeMark(qint32 markId, qint32 count,
                      const std::map<qint32, KX_DATA::MarkRecord>& marks) {
    const auto known = marks.find(markId);
    if (known == marks.end()) {
        return {markId, UnknownMarkName(), kUnknownMarkColor, count, false, 0};
    }
    return {markId, known->second.name, known->second.color, count, true, 0};
}

MarkTreeFloor TreeFloor(const QString& group) {
    return {group, group == OthersGroup() ? group : FloorCaption(group), 0, {}, 0};
}

/// Both in the order of the floors; floors of hidden photos alone come between the others.
void AddHiddenFloors(MarkTree& tree, const std::vector<HiddenOfGroup>& hidden) {
    std::size_t at = 0;
    for (const HiddenOfGroup& floor : hidden) {
        const auto found = std::find_if(tree.begin(), tree.end(), [&](const MarkTreeFloor& one) {
            return one.group == floor.group;
        });
        // What hangs on no floor comes first in the data and last in the tree.
        const bool isOnNone = floor.group == OthersGroup();
        if (found == tree.end() && !floor.marks.empty() && isOnNone) {
            tree.push_back(TreeFloor(floor.group));
        } else if (isOnNone) {
            continue;
        } else if (found != tree.end()) {
            at = std::size_t(found - tree.begin()) + 1;
        } else if (!floor.marks.empty()) {
            tree.insert(tree.begin() + qsizetype(at++), TreeFloor(floor.group));
        }
    }
}

void AddHidden(MarkTree& tree, const std::vector<HiddenOfGroup>& hidden,
               const std::map<qint32, KX_DATA::MarkRecord>& marks) {
    AddHiddenFloors(tree, hidden);
    for (const HiddenOfGroup& counted : hidden) {
        for (MarkTreeFloor& floor : tree) {
            if (floor.group != counted.group) {
                continue;
            }
            for (const auto& [markId, count] : counted.marks) {
                auto mark =
                    std::find_if(floor.marks.begin(), floor.marks.end(),
                                 [id = markId](const auto& one) { return one.markId == id; });
                if (mark == floor.marks.end()) {
                    mark = floor.marks.insert(mark, TreeMark(markId, 0, marks));
                }
                mark->hidden += count;
                floor.hidden += count;
            }
        }
    }
}

} // namespace

MarkTree MakeMarkTree(const std::vector<KX_DATA::PicFilterEntry>& entries,
                      const std::map<qint32, KX_DATA::MarkRecord>& marks,
                      const std::vector<HiddenOfGroup>& hidden) {
    MarkTree tree;
    for (const KX_DATA::PicFilterEntry& entry : entries) {
        MarkTreeFloor& floor = tree.emplace_back(TreeFloor(entry.name));
        floor.count = entry.count;
        for (const auto& [markId, count] : entry.values) {
            floor.marks.push_back(TreeMark(markId, count, marks));
        }
    }
    AddHidden(tree, hidden, marks);
    for (MarkTreeFloor& floor : tree) {
        std::sort(floor.marks.begin(), floor.marks.end(),
                  [](const auto& one, const auto& other) { return one.markId < other.markId; });
    }
    std::stable_partition(tree.begin(), tree.end(),
                          [](const MarkTreeFloor& floor) { return floor.group != OthersGroup(); });
    return tree;
}

qint32 CountOf(const MarkTree& tree) {
    return std::accumulate(tree.begin(), tree.end(), 0, [](qint32 sum, const MarkTreeFloor& floor) {
        return sum + floor.count;
    });
}

qint32 HiddenCountOf(const MarkTree& tree) {
    return std::accumulate(tree.begin(), tree.end(), 0, [](qint32 sum, const MarkTreeFloor& floor) {
        return sum + floor.hidden;
    });
}

std::vector<std::vector<int>> FilterMarkTree(const MarkTree& tree, const QString& text) {
    std::vector<std::vector<int>> taken(tree.size());
    for (std::size_t floor = 0; floor < tree.size(); ++floor) {
        const bool whole = tree[floor].caption.contains(text, Qt::CaseInsensitive);
        for (int mark = 0; mark < int(tree[floor].marks.size()); ++mark) {
            if (whole || tree[floor].marks[mark].name.contains(text, Qt::CaseInsensitive)) {
                taken[floor].push_back(mark);
            }
        }
    }
    return taken;
}

} // namespace host
