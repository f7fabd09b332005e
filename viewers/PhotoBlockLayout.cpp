#include "viewers/PhotoBlockLayout.h"

namespace gallery {

namespace {

constexpr int kBlockHeight = 80;
constexpr int kColumns = 5;
constexpr int kLineHeight = 14;
constexpr int kUpperLine = 25;
constexpr int kLowerLine = 50;
constexpr int kStripColumn = 125;
constexpr int kGalleryGap = 5;

} // namespace

PhotoBlockShape BimViewerBlock() {
    return {5, 0, 100, 0};
}

PhotoBlockShape ConsoleViewerBlock() {
    return {10, 5, 0, 1};
}

PhotoBlockLayout LayoutPhotoBlock(const QSize& pane, const PhotoBlockShape& shape) {
    const int top = pane.height() - kBlockHeight;
    const int column = (pane.width() - shape.sideRoom) / kColumns;
    const auto text = [&](int place, int line) {
        return QRect(place * column + shape.textLeft, top + line, column - 10, kLineHeight);
    };
    PhotoBlockLayout layout;
    layout.top = top;
    layout.separator = QRect(0, top + shape.lineTop, pane.width(), 2);
    layout.mark = QRect(5, top + 20, 80, 20);
    layout.position = QRect(5, top + kLowerLine,
                            shape.positionWidth == 0 ? column : shape.positionWidth, kLineHeight);
    layout.uploader = text(1, kUpperLine);
    layout.uploadTime = text(1, kLowerLine);
    layout.updater = text(2, kUpperLine);
    layout.updateTime = text(2, kLowerLine);
    layout.labels = text(3, kUpperLine);
    layout.description = text(3, kLowerLine);
    const int note = 4 * column;
    layout.noteGroup = QRect(note, top + 5, column, 70);
    layout.noteButton = QPoint(note + 5, top + 20);
    layout.noteProgress = QRect(note + 50, top + 50, column - 60, 5);
    layout.noteStatus = QRect(note + 50, top + 30, column - 60, kLineHeight);
    return layout;
}

BimViewerPlaces PlaceBimViewer(const QSize& pane) {
    const int top = pane.height() - kBlockHeight;
    const int left = pane.width() - kStripColumn;
    BimViewerPlaces places;
    places.bigArea = QRect(0, 0, left, top);
    places.stripArea =
        QRect(QPoint(left, 35), QSize(kStripColumn - kGalleryGap, top - kGalleryGap - 35));
    places.report = QRect(left, 5, 110, 25);
    return places;
}

ConsoleViewerPlaces PlaceConsoleViewer(const QSize& pane) {
    const int top = pane.height() - kBlockHeight;
    const int left = pane.width() - kStripColumn;
    const QMargins gap(kGalleryGap, kGalleryGap, kGalleryGap, kGalleryGap);
    return {QRect(0, 0, left, top).marginsRemoved(gap),
            QRect(left, 0, kStripColumn, top).marginsRemoved(gap)};
}

} // namespace gallery
