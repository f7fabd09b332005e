#include "host/ui/drawing/SheetFlags.h"

#include "toolkit/Look.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kHeadHeight = 20;
constexpr double kTip = 6;
constexpr double kDigit = 7;
constexpr double kLeastWidth = 22;
constexpr double kRound = 4;
constexpr int kPale = 200; ///< lightness from 0 to 255

double WidthOf(const SheetFlag& flag) {
    return std::max(kLeastWidth, 8 + kDigit * double(QString::number(flag.number).size()));
}

/// A plate with its tip below.
QPainterPath ShapeOf(const QRectF& rect) {
    const double middle = rect.center().x();
    const double head = rect.bottom() - kTip;
    QPainterPath plate;
    plate.addRoundedRect(QRectF(rect.topLeft(), QPointF(rect.right(), head)), kRound, kRound);
    QPainterPath tip;
    tip.addPolygon(
        QPolygonF({{middle - 5, head - 0.5}, {middle, rect.bottom()}, {middle + 5, head - 0.5}}));
    tip.closeSubpath();
    return plate.united(tip);
}

} // namespace

QRectF FlagRect(const SheetFlag& flag, const QSizeF& sheet, const SheetView& view,
                const QSizeF& pane) {
    const QPointF place(flag.place.x() * sheet.width(), flag.place.y() * sheet.height());
    const QPointF tip = ToPane(view, pane, place);
    const double width = WidthOf(flag);
    return {tip.x() - width / 2, tip.y() - kHeadHeight - kTip, width, kHeadHeight + kTip};
}

int FlagUnder(const std::vector<SheetFlag>& flags, int page, const QPointF& pixel,
              const QSizeF& sheet, const SheetView& view, const QSizeF& pane) {
    for (int at = int(flags.size()) - 1; at >= 0; --at) {
        const SheetFlag& flag = flags[size_t(at)];
        if (flag.page == page && FlagRect(flag, sheet, view, pane).contains(pixel)) {
            return at;
        }
    }
    return -1;
}

int FlagOfPoint(const std::vector<SheetFlag>& flags, qint32 pointId) {
    const auto found = std::find_if(flags.begin(), flags.end(), [pointId](const SheetFlag& flag) {
        return flag.pointId == pointId;
    });
    return found == flags.end() ? -1 : int(found - flags.begin());
}

int NextFlag(const std::vector<SheetFlag>& flags, int page, int from, int step) {
    std::vector<int> order;
    for (int at = 0; at < int(flags.size()); ++at) {
        if (flags[size_t(at)].page == page) {
            order.push_back(at);
        }
    }
    if (order.empty()) {
        return -1;
    }
    std::stable_sort(order.begin(), order.end(), [&](int one, int other) {
        return flags[size_t(one)].number < flags[size_t(other)].number;
    });
    const auto present = std::find(order.begin(), order.end(), from);
    if (present == order.end()) {
        return step > 0 ? order.front() : order.back();
    }
    const int count = int(order.size());
    return order[size_t((int(present - order.begin()) + step + count) % count)];
}

QString SheetFlagTip(const SheetFlag& flag) {
    const QString photos = flag.photos == 0 ? u"没有照片"_s : u"照片 %1 张"_s.arg(flag.photos);
    return u"检查点%1\n%2\n%3"_s.arg(QString::number(flag.number),
                                     flag.markName.isEmpty() ? u"无标识"_s : flag.markName, photos);
}

void PaintSheetFlag(QPainter& painter, const QRectF& rect, const SheetFlag& flag,
                    const SheetFlagLook& look) {
    const QPainterPath shape = ShapeOf(rect);
    painter.setRenderHint(QPainter::Antialiasing);
    if (look.isLit || look.isChosen || look.isHovered) {
        const QColor ring = look.isLit      ? toolkit::Colors::Accent()
                            : look.isChosen ? toolkit::Colors::TextAccent()
                                            : toolkit::Colors::Hover();
        painter.setPen(QPen(ring, look.isLit ? 7 : 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(shape);
    }
    // A seam sets it off: a white one from the lines below, a dark one from the paper.
    const bool isPale = flag.color.lightness() > kPale;
    painter.setPen(QPen(isPale ? toolkit::Colors::TextAccent() : QColor(Qt::white), 1.5));
    painter.setBrush(flag.color);
    painter.drawPath(shape);
    QFont font = toolkit::UiFont();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(toolkit::TextOn(flag.color));
    painter.drawText(rect.adjusted(0, 0, 0, -kTip), Qt::AlignCenter, QString::number(flag.number));
}

} // namespace host
