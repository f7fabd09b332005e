#include "host/ui/plan/FloorPlanModel.h"

#include "host/ui/LocateText.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Numbers first, by value; names behind them, short ones before long ones, so that AA follows Z.
bool AxisLess(const QString& left, const QString& right) {
    bool leftIsNumber = false;
    bool rightIsNumber = false;
    const int leftValue = left.toInt(&leftIsNumber);
    const int rightValue = right.toInt(&rightIsNumber);
    if (leftIsNumber != rightIsNumber) {
        return leftIsNumber;
    }
    if (leftIsNumber && leftValue != rightValue) {
        return leftValue < rightValue;
    }
    if (left.size() != right.size()) {
        return left.size() < right.size();
    }
    return left < right;
}

void SortAxes(std::vector<QString>& axes) {
    std::sort(axes.begin(), axes.end(), AxisLess);
    axes.erase(std::unique(axes.begin(), axes.end()), axes.end());
}

int IndexOf(const std::vector<QString>& axes, const QString& name) {
    return int(std::find(axes.begin(), axes.end(), name) - axes.begin());
}

QString AxisCaption(const QString& name) {
    return name.endsWith(u'轴') ? name : name + u"轴"_s;
}

} // namespace

std::optional<PlanPlace> FindPlace(const FloorPlanModel& model, const QString& positionKey) {
    if (positionKey.isEmpty()) {
        return std::nullopt;
    }
    for (int floor = 0; floor < int(model.floors.size()); ++floor) {
        const auto& places = model.floors[floor].intersections;
        for (int place = 0; place < int(places.size()); ++place) {
            if (places[place].positionKey == positionKey) {
                return PlanPlace{floor, place};
            }
        }
    }
    return std::nullopt;
}

int FindFloor(const FloorPlanModel& model, const QString& name, qint32 ppid) {
    const auto found =
        std::find_if(model.floors.begin(), model.floors.end(), [&](const PlanFloor& floor) {
            return floor.name == name && (ppid == 0 || floor.ppid == 0 || floor.ppid == ppid);
        });
    return found == model.floors.end() ? -1 : int(found - model.floors.begin());
}

int FindIntersection(const PlanFloor& floor, const QString& placeText) {
    static const QRegularExpression separator(u"[-/]"_s);
    const qsizetype at = placeText.lastIndexOf(separator);
    if (at <= 0) {
        return -1;
    }
    const QString axisX = AxisCaption(placeText.left(at).trimmed());
    const QString axisY = AxisCaption(placeText.mid(at + 1).trimmed());
    const auto& places = floor.intersections;
    const auto found =
        std::find_if(places.begin(), places.end(), [&](const PlanIntersection& place) {
            return AxisCaption(floor.axesX[place.axisX]) == axisX &&
                   AxisCaption(floor.axesY[place.axisY]) == axisY;
        });
    return found == places.end() ? -1 : int(found - places.begin());
}

QString PlanFloorCaption(const PlanFloor& floor) {
    if (floor.name.isEmpty()) {
        return u"其他"_s;
    }
    const QString caption = FloorCaption(floor.name);
    return floor.project.isEmpty() ? caption : floor.project + u' ' + caption;
}

PhotoCount CountPhotos(const PlanFloor& floor) {
    PhotoCount count = floor.unplaced;
    for (const PlanIntersection& place : floor.intersections) {
        count += place.photos;
    }
    return count;
}

QString PlanTitleNote(const PlanFloor& floor) {
    const QString photos = PhotosText(CountPhotos(floor));
    if (floor.name.isEmpty()) {
        return u"没有楼层的"_s + photos;
    }
    const QString note =
        u"轴网 %1 × %2，%3"_s.arg(floor.axesX.size()).arg(floor.axesY.size()).arg(photos);
    return floor.unplaced.Total() == 0
               ? note
               : note + u"，其中不在轴网上 %1"_s.arg(CountText(floor.unplaced));
}

int NeighbourOf(const PlanFloor& floor, int from, int dx, int dy) {
    const auto& places = floor.intersections;
    if (places.empty()) {
        return -1;
    }
    if (from < 0 || from >= int(places.size())) {
        return 0;
    }
    int best = from;
    int bestDistance = std::numeric_limits<int>::max();
    for (int at = 0; at < int(places.size()); ++at) {
        const int stepX = places[at].axisX - places[from].axisX;
        const int stepY = places[at].axisY - places[from].axisY;
        const int ahead = stepX * dx + stepY * dy;
        const int aside = std::abs(stepX * dy) + std::abs(stepY * dx);
        if (ahead > 0 && aside == 0 && ahead < bestDistance) {
            best = at;
            bestDistance = ahead;
        }
    }
    return best;
}

QString PlaceCaption(const PlanFloor& floor, const PlanIntersection& place) {
    return u"%1 / %2"_s.arg(AxisCaption(floor.axesX[place.axisX]),
                            AxisCaption(floor.axesY[place.axisY]));
}

PlanFloorBuilder::PlanFloorBuilder(const QString& name) : m_floorName(name) {}

void PlanFloorBuilder::Add(const QString& axisX, const QString& axisY, const QString& positionKey,
                           const PhotoCount& photos) {
    m_entries.push_back({axisX, axisY, positionKey, photos});
}

PlanFloor PlanFloorBuilder::Finish() {
    PlanFloor floor;
    floor.name = m_floorName;
    for (const Entry& entry : m_entries) {
        floor.axesX.push_back(entry.axisX);
        floor.axesY.push_back(entry.axisY);
    }
    SortAxes(floor.axesX);
    SortAxes(floor.axesY);
    for (const Entry& entry : m_entries) {
        floor.intersections.push_back({IndexOf(floor.axesX, entry.axisX),
                                       IndexOf(floor.axesY, entry.axisY), entry.positionKey,
                                       entry.photos});
    }
    std::stable_sort(floor.intersections.begin(), floor.intersections.end(),
                     [](const PlanIntersection& left, const PlanIntersection& right) {
                         return std::pair(left.axisX, left.axisY) <
                                std::pair(right.axisX, right.axisY);
                     });
    return floor;
}

} // namespace host
