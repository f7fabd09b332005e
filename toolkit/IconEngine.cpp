#include "toolkit/IconEngine.h"

#include "toolkit/Look.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace toolkit {

namespace {

QByteArray IconColor(QIcon::Mode mode) {
    switch (mode) {
    case QIcon::Active:
        return Colors::Accent().name().toLatin1();
    case QIcon::Disabled:
        return "#a7b0bb";
    case QIcon::Normal:
    case QIcon::Selected:
        break;
    }
    return Colors::TextAccent().name().toLatin1();
}

} // namespace

void IconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
    Q_UNUSED(state);
    const int side = std::min(rect.width(), rect.height());
    const qreal scale = painter->device()->devicePixelRatioF();
    const QPixmap drawn = scaledPixmap(QSize(side, side) * scale, mode, state, scale);
    QRect target(0, 0, side, side);
    target.moveCenter(rect.center());
    painter->drawPixmap(target.topLeft(), drawn);
}

QPixmap IconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    return scaledPixmap(size, mode, state, 1.0);
}

QPixmap IconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                                 qreal scale) {
    Q_UNUSED(state);
    const int side = std::min(size.width(), size.height());
    if (side <= 0) {
        return {};
    }
    QPixmap& drawn = m_drawn[{side, int(mode), qRound(scale * 100)}];
    if (drawn.isNull()) {
        QByteArray svg = m_svg;
        svg.replace("#15428B", IconColor(mode));
        QSvgRenderer renderer(svg);
        drawn = QPixmap(side, side);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter, QRectF(0, 0, side, side));
        painter.end();
        drawn.setDevicePixelRatio(scale);
    }
    return drawn;
}

} // namespace toolkit
