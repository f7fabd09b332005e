// What the BIM photo viewer asks a report for.
#include "tests/viewers/bim/BimViewFixture.h"
#include "tests/viewers/support/RecordPane.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::RecordPane;
using testing::ElementsAre;

class BimReportTest : public BimViewFixture {
protected:
    static CRichEditorDlg& Record() { return Wrap().RichEditor(); }
    void OpenLoaded() {
        ASSERT_TRUE(Open(2));
        support::RunPendingEvents();
    }
    const PIC_REPORT::BimReportRequest& Request() {
        Click(Pane().ReportButton());
        return host.reports.lastBim;
    }

    RecordPane record{host};
};

} // namespace

TEST_F(BimReportTest, TheRequestCarriesTheViewersFloorPositionAndMarkAndNoPhoto) {
    OpenLoaded();
    const PIC_REPORT::BimReportRequest& request = Request();
    EXPECT_EQ(Log().CountOf("OutputBimReport"), 1);
    EXPECT_EQ(request.floor, u"1");
    EXPECT_EQ(request.positionKey, u"K");
    EXPECT_EQ(request.markId, 1);
    EXPECT_TRUE(request.richTextEnabled);
    EXPECT_TRUE(request.htmlText.contains(u"雨后渗水"_s));
    EXPECT_EQ(request.versionText, u"整改中");
    EXPECT_EQ(request.recordText, u"李四");
}

TEST_F(BimReportTest, ItHasWhatIsTypedAndNotSavedYet) {
    OpenLoaded();
    RecordPane::Write(Record(), u"，已处理"_s);
    EXPECT_TRUE(Request().htmlText.contains(u"雨后渗水，已处理"_s));
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0) << "the record itself is saved as ever";
    Wrap().Widget()->close();
    EXPECT_EQ(Log().CountOf("SaveRichText"), 1);
}

TEST_F(BimReportTest, WhoMayNotWriteGetsThePageAsItWasRead) {
    host.richAuth.readOnly = true;
    OpenLoaded();
    RecordPane::Write(Record(), u"，已处理"_s);
    EXPECT_FALSE(Request().htmlText.contains(u"已处理"_s));
    EXPECT_TRUE(host.reports.lastBim.htmlText.contains(u"雨后渗水"_s));
}

TEST_F(BimReportTest, WithRichTextSwitchedOffTheTextsAreEmptyAndTheReportGoesOut) {
    host.richAuth.enabled = false;
    OpenLoaded();
    const PIC_REPORT::BimReportRequest& request = Request();
    EXPECT_EQ(Log().CountOf("OutputBimReport"), 1);
    EXPECT_FALSE(request.richTextEnabled);
    EXPECT_TRUE(request.htmlText.isEmpty());
    EXPECT_TRUE(request.versionText.isEmpty());
    EXPECT_TRUE(request.recordText.isEmpty());
    EXPECT_EQ(request.positionKey, u"K");
}

TEST_F(BimReportTest, WithoutASelectedStateItsTextIsEmpty) {
    host.richTexts.message.stateText = u"不存在"_s;
    OpenLoaded();
    EXPECT_TRUE(Request().versionText.isEmpty());
}

TEST_F(BimReportTest, ThePlaceIsThatOfTheLastOpening) {
    OpenLoaded();
    ASSERT_TRUE(Facade().OpenBimPicView(1, u"2"_s, u"K2"_s, 9));
    support::RunPendingEvents();
    const PIC_REPORT::BimReportRequest& request = Request();
    EXPECT_EQ(request.floor, u"2");
    EXPECT_EQ(request.positionKey, u"K2");
    EXPECT_EQ(request.markId, 9);
}

TEST_F(BimReportTest, TheClientIsBlockedWhenTheReportIsAskedFor) {
    OpenLoaded();
    bool isBlocked = false;
    host.script.During("OutputBimReport", [&] { isBlocked = !mainWindow.Widget()->isEnabled(); });
    Click(Pane().ReportButton());
    EXPECT_TRUE(isBlocked);
}

TEST_F(BimReportTest, AskedForTwiceInARowItGoesOutTwice) {
    OpenLoaded();
    Click(Pane().ReportButton());
    Click(Pane().ReportButton());
    EXPECT_EQ(Log().CountOf("OutputBimReport"), 2);
    Wrap().OnTimer(1);
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
}

TEST_F(BimReportTest, AViewerThatIsClosedWhileItIsAskedForBlocksNobody) {
    OpenLoaded();
    host.script.During("OutputBimReport", [] { Wrap().Widget()->close(); });
    Click(Pane().ReportButton());
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
}
