#include "reminder/marks/CompactMarks.h"

#include <algorithm>
#include <unordered_map>

/// Finds the kind of a leaf among those that its mark had at last.
class CompactMarks::KindFinder {
public:
    explicit KindFinder(std::vector<KX_DATA::PicMarkLeaf>& all) : m_kinds(all) {}

    quint32 KindOf(const KX_DATA::PicMarkLeaf& leaf) {
        Recent& recent = m_recents[leaf.markId];
        for (std::size_t at = 0; at < std::min(recent.added, kRecent); ++at) {
            const KX_DATA::PicMarkLeaf& kind = m_kinds[recent.kinds[at]];
            if (kind.text1 == leaf.text1 && kind.text2 == leaf.text2 &&
                kind.markName == leaf.markName) {
                return recent.kinds[at];
            }
        }
        // Leaves that all differ have a kind each, which costs memory and nothing else.
        m_kinds.push_back(leaf);
        const quint32 added = quint32(m_kinds.size() - 1);
        recent.kinds[recent.added++ % kRecent] = added;
        return added;
    }

private:
    static constexpr std::size_t kRecent = 8;
    struct Recent {
        std::array<quint32, kRecent> kinds{};
        std::size_t added = 0; ///< the oldest is overwritten first
    };
    std::vector<KX_DATA::PicMarkLeaf>& m_kinds;
    std::unordered_map<qint32, Recent> m_recents;
};

CompactMarks::CompactMarks(const KX_DATA::PicMarkGroup& group) {
    KindFinder finder(m_kinds);
    m_places.reserve(group.items.size());
    for (quint32 item = 0; item < group.items.size(); ++item) {
        AddTexts(group.items[item]);
        for (const KX_DATA::PicMarkLeaf& leaf : group.items[item].leaves) {
            m_leafKinds.push_back(finder.KindOf(leaf));
            m_leafCounts.push_back(leaf.count);
            m_leafItems.push_back(item);
        }
    }
}

// Without a branch that depends on the data: about one in ten is wanted, in no order.
std::vector<quint32> CompactMarks::LeavesOf(const std::vector<quint8>& wanted) const {
    std::vector<quint32> leaves(m_leafKinds.size() + 1);
    std::size_t count = 0;
    for (std::size_t leaf = 0; leaf < m_leafKinds.size(); ++leaf) {
        leaves[count] = quint32(leaf);
        count += wanted[m_leafKinds[leaf]];
    }
    leaves.resize(count);
    return leaves;
}

void CompactMarks::AddTexts(const KX_DATA::PicMarkItem& item) {
    Place place{quint32(m_texts.size()), {}};
    std::size_t at = 0;
    for (const std::string* text :
         {&item.positionKey, &item.itemName, &item.text3, &item.text4, &item.text5}) {
        m_texts += *text;
        place.sizes[at++] = quint32(text->size());
    }
    m_places.push_back(place);
}

std::array<std::string_view, CompactMarks::kTexts> CompactMarks::TextsOf(std::size_t item) const {
    const Place& place = m_places[item];
    std::array<std::string_view, kTexts> views;
    std::size_t start = place.start;
    for (std::size_t at = 0; at < kTexts; ++at) {
        views[at] = std::string_view(m_texts.data() + start, place.sizes[at]);
        start += place.sizes[at];
    }
    return views;
}

void CompactMarks::FillTexts(std::size_t item, KX_DATA::PicMarkItem& empty) const {
    const auto views = TextsOf(item);
    std::size_t at = 0;
    for (std::string* text :
         {&empty.positionKey, &empty.itemName, &empty.text3, &empty.text4, &empty.text5}) {
        if (!views[at].empty()) {
            text->assign(views[at]);
        }
        ++at;
    }
}
