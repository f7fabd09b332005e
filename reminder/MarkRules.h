// How the mark panel's trees are put in order and cut down to what the user has ticked.
#pragma once

#include "services/MarkGroups.h"

#include <map>
#include <string>
#include <vector>

/// Makes the group `others` (8-bit text, compared byte by byte) the last one, with a single item:
/// the leaves of all its items in order under the texts of the last. Without items the group goes.
void FoldOthers(std::vector<KX_DATA::PicMarkGroup>& groups, const std::string& others);

/// The service's form of a filter list as the panel takes it: pairs swapped, floors in the order of
/// their numbers (leading digits with sign, 0 without any).
[[nodiscard]] std::vector<KX_DATA::PicFilterEntry>
IssueFilterList(const std::vector<KX_DATA::IssueFilterSource>& sources);

/// Name of each entry of all groups by its key; the last one wins.
[[nodiscard]] std::map<QString, QString>
IssueNames(const std::vector<KX_DATA::IssueMarkGroup>& groups);

/// What is ticked below one group: everything, or the photos of each mark.
struct GroupSelection {
    bool takeAll = false;
    const std::map<qint32, std::vector<KX_DATA::ShownPicItem>>* marks = nullptr; ///< if not all
};

/// `secondLevel`: display name of the group's id. False: nothing of the group is ticked.
[[nodiscard]] bool SelectGroup(const KX_DATA::ShownPicMarks& selection, const std::string& floor,
                               const QString& secondLevel, GroupSelection& selected);

/// The part of a group that is ticked; without items if nothing is.
[[nodiscard]] KX_DATA::PicMarkGroup CutGroup(const KX_DATA::PicMarkGroup& group,
                                             const GroupSelection& selected);

/// For each ticked key, in key order, the first entry that has it, alone in a copy of its group.
[[nodiscard]] std::vector<KX_DATA::IssueMarkGroup>
CutIssueGroups(const std::vector<KX_DATA::IssueMarkGroup>& groups,
               const KX_DATA::ShownIssueMarks& selection);
