// How many BIM photos there are, floor by floor, place by place, mark by mark: what the floor plan
// and the mark panel say alike.
#pragma once

#include "site/PanelFilter.h"
#include "site/PanelRecords.h"

namespace site {

class Database;

/// Operations throw DataError. Thread: the database's.
class PicPanel final {
public:
    explicit PicPanel(Database& owner) : m_database(owner) {}

    /// Every photo that isn't deleted, hidden ones included: in the order of floors; places by
    /// project, then by their text, each with a photo. Without limits the counts are
    /// those that the database keeps, with limits the photos are read one by one.
    [[nodiscard]] std::vector<PanelFloor> Floors(const PanelFilter& filter);
    /// The shown ones, latest change first.
    [[nodiscard]] std::vector<qint32> PicsOfMark(const PanelFilter& filter, qint32 markId);

private:
    Database& m_database;
};

} // namespace site
