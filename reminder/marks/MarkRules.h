// How the mark panel's trees and lists are put in order.
#pragma once

#include "services/MarkGroups.h"

#include <string>
#include <vector>

/// Makes the group `others` (8-bit text, compared byte by byte) the last one, with a single item:
/// the leaves of all its items in order under the texts of the last. Without items the group goes.
void FoldOthers(std::vector<KX_DATA::PicMarkGroup>& groups, const std::string& others);

/// The service's form of a filter list as the panel takes it: pairs swapped, floors in the order of
/// their numbers (leading digits with sign, 0 without any).
[[nodiscard]] std::vector<KX_DATA::PicFilterEntry>
IssueFilterList(const std::vector<KX_DATA::IssueFilterSource>& sources);
