#include "host/setup/SetupPlan.h"

#include "host/setup/PlanDesk.h"
#include "host/setup/PlanGrids.h"
#include "host/setup/PlanLists.h"
#include "site/SetupRules.h"

#include <set>

namespace host {

using namespace Qt::StringLiterals;

SetupTable TableOf(site::SetupList list) {
    switch (list) {
    case site::SetupList::Project:
        return SetupTable::Project;
    case site::SetupList::Workset:
        return SetupTable::Workset;
    case site::SetupList::Person:
        return SetupTable::Person;
    case site::SetupList::Mark:
        return SetupTable::Mark;
    case site::SetupList::Label:
        return SetupTable::Label;
    case site::SetupList::Floor:
        return SetupTable::Floor;
    case site::SetupList::Crossing:
        break;
    }
    return SetupTable::Crossing;
}

namespace {

template <typename Entry> QString NameAt(const std::vector<Entry>& entries, int at) {
    return at >= 0 && size_t(at) < entries.size() ? entries[size_t(at)].name : QString();
}

/// What the entry that a rule refuses is called where lines are remembered.
QString NameOfFaulty(const site::SetupState& wanted, const site::SetupFault& fault) {
    switch (fault.list) {
    case site::SetupList::Project:
        return NameAt(wanted.projects, fault.at);
    case site::SetupList::Workset:
        return NameAt(wanted.worksets, fault.at);
    case site::SetupList::Person:
        return NameAt(wanted.people, fault.at);
    case site::SetupList::Mark:
        return NameAt(wanted.marks, fault.at);
    case site::SetupList::Label:
        return NameAt(wanted.labels, fault.at);
    case site::SetupList::Floor:
    case site::SetupList::Crossing:
        break;
    }
    for (const site::SetupGrid& grid : wanted.grids) {
        if (grid.project == fault.project && fault.list == site::SetupList::Floor) {
            return NameAt(grid.floors, fault.at);
        }
        if (grid.project == fault.project && size_t(fault.at) < grid.crossings.size()) {
            const site::SetupCrossing& crossing = grid.crossings[size_t(fault.at)];
            return CrossingKey(crossing.floor, crossing.axisX, crossing.axisY);
        }
    }
    return {};
}

/// Of all rules one is about no entry but about all people.
bool IsOfEntry(const site::SetupFault& fault, const QString& name) {
    constexpr qsizetype kShown = 20;
    return fault.list != site::SetupList::Person ||
           fault.text.contains(name.left(kShown).simplified());
}

/// A rule that holds for a whole list is told only if all of its lines could be taken: otherwise it
/// may well hold once they can. A fault of the file itself may be about lines of any table. A line
/// is told one of them, however many crossings it makes, and none if something else was wrong with
/// it.
void TellRules(PlanDesk& desk, const site::SetupState& seen) {
    std::set<QString> faulty;
    std::set<std::pair<QString, int>> told;
    for (const SetupLineFault& fault : desk.plan.faults) {
        faulty.insert(fault.table);
        told.emplace(fault.table, fault.line);
    }
    for (const site::SetupFault& fault : site::FaultsOf(seen, desk.plan.wanted)) {
        const QString name = NameOfFaulty(desk.plan.wanted, fault);
        const auto line = desk.LineOf(fault.list, fault.project, name);
        if (!line || !IsOfEntry(fault, name)) {
            const SetupTable table = TableOf(fault.list);
            if (!faulty.contains(FormOf(table).name) && !faulty.contains(QString())) {
                desk.Tell(table, 0, fault.text);
            }
        } else if (told.emplace(FormOf(line->table).name, line->line).second) {
            desk.Tell(line->table, line->line, fault.text);
        }
    }
}

} // namespace

QString TextOf(const SetupChange& change) {
    const QString table = FormOf(change.table).name;
    const QString named = change.what.isEmpty() ? QString() : u'“' + change.what + u'”';
    switch (change.step) {
    case SetupStep::New:
        return u"新增"_s + table + named +
               (change.after.isEmpty() ? QString() : u"："_s + change.after);
    case SetupStep::Moved:
        return table + named + u"改变顺序："_s + change.after;
    case SetupStep::Changed:
        break;
    }
    return table + named + u"："_s + change.before + u" 改为 "_s + change.after;
}

SetupPlan PlanSetup(const SetupTables& tables, const site::SetupState& seen,
                    const KnownDrawings& drawings) {
    PlanDesk desk(tables, seen);
    PlanProjects(desk);
    PlanWorksets(desk);
    PlanPeople(desk);
    PlanMarks(desk);
    PlanLabels(desk);
    PlanGrids(desk);
    PlanDrawings(desk, drawings);
    TellRules(desk, seen);
    return std::move(desk.plan);
}

} // namespace host
