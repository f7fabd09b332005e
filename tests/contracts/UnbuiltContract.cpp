// Operations that the host has no answer for yet: they do nothing.
#include "tests/contracts/Contract.h"

namespace contracts {

class Unbuilt : public Contract {};
ON_EVERY_SITE(Unbuilt);

TEST_P(Unbuilt, ReportsReturnAtOnce) {
    const PIC_REPORT::BimReportRequest bim;
    const PIC_REPORT::PdfReportRequest pdf;
    const PIC_REPORT::IssueReportRequest issue;
    on.reports->OutputBimReport(&bim);
    on.reports->OutputPdfReport(&pdf);
    on.reports->OutputIssueReport(&issue);
}

} // namespace contracts
