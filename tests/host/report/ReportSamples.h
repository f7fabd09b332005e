// Contents of reports, small and odd.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportBlocks.h"
#include "host/report/ReportContent.h"
#include "host/report/ReportFile.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

namespace reporttest {

/// The `record` pictures' names in their folder, which RichRecord speaks of.
inline const QString kRecordPicture = QStringLiteral("0123456789abcdef0123456789abcdef.jpg");
inline const QString kRecordScan = QStringLiteral("fedcba9876543210fedcba9876543210.png");

/// A JPEG file of a picture that its seed tells apart; gives its path.
QString WritePicture(const QString& folder, const QString& name, int seed, QSize size = {160, 120});

/// Each photo has a title "照片1", facts, and a file of its own in the folder.
[[nodiscard]] host::ReportContent PhotoReport(const QString& folder, int photos,
                                              QSize size = {160, 120});

/// Two sections with photos, comments and voice notes, plan, code, and a record; one photo isn't
/// there, one is no picture. Two pictures of the record are in the folder.
[[nodiscard]] host::ReportContent IssueReport(const QString& folder);

/// Headings, lists in lists, tables with merged cells, rules, links, pictures, an attachment.
[[nodiscard]] QString RichRecord();

/// Markup, the end of CDATA, control characters, halves of surrogate pairs, emoji.
[[nodiscard]] QString HostileText();
/// What is left of it.
[[nodiscard]] QString HostileTextShown();

/// Sheet of a content with all options as they stand.
[[nodiscard]] host::ReportSheet SheetFor(const host::ReportContent& content,
                                         const host::ReportOptions& options = {});

using Writer = void (*)(const host::ReportSheet&, host::PrintPictures&, host::ReportFile&,
                        const host::ReportSteps&);
/// Empty: it stands. Else why not; "cancelled" where the person ended it.
[[nodiscard]] QString Write(Writer writer, const host::ReportSheet& sheet, const QString& path,
                            const host::ReportSteps& steps = {});

/// Files of a folder, hidden ones too.
[[nodiscard]] QStringList FilesOf(const QString& folder);

} // namespace reporttest
