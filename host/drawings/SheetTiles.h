// The squares of which a sheet is put together on the screen.
#pragma once

#include "host/drawings/ReaderFrames.h"

#include <QImage>
#include <QPointF>
#include <QRectF>

#include <compare>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <vector>

namespace host {

/// Pixels.
inline constexpr int kTileSide = 512;
/// Levels of sharpness are a factor of the square root of 2 apart, 0 being one pixel for a point.
inline constexpr int kCoarsestLevel = -12;
inline constexpr int kFinestLevel = 10;

/// One square of a page at a level, counted from its upper left corner.
struct TileKey {
    int page = 0;
    int level = 0;
    int column = 0;
    int row = 0;

    auto operator<=>(const TileKey&) const = default; // NOLINT(modernize-use-nullptr): made up
};

/// Pixels for a point.
[[nodiscard]] double LevelScale(int level);
/// The coarsest level that is as sharp as a screen with so many device pixels for a point.
[[nodiscard]] int LevelFor(double deviceScale);
/// Of a page whose size is in points, pixels, at least one.
[[nodiscard]] QSize LevelSize(const QSizeF& page, int level);
/// Columns and rows of the squares that an area of the page touches; area in points.
[[nodiscard]] QRect TilesUnder(const QRectF& area, const QSizeF& page, int level);
/// Where a square lies on its page, points; the last ones of a page are narrower.
[[nodiscard]] QRectF TileArea(const TileKey& tile, const QSizeF& page);

/// What somebody looks at.
struct SheetWish {
    int page = 0;
    int level = 0;
    QRect tiles;    ///< columns and rows
    QPointF middle; ///< in columns and rows: what is nearest comes first

    bool operator==(const SheetWish&) const = default;
};

/// The squares that are rendered next, in one piece: those around the nearest that is missing.
/// Nothing if none is missing.
[[nodiscard]] std::optional<QRect> NextTiles(const SheetWish& wish,
                                             const std::function<bool(const TileKey&)>& isThere);
/// The part of the page in which these squares lie.
[[nodiscard]] RenderRequest RequestFor(int page, int level, const QRect& tiles,
                                       const QSizeF& points);

/// Squares that were rendered, those that were looked at last; bounded. Thread: one.
class TileCache final {
public:
    explicit TileCache(qint64 mostBytes) : m_mostBytes(mostBytes) {}

    void Put(const TileKey& key, const QImage& image);
    /// Null if it isn't there.
    [[nodiscard]] const QImage* Find(const TileKey& key) const;
    /// Was looked at now; a square that isn't there is passed over.
    void Touch(const TileKey& key);
    /// Of a page, coarser ones first.
    [[nodiscard]] std::vector<TileKey> KeysOf(int page) const;
    void Clear();
    /// So many squares are held whatever the bound: those of one screen.
    void KeepAtLeast(int squares);
    [[nodiscard]] qint64 Bytes() const { return m_bytes; }

private:
    struct Entry {
        QImage image;
        std::list<TileKey>::iterator place;
    };
    const qint64 m_mostBytes;
    qint64 m_leastBytes = 0;
    qint64 m_bytes = 0;
    std::map<TileKey, Entry> m_entries;
    std::list<TileKey> m_order; ///< looked at last: in front
};

} // namespace host
