// What the mark panel offers of the shown BIM photos: floors, intersections, marks, counts.
#pragma once

#include "services/MarkGroups.h"

#include <QString>

#include <vector>

namespace host {

class Database;

/// Limits of the panel. Without a time range all times count.
struct PanelFilter {
    std::vector<qint32> ppids;
    QString person; ///< who uploaded or changed; empty: everybody
    bool timed = false;
    qint64 from = 0; ///< both inclusive, seconds since 1970
    qint64 to = 0;
};

/// Shown photos of one mark at one intersection.
struct PanelCount {
    QString floor; ///< empty: no position
    QString positionKey;
    QString posText;
    qint32 markId = 0;
    qint32 count = 0;
};

/// Operations throw DataError. Thread: the database's.
class PicPanel final {
public:
    explicit PicPanel(Database& owner) : database(owner) {}

    /// In the order of floors, intersections and marks.
    [[nodiscard]] std::vector<PanelCount> Counts(const PanelFilter& filter);
    /// Latest change first.
    [[nodiscard]] std::vector<qint32> PicsOfMark(const PanelFilter& filter, qint32 markId);

private:
    Database& database;
};

} // namespace host
