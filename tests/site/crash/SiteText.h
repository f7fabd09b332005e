// All that a data folder holds, as text that two folders with the same history have alike.
#pragma once

#include "site/sqlite/DataFolder.h"

#include <QStringList>

namespace crashtest {

/// A line for each row of each table, for what a search finds, and for each file of store and bin.
/// The name that a file was given is told as where it lies and what it holds; rows of one table are
/// in order of their text.
[[nodiscard]] QStringList TextOf(site::DataFolder& folder);

/// What contradicts itself in a folder: rows without their file and files without their row, notes
/// of files on their way, counts that counting doesn't give, what the database says of itself.
[[nodiscard]] QStringList ContradictionsIn(site::DataFolder& folder);

} // namespace crashtest
