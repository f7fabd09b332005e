// Where the parts of the drawing photo viewer lie.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace gallery {

/// Device-independent pixels of the pane. The column on the right has a fixed width, the pictures
/// take what is left of it.
struct PdfPaneLayout {
    QRect bigArea;
    QRect stripArea;
    QRect picGroup;
    QRect noteGroup;
    QRect checkpointGroup;
    QRect uploader;
    QRect uploadTime;
    QRect updater;
    QRect updateTime;
    QRect picDescription;
    QRect deleteLink;
    QPoint noteButton; ///< which has a size of its own
    QRect noteProgress;
    QRect noteStatus;
    QRect mark;
    QRect editLink;
    QRect labels;
    QRect cpDescription;
    QRect cpUpdateTime;
    QRect remark;
    QRect comments;
    QRect commentBox;
    QRect send;
    QRect report;
    QRect column; ///< all that is drawn anew after a change of places
};

/// @param pane    client size; widths and heights of a pane too small for it become negative.
/// @param button  own size of the two buttons at the bottom.
/// Thread: any. Touches no window.
[[nodiscard]] PdfPaneLayout LayoutPdfPane(const QSize& pane, const QSize& button);

} // namespace gallery
