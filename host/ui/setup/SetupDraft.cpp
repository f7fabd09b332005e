#include "host/ui/setup/SetupDraft.h"

#include <algorithm>

namespace host {

void SetupDraft::Begin(const site::SetupState& state) {
    m_seen = state;
    m_wanted = state;
    emit Begun();
    emit Changed();
}

const site::SetupGrid* SetupDraft::GridOf(const QString& project) const {
    const auto found =
        std::find_if(m_wanted.grids.begin(), m_wanted.grids.end(),
                     [&](const site::SetupGrid& grid) { return grid.project == project; });
    return found == m_wanted.grids.end() ? nullptr : &*found;
}

void SetupDraft::AddGrid(const site::SetupGrid& grid, const QString& name) {
    if (GridOf(name) == nullptr) {
        m_seen.grids.push_back(grid);
        m_wanted.grids.push_back(grid);
        m_wanted.grids.back().project = name;
    }
}

std::vector<site::SetupList> SetupDraft::Rebase(const site::SetupState& now) {
    std::vector<site::SetupList> lost;
    site::SetupState wanted = now;
    const auto keep = [&](site::SetupList list, auto member) {
        if (m_seen.*member == m_wanted.*member) {
            return;
        }
        if (m_seen.*member == now.*member) {
            wanted.*member = m_wanted.*member;
        } else {
            lost.push_back(list);
        }
    };
    keep(site::SetupList::Project, &site::SetupState::projects);
    keep(site::SetupList::Workset, &site::SetupState::worksets);
    keep(site::SetupList::Person, &site::SetupState::people);
    keep(site::SetupList::Mark, &site::SetupState::marks);
    keep(site::SetupList::Label, &site::SetupState::labels);
    // Names of projects may be others in the two: grids go by them.
    const bool sameProjects = m_seen.projects == now.projects;
    if (sameProjects && m_seen.grids == now.grids) {
        wanted.grids = m_wanted.grids;
    } else if (m_seen.grids != m_wanted.grids) {
        lost.push_back(site::SetupList::Floor);
    }
    m_seen = now;
    m_wanted = std::move(wanted);
    emit Begun();
    emit Changed();
    return lost;
}

void SetupDraft::Take(site::SetupState wanted) {
    m_wanted = std::move(wanted);
    emit Begun();
    emit Changed();
}

void SetupDraft::RenameProject(int row, const QString& name) {
    site::SetupProject& project = m_wanted.projects[std::size_t(row)];
    const QString before = project.name;
    project.name = name;
    for (site::SetupWorkset& workset : m_wanted.worksets) {
        std::replace(workset.projects.begin(), workset.projects.end(), before, name);
    }
    for (site::SetupGrid& grid : m_wanted.grids) {
        if (grid.project == before) {
            grid.project = name;
        }
    }
    emit Changed();
}

void SetupDraft::RenameFloor(const QString& project, int row, const QString& name) {
    for (site::SetupGrid& grid : m_wanted.grids) {
        if (grid.project == project) {
            const QString before = grid.floors[std::size_t(row)].name;
            grid.floors[std::size_t(row)].name = name;
            for (site::SetupCrossing& crossing : grid.crossings) {
                if (crossing.floor == before) {
                    crossing.floor = name;
                }
            }
        }
    }
    emit Changed();
}

} // namespace host
