// Which project a line of a setup means.
#pragma once

#include "host/setup/PlanDesk.h"

namespace host {

/// Asks once which projects there are: they are planned.
class PlanProject final {
public:
    explicit PlanProject(PlanDesk& desk);

    /// Empty, and it is told: none, or nobody knows which.
    [[nodiscard]] QString Of(SetupTable table, const SetupRow& row);

private:
    PlanDesk& m_desk;
    QStringList m_names;
    QSet<QString> m_known;
    QString m_only; ///< meant where a line says none; empty: there are several
};

} // namespace host
