// What the viewers hand to the report library.
#pragma once

#include <QString>

namespace PIC_REPORT {

struct BimReportRequest {
    QString htmlText;
    bool richTextEnabled = false;
    QString floor;
    QString positionKey;
    qint32 markId = 0;
    QString versionText;
    QString recordText;
};

struct PdfReportRequest {
    QString htmlText;
    bool richTextEnabled = false;
    qint32 drawingId = 0;
    QString versionText;
    QString recordText;
    QString drawingName;
};

struct IssueReportRequest {
    QString htmlText;
    bool richTextEnabled = false;
    QString versionText;
    QString recordText;
    QString questionId;
};

} // namespace PIC_REPORT
