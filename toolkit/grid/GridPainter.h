// Paints the rows of a grid.
#pragma once

#include "toolkit/grid/GridTextCache.h"
#include "toolkit/grid/GridView.h"

#include <QRect>
#include <QString>

#include <vector>

class CCheckBoxItem;
class CColorTxtItem;
class CIconGridItem;
class QPainter;

namespace toolkit {

/// Where a visible column lies in the view.
struct GridColumnPlace {
    int column = 0;
    int left = 0;
    int width = 0;
    Qt::Alignment align;
};

/// What the pointer and the keyboard are at.
struct GridPaintState {
    GridCell hover;
    GridCell pressed;
    GridCell focus; ///< none without the keyboard
    int selectedRow = -1;
};

/// Distance of a cell's text from its sides, device-independent pixels.
inline constexpr int kGridCellPadding = 4;

/// Paints rows over their whole width: background, cells, lines. One object per paint event.
class GridPainter final {
public:
    GridPainter(QPainter& painter, const QWidget& view, GridTextCache& texts,
                std::vector<GridColumnPlace> columns, const GridPaintState& state);

    void PaintRow(const CGridRow& row, const QRect& area);
    /// For a view that has the keyboard but no current row.
    void PaintFocusFrame(const QRect& area);
    void PaintEmptyText(const QRect& area, const QString& text);

private:
    void PaintCell(const CGridItem& item, const QRect& cell, const GridColumnPlace& place, int row);
    void PaintText(const QString& text, const QRect& area, Qt::Alignment align);
    void PaintCheckBox(const CGridItem& item, const QRect& cell);
    void PaintIcon(const CIconGridItem& item, const QRect& cell, const GridCell& place);
    void PaintColorText(const CColorTxtItem& item, const QRect& cell, Qt::Alignment align);

    QPainter& m_painter;
    const QWidget& m_view;
    GridTextCache& m_texts;
    int m_lineHeight;
    std::vector<GridColumnPlace> m_columns;
    GridPaintState m_state;
};

/// Width of a colour item's swatch with the gap behind it, device-independent pixels.
[[nodiscard]] int GridSwatchWidth();

} // namespace toolkit
