// Photos or counts in whatever order they come, put in the order of their places.
#pragma once

#include "site/sqlite/PicPanel.h"

namespace site {

/// One photo, or the photos of one mark, at a numbered place; see PlaceTally.h.
struct PlacedMark {
    qint32 place = 0;
    qint32 markId = 0;
    qint32 value = 0; ///< a photo's id, or how many there are
};

/// Made from very many in the time of a few runs over them. Thread: any.
class MarksByPlace final {
public:
    enum class Values { PicIds, Counts };
    MarksByPlace(const std::vector<PlacedMark>& placed, Values placedValues);

    /// Marks by their ids, each with its photos in the order in which they came, or with its count;
    /// empty at a place without any.
    [[nodiscard]] std::vector<PanelMark> MarksAt(qint32 place) const;

private:
    struct Entry {
        qint32 markId;
        qint32 value;
    };
    [[nodiscard]] std::vector<Entry> EntriesAt(qint32 place) const;

    Values m_values;
    qint32 m_firstPlace = 0;
    std::vector<quint32> m_ends; ///< of each place from the first on, in `sorted`
    std::vector<Entry> m_sorted;
};

} // namespace site
