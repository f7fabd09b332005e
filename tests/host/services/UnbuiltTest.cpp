#include "services/Factories.h"
#include "services/IKXReportDataMng.h"
#include "services/IPicReportCtrl.h"
#include "services/IRichTextMsgMng.h"
#include "services/ITNQRCodeMng.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

TEST(UnbuiltOperations, AnswerWithTheirFailureValueAndInventNothing) {
    ServiceSite site;
    QString text;
    EXPECT_EQ(GetTNQRCodeMng()->CreateQRCode({}, text), 0);
    EXPECT_TRUE(text.isEmpty());
    KX_DATA::RichTextMsg message;
    std::vector<KX_DATA::RichAttachment> attachments;
    EXPECT_FALSE(GetRichTextMsgMng()->GetRichText({}, message, attachments));
    EXPECT_FALSE(GetRichTextMsgMng()->SaveRichText({}, message, {}, {}, {}));
    std::vector<KX_DATA::ComponentInfo> components;
    EXPECT_EQ(GetIKXReportDataMng()->GetComponentInfo({}, components), 0);
    const QString id = site.AddIssue([](site::NewIssue&) {});
    KX_DATA::IssueUpdate update;
    update.questionId = id;
    EXPECT_FALSE(GetTNQuestionMng()->UpdateIssue(site.first, update));
    EXPECT_FALSE(GetTNQuestionMng()->SaveRectification({}));
    EXPECT_FALSE(GetTNQuestionMng()->DeletePics(1, {}));
    EXPECT_FALSE(GetTNQuestionMng()->AddRectifyPics(0, {}, {}));
    EXPECT_FALSE(GetTNQuestionMng()->DeleteRectifyPics(0, {}, {}));
    GetPicReportCtrl()->OutputBimReport(nullptr); // a log line and nothing else
}

} // namespace host
