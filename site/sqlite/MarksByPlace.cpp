#include "site/sqlite/MarksByPlace.h"

#include <algorithm>
#include <numeric>

namespace site {

MarksByPlace::MarksByPlace(const std::vector<PlacedMark>& placed, Values placedValues)
    : m_values(placedValues) {
    if (placed.empty()) {
        return;
    }
    const auto [least, most] = std::minmax_element(
        placed.begin(), placed.end(),
        [](const PlacedMark& one, const PlacedMark& other) { return one.place < other.place; });
    m_firstPlace = least->place;
    m_ends.resize(static_cast<size_t>(most->place - m_firstPlace) + 1);
    for (const PlacedMark& mark : placed) {
        ++m_ends[static_cast<size_t>(mark.place - m_firstPlace)];
    }
    // Where each place begins; putting its entries there moves that to its end.
    std::exclusive_scan(m_ends.begin(), m_ends.end(), m_ends.begin(), 0U);
    m_sorted.resize(placed.size());
    for (const PlacedMark& mark : placed) {
        m_sorted[m_ends[static_cast<size_t>(mark.place - m_firstPlace)]++] = {mark.markId,
                                                                              mark.value};
    }
}

std::vector<MarksByPlace::Entry> MarksByPlace::EntriesAt(qint32 place) const {
    if (place < m_firstPlace || place - m_firstPlace >= static_cast<qint32>(m_ends.size())) {
        return {};
    }
    const auto at = static_cast<size_t>(place - m_firstPlace);
    std::vector<Entry> entries(m_sorted.begin() + (at == 0 ? 0 : m_ends[at - 1]),
                               m_sorted.begin() + m_ends[at]);
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& one, const Entry& other) {
        return one.markId < other.markId;
    });
    return entries;
}

std::vector<PanelMark> MarksByPlace::MarksAt(qint32 place) const {
    const std::vector<Entry> entries = EntriesAt(place);
    std::vector<PanelMark> marks;
    if (m_values == Values::Counts) {
        marks.reserve(entries.size());
        for (const Entry& entry : entries) {
            marks.push_back({entry.markId, entry.value, {}, 0});
        }
        return marks;
    }
    for (auto from = entries.begin(); from != entries.end();) {
        const auto to = std::find_if(
            from, entries.end(), [&](const Entry& entry) { return entry.markId != from->markId; });
        PanelMark& mark = marks.emplace_back();
        mark.markId = from->markId;
        mark.count = static_cast<qint32>(to - from);
        mark.picIds.reserve(static_cast<size_t>(to - from));
        for (; from != to; ++from) {
            mark.picIds.push_back(from->value);
        }
    }
    return marks;
}

} // namespace site
