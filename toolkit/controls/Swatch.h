// The small field of colour before a name.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QColor>
#include <QIcon>
#include <QSize>

class QPainter;
class QRect;

namespace toolkit {

/// Device-independent pixels.
[[nodiscard]] QSize SwatchSize();
/// Framed, so that a light colour shows on white too.
void PaintSwatch(QPainter& painter, const QRect& area, const QColor& color);
/// The same as an icon, sharp at every scale.
[[nodiscard]] TOOLKIT_EXPORT QIcon SwatchIcon(const QColor& color);

} // namespace toolkit
