// The settings out of files and pasted tables, and into files.
#include "host/app/Faults.h"
#include "host/app/SetupFlow.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupPlan.h"
#include "host/setup/SetupText.h"
#include "sheets/TableText.h"
#include "site/IDrawings.h"

#include <QDir>
#include <QSaveFile>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// The page of floors takes tables of axes too.
bool NamesAxes(const sheets::TableBook& book) {
    return std::any_of(book.sheets.begin(), book.sheets.end(), [](const sheets::TableSheet& sheet) {
        return !sheet.rows.empty() &&
               std::find(sheet.rows.front().cells.begin(), sheet.rows.front().cells.end(),
                         FormOf(SetupTable::Axes).captions[column::kAxisX]) !=
                   sheet.rows.front().cells.end();
    });
}

bool HasGridOf(const site::SetupState& state, const QString& project) {
    return std::any_of(state.grids.begin(), state.grids.end(),
                       [&](const site::SetupGrid& grid) { return grid.project == project; });
}

} // namespace

SetupReading SetupFlow::Plan(const SetupTables& tables, const site::SetupState& draft) {
    SetupReading reading;
    site::SetupState state = draft;
    KnownDrawings drawings;
    for (const site::SetupProject& project : draft.projects) {
        if (project.ppid == 0) {
            continue;
        }
        for (const SetupDrawing& drawing : Drawings(project.ppid)) {
            drawings[project.name].insert(drawing.name);
        }
        if (HasGridOf(draft, project.name)) {
            continue;
        }
        if (auto grid = ReadGrid(project.ppid)) {
            reading.grids.emplace_back(*grid, project.name);
            grid->project = project.name;
            state.grids.push_back(std::move(*grid));
        }
    }
    SetupPlan plan = PlanSetup(tables, state, drawings);
    for (const SetupChange& change : plan.changes) {
        reading.changes << TextOf(change);
    }
    for (const SetupLineFault& fault : plan.faults) {
        reading.faults << TextOf(fault);
    }
    reading.wanted = std::move(plan.wanted);
    return reading;
}

SetupReading SetupFlow::ReadFile(const QString& path, const site::SetupState& draft) {
    return Plan(ReadSetupFile(path), draft);
}

SetupReading SetupFlow::ReadText(const QString& text, site::SetupList list, const QString& project,
                                 const site::SetupState& draft) {
    const sheets::TableBook book = sheets::ReadPastedTable(text);
    SetupTables tables;
    tables.project = project;
    SetupTable table = TableOf(list);
    if (table == SetupTable::Floor && NamesAxes(book)) {
        table = SetupTable::Axes;
    }
    for (const sheets::TableFault& fault : book.faults) {
        tables.faults.push_back(LineFaultOf(FormOf(table).name, fault));
    }
    for (const sheets::TableSheet& sheet : book.sheets) {
        AddSetupTable(table, sheet, Captions::MayLack, tables);
    }
    return Plan(tables, draft);
}

QString SetupFlow::WriteFile(const QString& path) {
    QString fault;
    WithoutFault(m_parts.session, [&] {
        site::Projects all;
        for (const site::SetupProject& project : m_parts.session.Site().Setup().Read({}).projects) {
            all.push_back(project.ppid);
        }
        const QByteArray bytes = SetupTextOf(m_parts.session.Site().Setup().Read(all));
        QSaveFile file(path);
        // What closing writes is not looked at: on a full disk half a file would stand there.
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() ||
            !file.flush() || !file.commit()) {
            fault = u"没有写入：无法写 %1，请检查文件夹权限和磁盘空间，或换一个位置。"_s.arg(
                QDir::toNativeSeparators(path));
        }
    });
    return fault;
}

} // namespace host
