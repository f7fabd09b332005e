// The checked photos of a page, copied into one folder.
#pragma once

#include "toolkit/windows/WindowId.h"

#include <QString>

#include <vector>

/// A photo as the downloads know it.
struct DownloadSource {
    QString uuid;
    QString name;      ///< the photo's own
    QString localPath; ///< in the project's cache folder
};

/// One row of the page.
struct BatchRow {
    bool checked = false;
    DownloadSource source;
};

/// Fetches the checked rows in their order and copies each into `folder` under its own name, or
/// with a number where the name is taken, with the client's progress window. A failed download ends
/// all of it with a log line.
/// @param console  the window whose rows they are: the question at the end stands at it, and it
///                 comes to the front when all is done.
/// Thread: user interface; blocks it.
void DownloadRows(const std::vector<BatchRow>& rows, const QString& folder,
                  toolkit::WindowId console);
