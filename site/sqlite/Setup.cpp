#include "site/sqlite/Setup.h"

#include "site/SetupRules.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SetupRead.h"
#include "site/sqlite/SetupUses.h"
#include "site/sqlite/SetupWriter.h"

#include <algorithm>

namespace site {

namespace {

const SetupGrid* GridOf(const SetupState& state, const QString& project) {
    const auto found = std::find_if(state.grids.begin(), state.grids.end(),
                                    [&](const SetupGrid& grid) { return grid.project == project; });
    return found == state.grids.end() ? nullptr : &*found;
}

/// What the project is called in another state.
QString NameIn(const SetupState& state, const SetupState& other, const QString& project) {
    for (const SetupProject& each : state.projects) {
        if (each.name == project && each.ppid != 0) {
            for (const SetupProject& now : other.projects) {
                if (now.ppid == each.ppid) {
                    return now.name;
                }
            }
        }
    }
    return {};
}

/// The grid as it was seen, under the name that its project is to have; an empty one for a project
/// whose grid wasn't seen.
SetupGrid SeenGrid(const SetupState& seen, const SetupState& wanted, const QString& project) {
    SetupGrid grid;
    if (const SetupGrid* found = GridOf(seen, NameIn(wanted, seen, project))) {
        grid = *found;
    }
    grid.project = project;
    return grid;
}

bool DiffersInFloors(const SetupGrid& one, const SetupGrid& other) {
    return one.floors != other.floors;
}

/// The first list that is to change and isn't any more as it was seen.
std::optional<SetupList> ChangedSince(Database& database, const SetupState& seen,
                                      const SetupState& wanted) {
    const std::vector<SetupProject> projects = ReadSetupProjects(database);
    if (seen.projects != wanted.projects && seen.projects != projects) {
        return SetupList::Project;
    }
    if (seen.worksets != wanted.worksets && seen.worksets != ReadSetupWorksets(database)) {
        return SetupList::Workset;
    }
    if (seen.people != wanted.people && seen.people != ReadSetupPeople(database)) {
        return SetupList::Person;
    }
    if (seen.marks != wanted.marks && seen.marks != ReadSetupMarks(database)) {
        return SetupList::Mark;
    }
    if (seen.labels != wanted.labels && seen.labels != ReadSetupLabels(database)) {
        return SetupList::Label;
    }
    for (const SetupGrid& grid : wanted.grids) {
        const SetupGrid before = SeenGrid(seen, wanted, grid.project);
        if (before == grid) {
            continue;
        }
        const QString name = NameIn(wanted, seen, grid.project);
        const auto project =
            std::find_if(projects.begin(), projects.end(), [&](const SetupProject& each) {
                return !name.isEmpty() && each.name == name;
            });
        SetupGrid now;
        if (project != projects.end()) {
            now = ReadSetupGrid(database, *project);
        }
        now.project = grid.project;
        if (now != before) {
            return DiffersInFloors(now, before) ? SetupList::Floor : SetupList::Crossing;
        }
    }
    return std::nullopt;
}

void Write(SetupWriter& writer, const SetupState& seen, const SetupState& wanted) {
    writer.Projects(seen.projects, wanted.projects);
    writer.Worksets(seen.worksets, wanted.worksets);
    writer.People(seen.people, wanted.people);
    writer.Marks(seen.marks, wanted.marks);
    writer.Labels(seen.labels, wanted.labels);
    for (const SetupGrid& grid : wanted.grids) {
        const SetupGrid before = SeenGrid(seen, wanted, grid.project);
        if (before != grid) {
            writer.Grid(before, grid);
        }
    }
}

} // namespace

SetupState Setup::Read(const Projects& grids) {
    const ReadScope scope(m_database);
    SetupState state{ReadSetupProjects(m_database), ReadSetupWorksets(m_database),
                     ReadSetupPeople(m_database),   ReadSetupMarks(m_database),
                     ReadSetupLabels(m_database),   {}};
    for (const SetupProject& project : state.projects) {
        if (Has(grids, project.ppid)) {
            state.grids.push_back(ReadSetupGrid(m_database, project));
        }
    }
    return state;
}

SetupOutcome Setup::Apply(const SetupState& seen, const SetupState& wanted, const Signature& by) {
    SetupOutcome outcome;
    for (const SetupFault& fault : FaultsOf(seen, wanted)) {
        outcome.refusals.push_back(fault.text);
    }
    if (!outcome.IsDone()) {
        return outcome;
    }
    Transaction transaction(m_database);
    outcome.changedMeanwhile = ChangedSince(m_database, seen, wanted);
    if (outcome.changedMeanwhile) {
        return outcome;
    }
    SetupWriter writer(m_database, by);
    Write(writer, seen, wanted);
    outcome.refusals = writer.Refusals();
    if (outcome.IsDone()) {
        transaction.Commit();
    }
    return outcome;
}

QString Setup::UsesOf(SetupList list, qint32 id) {
    const ReadScope scope(m_database);
    switch (list) {
    case SetupList::Project:
        return UsesOfProject(m_database, id);
    case SetupList::Person:
        return UsesOfPerson(m_database, id);
    case SetupList::Mark:
        return UsesOfMark(m_database, id);
    case SetupList::Label:
        return UsesOfLabel(m_database, id);
    case SetupList::Workset:
    case SetupList::Floor:
    case SetupList::Crossing:
        break;
    }
    return {};
}

QString Setup::UsesOfFloor(qint32 ppid, const QString& floor) {
    const ReadScope scope(m_database);
    return UsesOfFloorNamed(m_database, ppid, floor);
}

QString Setup::UsesOfCrossing(const QString& positionKey) {
    const ReadScope scope(m_database);
    return UsesOfPosition(m_database, positionKey);
}

} // namespace site
