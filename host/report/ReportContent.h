// What a report is made of, as it was read for it.
#pragma once

#include <QImage>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace host {

/// Captions with values, in their order: "楼层", "3".
using ReportFacts = std::vector<std::pair<QString, QString>>;

/// A photograph with what is known of it.
struct ReportPhoto {
    QString title;
    QString file; ///< fetched; empty: there is none
    QString lack; ///< why there is none, Chinese
    ReportFacts facts;
};

struct ReportComment {
    QString person;
    QString when;
    QString text;
};

/// A voice note; paper has no sound, so that it is only told of.
struct ReportVoice {
    QString where;
    int seconds = 0; ///< 0: not known
};

/// What belongs together under a heading: the photos of a checkpoint, the pictures of an issue.
struct ReportSection {
    QString title;
    ReportFacts facts;
    std::vector<ReportPhoto> photos;
    std::vector<ReportComment> comments;
    QString commentsTitle;
    std::vector<ReportVoice> voices;
};

/// The rich text of the place, as the person has it on the screen.
struct ReportRecord {
    QString html;   ///< in the editor's form; may be empty
    QString folder; ///< where its pictures lie
    ReportFacts facts;
};

/// Everything that was read; what of it goes into the report is the person's choice. A value: may
/// be handed to other threads.
struct ReportContent {
    qint32 ppid = 0; ///< whose template it takes
    QString project;
    QString kind;  ///< what it is a report of: "照片报告"
    QString place; ///< a line under the title
    QString made;  ///< when and by whom
    ReportFacts facts;
    QImage plan; ///< the place in the plan; null: there is none
    QString planNote;
    QImage code; ///< QR code; null: there is none
    QString codeNote;
    std::vector<ReportSection> sections;
    std::optional<ReportRecord> record;
};

} // namespace host
