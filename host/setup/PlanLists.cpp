#include "host/setup/PlanLists.h"

#include "host/setup/AxisList.h"
#include "host/setup/PlanDesk.h"
#include "host/setup/PlanEntries.h"
#include "host/setup/SetupRoles.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// 1 to 4, 0 for what is none.
qint32 MajorOf(const QString& cell) {
    for (qsizetype i = 0; i < TradeNames().size(); ++i) {
        if (cell == QString::number(i + 1) ||
            cell.compare(TradeNames()[i], Qt::CaseInsensitive) == 0) {
            return qint32(i) + 1;
        }
    }
    return 0;
}

void PlanMajor(PlanDesk& desk, const SetupRow& row, bool isNew, site::SetupProject& project) {
    const QString& cell = row.Cell(column::kProjectMajor);
    if (cell.isEmpty()) {
        return;
    }
    const qint32 major = MajorOf(cell);
    if (major == 0) {
        desk.Tell(
            SetupTable::Project, row.line,
            u"没有专业“%1”，可以写 1 到 4 或 %2"_s.arg(cell.left(40), TradeNames().join(u'、')));
        return;
    }
    if (!isNew && major != project.major) {
        const bool isKnown = project.major >= 1 && project.major <= TradeNames().size();
        desk.Change(SetupTable::Project, project.name,
                    u"专业 "_s + (isKnown ? TradeNames()[project.major - 1]
                                          : QString::number(project.major)),
                    TradeNames()[major - 1]);
    }
    project.major = major;
}

/// Lines of one workset follow each other or not; together they name its projects.
struct WorksetLines {
    int line = 0; ///< the first
    QStringList projects;
    QSet<QString> taken; ///< the same
    std::optional<bool> archived;
    bool hasFlag = false;
};

void ReadWorksetLine(PlanDesk& desk, const SetupRow& row, const QHash<QString, size_t>& projects,
                     WorksetLines& lines) {
    constexpr SetupTable kTable = SetupTable::Workset;
    const QString& cell = row.Cell(column::kWorksetProjects);
    // A project's own name may hold what separates others.
    const QStringList parts = projects.contains(cell) ? QStringList{cell} : ListedParts(cell);
    if (parts.isEmpty()) {
        desk.Tell(kTable, row.line, u"没有写工程"_s);
    }
    for (const QString& part : parts) {
        if (!projects.contains(part)) {
            desk.Tell(kTable, row.line, u"没有工程“%1”"_s.arg(part.left(40)));
        } else if (lines.taken.contains(part)) {
            desk.Tell(kTable, row.line, u"工程“%1”重复了"_s.arg(part.left(40)));
        } else {
            lines.projects << part;
            lines.taken.insert(part);
        }
    }
    const std::optional<bool> archived = desk.FlagOf(kTable, row, column::kWorksetArchived);
    if (archived && lines.archived && *archived != *lines.archived) {
        desk.Tell(kTable, row.line, u"归档与第 %1 行不一致"_s.arg(lines.line));
    }
    lines.archived = archived ? archived : lines.archived;
    lines.hasFlag = lines.hasFlag || row.Has(column::kWorksetArchived);
}

void TakeWorkset(PlanDesk& desk, const QString& name, const WorksetLines& lines, bool isNew,
                 site::SetupWorkset& workset) {
    constexpr SetupTable kTable = SetupTable::Workset;
    const QStringList before(workset.projects.begin(), workset.projects.end());
    QStringList after = lines.projects;
    for (const QString& project : before) {
        if (!lines.taken.contains(project)) {
            after << project;
        }
    }
    workset.projects.assign(after.begin(), after.end());
    const bool archived = lines.hasFlag ? lines.archived.value_or(false) : workset.archived;
    if (isNew) {
        desk.Add(kTable, name, after.join(u'、'));
    } else {
        if (after != before) {
            desk.Change(kTable, name, u"工程 "_s + before.join(u'、'), after.join(u'、'));
        }
        if (archived != workset.archived) {
            desk.Change(kTable, name, u"归档 "_s + FlagWord(workset.archived), FlagWord(archived));
        }
    }
    workset.archived = archived;
}

} // namespace

void PlanProjects(PlanDesk& desk) {
    constexpr SetupTable kTable = SetupTable::Project;
    std::vector<site::SetupProject>& projects = desk.plan.wanted.projects;
    QHash<QString, size_t> places = PlacesOf(projects);
    for (const SetupRow& row : desk.tables.Rows(kTable)) {
        const QString name = desk.NameOf(kTable, row, site::SetupList::Project);
        if (name.isEmpty()) {
            continue;
        }
        bool isNew = false;
        site::SetupProject& project = EntryNamed(name, projects, places, isNew);
        if (isNew) {
            desk.Add(kTable, name);
        }
        PlanMajor(desk, row, isNew, project);
        desk.TakeFlag(kTable, row, column::kProjectArchived, isNew, project.archived);
    }
}

void PlanWorksets(PlanDesk& desk) {
    const QHash<QString, size_t> projects = PlacesOf(desk.plan.wanted.projects);
    QHash<QString, WorksetLines> lines;
    QStringList order;
    for (const SetupRow& row : desk.tables.Rows(SetupTable::Workset)) {
        const QString& name = row.Cell(column::kName);
        if (name.isEmpty()) {
            desk.Tell(SetupTable::Workset, row.line, u"名称是空的"_s);
            continue;
        }
        if (!lines.contains(name)) {
            order << name;
            lines[name].line = row.line;
            desk.Name(SetupTable::Workset, row.line, site::SetupList::Workset, {}, name);
        }
        ReadWorksetLine(desk, row, projects, lines[name]);
    }
    std::vector<site::SetupWorkset>& worksets = desk.plan.wanted.worksets;
    QHash<QString, size_t> places = PlacesOf(worksets);
    for (const QString& name : order) {
        bool isNew = false;
        site::SetupWorkset& workset = EntryNamed(name, worksets, places, isNew);
        TakeWorkset(desk, name, lines[name], isNew, workset);
    }
}

void PlanLabels(PlanDesk& desk) {
    constexpr SetupTable kTable = SetupTable::Label;
    std::vector<site::SetupLabel>& labels = desk.plan.wanted.labels;
    QHash<QString, size_t> places = PlacesOf(labels);
    for (const SetupRow& row : desk.tables.Rows(kTable)) {
        const QString name = desk.NameOf(kTable, row, site::SetupList::Label);
        bool isNew = false;
        if (!name.isEmpty()) {
            EntryNamed(name, labels, places, isNew);
        }
        if (isNew) {
            desk.Add(kTable, name);
        }
    }
}

} // namespace host
