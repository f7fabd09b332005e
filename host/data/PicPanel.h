// What the mark panel offers of the shown BIM photos: floors, intersections, marks, counts.
#pragma once

#include "host/data/PanelFilter.h"

namespace host {

class Database;

/// Shown photos of one mark at one intersection.
struct PanelMark {
    qint32 markId = 0;
    qint32 count = 0;
    std::vector<qint32> picIds; ///< only under limits; then picIds.size() == count
};

struct PanelPlace {
    qint32 ppid = 0;
    QString positionKey; ///< empty on no floor
    QString posText;
    std::vector<PanelMark> marks; ///< by mark id
};

struct PanelFloor {
    QString name; ///< empty: photos without a floor
    std::vector<PanelPlace> places;
};

/// Operations throw DataError. Thread: the database's.
class PicPanel final {
public:
    explicit PicPanel(Database& owner) : database(owner) {}

    /// In the order of floors; places by project, then by their text. Without limits the counts are
    /// those that the database keeps, with limits the photos are read one by one.
    [[nodiscard]] std::vector<PanelFloor> Floors(const PanelFilter& filter);
    /// Latest change first.
    [[nodiscard]] std::vector<qint32> PicsOfMark(const PanelFilter& filter, qint32 markId);

private:
    Database& database;
};

} // namespace host
