// Contracts that no part of the client needs yet: they fail, say so in the log, and invent nothing.
#pragma once

#include "services/IPicReportCtrl.h"
#include "services/IRichTextMsgMng.h"

namespace host {

class RichTextMsgMng final : public KX_DATA::IRichTextMsgMng {
public:
    void Reserved1() override {}
    bool GetRichText(const KX_DATA::RichTextKey& key, KX_DATA::RichTextMsg& message,
                     std::vector<KX_DATA::RichAttachment>& attachments) override;
    bool SaveRichText(const QString& stateText, const KX_DATA::RichTextMsg& message,
                      const KX_DATA::RichTextKey& key, const std::vector<QString>& removedUuids,
                      const std::vector<KX_DATA::RichAttachment>& added) override;
};

class PicReportCtrl final : public PIC_REPORT::IPicReportCtrl {
public:
    void Reserved1() override {}
    void OutputBimReport(const PIC_REPORT::BimReportRequest* request) override;
    void OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) override;
    void OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) override;
};

} // namespace host
