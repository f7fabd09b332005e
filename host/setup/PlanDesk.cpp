#include "host/setup/PlanDesk.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString LineKey(site::SetupList list, const QString& project, const QString& name) {
    return QString::number(int(list)) + u'\x1F' + project + u'\x1F' + name;
}

} // namespace

QString QuotedNames(const QStringList& names) {
    constexpr qsizetype kMost = 12;
    QString text = u'“' + names.first(std::min(names.size(), kMost)).join(u"”、“"_s) + u'”';
    return names.size() > kMost ? text + u" 等 %1 个"_s.arg(names.size()) : text;
}

QString CrossingKey(const QString& floor, const QString& axisX, const QString& axisY) {
    return floor + u'\x1F' + axisX + u'\x1F' + axisY;
}

QString FlagWord(bool isSo) {
    return isSo ? u"是"_s : u"否"_s;
}

PlanDesk::PlanDesk(const SetupTables& said, const site::SetupState& state)
    : tables(said), seen(state) {
    plan.wanted = state;
    plan.faults = said.faults;
    for (const SetupLineFault& fault : said.faults) {
        m_unread.insert({fault.table, fault.line});
    }
}

void PlanDesk::Tell(SetupTable table, int line, const QString& text) {
    const QString& name = FormOf(table).name;
    if (line == 0 || !m_unread.contains({name, line})) {
        plan.faults.push_back({name, line, text});
    }
}

void PlanDesk::Move(SetupTable table, const QString& what, const QStringList& names) {
    plan.changes.push_back({table, SetupStep::Moved, what, {}, QuotedNames(names)});
}

bool PlanDesk::Name(SetupTable table, int line, site::SetupList list, const QString& project,
                    const QString& name) {
    const QString key = LineKey(list, project, name);
    const auto known = m_lines.constFind(key);
    if (known != m_lines.constEnd() && known->table == table) {
        Tell(table, line, u"“%1”与第 %2 行重复"_s.arg(name).arg(known->line));
        return false;
    }
    m_lines.insert(key, {table, line});
    return true;
}

void PlanDesk::Remember(SetupLine line, site::SetupList list, const QString& project,
                        const QString& name) {
    m_lines.insert(LineKey(list, project, name), line);
}

std::optional<SetupLine> PlanDesk::LineOf(site::SetupList list, const QString& project,
                                          const QString& name) const {
    const auto known = m_lines.constFind(LineKey(list, project, name));
    return known == m_lines.constEnd() ? std::nullopt : std::optional(*known);
}

QString PlanDesk::NameOf(SetupTable table, const SetupRow& row, site::SetupList list) {
    const QString& name = row.Cell(column::kName);
    if (name.isEmpty()) {
        Tell(table, row.line, u"%1是空的"_s.arg(FormOf(table).captions[column::kName]));
        return {};
    }
    return Name(table, row.line, list, {}, name) ? name : QString();
}

std::optional<bool> PlanDesk::FlagOf(SetupTable table, const SetupRow& row, int place) {
    const QString& cell = row.Cell(place);
    if (!row.Has(place) || cell.isEmpty()) {
        return std::nullopt;
    }
    if (cell != u"是"_s && cell != u"否"_s) {
        Tell(table, row.line,
             u"“%1”只能是“是”或空，不能是“%2”"_s.arg(FormOf(table).captions[place], cell.left(40)));
    }
    return cell == u"是"_s;
}

void PlanDesk::TakeFlag(SetupTable table, const SetupRow& row, int place, bool isNew, bool& flag) {
    if (!row.Has(place)) {
        return;
    }
    const bool wanted = FlagOf(table, row, place).value_or(false);
    if (!isNew && wanted != flag) {
        Change(table, row.Cell(column::kName),
               FormOf(table).captions[place] + u' ' + FlagWord(flag), FlagWord(wanted));
    }
    flag = wanted;
}

} // namespace host
