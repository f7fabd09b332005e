#include "site/sqlite/MarksByPlace.h"

#include <algorithm>
#include <numeric>

namespace site {

MarksByPlace::MarksByPlace(const std::vector<PlacedMark>& placed, Values placedValues)
    : values(placedValues) {
    if (placed.empty()) {
        return;
    }
    const auto [least, most] = std::minmax_element(
        placed.begin(), placed.end(),
        [](const PlacedMark& one, const PlacedMark& other) { return one.place < other.place; });
    firstPlace = least->place;
    ends.resize(static_cast<size_t>(most->place - firstPlace) + 1);
    for (const PlacedMark& mark : placed) {
        ++ends[static_cast<size_t>(mark.place - firstPlace)];
    }
    // Where each place begins; putting its entries there moves that to its end.
    std::exclusive_scan(ends.begin(), ends.end(), ends.begin(), 0U);
    sorted.resize(placed.size());
    for (const PlacedMark& mark : placed) {
        sorted[ends[static_cast<size_t>(mark.place - firstPlace)]++] = {mark.markId, mark.value};
    }
}

std::vector<MarksByPlace::Entry> MarksByPlace::EntriesAt(qint32 place) const {
    if (place < firstPlace || place - firstPlace >= static_cast<qint32>(ends.size())) {
        return {};
    }
    const auto at = static_cast<size_t>(place - firstPlace);
    std::vector<Entry> entries(sorted.begin() + (at == 0 ? 0 : ends[at - 1]),
                               sorted.begin() + ends[at]);
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& one, const Entry& other) {
        return one.markId < other.markId;
    });
    return entries;
}

std::vector<PanelMark> MarksByPlace::MarksAt(qint32 place) const {
    const std::vector<Entry> entries = EntriesAt(place);
    std::vector<PanelMark> marks;
    if (values == Values::kCounts) {
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
