// What the floor plan shows: floors with their grid axes and intersections.
#pragma once

#include "host/ui/PhotoCount.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace host {

/// Where two axes of a floor meet.
struct PlanIntersection {
    int axisX = 0; ///< index into the floor's axesX
    int axisY = 0; ///< index into the floor's axesY
    QString positionKey;
    PhotoCount photos;
};

struct PlanFloor {
    QString name;               ///< empty: what hangs on no floor, without axes
    qint32 ppid = 0;            ///< project; 0: all that are open
    QString project;            ///< its name, where several are open
    PhotoCount unplaced;        ///< photos that hang on none of its intersections
    std::vector<QString> axesX; ///< left to right
    std::vector<QString> axesY; ///< bottom to top
    std::vector<PlanIntersection> intersections;
};

struct FloorPlanModel {
    QString projectName; ///< empty: no project is open
    std::vector<PlanFloor> floors;
};

/// Which floor and which intersection.
struct PlanPlace {
    int floor = 0;
    int intersection = 0;
};

/// Nothing for a key that no floor has; an empty key is no key.
[[nodiscard]] std::optional<PlanPlace> FindPlace(const FloorPlanModel& model,
                                                 const QString& positionKey);
/// Index of a floor; -1 for a name that no floor has. With a project only its floors count.
[[nodiscard]] int FindFloor(const FloorPlanModel& model, const QString& name, qint32 ppid = 0);
/// Where a place that was written down lies: "3-B轴", "3/B". -1: no intersection is called so.
[[nodiscard]] int FindIntersection(const PlanFloor& floor, const QString& placeText);
/// The floor in words: "-1层", "二期工程 -1层", "其他" for what hangs on no floor.
[[nodiscard]] QString PlanFloorCaption(const PlanFloor& floor);
/// All that lie on the floor, on an intersection or not.
[[nodiscard]] PhotoCount CountPhotos(const PlanFloor& floor);
/// What stands behind the floor's name: "轴网 4 × 3，照片 7 + 3 隐藏，其中不在轴网上 1 + 3 隐藏".
[[nodiscard]] QString PlanTitleNote(const PlanFloor& floor);
/// The intersection next to `from` in the direction (dx, dy), dy upwards; `from` itself where there
/// is none, the first one for -1. -1 for a floor without intersections.
[[nodiscard]] int NeighbourOf(const PlanFloor& floor, int from, int dx, int dy);
/// "3轴 / B轴".
[[nodiscard]] QString PlaceCaption(const PlanFloor& floor, const PlanIntersection& place);

/// Puts a floor together from the axes as they come, one X axis with its Y axes after the other.
class PlanFloorBuilder final {
public:
    explicit PlanFloorBuilder(const QString& name);

    void Add(const QString& axisX, const QString& axisY, const QString& positionKey,
             const PhotoCount& photos);
    /// Axes in their order: numbers as numbers, other names as text behind them. Intersections in
    /// the order of their X axis, then of their Y axis.
    [[nodiscard]] PlanFloor Finish();

private:
    struct Entry {
        QString axisX;
        QString axisY;
        QString positionKey;
        PhotoCount photos;
    };
    QString m_floorName;
    std::vector<Entry> m_entries;
};

} // namespace host
