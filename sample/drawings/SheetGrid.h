// Where axes lie on a sheet.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QRectF>

namespace sample {

/// Units of a sheet are tenths of a millimetre, from its upper left corner: A1, landscape.
inline constexpr double kSheetWidth = 8410;
inline constexpr double kSheetHeight = 5940;
/// From one axis to the next: 8,400 mm at 1:100.
inline constexpr double kSheetBay = 840;

/// The axes of a plan, in the middle of its sheet. Column 0 is the leftmost axis, row 0 the lowest.
class SheetGrid final {
public:
    SheetGrid(int columnCount, int rowCount) : m_columns(columnCount), m_rows(rowCount) {}

    [[nodiscard]] int Columns() const { return m_columns; }
    [[nodiscard]] int Rows() const { return m_rows; }
    /// Fractions lie between two axes.
    [[nodiscard]] QPointF At(double column, double row) const {
        const QPointF corner((kSheetWidth - kSheetBay * (m_columns - 1)) / 2,
                             kMiddle + Height() / 2);
        return corner + QPointF(kSheetBay * column, -kSheetBay * row);
    }
    /// From the first to the last axis.
    [[nodiscard]] QRectF Outline() const { return {At(0, m_rows - 1), At(m_columns - 1, 0)}; }
    /// The bay whose lower left corner is the intersection.
    [[nodiscard]] QRectF Bay(int column, int row) const {
        return {At(column, row + 1), At(column + 1, row)};
    }
    /// As checkpoints are placed.
    [[nodiscard]] static QPoint Thousandths(QPointF at) {
        return {qRound(at.x() * 1000 / kSheetWidth), qRound(at.y() * 1000 / kSheetHeight)};
    }

private:
    static constexpr double kMiddle = 2680; ///< above that of the sheet: there is a title below

    [[nodiscard]] double Height() const { return kSheetBay * (m_rows - 1); }

    int m_columns;
    int m_rows;
};

} // namespace sample
