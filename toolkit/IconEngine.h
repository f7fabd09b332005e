// Renders one vector drawing in the colour of each state.
#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QPixmap>

#include <map>
#include <tuple>

namespace toolkit {

/// Draws at the very pixels asked for, never a scaled picture; keeps what it drew. User interface
/// thread.
class IconEngine final : public QIconEngine {
public:
    /// `svg` holds the drawing in the normal colour (#15428B).
    explicit IconEngine(const QByteArray& svg) : m_svg(svg) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    /// `size` is in device pixels.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;
    [[nodiscard]] QIconEngine* clone() const override { return new IconEngine(*this); }

private:
    QByteArray m_svg;
    /// By side in device pixels, mode, and scale in hundredths.
    std::map<std::tuple<int, int, int>, QPixmap> m_drawn;
};

} // namespace toolkit
