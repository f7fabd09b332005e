// What a painter writes, read back as text.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

#include <functional>
#include <vector>

namespace support {

struct PaintedText {
    QString text;
    QColor colour;
    QFont font;
    QPointF place; ///< left end of its base line
};

/// Runs `paint` on a surface that keeps texts and nothing else; they come in the order in which
/// they were drawn.
[[nodiscard]] std::vector<PaintedText> TextsOf(const std::function<void(QPainter&)>& paint);

} // namespace support
