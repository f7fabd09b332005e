#include "sample/DrawingSheet.h"

#include "sample/Dice.h"
#include "sample/Lettering.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <array>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

// Tenths of a millimetre on an A3 sheet, 4200 by 2970.
constexpr double kSheetWidth = 4200;
constexpr double kSheetHeight = 2970;
constexpr double kMargin = 100;
constexpr double kSheetBay = 360;
constexpr QPointF kPlanCorner{520, 320};

[[nodiscard]] QPointF Intersection(int column, int row) {
    return kPlanCorner + QPointF(kSheetBay * column, kSheetBay * (kPlanRows - 1 - row));
}

void DrawGrid(QPainter& painter) {
    painter.setFont(SiteFont(60));
    const auto bubble = [&](QPointF at, const QString& text) {
        painter.setPen(QPen(Qt::black, 4));
        painter.drawEllipse(at, 50, 50);
        painter.drawText(QRectF(at.x() - 50, at.y() - 50, 100, 100), Qt::AlignCenter, text);
    };
    const QPen axis(QColor(200, 40, 40), 3, Qt::DashDotLine);
    for (int column = 0; column < kPlanColumns; ++column) {
        const QPointF top = Intersection(column, kPlanRows - 1) - QPointF(0, 170);
        const QPointF bottom = Intersection(column, 0) + QPointF(0, 250);
        painter.setPen(axis);
        painter.drawLine(top, bottom);
        bubble(bottom + QPointF(0, 50), QString::number(column + 1));
    }
    for (int row = 0; row < kPlanRows; ++row) {
        const QPointF left = Intersection(0, row) - QPointF(250, 0);
        const QPointF right = Intersection(kPlanColumns - 1, row) + QPointF(170, 0);
        painter.setPen(axis);
        painter.drawLine(left, right);
        bubble(left - QPointF(50, 0), QString(QChar(u'A' + row)));
    }
}

void DrawDimensions(QPainter& painter) {
    painter.setPen(QPen(QColor(30, 110, 60), 3));
    painter.setFont(SiteFont(36));
    const double y = Intersection(0, 0).y() + 190;
    for (int column = 0; column + 1 < kPlanColumns; ++column) {
        const double x = Intersection(column, 0).x();
        painter.drawLine(QPointF(x, y), QPointF(x + kSheetBay, y));
        painter.drawLine(QPointF(x - 14, y + 14), QPointF(x + 14, y - 14));
        painter.drawText(QRectF(x, y - 50, kSheetBay, 46), Qt::AlignCenter, u"8400"_s);
    }
}

void DrawDoor(QPainter& painter, QPointF hinge) {
    painter.setPen(QPen(QColor(20, 60, 150), 3));
    painter.drawLine(hinge, hinge + QPointF(0, 80));
    painter.drawArc(QRectF(hinge.x() - 80, hinge.y() - 80, 160, 160), 0, -90 * 16);
}

void DrawWalls(QPainter& painter, Dice& dice) {
    const QPointF first = Intersection(0, kPlanRows - 1);
    const QPointF last = Intersection(kPlanColumns - 1, 0);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 22));
    painter.drawRect(QRectF(first, last));
    static constexpr std::array kRooms{u"办公室", u"会议室", u"设备间", u"走廊",
                                       u"卫生间", u"楼梯间", u"配电间", u"库房"};
    painter.setFont(SiteFont(44));
    for (int row = 0; row + 1 < kPlanRows; ++row) {
        for (int column = 0; column + 1 < kPlanColumns; ++column) {
            const QPointF at = Intersection(column, row);
            painter.setPen(QPen(Qt::black, 14));
            if (dice.Chance(0.55F)) {
                painter.drawLine(at, at + QPointF(0, -kSheetBay));
            }
            if (dice.Chance(0.6F)) {
                painter.drawLine(at, at + QPointF(110, 0));
                painter.drawLine(at + QPointF(190, 0), at + QPointF(kSheetBay, 0));
                DrawDoor(painter, at + QPointF(110, 0));
            }
            if (dice.Chance(0.5F)) {
                painter.setPen(QColor(60, 60, 60));
                const auto* room = kRooms[static_cast<size_t>(dice.Pick(kRooms.size()))];
                painter.drawText(QRectF(at.x(), at.y() - kSheetBay, kSheetBay, kSheetBay),
                                 Qt::AlignCenter, QString::fromUtf16(room));
            }
        }
    }
    for (int row = 0; row < kPlanRows; ++row) {
        for (int column = 0; column < kPlanColumns; ++column) {
            const QPointF at = Intersection(column, row);
            painter.fillRect(QRectF(at.x() - 25, at.y() - 25, 50, 50), QColor(40, 40, 40));
        }
    }
}

void DrawTitleBlock(QPainter& painter, const DrawingOrder& order) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 8));
    painter.drawRect(
        QRectF(kMargin, kMargin, kSheetWidth - 2 * kMargin, kSheetHeight - 2 * kMargin));
    const QRectF block(kSheetWidth - kMargin - 1300, kSheetHeight - kMargin - 360, 1300, 360);
    painter.drawRect(block);
    painter.setPen(QPen(Qt::black, 4));
    const std::array<QString, 4> lines{u"工程名称  "_s + order.project, u"图名  "_s + order.title,
                                       u"图号  "_s + order.number + u"    比例 1:100"_s,
                                       u"日期  "_s + order.date};
    painter.setFont(SiteFont(50));
    for (size_t index = 0; index < lines.size(); ++index) {
        const QRectF cell(block.x(), block.y() + 90.0 * static_cast<double>(index), 1300, 90);
        painter.drawRect(cell);
        painter.drawText(cell.adjusted(30, 0, -10, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         lines[index]);
    }
    painter.setFont(SiteFont(90, true));
    painter.drawText(QRectF(kPlanCorner.x(), kSheetHeight - 420, 2000, 150),
                     Qt::AlignLeft | Qt::AlignVCenter, order.title);
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
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A3), QPageLayout::Landscape, {}));
        writer.setResolution(254); // ten dots per millimetre
        QPainter painter(&writer);
        Dice dice(order.seed);
        DrawWalls(painter, dice);
        DrawGrid(painter);
        DrawDimensions(painter);
        DrawTitleBlock(painter, order);
    }
    FixTime(bytes);
    return bytes;
}

} // namespace sample
