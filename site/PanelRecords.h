// What the floor plan and the mark panel count: photos and issues, floor by floor.
#pragma once

#include <QString>

#include <vector>

namespace site {

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

struct PanelIssue {
    QString questionId;
    QString theme;
    QString posText; ///< where on the floor, as it was written: "3-B轴"
    QString component;
    qint32 markId = 0;
};

/// Issues of one project on one floor.
struct PanelIssueFloor {
    QString name; ///< may be empty
    qint32 ppid = 0;
    std::vector<PanelIssue> issues; ///< by place, then by age
};

} // namespace site
