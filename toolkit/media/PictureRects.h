// Where a picture goes when it must fit a place, and which part of it is shown when it must fill
// one.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QRect>
#include <QSize>

namespace KXTools {

/// The place of a whole picture inside `parent`: of the picture's proportions, as large as fits
/// (small pictures are enlarged), centred. Each side is at least 11, so that very thin pictures
/// still show once a frame of 5 is taken off. Empty if either size is empty.
[[nodiscard]] TOOLKIT_EXPORT QRect FitRectToParent(const QRect& parent, const QSize& image);

/// The part of the picture, in its pixels, which stretched to the size of `target` fills it without
/// distortion; centred, at least 1 by 1. Empty if either size is empty.
[[nodiscard]] TOOLKIT_EXPORT QRect RectToCoverParent(const QRect& target, const QSize& image);

} // namespace KXTools
