// The checkpoints of a drawing as flags on its sheets.
#pragma once

#include "host/ui/drawing/SheetView.h"

#include <QColor>
#include <QString>

#include <vector>

class QPainter;

namespace host {

/// One checkpoint.
struct SheetFlag {
    qint32 pointId = 0;
    qint32 number = 0;
    int page = 0;  ///< from 0
    QPointF place; ///< of the sheet's width and height, 0 to 1
    QString markName;
    QColor color;
    int photos = 0; ///< that are shown

    bool operator==(const SheetFlag&) const = default;
};

/// Where a flag is drawn: its tip stands on the place.
[[nodiscard]] QRectF FlagRect(const SheetFlag& flag, const QSizeF& sheet, const SheetView& view,
                              const QSizeF& pane);
/// Index of the flag of a page under a pixel, the one that is drawn last; -1: none.
[[nodiscard]] int FlagUnder(const std::vector<SheetFlag>& flags, int page, const QPointF& pixel,
                            const QSizeF& sheet, const SheetView& view, const QSizeF& pane);
/// Index of the flag with this checkpoint; -1: none.
[[nodiscard]] int FlagOfPoint(const std::vector<SheetFlag>& flags, qint32 pointId);
/// The next flag of a page in the order of numbers, round at the end; `from` -1: the first.
[[nodiscard]] int NextFlag(const std::vector<SheetFlag>& flags, int page, int from, int step);
/// What a flag says when the mouse rests on it.
[[nodiscard]] QString SheetFlagTip(const SheetFlag& flag);

struct SheetFlagLook {
    bool isHovered = false;
    bool isChosen = false;
    bool isLit = false; ///< blinks
};
void PaintSheetFlag(QPainter& painter, const QRectF& rect, const SheetFlag& flag,
                    const SheetFlagLook& look);

} // namespace host
