#include "host/ui/plan/FlagLayout.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kFlagHeight = 17;
constexpr double kFlagPitch = 18;
constexpr double kPoleGap = 2;     ///< from the circle of a place to the pole
constexpr double kFlagGap = 2;     ///< from the pole to the flags
constexpr double kBelowTitle = 36; ///< the ground of the floor's title ends here

/// Boxes for the flags of one place, the last one for those that find no room.
std::vector<FlagBox> FoldFlags(std::vector<int> flags, int place, int room, int first) {
    std::vector<FlagBox> boxes;
    const auto wanted = std::find(flags.begin(), flags.end(), first);
    const int whole = int(flags.size()) <= room ? int(flags.size()) : std::max(0, room - 1);
    if (whole > 0 && wanted != flags.end() && wanted - flags.begin() >= whole) {
        std::rotate(flags.begin() + whole - 1, wanted, wanted + 1);
    }
    for (int at = 0; at < whole; ++at) {
        boxes.push_back({{}, place, flags[at], {}});
    }
    if (whole < int(flags.size())) {
        boxes.push_back({{}, place, -1, {flags.begin() + whole, flags.end()}});
    }
    return boxes;
}

/// How many boxes a place has room for: half a bay upwards, but not behind the title, and half a
/// bay down.
int RowsAt(const FloorPlanLayout& layout, int place) {
    const double bay = layout.spacingY - 2;
    const double belowTitle = layout.places[size_t(place)].y() + layout.spacingY / 2 - kBelowTitle;
    return std::max(1, int(std::min(bay, belowTitle) / kFlagPitch));
}

void AddColumn(FlagLayout& all, const FloorPlanLayout& layout, std::vector<FlagBox> boxes) {
    const QRectF place = PlaceRect(layout, boxes.front().place);
    const double pole = place.right() + kPoleGap;
    const double height = double(boxes.size()) * kFlagPitch - (kFlagPitch - kFlagHeight);
    const double top = std::max(kBelowTitle, std::round(place.center().y() - height / 2));
    const double left = std::round(pole + kFlagGap);
    for (std::size_t at = 0; at < boxes.size(); ++at) {
        boxes[at].rect = QRectF(left, top + double(at) * kFlagPitch, layout.flagWidth, kFlagHeight);
    }
    all.stubs.emplace_back(place.center(), QPointF(pole, place.center().y()));
    all.poles.emplace_back(pole, top, pole, top + height);
    std::move(boxes.begin(), boxes.end(), std::back_inserter(all.boxes));
}

void AddShelf(FlagLayout& all, const FloorPlanLayout& layout, std::vector<FlagBox> boxes) {
    for (std::size_t at = 0; at < boxes.size(); ++at) {
        boxes[at].rect = ShelfCell(layout, int(at));
    }
    std::move(boxes.begin(), boxes.end(), std::back_inserter(all.boxes));
}

} // namespace

FlagLayout LayoutFlags(const FloorPlanLayout& layout, const std::vector<PlacedFlag>& flags,
                       int first) {
    std::vector<int> places;
    places.reserve(flags.size());
    for (const PlacedFlag& flag : flags) {
        places.push_back(flag.place);
    }
    return LayoutAtPlaces(layout, places, first);
}

FlagLayout LayoutAtPlaces(const FloorPlanLayout& layout, const std::vector<int>& places,
                          int first) {
    FlagLayout all;
    for (int at = 0; at < int(places.size());) {
        const int place = places[at];
        int end = at;
        while (end < int(places.size()) && places[end] == place) {
            ++end;
        }
        std::vector<int> here(end - at);
        std::iota(here.begin(), here.end(), at);
        if (place == kShelf) {
            AddShelf(all, layout,
                     FoldFlags(here, place, layout.shelfColumns * layout.shelfRows, first));
        } else {
            AddColumn(all, layout, FoldFlags(here, place, RowsAt(layout, place), first));
        }
        at = end;
    }
    return all;
}

int BoxAt(const FlagLayout& layout, const QPointF& point) {
    for (int at = 0; at < int(layout.boxes.size()); ++at) {
        if (layout.boxes[at].rect.contains(point)) {
            return at;
        }
    }
    return -1;
}

int BoxOf(const FlagLayout& layout, int flag) {
    for (int at = 0; at < int(layout.boxes.size()); ++at) {
        const FlagBox& box = layout.boxes[at];
        if (box.flag == flag ||
            std::find(box.rest.begin(), box.rest.end(), flag) != box.rest.end()) {
            return at;
        }
    }
    return -1;
}

int NextBox(const FlagLayout& layout, int from, int dx, int dy) {
    const auto& boxes = layout.boxes;
    if (from < 0 || from >= int(boxes.size())) {
        return boxes.empty() ? -1 : 0;
    }
    constexpr double kAsideCounts = 3; // what lies straight ahead comes before what lies near
    const QPointF begin = boxes[from].rect.center();
    int best = from;
    double bestWay = std::numeric_limits<double>::max();
    for (int at = 0; at < int(boxes.size()); ++at) {
        const QPointF way = boxes[at].rect.center() - begin;
        const double ahead = way.x() * dx - way.y() * dy;
        const double aside = std::abs(way.x() * dy) + std::abs(way.y() * dx);
        const double length = ahead + kAsideCounts * aside;
        if (ahead > 0 && length < bestWay) {
            best = at;
            bestWay = length;
        }
    }
    return best;
}

QString FlagTip(const PlanFloor& floor, const std::vector<PlacedFlag>& flags, const FlagBox& box) {
    constexpr int kMostLines = 12;
    QStringList lines;
    const auto add = [&](const PlacedFlag& placed) {
        const bool isIssue = placed.flag.kind == MarkKind::Issues;
        const QString place = FlagPlaceCaption(floor, placed);
        lines << (isIssue ? u"问题标识 %1，%2%3 个问题"_s : u"照片标识 %1，%2%3"_s)
                     .arg(FlagName(placed.flag), place.isEmpty() ? place : place + u"，"_s,
                          isIssue ? QString::number(placed.flag.count)
                                  : PhotosText({placed.flag.count, placed.flag.hidden}));
        for (const IssueName& issue : placed.flag.issues) {
            lines << u"· "_s + issue.theme;
        }
    };
    if (box.flag >= 0) {
        add(flags[box.flag]);
    }
    for (const int flag : box.rest) {
        add(flags[flag]);
    }
    if (lines.size() > kMostLines) {
        lines = lines.mid(0, kMostLines - 1) << u"……"_s;
    }
    return lines.join(u'\n');
}

} // namespace host
