// What the pages of the issue viewer say.
#pragma once

#include "services/IssueRecords.h"

#include <QString>

namespace issues {

/// "2026年11月22日 20:58:23", local; `seconds` since 1970. Thread: any.
[[nodiscard]] QString LongTime(qint64 seconds);
/// Of an issue. Thread: any.
[[nodiscard]] QString ComponentText(const KX_DATA::QuestionDetail& question);
/// How many half columns a text takes in code page 936: one for each character of one byte, two for
/// each of two. Thread: any.
[[nodiscard]] int DisplayWidth(const QString& text);
/// Whether a value beside its caption has more than the line shows.
[[nodiscard]] bool IsWide(const QString& value);

/// The lines about an issue, with their captions; leading blanks are part of those.
struct IssueLines {
    QString name;
    QString component;
    QString creator;
    QString updater;
    QString updateTime;
    QString nameTip; ///< empty: the line shows all there is; so below
    QString componentTip;
};
[[nodiscard]] IssueLines LinesOf(const KX_DATA::QuestionDetail& question);

/// The lines about a picture; without one the captions alone.
struct PhotoLines {
    QString uploader;
    QString uploadTime;
};
[[nodiscard]] PhotoLines LinesOf(const KX_DATA::QuestionPicRecord* pic);

} // namespace issues
