// What limits the lists of the mark panel.
#pragma once

#include <QString>

#include <vector>

namespace site {

/// Without a time range all times count.
struct PanelFilter {
    std::vector<qint32> ppids;
    QString person; ///< who uploaded or changed at last; empty: everybody
    bool timed = false;
    qint64 from = 0; ///< both inclusive, seconds since 1970
    qint64 to = 0;

    bool operator==(const PanelFilter&) const = default;
    /// True if it leaves out shown photos of its projects.
    [[nodiscard]] bool HasLimits() const { return timed || !person.isEmpty(); }
};

/// Each project once, in its first place.
[[nodiscard]] std::vector<qint32> DifferentProjects(const PanelFilter& filter);
} // namespace site
