#include "reminder/PicMarkTree.h"

#include "reminder/NamedCounts.h"

#include <utility>

bool SelectGroup(const KX_DATA::ShownPicMarks& selection, const std::string& floor,
                 const QString& secondLevel, GroupSelection& selected) {
    const auto inner = selection.find(floor);
    if (inner == selection.end())
        return false;
    selected.takeAll = inner->second.empty();
    selected.marks = nullptr;
    const auto marks = inner->second.find(secondLevel);
    if (marks == inner->second.end())
        return selected.takeAll;
    selected.takeAll = marks->second.empty();
    selected.marks = &marks->second;
    return true;
}

namespace {

/// Puts items together from leaves that come in the order of the items.
class ItemBuilder {
public:
    ItemBuilder(const CompactMarks& marksOfGroup, KX_DATA::PicMarkGroup& cutGroup)
        : marks(marksOfGroup), cut(cutGroup) {}

    /// The same leaves as a row, with the counts that they get.
    void Build(const std::vector<quint32>& leaves, const std::vector<qint32>& counts) {
        cut.items.reserve(ItemsOf(leaves));
        for (std::size_t at = 0; at < leaves.size();) {
            const quint32 item = marks.LeafAt(leaves[at]).item;
            std::size_t end = at + 1;
            while (end < leaves.size() && marks.LeafAt(leaves[end]).item == item)
                ++end;
            KX_DATA::PicMarkItem& kept = cut.items.emplace_back();
            marks.FillTexts(item, kept);
            kept.groupId = cut.id;
            kept.leaves.reserve(end - at);
            for (; at < end; ++at)
                AddLeaf(kept, leaves[at],
                        counts.empty() ? marks.LeafAt(leaves[at]).count : counts[at]);
        }
    }

private:
    [[nodiscard]] std::size_t ItemsOf(const std::vector<quint32>& leaves) const {
        std::size_t items = leaves.empty() ? 0 : 1;
        for (std::size_t at = 1; at < leaves.size(); ++at)
            items += marks.LeafAt(leaves[at]).item != marks.LeafAt(leaves[at - 1]).item ? 1 : 0;
        return items;
    }
    void AddLeaf(KX_DATA::PicMarkItem& item, quint32 leaf, qint32 count) const {
        item.leaves.push_back(marks.Kinds()[marks.LeafAt(leaf).kind]);
        item.leaves.back().count = count;
        item.total += count;
    }

    const CompactMarks& marks;
    KX_DATA::PicMarkGroup& cut;
};

/// What is ticked of each mark of a group.
class TickedMarks {
public:
    TickedMarks(const CompactMarks& marksOfGroup,
                const std::map<qint32, std::vector<KX_DATA::ShownPicItem>>& ticked)
        : marks(marksOfGroup) {
        std::map<qint32, std::size_t> ticks;
        counts.reserve(ticked.size());
        for (const auto& [markId, photos] : ticked) {
            ticks[markId] = counts.size();
            counts.emplace_back(photos);
            hasPhotos = hasPhotos || !photos.empty();
        }
        for (const KX_DATA::PicMarkLeaf& kind : marks.Kinds()) {
            const auto tick = ticks.find(kind.markId);
            wanted.push_back(tick == ticks.end() ? 0 : 1);
            countsOfKind.push_back(tick == ticks.end() ? nullptr : &counts[tick->second]);
        }
    }

    [[nodiscard]] const std::vector<quint8>& Wanted() const { return wanted; }
    /// False: whole marks are ticked, and the leaves keep their counts.
    [[nodiscard]] bool HasPhotos() const { return hasPhotos; }
    /// Leaves without a ticked photo go, the others get how many there are.
    [[nodiscard]] std::vector<qint32> CountPhotos(std::vector<quint32>& leaves) {
        std::vector<qint32> counted;
        counted.reserve(leaves.size());
        std::size_t kept = 0;
        for (const quint32 at : leaves) {
            const CompactMarks::Leaf leaf = marks.LeafAt(at);
            NamedCounts& photos = *countsOfKind[leaf.kind];
            const qint32 count =
                photos.IsEmpty() ? leaf.count : photos.CountOf(marks.NameOf(leaf.item));
            if (count == 0 && !photos.IsEmpty())
                continue;
            leaves[kept++] = at;
            counted.push_back(count);
        }
        leaves.resize(kept);
        return counted;
    }

private:
    const CompactMarks& marks;
    std::vector<NamedCounts> counts;
    std::vector<NamedCounts*> countsOfKind; ///< null: the mark isn't ticked
    std::vector<quint8> wanted;
    bool hasPhotos = false;
};

} // namespace

void PicMarkTree::SetGroups(std::vector<KX_DATA::PicMarkGroup> newGroups) {
    groups = std::move(newGroups);
    compact = std::vector<CompactMarks>(groups.begin(), groups.end());
}

std::vector<KX_DATA::PicMarkGroup> PicMarkTree::TakeGroups() {
    compact.clear();
    return std::exchange(groups, {});
}

KX_DATA::PicMarkGroup PicMarkTree::Cut(std::size_t group, const GroupSelection& selected) const {
    const CompactMarks& marks = compact[group];
    KX_DATA::PicMarkGroup cut{groups[group].name, groups[group].id, {}};
    ItemBuilder builder(marks, cut);
    if (selected.takeAll) {
        builder.Build(marks.LeavesOf(std::vector<quint8>(marks.Kinds().size(), 1)), {});
        return cut;
    }
    TickedMarks ticked(marks, *selected.marks);
    std::vector<quint32> leaves = marks.LeavesOf(ticked.Wanted());
    std::vector<qint32> counts;
    if (ticked.HasPhotos())
        counts = ticked.CountPhotos(leaves);
    builder.Build(leaves, counts);
    return cut;
}
