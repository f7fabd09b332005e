#include "host/report/PagePaint.h"

#include <QPainter>

namespace host {

using namespace Qt::StringLiterals;

namespace {

struct ItemPainter {
    QPainter& painter;
    const ReportPages& pages;
    IPageInk& ink;

    void operator()(const TextItem& item) const {
        item.text.Draw(painter, item.corner, item.firstLine, item.endLine);
    }
    void operator()(const PhotoItem& item) const {
        ink.DrawPhoto(painter, item.place, item.file, item.lack);
    }
    void operator()(const ImageItem& item) const { ink.DrawImage(painter, item.place, item.image); }
    void operator()(const BoxItem& item) const {
        painter.setPen(item.frame.isValid() ? QPen(item.frame, 0.75) : QPen(Qt::NoPen));
        painter.setBrush(item.fill.isValid() ? QBrush(item.fill) : QBrush(Qt::NoBrush));
        if (item.place.height() > 0) {
            painter.drawRect(item.place);
        } else if (item.place.width() > 0) {
            painter.drawLine(item.place.topLeft(), item.place.topRight());
        }
    }
    void operator()(const RecordItem& item) const {
        painter.save();
        painter.translate(item.corner);
        pages.record->Paint(painter, item.page, ink);
        painter.restore();
    }
};

void PaintLines(QPainter& painter, const ReportPages& pages, int page, int pageCount) {
    const QRectF room = pages.shape.text;
    const QString number = pageCount > 0 ? u"第 %1 页，共 %2 页"_s.arg(page + 1).arg(pageCount)
                                         : u"第 %1 页"_s.arg(page + 1);
    const TextColumn right(number, TextLook::Faint, room.width());
    const double left = room.width() - right.NaturalWidth();
    right.Draw(painter, {room.left() + left, pages.shape.footerTop}, 0, 1);
    TextColumn(pages.footer, TextLook::Faint, left - kPageLine)
        .Draw(painter, {room.left(), pages.shape.footerTop}, 0, 1);
    if (!pages.header.isEmpty()) {
        TextColumn(pages.header, TextLook::Faint, room.width())
            .Draw(painter, {room.left(), pages.shape.headerTop}, 0, 1);
        painter.setPen(QPen(kFrameInk, 0.75));
        const double line = pages.shape.headerTop + kPageLine + 2;
        painter.drawLine(QPointF(room.left(), line), QPointF(room.right(), line));
    }
}

} // namespace

void PaintPage(QPainter& painter, const ReportPages& pages, int page, int pageCount,
               IPageInk& ink) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    for (const PageItem& item : pages.pages[static_cast<size_t>(page)].items) {
        std::visit(ItemPainter{painter, pages, ink}, item);
    }
    PaintLines(painter, pages, page, pageCount);
}

} // namespace host
