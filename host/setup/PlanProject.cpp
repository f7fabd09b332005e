#include "host/setup/PlanProject.h"

namespace host {

using namespace Qt::StringLiterals;

PlanProject::PlanProject(PlanDesk& desk) : m_desk(desk) {
    for (const site::SetupProject& project : desk.plan.wanted.projects) {
        m_names << project.name;
        m_known.insert(project.name);
    }
    m_only = desk.tables.project;
    if (m_only.isEmpty() && m_names.size() == 1) {
        m_only = m_names.front();
    }
}

QString PlanProject::Of(SetupTable table, const SetupRow& row) {
    const QString& said = row.Cell(column::kProject);
    const QString name = said.isEmpty() ? m_only : said;
    if (name.isEmpty()) {
        m_desk.Tell(table, row.line,
                    m_names.isEmpty() ? u"还没有工程"_s
                                      : u"有 %1 个工程，请写明是哪一个"_s.arg(m_names.size()));
    } else if (!m_known.contains(name)) {
        m_desk.Tell(table, row.line,
                    m_names.isEmpty()
                        ? u"没有工程“%1”"_s.arg(name.left(40))
                        : u"没有工程“%1”，现有%2"_s.arg(name.left(40), QuotedNames(m_names)));
        return {};
    }
    return name;
}

} // namespace host
