// What a person chooses for a report.
#pragma once

#include <QPageLayout>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace host {

enum class ReportForm { Pdf, Word, Web };
enum class ReportPaper { A4, A3 };
enum class ReportPictures { Small, Medium, OnePerPage };

struct ReportOptions {
    ReportPaper paper = ReportPaper::A4;
    bool isLandscape = false;
    ReportPictures pictures = ReportPictures::Medium;
    bool withContents = true;
    bool withPlan = true;
    bool withTexts = true; ///< what is known of place and photos
    bool withComments = true;
    bool withVoices = true;
    bool withRecord = true;
    bool withCode = true;

    bool operator==(const ReportOptions& other) const = default;
};

/// Text of a setting; what isn't understood in one takes its value above.
[[nodiscard]] QString ToSetting(const ReportOptions& options);
[[nodiscard]] ReportOptions ReportOptionsOf(const QString& setting);

/// Lengths on a page, in 1/96 inch, as everywhere in a report: the pixels of CSS.
inline constexpr double kReportDpi = 96;
[[nodiscard]] constexpr double OfMillimetres(double mm) {
    return mm * kReportDpi / 25.4;
}

/// A page and where on it the text stands, from its upper left corner.
struct PageShape {
    QSizeF page;
    QRectF text;
    double headerTop = 0; ///< baseline box of the header and the footer, kPageLine high each
    double footerTop = 0;
};
inline constexpr double kPageLine = 18;
[[nodiscard]] PageShape ShapeOf(const ReportOptions& options);
[[nodiscard]] QPageLayout PageLayoutOf(const ReportOptions& options);

/// How photographs stand on a page.
struct PhotoGrid {
    int columns = 1;
    QSizeF picture;          ///< room for a picture, which is fitted into it
    bool textBeside = false; ///< what is known of it, else below
    int picturesOfPage = 1;  ///< as many at most

    bool operator==(const PhotoGrid& other) const = default;
};
[[nodiscard]] PhotoGrid GridOf(const ReportOptions& options);

} // namespace host
