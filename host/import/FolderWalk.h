// Which files an import looks at.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace host {

/// Calls `take` with every file below the roots, each folder by name and its files before its
/// folders, hidden ones included, so that the caller can say why it passes over them. A root may be
/// a file. Doesn't enter hidden folders, nor folders that are links (they could lead in a circle):
/// those are handed to `take` themselves. `take` answers false to end the walk. Thread: any.
void WalkFolder(const QStringList& roots, const std::function<bool(const QString&)>& take);

} // namespace host
