#include "host/setup/PlanGrids.h"

#include "host/setup/AxisList.h"
#include "host/setup/OrderMerge.h"
#include "host/setup/PlanProject.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kMostCrossings = 500'000;

QStringList FloorsIn(const site::SetupGrid& grid) {
    QStringList names;
    for (const site::SetupFloor& floor : grid.floors) {
        names << floor.name;
    }
    return names;
}

/// One project's grid while crossings are added to it.
struct GridWork {
    size_t place = 0; ///< in the wanted grids
    FloorNames floors{{}};
    QHash<QString, size_t> crossings; ///< by CrossingKey, places in the grid
    QHash<QString, int> added;        ///< by floor
    QHash<QString, int> revived;
};

/// Plans the three tables of floors and axes.
class GridPlanner final {
public:
    explicit GridPlanner(PlanDesk& desk)
        : m_desk(desk), m_grids(desk.plan.wanted.grids), m_projects(desk) {
        for (size_t i = 0; i < m_grids.size(); ++i) {
            m_places.insert(m_grids[i].project, i);
        }
    }

    void Floors() {
        std::map<size_t, QStringList> named; // by the grid's place
        for (const SetupRow& row : m_desk.tables.Rows(SetupTable::Floor)) {
            const QString project = m_projects.Of(SetupTable::Floor, row);
            const QString& floor = row.Cell(column::kFloor);
            if (floor.isEmpty()) {
                m_desk.Tell(SetupTable::Floor, row.line, u"楼层是空的"_s);
            } else if (!project.isEmpty() && m_desk.Name(SetupTable::Floor, row.line,
                                                         site::SetupList::Floor, project, floor)) {
                named[PlaceOf(project)] << floor;
            }
        }
        for (const auto& [place, floors] : named) {
            TakeFloors(m_grids[place], floors);
        }
    }
    void Axes() {
        for (const SetupRow& row : m_desk.tables.Rows(SetupTable::Axes)) {
            const ListedNames axesX = Listed(row, column::kAxisX);
            const ListedNames axesY = Listed(row, column::kAxisY);
            GridWork* const work = WorkOf(SetupTable::Axes, row);
            TellNowhere(SetupTable::Axes, row);
            if (work != nullptr) {
                Cross(*work, row.line, FloorsOf(*work, row), axesX.names, axesY.names);
            }
        }
    }
    void Crossings() {
        constexpr SetupTable kTable = SetupTable::Crossing;
        for (const SetupRow& row : m_desk.tables.Rows(kTable)) {
            const QString& floor = row.Cell(column::kFloor);
            const QString& axisX = row.Cell(column::kAxisX);
            const QString& axisY = row.Cell(column::kAxisY);
            GridWork* const work = WorkOf(kTable, row);
            const bool isWhole = !TellNowhere(kTable, row);
            if (floor.isEmpty()) {
                m_desk.Tell(kTable, row.line, u"楼层是空的"_s);
            } else if (work != nullptr && !work->floors.Has(floor)) {
                TellNoFloor(kTable, row.line, *work, u"没有楼层“%1”"_s.arg(floor.left(40)));
            } else if (work != nullptr && isWhole && IsOnce(row, m_grids[work->place].project)) {
                Add(*work, kTable, row.line, floor, axisX, axisY);
            }
        }
    }
    void Summarise() {
        for (auto& [place, work] : m_works) {
            for (const QString& floor : FloorsIn(m_grids[place])) {
                const QString what = m_grids[place].project + u' ' + floor;
                if (const int count = work.added.value(floor); count > 0) {
                    m_desk.Add(SetupTable::Crossing, what, u"%1 个"_s.arg(count));
                }
                if (const int count = work.revived.value(floor); count > 0) {
                    m_desk.Change(SetupTable::Crossing, what, u"失效 %1 个"_s.arg(count),
                                  u"有效"_s);
                }
            }
        }
    }

private:
    size_t PlaceOf(const QString& project) {
        const auto known = m_places.constFind(project);
        if (known != m_places.constEnd()) {
            return *known;
        }
        m_places.insert(project, m_grids.size());
        m_grids.push_back({project, {}, {}});
        return m_grids.size() - 1;
    }

    void TakeFloors(site::SetupGrid& grid, const QStringList& named) {
        const QStringList present = FloorsIn(grid);
        const QStringList merged = MergedFloors(present, named);
        QHash<QString, site::SetupFloor> known;
        for (const site::SetupFloor& floor : grid.floors) {
            known.insert(floor.name, floor);
        }
        std::vector<site::SetupFloor> floors;
        QStringList kept;
        for (const QString& name : merged) {
            const bool isNew = !known.contains(name);
            floors.push_back(known.value(name, {name, {}}));
            if (isNew) {
                m_desk.Add(SetupTable::Floor, grid.project + u' ' + name);
            } else {
                kept << name;
            }
        }
        if (kept != present) {
            m_desk.Move(SetupTable::Floor, grid.project, merged);
        }
        grid.floors = std::move(floors);
        TellMisplaced(grid.project, present, merged);
    }
    /// An order that people gave the floors before is theirs.
    void TellMisplaced(const QString& project, const QStringList& present,
                       const QStringList& merged) {
        QSet<QString> before;
        for (const MisplacedFloor& floor : MisplacedFloors(present)) {
            before.insert(floor.floor);
        }
        for (const MisplacedFloor& floor : MisplacedFloors(merged)) {
            auto line = m_desk.LineOf(site::SetupList::Floor, project, floor.floor);
            if (!line) {
                line = m_desk.LineOf(site::SetupList::Floor, project, floor.below);
            }
            if (line && !before.contains(floor.floor)) {
                m_desk.Tell(
                    SetupTable::Floor, line->line,
                    u"“%1”排在“%2”的上面；楼层请从低到高写"_s.arg(floor.floor, floor.below));
            }
        }
    }

    GridWork* WorkOf(SetupTable table, const SetupRow& row) {
        const QString project = m_projects.Of(table, row);
        if (project.isEmpty()) {
            return nullptr;
        }
        const size_t place = PlaceOf(project);
        const auto [known, isNew] = m_works.try_emplace(place);
        GridWork& work = known->second;
        if (isNew) {
            const site::SetupGrid& grid = m_grids[place];
            work.place = place;
            work.floors = FloorNames(FloorsIn(grid));
            for (size_t i = 0; i < grid.crossings.size(); ++i) {
                const site::SetupCrossing& crossing = grid.crossings[i];
                work.crossings.insert(CrossingKey(crossing.floor, crossing.axisX, crossing.axisY),
                                      i);
            }
        }
        return &work;
    }
    ListedNames Listed(const SetupRow& row, int place) {
        ListedNames listed = ListedAxes(row.Cell(place));
        if (!listed.fault.isEmpty()) {
            m_desk.Tell(SetupTable::Axes, row.line, listed.fault);
        }
        return listed;
    }
    QStringList FloorsOf(const GridWork& work, const SetupRow& row) {
        const ListedNames listed = work.floors.Listed(row.Cell(column::kFloor));
        if (!listed.fault.isEmpty()) {
            TellNoFloor(SetupTable::Axes, row.line, work, listed.fault);
        } else if (row.Cell(column::kFloor).isEmpty()) {
            m_desk.Tell(SetupTable::Axes, row.line, u"楼层是空的"_s);
        } else if (listed.names.isEmpty()) {
            TellNoFloor(SetupTable::Axes, row.line, work, u"没有写明楼层"_s);
        }
        return listed.names;
    }
    void TellNoFloor(SetupTable table, int line, const GridWork& work, const QString& fault) {
        const QStringList known = FloorsIn(m_grids[work.place]);
        const QString& project = m_grids[work.place].project;
        m_desk.Tell(table, line,
                    fault + (known.isEmpty()
                                 ? u"，工程“%1”还没有楼层"_s.arg(project)
                                 : u"，工程“%1”有%2"_s.arg(project, QuotedNames(known))));
    }
    /// True if the axes of a line cross nowhere.
    bool TellNowhere(SetupTable table, const SetupRow& row) {
        const QString& axisX = row.Cell(column::kAxisX);
        const QString& axisY = row.Cell(column::kAxisY);
        if (axisX.isEmpty() && axisY.isEmpty()) {
            m_desk.Tell(table, row.line, u"X轴和Y轴都是空的"_s);
        } else if (axisX.isEmpty()) {
            m_desk.Tell(table, row.line, u"Y轴“%1”没有相交的X轴"_s.arg(axisY.left(40)));
        } else if (axisY.isEmpty()) {
            m_desk.Tell(table, row.line, u"X轴“%1”没有相交的Y轴"_s.arg(axisX.left(40)));
        }
        return axisX.isEmpty() || axisY.isEmpty();
    }
    bool IsOnce(const SetupRow& row, const QString& project) {
        const QString key = project + u'\x1F' +
                            CrossingKey(row.Cell(column::kFloor), row.Cell(column::kAxisX),
                                        row.Cell(column::kAxisY));
        const auto known = m_lines.constFind(key);
        if (known != m_lines.constEnd()) {
            m_desk.Tell(SetupTable::Crossing, row.line,
                        u"“%1 %2/%3”与第 %4 行重复"_s.arg(
                            row.Cell(column::kFloor), row.Cell(column::kAxisX),
                            row.Cell(column::kAxisY), QString::number(*known)));
            return false;
        }
        m_lines.insert(key, row.line);
        return true;
    }
    /// All crossings of a line, or none if they are too many.
    void Cross(GridWork& work, int line, const QStringList& floors, const QStringList& axesX,
               const QStringList& axesY) {
        m_made += size_t(floors.size()) * size_t(axesX.size()) * size_t(axesY.size());
        if (m_made > kMostCrossings) {
            m_desk.Tell(SetupTable::Axes, line, u"起交点超过 %1 个"_s.arg(kMostCrossings));
            m_made = kMostCrossings;
            return;
        }
        for (const QString& floor : floors) {
            for (const QString& axisX : axesX) {
                for (const QString& axisY : axesY) {
                    Add(work, SetupTable::Axes, line, floor, axisX, axisY);
                }
            }
        }
    }
    void Add(GridWork& work, SetupTable table, int line, const QString& floor, const QString& axisX,
             const QString& axisY) {
        site::SetupGrid& grid = m_grids[work.place];
        const QString key = CrossingKey(floor, axisX, axisY);
        const auto known = work.crossings.constFind(key);
        if (known == work.crossings.constEnd()) {
            work.crossings.insert(key, grid.crossings.size());
            grid.crossings.push_back({{}, floor, axisX, axisY, true});
            ++work.added[floor];
            m_desk.Remember({table, line}, site::SetupList::Crossing, grid.project, key);
        } else if (!grid.crossings[*known].valid) {
            grid.crossings[*known].valid = true;
            ++work.revived[floor];
        }
    }

    PlanDesk& m_desk;
    std::vector<site::SetupGrid>& m_grids;
    PlanProject m_projects;
    QHash<QString, size_t> m_places;
    std::map<size_t, GridWork> m_works; ///< by the grid's place
    QHash<QString, int> m_lines;        ///< of crossings that a line names
    size_t m_made = 0;
};

} // namespace

void PlanGrids(PlanDesk& desk) {
    GridPlanner planner(desk);
    planner.Floors();
    planner.Axes();
    planner.Crossings();
    planner.Summarise();
}

void PlanDrawings(PlanDesk& desk, const KnownDrawings& drawings) {
    constexpr SetupTable kTable = SetupTable::Drawing;
    PlanProject projects(desk);
    QHash<QString, int> lines;
    for (const SetupRow& row : desk.tables.Rows(kTable)) {
        const QString project = projects.Of(kTable, row);
        const QString file = QString(row.Cell(column::kDrawingFile)).replace(u'\\', u'/');
        const QString& said = row.Cell(column::kDrawingName);
        const QString name = said.isEmpty() ? QFileInfo(file).completeBaseName().trimmed() : said;
        const QString key = project + u'\x1F' + name;
        if (file.isEmpty()) {
            desk.Tell(kTable, row.line, u"文件是空的"_s);
        } else if (lines.contains(key)) {
            desk.Tell(kTable, row.line, u"“%1”与第 %2 行重复"_s.arg(name).arg(lines[key]));
        } else if (!project.isEmpty()) {
            lines.insert(key, row.line);
            if (!drawings.value(project).contains(name)) {
                desk.plan.drawings.push_back({project, file, name, row.line});
                desk.Add(kTable, project + u' ' + name, file);
            }
        }
    }
}

} // namespace host
