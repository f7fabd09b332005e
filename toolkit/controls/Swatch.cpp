#include "toolkit/controls/Swatch.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace toolkit {

namespace {

/// Enabled or not, the colour is what the entry means: it stays.
class SwatchEngine final : public QIconEngine {
public:
    explicit SwatchEngine(const QColor& color) : m_color(color) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const int side = std::min(rect.width(), rect.height());
        QRect square(QPoint(), QSize(side, side));
        square.moveCenter(rect.center());
        PaintSwatch(*painter, square, m_color);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, image.rect(), mode, state);
        return image;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SwatchEngine(m_color); }

private:
    QColor m_color;
};

} // namespace

QSize SwatchSize() {
    return {12, 12};
}

void PaintSwatch(QPainter& painter, const QRect& area, const QColor& color) {
    painter.fillRect(area, color);
    const QColor frame = color.lightness() > 200 ? QColor(0x8C, 0x9A, 0xAB) : color.darker(140);
    painter.setPen(frame);
    painter.drawRect(area.adjusted(0, 0, -1, -1));
}

QIcon SwatchIcon(const QColor& color) {
    return QIcon(new SwatchEngine(color));
}

} // namespace toolkit
