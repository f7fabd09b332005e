// What the drawing photo viewer asks a report for.
#include "tests/viewers/pdf/PdfViewFixture.h"
#include "tests/viewers/support/RecordPane.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::RecordPane;

class PdfReportTest : public PdfViewFixture {
protected:
    void OpenLoaded() {
        ASSERT_TRUE(Open());
        support::RunPendingEvents();
    }
    const PIC_REPORT::PdfReportRequest& Request() {
        Click(Pane().ReportButton());
        return host.reports.lastPdf;
    }

    RecordPane record{host};
};

} // namespace

TEST_F(PdfReportTest, TheRequestCarriesTheDrawingAndNotTheCheckpoint) {
    OpenLoaded();
    Wrap().drawingName = u"首层平面"_s;
    const PIC_REPORT::PdfReportRequest& request = Request();
    EXPECT_EQ(Log().CountOf("OutputPdfReport"), 1);
    EXPECT_EQ(request.drawingId, Wrap().drawingId);
    EXPECT_EQ(request.drawingId, 101);
    EXPECT_EQ(request.drawingName, u"首层平面");
    EXPECT_TRUE(request.richTextEnabled);
    EXPECT_TRUE(request.htmlText.contains(u"雨后渗水"_s));
    EXPECT_EQ(request.versionText, u"整改中");
    EXPECT_EQ(request.recordText, u"李四");
}

TEST_F(PdfReportTest, ItHasWhatIsTypedAndNotSavedYet) {
    OpenLoaded();
    RecordPane::Write(Wrap().RichEditor(), u"，已处理"_s);
    EXPECT_TRUE(Request().htmlText.contains(u"雨后渗水，已处理"_s));
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
}

TEST_F(PdfReportTest, WithRichTextSwitchedOffTheTextsAreEmptyAndTheReportGoesOut) {
    host.richAuth.enabled = false;
    OpenLoaded();
    const PIC_REPORT::PdfReportRequest& request = Request();
    EXPECT_EQ(Log().CountOf("OutputPdfReport"), 1);
    EXPECT_FALSE(request.richTextEnabled);
    EXPECT_TRUE(request.htmlText.isEmpty());
    EXPECT_TRUE(request.versionText.isEmpty());
    EXPECT_TRUE(request.recordText.isEmpty());
}
