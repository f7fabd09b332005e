// Where the texts and the player under a photo lie: one block for several viewers.
#pragma once

#include <QRect>
#include <QSize>

namespace gallery {

/// How the block of one viewer differs from that of another. Device-independent pixels.
struct PhotoBlockShape {
    int sideRoom = 5;      ///< of the width, what the five columns don't get
    int textLeft = 0;      ///< of the columns' texts, from the column's edge
    int positionWidth = 0; ///< 0: a column's
    int lineTop = 0;       ///< of the line above, from the block's top
};
[[nodiscard]] PhotoBlockShape BimViewerBlock();
[[nodiscard]] PhotoBlockShape ConsoleViewerBlock();

/// Device-independent pixels of the pane. Lines of text are 14 high.
struct PhotoBlockLayout {
    int top = 0; ///< of the block; the pictures lie above it
    QRect separator;
    QRect mark;
    QRect position;
    QRect uploader;
    QRect uploadTime;
    QRect updater;
    QRect updateTime;
    QRect labels;
    QRect description;
    QRect noteGroup;
    QPoint noteButton; ///< which has a size of its own
    QRect noteProgress;
    QRect noteStatus;
};

/// @param pane  client size; widths and heights of a pane too small for it become negative.
/// Thread: any. Touches no window.
[[nodiscard]] PhotoBlockLayout LayoutPhotoBlock(const QSize& pane, const PhotoBlockShape& shape);

/// Places of the BIM photo viewer's other parts.
struct BimViewerPlaces {
    QRect bigArea;
    QRect stripArea;
    QRect report;
};
[[nodiscard]] BimViewerPlaces PlaceBimViewer(const QSize& pane);

/// Places of the console photo viewer's pictures.
struct ConsoleViewerPlaces {
    QRect bigArea;
    QRect stripArea;
};
[[nodiscard]] ConsoleViewerPlaces PlaceConsoleViewer(const QSize& pane);

} // namespace gallery
