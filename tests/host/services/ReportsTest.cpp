// Requests for reports on their way to the client's component.
#include "services/Factories.h"
#include "services/IPicReportCtrl.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

TEST(ReportServices, WithoutAComponentThePersonIsToldForEachKind) {
    ServiceSite site;
    const PIC_REPORT::BimReportRequest place;
    const PIC_REPORT::PdfReportRequest drawing;
    const PIC_REPORT::IssueReportRequest issue;
    GetPicReportCtrl()->OutputBimReport(&place);
    GetPicReportCtrl()->OutputPdfReport(&drawing);
    GetPicReportCtrl()->OutputIssueReport(&issue);
    ASSERT_EQ(site.messages.size(), 3U);
    for (const QString& message : site.messages) {
        EXPECT_EQ(message, u"此版本尚不提供“输出报告”，请等待后续版本。");
    }
}

} // namespace host
