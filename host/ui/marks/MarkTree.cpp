#include "host/ui/marks/MarkTree.h"

#include "host/ui/LocateText.h"

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
    if (known == marks.end())
        return {markId, u"标识 %1"_s.arg(markId), kUnknownMarkColor, count, false};
    return {markId, known->second.name, known->second.color, count, true};
}

} // namespace

MarkTree MakeMarkTree(const std::vector<KX_DATA::PicFilterEntry>& entries,
                      const std::map<qint32, KX_DATA::MarkRecord>& marks) {
    MarkTree tree;
    for (const KX_DATA::PicFilterEntry& entry : entries) {
        MarkTreeFloor& floor = tree.emplace_back();
        floor.group = entry.name;
        floor.caption = entry.name == OthersGroup() ? entry.name : FloorCaption(entry.name);
        floor.count = entry.count;
        for (const auto& [markId, count] : entry.values)
            floor.marks.push_back(TreeMark(markId, count, marks));
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

std::vector<std::vector<int>> FilterMarkTree(const MarkTree& tree, const QString& text) {
    std::vector<std::vector<int>> taken(tree.size());
    for (std::size_t floor = 0; floor < tree.size(); ++floor) {
        const bool whole = tree[floor].caption.contains(text, Qt::CaseInsensitive);
        for (int mark = 0; mark < int(tree[floor].marks.size()); ++mark) {
            if (whole || tree[floor].marks[mark].name.contains(text, Qt::CaseInsensitive))
                taken[floor].push_back(mark);
        }
    }
    return taken;
}

} // namespace host
