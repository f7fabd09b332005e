// Operations that the host has no answer for yet: as a double that is told to fail they answer with
// their failure value and invent nothing.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;

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

TEST_P(Unbuilt, RichTextsFailAndLeaveTheirRecordsAlone) {
    FailDouble({"GetRichText", "SaveRichText"});
    KX_DATA::RichTextMsg message;
    message.docName = u"old"_s;
    std::vector<KX_DATA::RichAttachment> attachments(2);
    EXPECT_FALSE(on.richTexts->GetRichText({}, message, attachments));
    EXPECT_EQ(message.docName, u"old"_s);
    EXPECT_EQ(attachments.size(), 2U);
    EXPECT_FALSE(on.richTexts->SaveRichText({}, message, {}, {}, {}));
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
