// A plain tree of the mark panel's rows, to compare with.
#pragma once

#include "host/ui/marks/MarkTree.h"

#include <QSize>

namespace bench {

/// Makes a tree widget with the same rows and check boxes in a window of its own and paints it.
/// Milliseconds of all that.
[[nodiscard]] double FillAndPaintBareTree(const host::MarkTree& rows, const QSize& size);

} // namespace bench
