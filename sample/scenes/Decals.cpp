#include "sample/scenes/Decals.h"

#include "sample/Lettering.h"

#include <QPainter>
#include <QPainterPath>

#include <numbers>

namespace sample {

namespace {

[[nodiscard]] QImage Blank(QSize size) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

void DrawCrackArm(QPainter& painter, QPointF at, double angle, double length, double width,
                  Dice& dice) {
    const int steps = 40;
    for (int step = 0; step < steps && width > 0.4; ++step) {
        angle += static_cast<double>(dice.Between(-0.45F, 0.45F));
        angle += (std::numbers::pi / 2 - angle) * 0.12;
        const double part = length / steps * static_cast<double>(dice.Between(0.5F, 1.5F));
        const QPointF next = at + QPointF(std::cos(angle), std::sin(angle)) * part;
        painter.setPen(QPen(QColor(28, 25, 22, 225),
                            width * static_cast<double>(dice.Between(0.6F, 1.3F)), Qt::SolidLine,
                            Qt::RoundCap));
        painter.drawLine(at, next);
        if (dice.Chance(0.09F)) {
            DrawCrackArm(painter, next, angle + (dice.Chance(0.5F) ? 0.8 : -0.8), length * 0.35,
                         width * 0.55, dice);
        }
        at = next;
        width *= 0.99;
    }
}

[[nodiscard]] QPainterPath Blob(QPointF centre, double radius, double ragged, Dice& dice) {
    QPainterPath path;
    constexpr int kCorners = 28;
    for (int corner = 0; corner < kCorners; ++corner) {
        const double angle = 2 * std::numbers::pi * corner / kCorners;
        const double r = radius * (1 + ragged * static_cast<double>(dice.Between(-1, 1)));
        const QPointF at = centre + QPointF(std::cos(angle), std::sin(angle)) * r;
        if (corner == 0) {
            path.moveTo(at);
        } else {
            path.lineTo(at);
        }
    }
    path.closeSubpath();
    return path;
}

} // namespace

QImage DrawCrack(QSize size, Dice& dice) {
    QImage image = Blank(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double x = size.width() * static_cast<double>(dice.Between(0.3F, 0.7F));
    DrawCrackArm(painter, {x, size.height() * 0.04}, 1.4, size.height() * 0.95,
                 size.width() / 170.0, dice);
    return image;
}

QImage DrawLeak(QSize size, Dice& dice) {
    QImage image = Blank(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double unit = size.width();
    for (int layer = 0; layer < 26; ++layer) {
        const QPointF at{unit * static_cast<double>(dice.Between(0.2F, 0.8F)),
                         size.height() * static_cast<double>(dice.Between(0.05F, 0.35F))};
        painter.setBrush(QColor(70, 58, 40, 26));
        painter.drawPath(
            Blob(at, unit * static_cast<double>(dice.Between(0.05F, 0.2F)), 0.16, dice));
    }
    for (int run = 0; run < 22; ++run) {
        const double x = unit * static_cast<double>(dice.Between(0.2F, 0.8F));
        const double top = size.height() * static_cast<double>(dice.Between(0.15F, 0.35F));
        const double length = size.height() * static_cast<double>(dice.Between(0.15F, 0.6F));
        QLinearGradient fade(0, top, 0, top + length);
        const QColor color = run % 4 == 0 ? QColor(232, 230, 222, 110) : QColor(64, 52, 36, 90);
        fade.setColorAt(0, color);
        fade.setColorAt(1, QColor(color.red(), color.green(), color.blue(), 0));
        painter.setBrush(fade);
        painter.drawRoundedRect(
            QRectF(x, top, unit * static_cast<double>(dice.Between(0.006F, 0.03F)), length), 4, 4);
    }
    return image;
}

QImage DrawHoneycomb(QSize size, Dice& dice) {
    QImage image = Blank(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPointF centre(size.width() * 0.5, size.height() * 0.5);
    const double radius = size.width() * 0.36;
    for (int layer = 0; layer < 14; ++layer) {
        const QPointF shift{radius * static_cast<double>(dice.Between(-0.25F, 0.25F)),
                            radius * static_cast<double>(dice.Between(-0.25F, 0.25F))};
        painter.setBrush(QColor(70, 65, 58, 24));
        painter.drawPath(Blob(centre + shift,
                              radius * static_cast<double>(dice.Between(0.5F, 0.95F)), 0.12, dice));
    }
    for (int pit = 0; pit < 900; ++pit) {
        const double angle = static_cast<double>(dice.Between(0, 6.2832F));
        const double spread = radius * std::sqrt(static_cast<double>(dice.Unit())) * 1.05;
        const QPointF at = centre + QPointF(std::cos(angle), std::sin(angle) * 0.8) * spread;
        const double r = size.width() * static_cast<double>(dice.Between(0.003F, 0.014F));
        const int tone = dice.Pick(5);
        painter.setBrush(tone < 3 ? QColor(34, 30, 27, 190)
                                  : QColor(140 + 12 * tone, 132 + 12 * tone, 120 + 12 * tone, 210));
        painter.drawPath(Blob(at, r, 0.3, dice));
    }
    return image;
}

QImage DrawPenMark(QSize size, const QString& note, Dice& dice) {
    QImage image = Blank(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = dice.Chance(0.7F) ? QColor(196, 24, 20, 225) : QColor(22, 50, 160, 225);
    painter.setPen(QPen(ink, size.width() / 110.0, Qt::SolidLine, Qt::RoundCap));
    const QPointF centre(size.width() * 0.5, size.height() * 0.46);
    QPainterPath ring;
    for (int step = 0; step <= 44; ++step) {
        const double angle = 2 * std::numbers::pi * step / 40.0 - 0.4;
        const double wobble = 1 + 0.03 * static_cast<double>(dice.Between(-1, 1));
        const QPointF at = centre + QPointF(std::cos(angle) * size.width() * 0.4,
                                            std::sin(angle) * size.height() * 0.36) *
                                        wobble;
        if (step == 0) {
            ring.moveTo(at);
        } else {
            ring.lineTo(at);
        }
    }
    painter.drawPath(ring);
    painter.setFont(SiteFont(size.height() / 13));
    painter.translate(size.width() * 0.54, size.height() * 0.94);
    painter.rotate(static_cast<double>(dice.Between(-6, 4)));
    painter.drawText(QPointF(0, 0), note);
    return image;
}

QImage DrawSign(QSize size, const QString& text, const QColor& board) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(board);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const int margin = size.height() / 14;
    painter.setPen(QPen(Qt::white, margin / 2.0));
    painter.drawRect(QRect(QPoint(0, 0), size).adjusted(margin, margin, -margin, -margin));
    const auto characters = std::max<qsizetype>(1, text.size());
    const int pixels = std::min(
        size.height() / 2, static_cast<int>(size.width() * 0.86 / static_cast<double>(characters)));
    painter.setFont(SiteFont(pixels));
    painter.drawText(image.rect(), Qt::AlignCenter, text);
    return image;
}

} // namespace sample
