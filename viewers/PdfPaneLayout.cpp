#include "viewers/PdfPaneLayout.h"

namespace gallery {

namespace {

constexpr int kRowWidth = 210;
constexpr int kRowHeight = 20;
constexpr int kListWidth = 215;

/// From the right edge to the left one of what stands in the column.
constexpr int kPictures = 235;
constexpr int kGroups = 230;
constexpr int kInner = 225;
constexpr int kRows = 220;

} // namespace

PdfPaneLayout LayoutPdfPane(const QSize& pane, const QSize& button) {
    const int w = pane.width();
    const int h = pane.height();
    const auto row = [w](int y) { return QRect(w - kRows, y, kRowWidth, kRowHeight); };
    PdfPaneLayout at;
    at.bigArea = QRect(0, 0, w - kPictures, h - 110);
    at.stripArea = QRect(5, h - 110, w - kPictures - 5, 105);
    at.picGroup = QRect(w - kGroups, 5, kInner, 125);
    at.noteGroup = QRect(w - kGroups, 140, kInner, 70);
    at.checkpointGroup = QRect(w - kGroups, 220, kInner, h - 225);
    at.uploader = row(30);
    at.uploadTime = row(50);
    at.updater = row(70);
    at.updateTime = row(90);
    at.picDescription = row(110);
    at.deleteLink = QRect(w - 80, 15, 70, kRowHeight);
    at.noteButton = QPoint(w - kInner, 160);
    at.noteProgress = QRect(w - 175, 190, 160, 5);
    at.noteStatus = QRect(w - 175, 170, 160, kRowHeight);
    at.mark = QRect(w - kInner, 240, 80, kRowHeight);
    at.editLink = QRect(w - 85, 240, 60, kRowHeight);
    at.labels = row(270);
    at.cpDescription = row(290);
    at.cpUpdateTime = row(310);
    at.remark = row(330);
    at.comments = QRect(w - kInner, 350, kListWidth, h - 445);
    at.commentBox = QRect(w - kInner, h - 85, kListWidth, 50);
    const int top = h - 10 - button.height();
    at.send = QRect(QPoint(w - 10 - button.width(), top), button);
    at.report = QRect(QPoint(w - kInner, top), button);
    at.column = QRect(w - kInner, 0, kInner, h);
    return at;
}

} // namespace gallery
