// A report laid out on its pages.
#pragma once

#include "host/report/PageText.h"
#include "host/report/RecordDocument.h"
#include "host/report/ReportBlocks.h"

#include <memory>
#include <variant>

namespace host {

/// What stands on a page, 1/96 inch from its upper left corner.
struct TextItem {
    QPointF corner;
    TextColumn text;
    int firstLine = 0;
    int endLine = 0;
};
struct PhotoItem {
    PhotoPlace place;
    QString file;
    QString lack;
};
struct ImageItem {
    QRectF place;
    QImage image;
};
/// A filled rectangle with or without a frame; one of no height is a line.
struct BoxItem {
    QRectF place;
    QColor fill;  ///< invalid: none
    QColor frame; ///< invalid: none
};
struct RecordItem {
    QPointF corner;
    int page = 0; ///< of the record
};
using PageItem = std::variant<TextItem, PhotoItem, ImageItem, BoxItem, RecordItem>;

struct ReportPage {
    std::vector<PageItem> items; ///< in the order of painting
};

/// Where a heading stands, for bookmarks and the table of contents.
struct PageHeading {
    QString text;
    int level = 1;
    int page = 0;
    double top = 0;
};

/// Leads from a line of the contents to its heading.
struct PageLink {
    int page = 0;
    QRectF place;
    size_t heading = 0; ///< index into `headings`
};

struct ReportPages {
    PageShape shape;
    QString header;
    QString footer;
    std::vector<ReportPage> pages; ///< at least one
    std::vector<PageHeading> headings;
    std::vector<PageLink> links;
    std::shared_ptr<RecordDocument> record; ///< null: there is none, or not yet
};

/// Without the record unless it is wanted: its pages come last, so that all others are what they
/// are already. Thread: any; the record belongs to it.
[[nodiscard]] ReportPages LayoutReport(const ReportSheet& sheet, bool withRecord);

/// Photographs of all pages in their order, with their rooms; those alone that are there.
struct PagePhoto {
    QString file;
    QSizeF room;
};
[[nodiscard]] std::vector<PagePhoto> PhotosOf(const ReportPages& pages);

} // namespace host
