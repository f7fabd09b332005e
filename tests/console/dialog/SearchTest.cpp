// What a search asks for and how the console looks meanwhile.
#include "base/Status.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/controls/KXComboBox.h"

#include <QCheckBox>
#include <QDateTime>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gmock/gmock.h>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

qint64 At(int month, int day, int hour, int minute, int second) {
    return QDateTime(QDate(2026, month, day), QTime(hour, minute, second)).toSecsSinceEpoch();
}

class SearchTest : public ConsoleFixture {
protected:
    /// The keyword that a search for this text asks for.
    QString Searched(const QString& typed) {
        TypeKeyword(typed);
        Click(C().searchButton);
        return BimFilter().keyword;
    }
    [[nodiscard]] Calls Recent() { return Entries(*C().keywordCombo); }
};

TEST_F(SearchTest, AnUntouchedConsoleLimitsNothingButTheProject) {
    Open(kModeBim);
    const KX_DATA::PicQueryFilter& filter = BimFilter();
    EXPECT_EQ(filter.keyword, QString());
    EXPECT_EQ(filter.presetKey, QString());
    EXPECT_EQ(filter.presetExtra, QString());
    EXPECT_EQ(filter.labelId, QString());
    EXPECT_EQ(filter.markId, 0);
    EXPECT_EQ(filter.picId, -1);
    EXPECT_TRUE(filter.noDateLimit);
    EXPECT_EQ(filter.status, u"全部"_s);
    EXPECT_THAT(filter.projectIds, ElementsAre(1));
}

TEST_F(SearchTest, TheTimesReachFromTheStartOfTheFirstDayToTheEndOfTheLast) {
    Open(kModeBim);
    EXPECT_EQ(BimFilter().startTime, At(2, 26, 0, 0, 0));
    EXPECT_EQ(BimFilter().endTime, At(3, 5, 23, 59, 59));
    Open(kModePdf);
    EXPECT_EQ(PdfFilter().startTime, At(2, 26, 0, 0, 0));
    EXPECT_EQ(PdfFilter().endTime, At(3, 5, 23, 59, 59));
    Open(kModeIssue);
    EXPECT_EQ(IssueFilter().startTime, At(2, 26, 0, 0, 0));
    EXPECT_EQ(IssueFilter().endTime, At(3, 5, 23, 59, 59));
}

TEST_F(SearchTest, DrawingPhotosAreSearchedByARecordOfTheirOwn) {
    Open(kModePdf);
    TypeKeyword(u"abc"_s);
    Choose(*C().statusCombo, 1);
    Click(C().noDateLimit);
    const KX_DATA::PdfQueryFilter& filter = PdfFilter();
    EXPECT_EQ(filter.keyword, u"abc"_s);
    EXPECT_EQ(filter.markId, 0);
    EXPECT_EQ(filter.labelId, QString());
    EXPECT_EQ(filter.drawingId, -1);
    EXPECT_EQ(filter.checkpointId, -1);
    EXPECT_FALSE(filter.noDateLimit);
    EXPECT_EQ(filter.status, u"待整改"_s);
    EXPECT_THAT(filter.projectIds, ElementsAre(1));
}

TEST_F(SearchTest, IssuesAreSearchedLikeBimPhotos) {
    Open(kModeIssue);
    TypeKeyword(u"abc"_s);
    Click(C().searchButton);
    EXPECT_EQ(IssueFilter().keyword, u"abc"_s);
    EXPECT_EQ(IssueFilter().status, u"全部"_s);
    EXPECT_EQ(Log().CountOf("QueryIssues"), 1);
}

TEST_F(SearchTest, ASearchGoesToTheFirstPage) {
    Open(kModeBim, 65);
    Console().Paging()->DoPage(3);
    Click(C().searchButton);
    EXPECT_EQ(host.pics.bimQuery.lastRequest.page, 1);
    EXPECT_EQ(Grid().GetCurrentPage(), 1);
}

TEST_F(SearchTest, TheKeywordIsTrimmed) {
    Open(kModeBim);
    EXPECT_EQ(Searched(u"  abc d "_s), u"abc d"_s);
    EXPECT_THAT(Recent(), ElementsAre("abc d"));
    EXPECT_EQ(C().keywordCombo->currentText(), u"abc d"_s);
}

TEST_F(SearchTest, AKeywordOfBlanksCountsAsEmptyAndIsNotRemembered) {
    Open(kModeBim);
    EXPECT_EQ(Searched(u"   "_s), QString());
    EXPECT_THAT(Recent(), IsEmpty());
}

TEST_F(SearchTest, TheHintTextItselfCountsAsEmpty) {
    Open(kModeBim);
    EXPECT_EQ(Searched(u"输入照片名称、相关人账号、描述等关键字"_s), QString());
    EXPECT_THAT(Recent(), IsEmpty());
    // The hint of another kind is a keyword like any other.
    EXPECT_EQ(Searched(u"输入问题主题、相关人账号、描述等关键字"_s),
              u"输入问题主题、相关人账号、描述等关键字"_s);
}

TEST_F(SearchTest, KeywordsAreRememberedNewestFirstAndOnce) {
    Open(kModeBim);
    Searched(u"a"_s);
    Searched(u"b"_s);
    Searched(u"c"_s);
    EXPECT_THAT(Recent(), ElementsAre("c", "b", "a"));
    Searched(u"a"_s);
    EXPECT_THAT(Recent(), ElementsAre("a", "c", "b"));
    EXPECT_EQ(C().keywordCombo->currentIndex(), 0);
}

TEST_F(SearchTest, OfSevenKeywordsTheOldestGoes) {
    Open(kModeBim);
    for (const QString& keyword : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s}) {
        Searched(keyword);
    }
    EXPECT_THAT(Recent(), ElementsAre("7", "6", "5", "4", "3", "2"));
    Searched(u"3"_s);
    EXPECT_THAT(Recent(), ElementsAre("3", "7", "6", "5", "4", "2"));
}

TEST_F(SearchTest, KeywordsAreSavedOnlyOnClosing) {
    Open(kModeBim);
    Searched(u"a"_s);
    Searched(u"b"_s);
    EXPECT_EQ(Log().CountOf("SaveRecent"), 0);
    Console().CloseConsole();
    EXPECT_THAT(Log().LinesOf({"SaveRecent"}), ElementsAre("SaveRecent([b a])"));
}

TEST_F(SearchTest, AKeywordThatWasOnlyTypedIsNotSaved) {
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    Console().CloseConsole();
    EXPECT_THAT(Log().LinesOf({"SaveRecent"}), ElementsAre("SaveRecent([])"));
}

TEST_F(SearchTest, EnterInTheKeywordBoxSearchesOnce) {
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    QTest::keyClick(C().keywordCombo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().keyword, u"abc"_s);
    // A text that the list knows by now is searched once too.
    QTest::keyClick(C().keywordCombo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(Searches(), 2);
}

TEST_F(SearchTest, TypingSearchesNothing) {
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    EXPECT_EQ(Searches(), 0);
}

TEST_F(SearchTest, WhileItSearchesTheConsoleSaysSo) {
    Open(kModeBim);
    QString pane;
    bool enabled = true;
    bool waits = false;
    host.script.During("QueryBimPics", [&] {
        pane = C().statusPane->text();
        enabled = C().searchButton->isEnabled();
        waits = QGuiApplication::overrideCursor() != nullptr;
    });
    Click(C().searchButton);
    EXPECT_EQ(pane, u"正在搜索..."_s);
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(waits);
    EXPECT_TRUE(C().searchButton->isEnabled());
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到3张照片"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SearchTest, ARefusedSearchReportsNoHitsAndNoMessage) {
    Open(kModeBim);
    host.script.FailNext("QueryBimPics");
    Click(C().searchButton);
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到0张照片"_s);
    EXPECT_TRUE(C().searchButton->isEnabled());
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(SearchTest, ARaisedStatusIsShownAndTheConsoleCanSearchAgain) {
    Open(kModeBim);
    host.script.During("QueryBimPics", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Click(C().searchButton);
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到0张照片"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    host.script.During("QueryBimPics", nullptr);
    Click(C().searchButton);
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到3张照片"_s);
}

TEST_F(SearchTest, TheCountIsThatOfTheWholeSearchAndNotOfThePage) {
    Open(kModeBim, 65);
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到65张照片"_s);
}

TEST_F(SearchTest, TheRadioButtonsChangeTheKind) {
    Open(kModeBim);
    FillService(host, kModePdf, 2);
    Click(C().pdfRadio);
    EXPECT_EQ(Console().GetMode(), kModePdf);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(Log().CountOf("QueryPdfPics"), 1);
    EXPECT_EQ(Grid().GetColumnCount(), 18);
    EXPECT_EQ(Grid().GetRowCount(), 2);
    EXPECT_EQ(C().keywordCombo->TipInfo(), u"输入照片名称、图纸、相关人账号、描述等关键字"_s);
    Click(C().bimRadio);
    EXPECT_EQ(Console().GetMode(), kModeBim);
    EXPECT_EQ(Grid().GetColumnCount(), 17);
}

TEST_F(SearchTest, TheRadioButtonOfThePresentKindDoesNothing) {
    Open(kModeBim);
    Click(C().bimRadio);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(SearchTest, AnotherKindKeepsKeywordStateAndDates) {
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    Choose(*C().statusCombo, 1);
    Click(C().noDateLimit);
    Click(C().pdfRadio);
    EXPECT_EQ(PdfFilter().keyword, u"abc"_s);
    EXPECT_EQ(PdfFilter().status, u"待整改"_s);
    EXPECT_FALSE(PdfFilter().noDateLimit);
}

/// What a label showed each time that it was painted.
class PaintedTexts final : public QObject {
public:
    explicit PaintedTexts(QLabel* watched) : m_label(watched) { m_label->installEventFilter(this); }

    std::vector<QString> texts;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            texts.push_back(m_label->text());
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel* m_label;
};

TEST_F(SearchTest, ThatItSearchesIsPaintedBeforeTheServiceIsAsked) {
    Open(kModeBim);
    PaintedTexts painted(C().statusPane);
    std::vector<QString> before;
    host.script.During("QueryBimPics", [&] { before = painted.texts; });
    Click(C().searchButton);
    ASSERT_FALSE(before.empty());
    EXPECT_EQ(before.back(), u"正在搜索..."_s);
}

TEST_F(SearchTest, NoSearchCanBePressedWhileAPageIsFetched) {
    Open(kModeBim, 65);
    bool enabled = true;
    host.script.During("QueryBimPics", [&] { enabled = C().searchButton->isEnabled(); });
    Console().Paging()->DoPage(2);
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(C().searchButton->isEnabled());
}

TEST_F(SearchTest, AfterAClickOnSearchEnterSearchesAgainAndLooksNoRowUp) {
    Open(kModeBim);
    ClickCell(1, 3);
    Click(C().searchButton);
    EXPECT_EQ(support::FocusedName(), "searchButton");
    Key(Qt::Key_Return);
    EXPECT_EQ(Searches(), 2);
    EXPECT_EQ(Log().CountOf("LocatePicture"), 0);
}

TEST_F(SearchTest, EnterWhileItSearchesLooksNoRowUp) {
    Open(kModeBim);
    ClickCell(1, 3);
    host.script.During("QueryBimPics", [&] {
        host.script.During("QueryBimPics", nullptr);
        EXPECT_NE(support::FocusedName(), "resultGrid");
        Key(Qt::Key_Return);
    });
    Click(C().searchButton);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(Log().CountOf("LocatePicture"), 0);
}

TEST_F(SearchTest, TheKeyboardStaysWhereItWasPutWhileItSearched) {
    Open(kModeBim);
    host.script.During("QueryBimPics", [&] { View().setFocus(); });
    Click(C().searchButton);
    EXPECT_EQ(support::FocusedName(), "resultGrid");
}

TEST_F(SearchTest, AFailedSearchOfEachKindReportsNoHits) {
    for (const auto& [mode, query, text] :
         {std::tuple(kModeBim, "QueryBimPics", u"本次共搜索到0张照片"_s),
          std::tuple(kModePdf, "QueryPdfPics", u"本次共搜索到0张照片"_s),
          std::tuple(kModeIssue, "QueryIssues", u"本次共搜索到0个问题"_s)}) {
        Open(mode, 65);
        host.script.FailNext(query);
        Click(C().searchButton);
        EXPECT_EQ(C().statusPane->text(), text);
        EXPECT_EQ(Grid().totalCount, 0);
        EXPECT_EQ(Console().Paging()->GetPageCount(), 0);
    }
}

TEST_F(SearchTest, AChosenRecentKeywordSearchesOnlyWhenSearchIsPressed) {
    host.recent.keywords = {u"a"_s, u"b"_s, u"c"_s};
    Open(kModeBim);
    Choose(*C().keywordCombo, 2);
    EXPECT_EQ(Searches(), 0);
    EXPECT_EQ(C().keywordCombo->currentText(), u"c"_s);
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().keyword, u"c"_s);
    EXPECT_THAT(Entries(*C().keywordCombo), ElementsAre("c", "a", "b"));
}

TEST_F(SearchTest, AKeywordThatDiffersInCaseAloneStaysAsTyped) {
    host.recent.keywords = {u"ABC"_s};
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    Key(Qt::Key_Return);
    EXPECT_EQ(BimFilter().keyword, u"abc"_s);
    EXPECT_THAT(Entries(*C().keywordCombo), ElementsAre("abc", "ABC"));
    TypeKeyword(u"ab"_s);
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().keyword, u"ab"_s);
}

TEST_F(SearchTest, AChangedKindAsksForNothingButItsFirstPage) {
    Open(kModeBim);
    C().keywordCombo->setEditText(u"word"_s);
    Click(C().pdfRadio);
    EXPECT_EQ(C().keywordCombo->TipInfo(), u"输入照片名称、图纸、相关人账号、描述等关键字"_s);
    EXPECT_EQ(PdfFilter().keyword, u"word"_s);
    EXPECT_EQ(Log().CountOf("GetUsedPdfMarks") + Log().CountOf("GetPdfLabels"), 0);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(Grid().GetColumnCount(), 18);
}

} // namespace
