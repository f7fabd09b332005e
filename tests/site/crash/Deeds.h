// Changes of a small site, one for each number: the same ones for the same state of the data.
#pragma once

#include "site/sqlite/DataFolder.h"

namespace crashtest {

/// A project with photos, some with a voice note, a checkpoint with photos of its own, issues with
/// pictures and a rectification. The folder must be open and empty.
void FillSite(site::DataFolder& folder);

/// Saves, hides, deletes, restores, purges or files something, as the number says; does nothing
/// where nothing is left to do it with. Throws DataError.
void DoDeed(site::DataFolder& folder, int number);

} // namespace crashtest
