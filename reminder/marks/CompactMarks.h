// A group of the photo tree in little memory, to run through quickly.
#pragma once

#include "services/MarkGroups.h"

#include <array>
#include <string_view>
#include <vector>

/// Texts of all items behind each other, leaves as numbers. Leaves of one mark mostly differ in
/// their count alone, so a few whole ones ("kinds") stand for all.
class CompactMarks final {
public:
    explicit CompactMarks(const KX_DATA::PicMarkGroup& group);

    /// Complete but for their count; the same one may stand here twice.
    [[nodiscard]] const std::vector<KX_DATA::PicMarkLeaf>& Kinds() const { return m_kinds; }
    /// Of each leaf, in the order of the items: index into Kinds(), count, item.
    struct Leaf {
        quint32 kind = 0;
        qint32 count = 0;
        quint32 item = 0;
    };
    [[nodiscard]] std::size_t LeafCount() const { return m_leafKinds.size(); }
    [[nodiscard]] Leaf LeafAt(std::size_t leaf) const {
        return {m_leafKinds[leaf], m_leafCounts[leaf], m_leafItems[leaf]};
    }
    /// Those whose kind has a 1. @param wanted  wanted.size() == Kinds().size(), each 0 or 1.
    [[nodiscard]] std::vector<quint32> LeavesOf(const std::vector<quint8>& wanted) const;

    [[nodiscard]] std::string_view NameOf(std::size_t item) const {
        const Place& place = m_places[item];
        return {m_texts.data() + place.start + place.sizes[0], place.sizes[1]};
    }
    /// Gives an empty item its texts.
    void FillTexts(std::size_t item, KX_DATA::PicMarkItem& empty) const;

private:
    static constexpr std::size_t kTexts = 5;
    struct Place {
        quint32 start;
        std::array<quint32, kTexts> sizes;
    };
    class KindFinder;

    [[nodiscard]] std::array<std::string_view, kTexts> TextsOf(std::size_t item) const;
    void AddTexts(const KX_DATA::PicMarkItem& item);

    std::string m_texts;
    std::vector<Place> m_places; ///< of each item's texts
    std::vector<quint32> m_leafKinds;
    std::vector<qint32> m_leafCounts;
    std::vector<quint32> m_leafItems;
    std::vector<KX_DATA::PicMarkLeaf> m_kinds;
};
