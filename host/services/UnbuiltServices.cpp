#include "host/services/UnbuiltServices.h"

#include "host/services/SiteService.h"

namespace host {

bool RichTextMsgMng::GetRichText(const KX_DATA::RichTextKey& /*key*/,
                                 KX_DATA::RichTextMsg& /*message*/,
                                 std::vector<KX_DATA::RichAttachment>& /*attachments*/) {
    return Unimplemented("IRichTextMsgMng::GetRichText", false);
}

bool RichTextMsgMng::SaveRichText(const QString& /*stateText*/,
                                  const KX_DATA::RichTextMsg& /*message*/,
                                  const KX_DATA::RichTextKey& /*key*/,
                                  const std::vector<QString>& /*removedUuids*/,
                                  const std::vector<KX_DATA::RichAttachment>& /*added*/) {
    return Unimplemented("IRichTextMsgMng::SaveRichText", false);
}

void PicReportCtrl::OutputBimReport(const PIC_REPORT::BimReportRequest* /*request*/) {
    Unimplemented("IPicReportCtrl::OutputBimReport");
}

void PicReportCtrl::OutputPdfReport(const PIC_REPORT::PdfReportRequest* /*request*/) {
    Unimplemented("IPicReportCtrl::OutputPdfReport");
}

void PicReportCtrl::OutputIssueReport(const PIC_REPORT::IssueReportRequest* /*request*/) {
    Unimplemented("IPicReportCtrl::OutputIssueReport");
}

} // namespace host
