// Paints the gallery from finished places and finished images. No file, no widget.
#pragma once

#include "viewers/GalleryState.h"
#include "viewers/SlideFrames.h"

#include <QImage>
#include <QRectF>

#include <vector>

class QPainter;

namespace gallery {

enum class CellFrame { None, Hover, Current };

/// One thumbnail as it looks now.
struct Cell {
    QRect rect;       ///< the thumbnail's; frames lie around it
    qint32 state = 0; ///< DownloadState
    int percent = 0;  ///< of the running download
    bool fileThere = true;
    QImage picture; ///< rendering of a picture on disk; null draws none
    CellFrame frame = CellFrame::None;
};

/// @param defaultPicture  stands under every band; null draws none.
void PaintCell(QPainter& painter, const Cell& cell, const QImage& defaultPicture);

/// The strip: background, cells, then the page buttons and the indicator if there are cells.
void PaintStrip(QPainter& painter, const GalleryState& state, const std::vector<Cell>& cells,
                const QImage& defaultPicture);

/// The cells alone, side by side on the background: what a slide moves. `cells` lie from 0, 0 on.
[[nodiscard]] QImage RenderCells(const std::vector<Cell>& cells, const QImage& defaultPicture,
                                 const QSize& size, qreal pixelRatio);

/// The picture area without a picture.
void PaintNoBigPicture(QPainter& painter, const GalleryState& state);

/// An image and the place that it is drawn to.
struct PlacedImage {
    QRectF place;
    QImage image;
};
/// The picture area with images over each other, the first one lowest, and the step buttons.
void PaintBigPicture(QPainter& painter, const GalleryState& state,
                     const std::vector<PlacedImage>& images);
/// Says how large a zoomed picture is drawn.
void PaintZoomLabel(QPainter& painter, const GalleryState& state);

/// A slide in progress.
struct SlideScene {
    Slide slide;
    QImage oldImage;
    QImage newImage;
    int offset = 0;
    bool ofPicture = false; ///< the step buttons stand above it
};
void PaintSlide(QPainter& painter, const GalleryState& state, const SlideScene& scene);

} // namespace gallery
