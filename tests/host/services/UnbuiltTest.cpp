#include "services/Factories.h"
#include "services/IPicReportCtrl.h"
#include "services/IRichTextMsgMng.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

TEST(UnbuiltOperations, AnswerWithTheirFailureValueAndInventNothing) {
    ServiceSite site;
    KX_DATA::RichTextMsg message;
    std::vector<KX_DATA::RichAttachment> attachments;
    EXPECT_FALSE(GetRichTextMsgMng()->GetRichText({}, message, attachments));
    EXPECT_FALSE(GetRichTextMsgMng()->SaveRichText({}, message, {}, {}, {}));
    GetPicReportCtrl()->OutputBimReport(nullptr); // a log line and nothing else
}

} // namespace host
