// A rich text of 200 pages with 300 pictures, as a client saved it.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace bench {

inline constexpr int kRichPages = 200;
inline constexpr int kRichPictures = 300;

/// A document in a folder of pages.
struct RichPages {
    QString folder; ///< of the page and its pictures, with "/" at its end
    QString page;   ///< store name
    QStringList pictures;
};

/// Distinct JPEG files of 12 megapixels, painted where they aren't there yet, which takes a minute
/// or two. Paths by name; empty if the folder can't be written.
[[nodiscard]] QStringList PaintRichPictures(const QString& folder, int count);

/// Stores the pictures and a page that shows each of them once, 600 pixels wide, between headings,
/// paragraphs, lists and tables; in the document form.
[[nodiscard]] std::optional<RichPages> MakeRichPages(const QStringList& pictures,
                                                     const QString& folder);

} // namespace bench
