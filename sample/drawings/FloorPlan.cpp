#include "sample/drawings/FloorPlan.h"

#include "sample/Dice.h"
#include "sample/Lettering.h"
#include "sample/drawings/SheetGrid.h"

#include <QPainter>

#include <array>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr double kDoorWidth = 100; ///< 1,000 mm
constexpr double kPillarSize = 60;
constexpr double kTreadDepth = 30;

/// Rooms on both sides of a corridor; what it is drawn with, and what it says.
class FloorArtist final {
public:
    FloorArtist(QPainter& target, const SheetGrid& plan, const DrawingOrder& what)
        : m_painter(target), m_grid(plan), m_order(what), m_dice(what.seed),
          m_corridor((plan.Rows() - 1) / 2) {
        m_painter.setBrush(Qt::NoBrush);
    }

    void Draw() {
        if (m_order.trade == SheetTrade::Structure) {
            DrawBeams();
        } else {
            DrawOuterWall();
            DrawInnerWalls();
            DrawRooms();
        }
        DrawCore();
        DrawColumns();
        if (m_order.trade == SheetTrade::Plumbing) {
            DrawPipes();
        } else if (m_order.trade == SheetTrade::Electrical) {
            DrawLamps();
        }
    }

private:
    void Pen(const QColor& color, double width, Qt::PenStyle style = Qt::SolidLine) {
        m_painter.setPen(QPen(color, width, style, Qt::FlatCap));
    }
    /// On the plans of trades the building stands behind.
    [[nodiscard]] QColor Ink() const {
        return m_order.trade == SheetTrade::Building ? QColor(Qt::black) : QColor(150, 150, 150);
    }

    /// Along an edge of the outline, a window in each bay.
    void DrawOuterEdge(QPointF from, QPointF bay, QPointF depth, int bays) {
        for (int at = 0; at < bays; ++at) {
            const QPointF begin = from + bay * at;
            const QPointF left = begin + bay * 0.25;
            const QPointF right = begin + bay * 0.75;
            Pen(Ink(), 24);
            m_painter.drawLine(begin, left);
            m_painter.drawLine(right, begin + bay);
            Pen(Ink(), 3);
            for (const double line : {-1.0, 0.0, 1.0}) {
                m_painter.drawLine(left + depth * line, right + depth * line);
            }
        }
    }

    void DrawOuterWall() {
        const QRectF outline = m_grid.Outline();
        const QPointF right(kSheetBay, 0);
        const QPointF down(0, kSheetBay);
        DrawOuterEdge(outline.topLeft(), right, {0, 11}, m_grid.Columns() - 1);
        DrawOuterEdge(outline.bottomLeft(), right, {0, 11}, m_grid.Columns() - 1);
        DrawOuterEdge(outline.topLeft(), down, {11, 0}, m_grid.Rows() - 1);
        DrawOuterEdge(outline.topRight(), down, {11, 0}, m_grid.Rows() - 1);
    }

    /// A wall with a door between two intersections of a row; `side` 1: opens downwards, -1: up.
    void DrawWallWithDoor(QPointF from, double side) {
        const QPointF hinge = from + QPointF(220, 0);
        Pen(Ink(), 14);
        m_painter.drawLine(from, hinge);
        m_painter.drawLine(hinge + QPointF(kDoorWidth, 0), from + QPointF(kSheetBay, 0));
        Pen(QColor(20, 60, 150), 3);
        m_painter.drawLine(hinge, hinge + QPointF(0, side * kDoorWidth));
        m_painter.drawArc(
            QRectF(hinge - QPointF(kDoorWidth, kDoorWidth), QSizeF(2 * kDoorWidth, 2 * kDoorWidth)),
            0, side > 0 ? -90 * 16 : 90 * 16);
    }

    void DrawInnerWalls() {
        for (int row = 0; row + 1 < m_grid.Rows(); ++row) {
            for (int column = 0; column + 1 < m_grid.Columns(); ++column) {
                if (row > 0) {
                    DrawWallWithDoor(m_grid.At(column, row), row > m_corridor ? -1 : 1);
                }
                if (column > 0 && row != m_corridor && m_dice.Chance(0.75F)) {
                    Pen(Ink(), 14);
                    m_painter.drawLine(m_grid.At(column, row), m_grid.At(column, row + 1));
                }
            }
        }
    }

    void DrawRooms() {
        static constexpr std::array kRooms{u"办公室", u"会议室", u"设备间", u"资料室",
                                           u"卫生间", u"休息室", u"配电间", u"库房"};
        int number = 100;
        for (int row = 0; row + 1 < m_grid.Rows(); ++row) {
            for (int column = 0; column + 1 < m_grid.Columns(); ++column) {
                const QRectF bay = m_grid.Bay(column, row);
                ++number;
                QString name = u"走廊"_s;
                if (row != m_corridor) {
                    const auto* room = kRooms[static_cast<size_t>(m_dice.Pick(kRooms.size()))];
                    name = QString::fromUtf16(room) + u'\n' + QString::number(number);
                } else if (IsCore(column, row)) {
                    continue;
                }
                m_painter.setPen(QColor(70, 70, 70));
                m_painter.setFont(SiteFont(52));
                m_painter.drawText(bay, Qt::AlignCenter, name);
            }
        }
    }

    /// Bays of the corridor with stairs and lifts.
    [[nodiscard]] bool IsCore(int column, int row) const {
        return row == m_corridor &&
               (column == 0 || column == m_grid.Columns() - 2 || column == m_grid.Columns() / 2);
    }

    void DrawStairs(const QRectF& bay) {
        Pen(Ink(), 4);
        const QRectF stairs = bay.adjusted(120, 200, -120, -200);
        m_painter.drawRect(stairs);
        for (double x = stairs.left() + kTreadDepth; x < stairs.right(); x += kTreadDepth) {
            m_painter.drawLine(QPointF(x, stairs.top()), QPointF(x, stairs.bottom()));
        }
        m_painter.drawLine(QPointF(stairs.left(), stairs.center().y()),
                           QPointF(stairs.right(), stairs.center().y()));
    }

    void DrawLift(const QRectF& bay) {
        Pen(Ink(), 14);
        const QRectF shaft(bay.center() - QPointF(250, 120), QSizeF(240, 240));
        for (const double offset : {0.0, 260.0}) {
            const QRectF each = shaft.translated(offset, 0);
            m_painter.drawRect(each);
            m_painter.drawLine(each.topLeft(), each.bottomRight());
            m_painter.drawLine(each.topRight(), each.bottomLeft());
        }
    }

    void DrawCore() {
        DrawStairs(m_grid.Bay(0, m_corridor));
        DrawStairs(m_grid.Bay(m_grid.Columns() - 2, m_corridor));
        DrawLift(m_grid.Bay(m_grid.Columns() / 2, m_corridor));
    }

    void DrawColumns() {
        for (int row = 0; row < m_grid.Rows(); ++row) {
            for (int column = 0; column < m_grid.Columns(); ++column) {
                const QPointF at =
                    m_grid.At(column, row) - QPointF(kPillarSize / 2, kPillarSize / 2);
                m_painter.fillRect(QRectF(at, QSizeF(kPillarSize, kPillarSize)),
                                   QColor(40, 40, 40));
            }
        }
    }

    /// Along every axis, with the name of the beam, and slabs by their thickness.
    void DrawBeams() {
        m_painter.setFont(SiteFont(40));
        for (int row = 0; row < m_grid.Rows(); ++row) {
            for (int column = 0; column < m_grid.Columns(); ++column) {
                const QPointF at = m_grid.At(column, row);
                Pen(Qt::black, 4, Qt::DashLine);
                for (const double side : {-15.0, 15.0}) {
                    if (column + 1 < m_grid.Columns()) {
                        m_painter.drawLine(at + QPointF(0, side), at + QPointF(kSheetBay, side));
                    }
                    if (row + 1 < m_grid.Rows()) {
                        m_painter.drawLine(at + QPointF(side, 0), at + QPointF(side, -kSheetBay));
                    }
                }
                if (column + 1 < m_grid.Columns()) {
                    m_painter.drawText(at + QPointF(240, -30),
                                       u"KL-%1 300×650"_s.arg(1 + m_dice.Pick(12)));
                }
                if (column + 1 < m_grid.Columns() && row + 1 < m_grid.Rows() &&
                    !IsCore(column, row)) {
                    m_painter.drawText(m_grid.Bay(column, row), Qt::AlignCenter,
                                       m_dice.Chance(0.7F) ? u"h=120"_s : u"h=150"_s);
                }
            }
        }
    }

    /// A main along the corridor, and a branch with a fixture into every other room.
    void DrawPipes() {
        const QColor blue(20, 90, 200);
        const double y = m_grid.Bay(0, m_corridor).center().y() + 250;
        Pen(blue, 12);
        m_painter.drawLine(QPointF(m_grid.Outline().left() + 80, y),
                           QPointF(m_grid.Outline().right() - 80, y));
        for (int column = 0; column + 1 < m_grid.Columns(); ++column) {
            for (const int row : {m_corridor - 1, m_corridor + 1}) {
                if (row < 0 || row + 1 >= m_grid.Rows() || m_dice.Chance(0.4F)) {
                    continue;
                }
                const QPointF end = m_grid.Bay(column, row).center() + QPointF(160, 120);
                Pen(blue, 8);
                m_painter.drawLine(QPointF(end.x(), y), end);
                m_painter.drawEllipse(end, 30, 30);
                m_painter.setFont(SiteFont(36));
                m_painter.drawText(end + QPointF(50, 12), u"DN50"_s);
            }
        }
    }

    /// Two lamps a room on one line, which ends at the panel in the corridor.
    void DrawLamps() {
        const QColor red(200, 40, 40);
        for (int column = 0; column + 1 < m_grid.Columns(); ++column) {
            for (int row = 0; row + 1 < m_grid.Rows(); ++row) {
                if (IsCore(column, row)) {
                    continue;
                }
                const QPointF middle = m_grid.Bay(column, row).center() - QPointF(0, 150);
                Pen(red, 5);
                m_painter.drawLine(middle - QPointF(200, 0), middle + QPointF(200, 0));
                for (const double side : {-200.0, 200.0}) {
                    const QPointF lamp = middle + QPointF(side, 0);
                    m_painter.drawEllipse(lamp, 34, 34);
                    m_painter.drawLine(lamp - QPointF(24, 24), lamp + QPointF(24, 24));
                    m_painter.drawLine(lamp - QPointF(24, -24), lamp + QPointF(24, -24));
                }
            }
            const double x = m_grid.Bay(column, 0).center().x();
            Pen(red, 4, Qt::DashLine);
            m_painter.drawLine(
                QPointF(x, m_grid.Bay(column, 0).center().y() - 150),
                QPointF(x, m_grid.Bay(column, m_grid.Rows() - 2).center().y() - 150));
        }
    }

    QPainter& m_painter;
    const SheetGrid& m_grid;
    const DrawingOrder& m_order;
    Dice m_dice;
    int m_corridor; ///< row of bays
};

} // namespace

void DrawFloorPlan(QPainter& painter, const SheetGrid& grid, const DrawingOrder& order) {
    FloorArtist(painter, grid, order).Draw();
}

} // namespace sample
