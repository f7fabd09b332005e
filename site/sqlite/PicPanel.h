// How many BIM photos there are, floor by floor, place by place, mark by mark: what the floor plan
// and the mark panel say alike.
#pragma once

#include "site/PanelFilter.h"

namespace site {

class Database;

/// Photos of one mark at one place; shown and hidden ones are counted apart.
struct PanelMark {
    qint32 markId = 0;
    qint32 count = 0;           ///< shown photos
    std::vector<qint32> picIds; ///< of the shown, only under limits; then picIds.size() == count
    qint32 hidden = 0;
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

[[nodiscard]] bool HasShownPhotos(const PanelPlace& place);
[[nodiscard]] bool HasShownPhotos(const PanelFloor& floor);

/// Operations throw DataError. Thread: the database's.
class PicPanel final {
public:
    explicit PicPanel(Database& owner) : database(owner) {}

    /// Every photo that isn't deleted, hidden ones included: in the order of floors; places by
    /// project, then by their text, each with a photo. Without limits the counts are
    /// those that the database keeps, with limits the photos are read one by one.
    [[nodiscard]] std::vector<PanelFloor> Floors(const PanelFilter& filter);
    /// The shown ones, latest change first.
    [[nodiscard]] std::vector<qint32> PicsOfMark(const PanelFilter& filter, qint32 markId);

private:
    Database& database;
};

} // namespace site
