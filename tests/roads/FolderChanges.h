// Changes to a data folder that come from another client, by a connection of its own.
#pragma once

#include "site/Records.h"

#include <QString>

#include <vector>

namespace site {
class DataFolder;
}

namespace roads {

/// What is opened beside the client that uses the folder cleans nothing up. Empty, or the fault.
[[nodiscard]] QString OpenBeside(site::DataFolder& data);

/// Nobody is told of any of these. All throw site::DataError where the data refuses.

[[nodiscard]] site::Projects AllProjects(site::DataFolder& data);
/// Who does it, now.
[[nodiscard]] site::Signature OtherPerson();
/// How many of them went to the bin.
int DeletePhotos(site::DataFolder& data, const std::vector<qint32>& picIds);
/// In the model and on the photos that hang there.
void RenameFloor(site::DataFolder& data, qint32 ppid, const QString& from, const QString& to);
/// While they are away, nothing of photos can be read or written by anybody.
void TakePhotosAway(site::DataFolder& data);
void BringPhotosBack(site::DataFolder& data);

} // namespace roads
