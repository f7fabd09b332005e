// "不限" and the two dates.
#include "tests/console/dialog/ConsoleFixture.h"
#include "tests/support/WaitFor.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDateTime>
#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const char* const kWrongOrder = "开始时间不能大于结束时间!";

/// The start is 2026-02-26 and the end 2026-03-05; an arrow key turns the year.
class DatesTest : public ConsoleFixture {
protected:
    void OpenWithDates() {
        Open(kModeBim);
        Click(C().noDateLimit);
        Log().Clear();
    }
    static void TurnYear(QDateEdit* picker, Qt::Key key) {
        picker->setFocus();
        picker->setCurrentSection(QDateTimeEdit::YearSection);
        QTest::keyClick(picker, key);
    }
    static qint64 Start(const QDate& date) { return date.startOfDay().toSecsSinceEpoch(); }
};

TEST_F(DatesTest, TurningTheLimitOnEnablesTheDatesAndSearches) {
    Open(kModeBim);
    Click(C().noDateLimit);
    EXPECT_TRUE(C().startPicker->isEnabled());
    EXPECT_TRUE(C().endPicker->isEnabled());
    EXPECT_EQ(Searches(), 1);
    EXPECT_FALSE(BimFilter().noDateLimit);
    Click(C().noDateLimit);
    EXPECT_FALSE(C().startPicker->isEnabled());
    EXPECT_FALSE(C().endPicker->isEnabled());
    EXPECT_EQ(Searches(), 2);
    EXPECT_TRUE(BimFilter().noDateLimit);
}

TEST_F(DatesTest, AChangedDateSearchesNothingUntilTheButtonIsPressed) {
    OpenWithDates();
    TurnYear(C().startPicker, Qt::Key_Down);
    EXPECT_EQ(C().startPicker->date(), QDate(2025, 2, 26));
    EXPECT_EQ(Searches(), 0);
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().startTime, Start(QDate(2025, 2, 26)));
}

TEST_F(DatesTest, AStartBehindTheEndGoesBackWithATipAtItsPicker) {
    OpenWithDates();
    TurnYear(C().startPicker, Qt::Key_Up);
    EXPECT_EQ(C().startPicker->date(), QDate(2026, 2, 26));
    EXPECT_EQ(BalloonAt(C().startPicker), kWrongOrder);
    EXPECT_EQ(Searches(), 0);
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().startTime, Start(QDate(2026, 2, 26)));
}

TEST_F(DatesTest, AnEndBeforeTheStartGoesBackWithATipAtItsPicker) {
    OpenWithDates();
    TurnYear(C().endPicker, Qt::Key_Down);
    EXPECT_EQ(C().endPicker->date(), QDate(2026, 3, 5));
    EXPECT_EQ(BalloonAt(C().endPicker), kWrongOrder);
    EXPECT_EQ(Searches(), 0);
}

TEST_F(DatesTest, ADateGoesBackToItsLastGoodValueAndNotToTheFirst) {
    OpenWithDates();
    TurnYear(C().endPicker, Qt::Key_Up);
    TurnYear(C().startPicker, Qt::Key_Up);
    EXPECT_EQ(C().startPicker->date(), QDate(2027, 2, 26));
    TurnYear(C().startPicker, Qt::Key_Up);
    EXPECT_EQ(C().startPicker->date(), QDate(2027, 2, 26));
    TurnYear(C().endPicker, Qt::Key_Down);
    EXPECT_EQ(C().endPicker->date(), QDate(2027, 3, 5));
}

TEST_F(DatesTest, OneDayIsARange) {
    OpenWithDates();
    C().startPicker->setDate(QDate(2026, 3, 5));
    EXPECT_EQ(C().startPicker->date(), QDate(2026, 3, 5));
    EXPECT_EQ(BalloonAt(C().startPicker), "");
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().endTime - BimFilter().startTime, 86399);
}

TEST_F(DatesTest, DatesArePassedOnEvenWhileTheyAreOff) {
    OpenWithDates();
    TurnYear(C().startPicker, Qt::Key_Down);
    Click(C().noDateLimit);
    EXPECT_TRUE(BimFilter().noDateLimit);
    EXPECT_EQ(BimFilter().startTime, Start(QDate(2025, 2, 26)));
}

TEST_F(DatesTest, ADateThatIsTypedAndNotCommittedIsWhatAltSSearches) {
    OpenWithDates();
    C().startPicker->setFocus();
    QTest::keyClick(C().startPicker, Qt::Key_End);
    QTest::keyClick(C().startPicker, Qt::Key_Backspace);
    QTest::keyClick(C().startPicker, Qt::Key_8);
    Key(Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(support::WaitFor([this] { return Searches() == 1; }));
    EXPECT_EQ(C().startPicker->text(), u"2026-02-28"_s);
    EXPECT_EQ(BimFilter().startTime, Start(QDate(2026, 2, 28)));
}

TEST_F(DatesTest, ATypedStartBehindTheEndGoesBackBeforeAltSSearches) {
    OpenWithDates();
    C().endPicker->setFocus();
    QTest::keyClick(C().endPicker, Qt::Key_Home);
    QTest::keyClick(C().endPicker, Qt::Key_Delete);
    for (const char digit : {'2', '0', '2', '5'}) {
        QTest::keyClick(C().endPicker, digit);
    }
    Key(Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(support::WaitFor([this] { return Searches() == 1; }));
    EXPECT_EQ(C().endPicker->text(), u"2026-03-05"_s);
    EXPECT_EQ(BimFilter().endTime, Start(QDate(2026, 3, 5)) + 86399);
}

TEST_F(DatesTest, TheWeekIsSevenDaysToTheSecond) {
    // The first and the last second of 2026-03-05.
    for (const qint64 now : {1772640000, 1772726399}) {
        clock.Set(now);
        Open(kModeBim);
        EXPECT_EQ(C().endPicker->date(), QDate(2026, 3, 5));
        EXPECT_EQ(C().startPicker->date(), QDate(2026, 2, 26));
        Console().CloseConsole();
    }
}

} // namespace
