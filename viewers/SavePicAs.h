// One picture file outside the gallery: saved under a name of the person's choice.
#pragma once

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// Asks for a path, fetches the file into `localPath`, copies it there and offers to show it.
/// @param name  proposed name, may hold a folder; its extension is the dialog's.
/// @return      false only if the download failed, which was shown then; cancelling is no failure.
/// Thread: user interface; blocks it.
bool SavePicAs(const QString& uuid, const QString& name, const QString& localPath);

} // namespace ZelvorNRQ_KXVeskPicture
