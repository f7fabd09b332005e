#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"

#include <algorithm>
#include <array>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstHandle = 0x10000;
constexpr double kFloorHeight = 3.6; ///< metres

struct ComponentKind {
    QString kind;
    QString subName;
    QString sign; ///< before the number of its name
    QString sectionCaption;
    std::array<QString, 3> sections;
};

const ComponentKind& ColumnKind() {
    static const ComponentKind kind{
        u"柱"_s, u"框架柱"_s, u"KZ-"_s, u"截面尺寸"_s, {u"600×600"_s, u"600×700"_s, u"700×700"_s}};
    return kind;
}
const ComponentKind& BeamKind() {
    static const ComponentKind kind{
        u"梁"_s, u"框架梁"_s, u"KL-"_s, u"截面尺寸"_s, {u"300×650"_s, u"300×600"_s, u"250×500"_s}};
    return kind;
}
const ComponentKind& SlabKind() {
    static const ComponentKind kind{
        u"板"_s, u"现浇板"_s, u"LB-"_s, u"厚度"_s, {u"120"_s, u"130"_s, u"150"_s}};
    return kind;
}
const ComponentKind& WallKind() {
    static const ComponentKind kind{
        u"墙"_s, u"剪力墙"_s, u"Q-"_s, u"厚度"_s, {u"250"_s, u"200"_s, u"300"_s}};
    return kind;
}

/// Metres above the ground floor's.
QString LevelOf(const QString& floor, qint32 highestFloor) {
    bool isNumber = false;
    const int number = floor.toInt(&isNumber);
    const int storey = isNumber ? (number > 0 ? number - 1 : number) : highestFloor;
    return QString::number(storey * kFloorHeight, 'f', 3);
}

/// Strong where much stands on it.
QString GradeOf(const QString& floor) {
    return floor.toInt() < 0                        ? u"C40"_s
           : floor.toInt() > 0 && floor.toInt() < 6 ? u"C35"_s
                                                    : u"C30"_s;
}

site::Component MakeComponent(const ComponentKind& kind, const site::NewPosition& place, int number,
                              int handle) {
    const SampleProject& project = SampleProjects()[static_cast<size_t>(place.ppid)];
    site::Component component;
    component.ppid = place.ppid;
    component.handle = QString::number(kFirstHandle + handle, 16).toUpper();
    component.floor = place.floor;
    component.positionKey = place.positionKey;
    component.name = kind.sign + QString::number(number);
    component.subName = kind.subName;
    component.kind = kind.kind;
    component.properties = {
        {u"构件名称"_s, component.name},
        {u"构件类型"_s, kind.subName},
        {u"所在楼层"_s, place.floor + u"层"_s},
        {u"轴线位置"_s, place.axisX + u'/' + place.axisY},
        {kind.sectionCaption, kind.sections[static_cast<size_t>(number) % kind.sections.size()]},
        {u"混凝土强度等级"_s, GradeOf(place.floor)},
        {u"标高（m）"_s, LevelOf(place.floor, project.highestFloor)},
    };
    return component;
}

/// What stands on no floor: a base beside the building.
site::Component CraneBase(qint32 project, int handle) {
    return {project,
            QString::number(kFirstHandle + handle, 16).toUpper(),
            {},
            {},
            u"TJ-1"_s,
            u"塔吊基础"_s,
            u"基础"_s,
            {{u"构件名称"_s, u"TJ-1"_s},
             {u"构件类型"_s, u"塔吊基础"_s},
             {u"混凝土强度等级"_s, u"C35"_s}}};
}

} // namespace

void PlanComponents(SitePlan& plan) {
    int handle = 0;
    for (const site::NewPosition& place : plan.positions) {
        if (!place.valid) {
            continue;
        }
        const SampleProject& project = SampleProjects()[static_cast<size_t>(place.ppid)];
        const int column = place.axisX.toInt();
        const int row = place.axisY[0].unicode() - u'A' + 1;
        const int edges = (column == 1 || column == project.columns ? 1 : 0) +
                          (row == 1 || row == project.rows ? 1 : 0);
        // Inner columns, those of the edges, those of the corners.
        plan.components.push_back(MakeComponent(ColumnKind(), place, 1 + edges, handle++));
        plan.components.push_back(MakeComponent(BeamKind(), place, row, handle++));
        plan.components.push_back(
            MakeComponent(SlabKind(), place, 1 + (column + row) % 4, handle++));
        if (edges > 0) {
            plan.components.push_back(MakeComponent(WallKind(), place, edges, handle++));
        }
    }
    for (qint32 project = 0; project < static_cast<qint32>(SampleProjects().size()); ++project) {
        plan.components.push_back(CraneBase(project, handle++));
    }
}

const site::Component& ComponentAt(const SitePlan& plan, const QString& positionKey, int number) {
    const auto isThere = [&](const site::Component& each) {
        return each.positionKey == positionKey;
    };
    const auto first = std::find_if(plan.components.begin(), plan.components.end(), isThere);
    const auto end = std::find_if_not(first, plan.components.end(), isThere);
    return *(first + number % (end - first));
}

} // namespace sample
