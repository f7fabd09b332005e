// What a setup file would change, and what of it can't be taken.
#pragma once

#include "host/setup/SetupTables.h"
#include "site/SetupState.h"

#include <QHash>
#include <QSet>

namespace host {

enum class SetupStep {
    New,
    Changed,
    Moved, ///< the order of a list
};

/// One change, for a person.
struct SetupChange {
    SetupTable table = SetupTable::Project;
    SetupStep step = SetupStep::New;
    QString what;   ///< the name; of floors and crossings with their project
    QString before; ///< empty for what is new
    QString after;

    bool operator==(const SetupChange&) const = default;
};
/// "新增楼层“一期 3F”", "标识“裂缝”：颜色 #FF0000 改为 #00FF00".
[[nodiscard]] QString TextOf(const SetupChange& change);

/// In which a list of the site is written.
[[nodiscard]] SetupTable TableOf(site::SetupList list);

/// A drawing that isn't there yet.
struct WantedDrawing {
    QString project;
    QString file; ///< as the table has it, with / between its folders
    QString name;
    int line = 0;
};

struct SetupPlan {
    site::SetupState wanted; ///< as `seen` where nothing changes
    std::vector<WantedDrawing> drawings;
    std::vector<SetupChange> changes; ///< in the order of the tables
    std::vector<SetupLineFault> faults;

    /// With a fault nothing of it may be taken.
    [[nodiscard]] bool IsGood() const { return faults.empty(); }
};

/// Names of the drawings that a project has, by its name.
using KnownDrawings = QHash<QString, QSet<QString>>;

/// Adds what the tables name and there isn't yet, and changes what they say otherwise; what they
/// don't name stays. All faults are found, those of the site's rules too. Asks nobody and changes
/// nothing. Thread: any.
///
/// @param seen      with the grids of all projects that it has; may be a draft that isn't saved.
/// @param drawings  these aren't wanted again.
[[nodiscard]] SetupPlan PlanSetup(const SetupTables& tables, const site::SetupState& seen,
                                  const KnownDrawings& drawings = {});

} // namespace host
