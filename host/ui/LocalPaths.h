// What a person drops on a window as files and folders.
#pragma once

#include <QStringList>

class QDropEvent;
class QMimeData;

namespace host {

/// Paths on this machine.
[[nodiscard]] QStringList LocalPaths(const QMimeData* data);
/// There are such paths, and no dialog waits for an answer.
[[nodiscard]] bool MayDrop(const QDropEvent& event);

} // namespace host
