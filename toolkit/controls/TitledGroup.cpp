#include "toolkit/controls/TitledGroup.h"

#include "toolkit/Look.h"

#include <QPainter>

namespace {

constexpr int kTitleLeft = 8;
constexpr int kTitleGap = 4;
constexpr double kCorner = 3;

} // namespace

void CTitledGroup::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    const QRect place(kTitleLeft, 0, fontMetrics().horizontalAdvance(title()) + 2 * kTitleGap,
                      fontMetrics().height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!title().isEmpty()) {
        painter.setClipRegion(QRegion(rect()) - place);
    }
    painter.setPen(toolkit::Colors::Frame());
    const int middle = place.height() / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, middle + 0.5, -0.5, -0.5), kCorner,
                            kCorner);
    painter.restore();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, title());
}
