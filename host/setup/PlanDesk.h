// What those who plan the parts of a setup share.
#pragma once

#include "host/setup/SetupPlan.h"

#include <optional>

namespace host {

/// Where an entry of the wanted state was named.
struct SetupLine {
    SetupTable table = SetupTable::Project;
    int line = 0;
};

/// Holds the plan that is being made. Thread: any, one at a time.
class PlanDesk final {
public:
    PlanDesk(const SetupTables& said, const site::SetupState& state);

    /// Not of a line of which a reader has told something: a cell that it left out isn't empty.
    void Tell(SetupTable table, int line, const QString& text);
    void Add(SetupTable table, const QString& what, const QString& after = {}) {
        plan.changes.push_back({table, SetupStep::New, what, {}, after});
    }
    void Change(SetupTable table, const QString& what, const QString& before,
                const QString& after) {
        plan.changes.push_back({table, SetupStep::Changed, what, before, after});
    }
    void Move(SetupTable table, const QString& what, const QStringList& names);

    /// Remembers where an entry was named, for the faults of the site's rules. False, and it is
    /// told: it was named before.
    bool Name(SetupTable table, int line, site::SetupList list, const QString& project,
              const QString& name);
    /// The same where there is no matter in naming it twice.
    void Remember(SetupLine line, site::SetupList list, const QString& project,
                  const QString& name);
    /// Nothing: in none of the tables.
    [[nodiscard]] std::optional<SetupLine> LineOf(site::SetupList list, const QString& project,
                                                  const QString& name) const;
    /// The name in a row's first column; empty, and it is told: there is none, or it was before.
    QString NameOf(SetupTable table, const SetupRow& row, site::SetupList list);
    /// What a cell says of yes and no, nothing for an empty or an absent one; others are told.
    std::optional<bool> FlagOf(SetupTable table, const SetupRow& row, int place);
    /// Takes a flag of an entry; an empty cell of a column that the table has means no.
    void TakeFlag(SetupTable table, const SetupRow& row, int place, bool isNew, bool& flag);

    const SetupTables& tables;
    const site::SetupState& seen;
    SetupPlan plan;

private:
    QHash<QString, SetupLine> m_lines;
    QSet<std::pair<QString, int>> m_unread; ///< lines of which a reader has told something
};

/// What a crossing is called where lines are remembered.
[[nodiscard]] QString CrossingKey(const QString& floor, const QString& axisX, const QString& axisY);
/// "是" or "否".
[[nodiscard]] QString FlagWord(bool isSo);
/// "“甲”、“乙”", of many the first ones.
[[nodiscard]] QString QuotedNames(const QStringList& names);

} // namespace host
