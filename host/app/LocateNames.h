// What the status bar says of a lookup: names, since a person knows no ids.
#pragma once

#include "host/ui/LocateText.h"

namespace host {

class HostSession;

/// "定位照片 a.jpg：-1层，标识 质量"; says so where photo or mark are gone. A fault of the data is
/// told in the message bar. Thread: user interface.
[[nodiscard]] QString PhotoLocatedText(HostSession& session, const LocateTarget& target);
/// "定位图纸 一层平面图 的检查点 1".
[[nodiscard]] QString CheckpointLocatedText(HostSession& session, qint32 checkpointId);

} // namespace host
