// The photo tree of the mark panel, ready to be cut down to what is ticked many times over.
#pragma once

#include "reminder/marks/CompactMarks.h"

#include <string>
#include <vector>

/// What is ticked below one group: everything, or the photos of each mark.
struct GroupSelection {
    bool takeAll = false;
    const std::map<qint32, std::vector<KX_DATA::ShownPicItem>>* marks = nullptr; ///< if not all
};

/// `secondLevel`: display name of the group's id. False: nothing of the group is ticked.
[[nodiscard]] bool SelectGroup(const KX_DATA::ShownPicMarks& selection, const std::string& floor,
                               const QString& secondLevel, GroupSelection& selected);

/// Keeps the groups, and each of them once more in little memory: a few ticked marks are found
/// without touching all the others. Thread: user interface.
class PicMarkTree final {
public:
    void SetGroups(std::vector<KX_DATA::PicMarkGroup> newGroups);
    [[nodiscard]] const std::vector<KX_DATA::PicMarkGroup>& Groups() const { return m_groups; }
    /// The groups for whoever fills them anew; SetGroups must follow.
    [[nodiscard]] std::vector<KX_DATA::PicMarkGroup> TakeGroups();

    /// The part of a group that is ticked; without items if nothing is.
    /// @param group  index into Groups().
    [[nodiscard]] KX_DATA::PicMarkGroup Cut(std::size_t group,
                                            const GroupSelection& selected) const;

private:
    std::vector<KX_DATA::PicMarkGroup> m_groups;
    std::vector<CompactMarks> m_compact; ///< compact.size() == groups.size()
};
