// A report as a list of blocks from top to bottom, which pages, Word and web files are made of.
#pragma once

#include "host/report/ReportContent.h"
#include "host/report/ReportOptions.h"
#include "host/report/ReportTemplate.h"

#include <QStringList>

#include <variant>

namespace host {

/// Title, subtitle and logo at the head of the report.
struct TitleBlock {
    QString title;
    QStringList lines;
    QImage logo;
};

struct HeadingBlock {
    QString text;
    int level = 1; ///< 1 or 2
};

struct ParagraphBlock {
    QString text;
};

struct FactsBlock {
    ReportFacts facts;
};

/// The headings that follow, with their pages where there are pages.
struct ContentsBlock {};

/// Photographs beside each other: at most grid.columns.
struct PhotosBlock {
    PhotoGrid grid;
    std::vector<ReportPhoto> photos;
};

struct TableBlock {
    QStringList titles;
    std::vector<double> shares;    ///< of the width, one for each title; their sum is 1
    std::vector<QStringList> rows; ///< one text for each title
};

/// A drawn image, sharp at its edges: plan, QR code.
struct ImageBlock {
    QImage image;
    double mostWidth = 0; ///< 1/96 inch; it keeps its proportions
    double mostHeight = 0;
    QString note;
};

/// The rich text, behind its facts; the last of all.
struct RecordBlock {
    QString html;
    QString folder;
};

/// Stands in the place of a record that the document form doesn't take (NoteHtml.h).
inline const QString kRecordTooLarge = QStringLiteral("整改记录过大，无法放入报告。");

using ReportBlock = std::variant<TitleBlock, HeadingBlock, ParagraphBlock, FactsBlock,
                                 ContentsBlock, PhotosBlock, TableBlock, ImageBlock, RecordBlock>;

/// All that a file needs but the pictures.
struct ReportSheet {
    QString title;
    QString author;
    QString header;
    QString footer;
    ReportOptions options;
    std::vector<ReportBlock> blocks;
};

/// What the options leave out isn't there, nor are headings without anything below them.
/// Thread: any.
[[nodiscard]] ReportSheet SheetOf(const ReportContent& content, const ReportOptions& options,
                                  const ReportTemplate& dress);

/// Photographs of a sheet in their order, without those that aren't there.
[[nodiscard]] int PhotoCountOf(const ReportSheet& sheet);

} // namespace host
