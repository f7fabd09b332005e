#include "reminder/marks/PicMarkTree.h"

#include "reminder/marks/NamedCounts.h"

#include <utility>

bool SelectGroup(const KX_DATA::ShownPicMarks& selection, const std::string& floor,
                 const QString& secondLevel, GroupSelection& selected) {
    const auto inner = selection.find(floor);
    if (inner == selection.end()) {
        return false;
    }
    selected.takeAll = inner->second.empty();
    selected.marks = nullptr;
    const auto marks = inner->second.find(secondLevel);
    if (marks == inner->second.end()) {
        return selected.takeAll;
    }
    selected.takeAll = marks->second.empty();
    selected.marks = &marks->second;
    return true;
}

namespace {

/// Puts items together from leaves that come in the order of the items.
class ItemBuilder {
public:
    ItemBuilder(const CompactMarks& marksOfGroup, KX_DATA::PicMarkGroup& cutGroup)
        : m_marks(marksOfGroup), m_cut(cutGroup) {}

    /// The same leaves as a row, with the counts that they get.
    void Build(const std::vector<quint32>& leaves, const std::vector<qint32>& counts) {
        m_cut.items.reserve(ItemsOf(leaves));
        for (std::size_t at = 0; at < leaves.size();) {
            const quint32 item = m_marks.LeafAt(leaves[at]).item;
            std::size_t end = at + 1;
            while (end < leaves.size() && m_marks.LeafAt(leaves[end]).item == item) {
                ++end;
            }
            KX_DATA::PicMarkItem& kept = m_cut.items.emplace_back();
            m_marks.FillTexts(item, kept);
            kept.groupId = m_cut.id;
            kept.leaves.reserve(end - at);
            for (; at < end; ++at) {
                AddLeaf(kept, leaves[at],
                        counts.empty() ? m_marks.LeafAt(leaves[at]).count : counts[at]);
            }
        }
    }

private:
    [[nodiscard]] std::size_t ItemsOf(const std::vector<quint32>& leaves) const {
        std::size_t items = leaves.empty() ? 0 : 1;
        for (std::size_t at = 1; at < leaves.size(); ++at) {
            items += m_marks.LeafAt(leaves[at]).item != m_marks.LeafAt(leaves[at - 1]).item ? 1 : 0;
        }
        return items;
    }
    void AddLeaf(KX_DATA::PicMarkItem& item, quint32 leaf, qint32 count) const {
        item.leaves.push_back(m_marks.Kinds()[m_marks.LeafAt(leaf).kind]);
        item.leaves.back().count = count;
        item.total += count;
    }

    const CompactMarks& m_marks;
    KX_DATA::PicMarkGroup& m_cut;
};

/// What is ticked of each mark of a group.
class TickedMarks {
public:
    TickedMarks(const CompactMarks& marksOfGroup,
                const std::map<qint32, std::vector<KX_DATA::ShownPicItem>>& ticked)
        : m_marks(marksOfGroup) {
        std::map<qint32, std::size_t> ticks;
        m_counts.reserve(ticked.size());
        for (const auto& [markId, photos] : ticked) {
            ticks[markId] = m_counts.size();
            m_counts.emplace_back(photos);
            m_hasPhotos = m_hasPhotos || !photos.empty();
        }
        for (const KX_DATA::PicMarkLeaf& kind : m_marks.Kinds()) {
            const auto tick = ticks.find(kind.markId);
            m_wanted.push_back(tick == ticks.end() ? 0 : 1);
            m_countsOfKind.push_back(tick == ticks.end() ? nullptr : &m_counts[tick->second]);
        }
    }

    [[nodiscard]] const std::vector<quint8>& Wanted() const { return m_wanted; }
    /// False: whole marks are ticked, and the leaves keep their counts.
    [[nodiscard]] bool HasPhotos() const { return m_hasPhotos; }
    /// Leaves without a ticked photo go, the others get how many there are.
    [[nodiscard]] std::vector<qint32> CountPhotos(std::vector<quint32>& leaves) {
        std::vector<qint32> counted;
        counted.reserve(leaves.size());
        std::size_t kept = 0;
        for (const quint32 at : leaves) {
            const CompactMarks::Leaf leaf = m_marks.LeafAt(at);
            NamedCounts& photos = *m_countsOfKind[leaf.kind];
            const qint32 count =
                photos.IsEmpty() ? leaf.count : photos.CountOf(m_marks.NameOf(leaf.item));
            if (count == 0 && !photos.IsEmpty()) {
                continue;
            }
            leaves[kept++] = at;
            counted.push_back(count);
        }
        leaves.resize(kept);
        return counted;
    }

private:
    const CompactMarks& m_marks;
    std::vector<NamedCounts> m_counts;
    std::vector<NamedCounts*> m_countsOfKind; ///< null: the mark isn't ticked
    std::vector<quint8> m_wanted;
    bool m_hasPhotos = false;
};

} // namespace

void PicMarkTree::SetGroups(std::vector<KX_DATA::PicMarkGroup> newGroups) {
    m_groups = std::move(newGroups);
    m_compact = std::vector<CompactMarks>(m_groups.begin(), m_groups.end());
}

std::vector<KX_DATA::PicMarkGroup> PicMarkTree::TakeGroups() {
    m_compact.clear();
    return std::exchange(m_groups, {});
}

KX_DATA::PicMarkGroup PicMarkTree::Cut(std::size_t group, const GroupSelection& selected) const {
    const CompactMarks& marks = m_compact[group];
    KX_DATA::PicMarkGroup cut{m_groups[group].name, m_groups[group].id, {}};
    ItemBuilder builder(marks, cut);
    if (selected.takeAll) {
        builder.Build(marks.LeavesOf(std::vector<quint8>(marks.Kinds().size(), 1)), {});
        return cut;
    }
    TickedMarks ticked(marks, *selected.marks);
    std::vector<quint32> leaves = marks.LeavesOf(ticked.Wanted());
    std::vector<qint32> counts;
    if (ticked.HasPhotos()) {
        counts = ticked.CountPhotos(leaves);
    }
    builder.Build(leaves, counts);
    return cut;
}
