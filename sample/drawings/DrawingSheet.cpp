#include "sample/drawings/DrawingSheet.h"

#include "sample/Lettering.h"
#include "sample/drawings/FloorPlan.h"
#include "sample/drawings/SheetGrid.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <array>
#include <cmath>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMargin = 100;
constexpr double kBubble = 75;

QString RowName(int row) {
    return QString(QChar(u'A' + row));
}

void DrawBubble(QPainter& painter, QPointF at, const QString& text) {
    painter.setPen(QPen(Qt::black, 5));
    painter.drawEllipse(at, kBubble, kBubble);
    painter.drawText(QRectF(at.x() - kBubble, at.y() - kBubble, 2 * kBubble, 2 * kBubble),
                     Qt::AlignCenter, text);
}

/// With a bubble at either end.
void DrawAxis(QPainter& painter, QPointF from, QPointF to, const QString& name) {
    const QPointF along = (to - from) / (std::abs(to.x() - from.x()) + std::abs(to.y() - from.y()));
    painter.setPen(QPen(QColor(200, 40, 40), 3, Qt::DashDotLine));
    painter.drawLine(from, to);
    DrawBubble(painter, from - along * kBubble, name);
    DrawBubble(painter, to + along * kBubble, name);
}

void DrawAxes(QPainter& painter, const SheetGrid& grid) {
    constexpr double kOut = 420;
    painter.setFont(SiteFont(80));
    painter.setBrush(Qt::NoBrush);
    for (int column = 0; column < grid.Columns(); ++column) {
        DrawAxis(painter, grid.At(column, 0) + QPointF(0, kOut),
                 grid.At(column, grid.Rows() - 1) - QPointF(0, kOut - 160),
                 QString::number(column + 1));
    }
    for (int row = 0; row < grid.Rows(); ++row) {
        DrawAxis(painter, grid.At(0, row) - QPointF(kOut, 0),
                 grid.At(grid.Columns() - 1, row) + QPointF(kOut - 160, 0), RowName(row));
    }
}

void DrawDimension(QPainter& painter, QPointF from, QPointF to, int millimetres) {
    const QPointF tick(18, -18);
    painter.drawLine(from, to);
    painter.drawLine(from - tick, from + tick);
    painter.drawLine(to - tick, to + tick);
    painter.save();
    painter.translate((from + to) / 2);
    if (from.x() == to.x()) {
        painter.rotate(-90);
    }
    painter.drawText(QRectF(-300, -62, 600, 56), Qt::AlignCenter, QString::number(millimetres));
    painter.restore();
}

/// Bay by bay, and over all.
void DrawDimensions(QPainter& painter, const SheetGrid& grid) {
    constexpr int kBayMillimetres = 8400;
    painter.setPen(QPen(QColor(30, 110, 60), 3));
    painter.setFont(SiteFont(50));
    const QPointF below(0, 200);
    const QPointF left(-200, 0);
    for (int column = 0; column + 1 < grid.Columns(); ++column) {
        DrawDimension(painter, grid.At(column, 0) + below, grid.At(column + 1, 0) + below,
                      kBayMillimetres);
    }
    for (int row = 0; row + 1 < grid.Rows(); ++row) {
        DrawDimension(painter, grid.At(0, row) + left, grid.At(0, row + 1) + left, kBayMillimetres);
    }
    DrawDimension(painter, grid.At(0, 0) + below * 1.6,
                  grid.At(grid.Columns() - 1, 0) + below * 1.6,
                  kBayMillimetres * (grid.Columns() - 1));
    DrawDimension(painter, grid.At(0, 0) + left * 1.6, grid.At(0, grid.Rows() - 1) + left * 1.6,
                  kBayMillimetres * (grid.Rows() - 1));
}

void DrawTitleBlock(QPainter& painter, const DrawingOrder& order) {
    constexpr double kLine = 95;
    constexpr double kBlockWidth = 1800;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 10));
    painter.drawRect(
        QRectF(kMargin, kMargin, kSheetWidth - 2 * kMargin, kSheetHeight - 2 * kMargin));
    const std::array<QString, 5> lines{u"工程名称  "_s + order.project, u"图名  "_s + order.title,
                                       u"图号  "_s + order.number, u"比例  1:100    图幅  A1"_s,
                                       u"日期  "_s + order.date};
    const QPointF corner(kSheetWidth - kMargin - kBlockWidth,
                         kSheetHeight - kMargin - kLine * static_cast<double>(lines.size()));
    painter.setFont(SiteFont(56));
    for (size_t index = 0; index < lines.size(); ++index) {
        const QRectF cell(corner + QPointF(0, kLine * static_cast<double>(index)),
                          QSizeF(kBlockWidth, kLine));
        painter.setPen(QPen(Qt::black, 4));
        painter.drawRect(cell);
        painter.drawText(cell.adjusted(40, 0, -10, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         lines[index]);
    }
    painter.setFont(SiteFont(130, true));
    painter.drawText(QRectF(kMargin + 300, kSheetHeight - 480, 4000, 200),
                     Qt::AlignLeft | Qt::AlignVCenter, order.title + u"  1:100"_s);
}

/// The writer puts the present time and a random id into the file; fixed values of the same length
/// make equal orders equal files.
void FixTime(QByteArray& pdf) {
    const QByteArray key("/CreationDate (");
    const qsizetype at = pdf.indexOf(key);
    const qsizetype end = at < 0 ? -1 : pdf.indexOf(')', at);
    if (end < 0) {
        return;
    }
    const QByteArray fixed = QByteArray("D:20240101080000Z00'00'0000").left(end - at - key.size());
    pdf.replace(at + key.size(), fixed.size(), fixed);
}

} // namespace

QByteArray MakeDrawing(const DrawingOrder& order) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(order.title);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A1), QPageLayout::Landscape, {}));
        writer.setResolution(254); // ten dots per millimetre
        QPainter painter(&writer);
        const SheetGrid grid(order.columns, order.rows);
        DrawFloorPlan(painter, grid, order);
        DrawAxes(painter, grid);
        DrawDimensions(painter, grid);
        DrawTitleBlock(painter, order);
    }
    FixTime(bytes);
    return bytes;
}

} // namespace sample
