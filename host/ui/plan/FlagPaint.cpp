#include "host/ui/plan/FlagPaint.h"

#include "toolkit/Look.h"

#include <QFontMetricsF>
#include <QPainter>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kRadius = 2.5;
constexpr double kTextEdge = 4;
constexpr double kTextGap = 3;
constexpr double kIssueBadge = 10;
constexpr double kRightEdge = 3;

/// From the flag's edge to its name.
double LeftEdge(const MarkFlag& flag) {
    return flag.kind == MarkKind::Issues ? kIssueBadge + 3 : kTextEdge;
}

QString FlagCountText(qint32 count) {
    return count > 9999 ? u"9999+"_s : QString::number(count);
}

void PaintBadge(QPainter& painter, const QRectF& rect) {
    QRectF badge(rect.left() + 2, 0, kIssueBadge, kIssueBadge);
    badge.moveTop(rect.center().y() - kIssueBadge / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(badge);
    QFont font = toolkit::UiFont(9);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(toolkit::Colors::ErrorText());
    painter.drawText(badge, Qt::AlignCenter, u"!"_s);
}

/// Count to the right, the name before it, and on the shelf the place behind the name.
void PaintFlagTexts(QPainter& painter, QRectF text, const PlacedFlag& placed) {
    const QFont font = toolkit::UiFont();
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    const QString count = FlagCountText(placed.flag.count);
    painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, count);
    text.setRight(text.right() - metrics.horizontalAdvance(count) - kTextGap);
    QString name = FlagName(placed.flag);
    if (placed.place == kShelf && !placed.flag.placeText.isEmpty()) {
        name += u"  "_s + placed.flag.placeText;
    }
    // Where there isn't room for a character and the dots, the character says more.
    const QString elided = metrics.elidedText(name, Qt::ElideRight, text.width());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     elided.size() > 1 || name.size() < 2 ? elided : name.left(1));
}

void PaintFlag(QPainter& painter, const QRectF& rect, const PlacedFlag& placed) {
    const QColor color = toolkit::ColorFromBgr(placed.flag.color);
    painter.setPen(QPen(color.darker(135), 1));
    painter.setBrush(color);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    if (placed.flag.kind == MarkKind::Issues) {
        PaintBadge(painter, rect);
    }
    painter.setPen(toolkit::TextOn(color));
    PaintFlagTexts(painter, rect.adjusted(LeftEdge(placed.flag), 0, -kRightEdge, 0), placed);
}

void PaintRest(QPainter& painter, const FlagBox& box) {
    painter.setPen(QPen(toolkit::Colors::TextAccent(), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(box.rect.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.setFont(toolkit::UiFont());
    painter.setPen(toolkit::Colors::TextAccent());
    painter.drawText(box.rect, Qt::AlignCenter, u"+%1"_s.arg(box.rest.size()));
}

void PaintFlagRing(QPainter& painter, const QRectF& rect, const QColor& color, double width) {
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const double out = width / 2;
    painter.drawRoundedRect(rect.adjusted(-out, -out, out, out), kRadius + out, kRadius + out);
}

} // namespace

double FlagWidth(const PlacedFlag& flag) {
    const QFontMetricsF metrics(toolkit::UiFont());
    return LeftEdge(flag.flag) + metrics.horizontalAdvance(FlagName(flag.flag)) + kTextGap +
           metrics.horizontalAdvance(FlagCountText(flag.flag.count)) + kRightEdge;
}

void PaintFlagPoles(QPainter& painter, const FlagScene& scene) {
    painter.setPen(QPen(toolkit::Colors::TextAccent(), 1.5));
    for (const QLineF& stub : scene.layout.stubs) {
        painter.drawLine(stub);
    }
    painter.setPen(QPen(toolkit::Colors::TextAccent(), 2, Qt::SolidLine, Qt::FlatCap));
    for (const QLineF& pole : scene.layout.poles) {
        painter.drawLine(pole);
    }
}

void PaintFlags(QPainter& painter, const FlagScene& scene) {
    for (int at = 0; at < int(scene.layout.boxes.size()); ++at) {
        const FlagBox& box = scene.layout.boxes[at];
        if (!box.rect.intersects(scene.visible)) {
            continue;
        }
        if (box.flag >= 0) {
            PaintFlag(painter, box.rect, scene.flags[box.flag]);
        } else {
            PaintRest(painter, box);
        }
    }
    // Behind all flags, or the neighbours would cover half of the ring.
    if (scene.hoveredBox >= 0) {
        PaintFlagRing(painter, scene.layout.boxes[scene.hoveredBox].rect, toolkit::Colors::Hover(),
                      2);
    }
    if (scene.litBox >= 0) {
        PaintFlagRing(painter, scene.layout.boxes[scene.litBox].rect, toolkit::Colors::Accent(), 4);
    }
}

} // namespace host
