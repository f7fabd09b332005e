// Text on pictures, as site cameras put it there.
#pragma once

#include "sample/PictureArtist.h"

namespace sample {

/// Draws the caption in place; its size follows the picture's. Empty lines draw nothing.
void DrawCaption(QImage& image, CaptionStyle style, const QStringList& lines);

} // namespace sample
