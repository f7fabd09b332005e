// The client's own icons: one family of vector drawings, coloured for each state.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QIcon>
#include <QString>

namespace toolkit {

/// An icon by its file's name without ".svg" ("edit", "locate", "preview", "download", "delete",
/// "first", "previous", "next", "last", ...), navy, accent when active, grey when disabled.
/// Null icon for an unknown name.
[[nodiscard]] TOOLKIT_EXPORT QIcon Icon(const QString& name);

} // namespace toolkit
