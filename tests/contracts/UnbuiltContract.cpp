// Operations that the host has no answer for yet: as a double that is told to fail they answer with
// their failure value and invent nothing.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;

class Unbuilt : public Contract {
protected:
    /// The host needn't be told.
    void FailDouble(const std::vector<std::string>& operations) {
        if (GetParam().name == "Double") {
            site->Enter(Trouble::Scripted, operations);
        }
    }
};
ON_EVERY_SITE(Unbuilt);

TEST_P(Unbuilt, ChangesOfIssuesFailAndChangeNothing) {
    const QString id = Issue();
    FailDouble(
        {"UpdateIssue", "SaveRectification", "DeletePics", "AddRectifyPics", "DeleteRectifyPics"});
    KX_DATA::IssueUpdate update;
    update.questionId = id;
    update.questionName = u"新"_s;
    EXPECT_FALSE(on.issues->UpdateIssue(first, update));
    KX_DATA::RectifySave save;
    save.questionId = id;
    save.rectifyText = u"新"_s;
    EXPECT_FALSE(on.issues->SaveRectification(save));
    EXPECT_FALSE(on.issues->DeletePics(1, {u"p"_s}));
    KX_DATA::RectifyRecord record;
    record.questionId = id;
    EXPECT_FALSE(on.issues->AddRectifyPics(0, record, {{}}));
    EXPECT_FALSE(on.issues->DeleteRectifyPics(0, record, {u"p"_s}));
    EXPECT_EQ(IssueRows()[0].theme, u"裂缝"_s);
    ASSERT_TRUE(on.issues->GetRectification(id, record));
    EXPECT_EQ(record.rectifyText, QString());
    EXPECT_TRUE(record.pics.empty());
}

TEST_P(Unbuilt, CodesRichTextsAndComponentsFailAndLeaveTheirRecordsAlone) {
    FailDouble({"CreateQRCode", "GetRichText", "SaveRichText", "GetComponentInfo"});
    QString text = u"old"_s;
    EXPECT_EQ(on.qrCodes->CreateQRCode({}, text), 0);
    EXPECT_EQ(text, u"old"_s);
    KX_DATA::RichTextMsg message;
    message.docName = u"old"_s;
    std::vector<KX_DATA::RichAttachment> attachments(2);
    EXPECT_FALSE(on.richTexts->GetRichText({}, message, attachments));
    EXPECT_EQ(message.docName, u"old"_s);
    EXPECT_EQ(attachments.size(), 2U);
    EXPECT_FALSE(on.richTexts->SaveRichText({}, message, {}, {}, {}));
    std::vector<KX_DATA::ComponentInfo> components(2);
    EXPECT_EQ(on.reportData->GetComponentInfo({}, components), 0);
    EXPECT_EQ(components.size(), 2U);
}

TEST_P(Unbuilt, ReportsReturnAtOnce) {
    const PIC_REPORT::BimReportRequest bim;
    const PIC_REPORT::PdfReportRequest pdf;
    const PIC_REPORT::IssueReportRequest issue;
    on.reports->OutputBimReport(&bim);
    on.reports->OutputPdfReport(&pdf);
    on.reports->OutputIssueReport(&issue);
}

} // namespace contracts
