#include "host/drawings/SheetTiles.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// Squares that are rendered in one piece: the document is read anew for each.
constexpr int kMostAtOnce = 28;
/// A screen may be so much sharper before the next level is taken.
constexpr double kTolerance = 1.02;

/// The half of a rectangle of squares, along its longer side, in which one of them lies.
QRect HalfWith(const QRect& tiles, const QPoint& tile) {
    QRect half = tiles;
    if (tiles.width() >= tiles.height()) {
        half.setWidth((tiles.width() + 1) / 2);
    } else {
        half.setHeight((tiles.height() + 1) / 2);
    }
    if (!half.contains(tile)) {
        half = tiles.width() >= tiles.height() ? tiles.adjusted(half.width(), 0, 0, 0)
                                               : tiles.adjusted(0, half.height(), 0, 0);
    }
    return half;
}

} // namespace

double LevelScale(int level) {
    return std::exp2(level / 2.0);
}

int LevelFor(double deviceScale) {
    const int level = int(std::ceil(2 * std::log2(deviceScale / kTolerance)));
    return std::clamp(level, kCoarsestLevel, kFinestLevel);
}

QSize LevelSize(const QSizeF& page, int level) {
    const double scale = LevelScale(level);
    return {std::max(1, qCeil(page.width() * scale)), std::max(1, qCeil(page.height() * scale))};
}

QRect TilesUnder(const QRectF& area, const QSizeF& page, int level) {
    const QRectF seen = area & QRectF(QPointF(), page);
    if (seen.isEmpty()) {
        return {};
    }
    const double side = kTileSide / LevelScale(level);
    const QPoint first(int(seen.left() / side), int(seen.top() / side));
    const QSize full = LevelSize(page, level);
    const QPoint last(std::min(qCeil(seen.right() / side) - 1, (full.width() - 1) / kTileSide),
                      std::min(qCeil(seen.bottom() / side) - 1, (full.height() - 1) / kTileSide));
    return {first, last};
}

QRectF TileArea(const TileKey& tile, const QSizeF& page) {
    const QSize full = LevelSize(page, tile.level);
    const QRect pixels =
        QRect(tile.column * kTileSide, tile.row * kTileSide, kTileSide, kTileSide) &
        QRect(QPoint(), full);
    // By the size that was rendered, which is a whole number of pixels.
    const double x = page.width() / full.width();
    const double y = page.height() / full.height();
    return {pixels.x() * x, pixels.y() * y, pixels.width() * x, pixels.height() * y};
}

std::optional<QRect> NextTiles(const SheetWish& wish,
                               const std::function<bool(const TileKey&)>& isThere) {
    QRect missing;
    QPoint nearest;
    double distance = -1;
    for (int row = wish.tiles.top(); row <= wish.tiles.bottom(); ++row) {
        for (int column = wish.tiles.left(); column <= wish.tiles.right(); ++column) {
            if (isThere({wish.page, wish.level, column, row})) {
                continue;
            }
            missing |= QRect(column, row, 1, 1);
            const double away =
                std::hypot(column + 0.5 - wish.middle.x(), row + 0.5 - wish.middle.y());
            if (distance < 0 || away < distance) {
                distance = away;
                nearest = {column, row};
            }
        }
    }
    if (missing.isEmpty()) {
        return std::nullopt;
    }
    while (missing.width() * missing.height() > kMostAtOnce) {
        missing = HalfWith(missing, nearest);
    }
    return missing;
}

RenderRequest RequestFor(int page, int level, const QRect& tiles, const QSizeF& points) {
    const QSize full = LevelSize(points, level);
    const QRect pixels(tiles.topLeft() * kTileSide, tiles.size() * kTileSide);
    return {page, full, pixels & QRect(QPoint(), full)};
}

void TileCache::Put(const TileKey& key, const QImage& image) {
    const auto old = m_entries.find(key);
    if (old != m_entries.end()) {
        m_bytes -= old->second.image.sizeInBytes();
        m_order.erase(old->second.place);
        m_entries.erase(old);
    }
    m_order.push_front(key);
    m_entries[key] = {image, m_order.begin()};
    m_bytes += image.sizeInBytes();
    while (m_bytes > std::max(m_mostBytes, m_leastBytes) && m_order.size() > 1) {
        const auto last = m_entries.find(m_order.back());
        m_bytes -= last->second.image.sizeInBytes();
        m_entries.erase(last);
        m_order.pop_back();
    }
}

const QImage* TileCache::Find(const TileKey& key) const {
    const auto found = m_entries.find(key);
    return found == m_entries.end() ? nullptr : &found->second.image;
}

void TileCache::Touch(const TileKey& key) {
    const auto found = m_entries.find(key);
    if (found != m_entries.end()) {
        m_order.splice(m_order.begin(), m_order, found->second.place);
    }
}

std::vector<TileKey> TileCache::KeysOf(int page) const {
    std::vector<TileKey> keys;
    for (auto at = m_entries.lower_bound({page, kCoarsestLevel, 0, 0});
         at != m_entries.end() && at->first.page == page; ++at) {
        keys.push_back(at->first);
    }
    return keys;
}

void TileCache::KeepAtLeast(int squares) {
    m_leastBytes = qint64(squares) * kTileSide * kTileSide * 4;
}

void TileCache::Clear() {
    m_entries.clear();
    m_order.clear();
    m_bytes = 0;
}

} // namespace host
