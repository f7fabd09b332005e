#include "site/PanelFilter.h"

#include <algorithm>

namespace site {

std::vector<qint32> DifferentProjects(const PanelFilter& filter) {
    std::vector<qint32> ppids;
    for (const qint32 ppid : filter.ppids) {
        if (std::find(ppids.begin(), ppids.end(), ppid) == ppids.end()) {
            ppids.push_back(ppid);
        }
    }
    return ppids;
}

} // namespace site
