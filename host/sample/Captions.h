// Text on pictures, as site cameras put it there.
#pragma once

#include "host/sample/PictureArtist.h"

namespace host {

/// Draws the caption in place; its size follows the picture's. Empty lines draw nothing.
void DrawCaption(QImage& image, CaptionStyle style, const QStringList& lines);

} // namespace host
