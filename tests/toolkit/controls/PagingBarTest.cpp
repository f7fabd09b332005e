// The paging bar with real clicks and keys.
#include "tests/toolkit/controls/SampleGrid.h"

#include "toolkit/Look.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct PagingBarFixture : ::testing::Test {
    SampleGrid grid;
    std::unique_ptr<SampleWindow> window;

    void SetUp() override {
        grid.AddColumns();
        window = std::make_unique<SampleWindow>(grid);
    }
    [[nodiscard]] CMultiPageGridManager& Manager() const { return window->manager; }
    [[nodiscard]] QToolButton* Button(const QString& name) const {
        return Manager().Widget()->findChild<QToolButton*>(name);
    }
    [[nodiscard]] QLineEdit* Box() const {
        return Manager().Widget()->findChild<QLineEdit*>(u"pagingBox"_s);
    }
    [[nodiscard]] QString Total() const {
        return Manager().Widget()->findChild<QLabel*>(u"pagingTotal"_s)->text();
    }
    void Click(const QString& name) const { QTest::mouseClick(Button(name), Qt::LeftButton); }
    void Type(const QString& text) const {
        Box()->setFocus();
        Box()->selectAll();
        QTest::keyClicks(Box(), text);
    }
};

using PagingBar = PagingBarFixture;

TEST_F(PagingBar, ButtonsGoToFirstPreviousNextAndLast) {
    Manager().SetPageCount(9);
    Click(u"pagingNext"_s);
    Click(u"pagingLast"_s);
    Click(u"pagingPrevious"_s);
    Click(u"pagingFirst"_s);
    EXPECT_THAT(grid.pages, ElementsAre(2, 9, 8, 1));
    EXPECT_EQ(Box()->text(), u"1"_s);
    EXPECT_EQ(Total(), u"/ 9 页"_s);
}

TEST_F(PagingBar, ButtonsThatLeadNowhereAreDisabled) {
    const auto enabled = [&] {
        std::vector<bool> states;
        for (const QString& name :
             {u"pagingFirst"_s, u"pagingPrevious"_s, u"pagingNext"_s, u"pagingLast"_s}) {
            states.push_back(Button(name)->isEnabled());
        }
        return states;
    };
    EXPECT_THAT(enabled(), ElementsAre(false, false, false, false));
    Manager().SetPageCount(3);
    EXPECT_THAT(enabled(), ElementsAre(false, false, true, true));
    Manager().DoPage(2);
    EXPECT_THAT(enabled(), ElementsAre(true, true, true, true));
    Manager().DoPage(3);
    EXPECT_THAT(enabled(), ElementsAre(true, true, false, false));
}

TEST_F(PagingBar, NoPagesReadAsZeroOfZero) {
    EXPECT_EQ(Box()->text(), u"0"_s);
    EXPECT_EQ(Total(), u"/ 0 页"_s);
    EXPECT_FALSE(Box()->isEnabled());
    Manager().SetPageCount(1);
    EXPECT_EQ(Box()->text(), u"1"_s);
    EXPECT_TRUE(Box()->isEnabled());
}

TEST_F(PagingBar, EnterGoesToTheTypedPage) {
    Manager().SetPageCount(40);
    Type(u"17"_s);
    EXPECT_THAT(grid.pages, IsEmpty());
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_THAT(grid.pages, ElementsAre(17));
}

TEST_F(PagingBar, TypedPageOutOfRangeMeansTheNearestOne) {
    Manager().SetPageCount(40);
    Type(u"999999999"_s);
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_EQ(Box()->text(), u"40"_s);
    Type(u"0"_s);
    QTest::keyClick(Box(), Qt::Key_Enter);
    EXPECT_THAT(grid.pages, ElementsAre(40, 1));
}

TEST_F(PagingBar, EmptyBoxGoesNowhereAndLettersCannotBeTyped) {
    Manager().SetPageCount(40);
    Box()->setFocus();
    Box()->selectAll();
    QTest::keyClick(Box(), Qt::Key_Backspace);
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_THAT(grid.pages, IsEmpty());
    EXPECT_EQ(Box()->text(), u"1"_s);
    Type(u"a-2"_s);
    EXPECT_EQ(Box()->text(), u"2"_s);
}

TEST_F(PagingBar, RefreshOfTheSamePageKeepsWhatIsBeingTyped) {
    Manager().SetPageCount(40);
    Type(u"1"_s);
    grid.DoCurrentPage();
    Manager().SetPageCount(41);
    QTest::keyClicks(Box(), u"2"_s);
    EXPECT_EQ(Box()->text(), u"12"_s);
    Manager().DoPage(3);
    EXPECT_EQ(Box()->text(), u"3"_s);
}

TEST_F(PagingBar, LeavingTheBoxOrEscapePutsThePageBack) {
    Manager().SetPageCount(40);
    Type(u"12"_s);
    QTest::keyClick(Box(), Qt::Key_Escape);
    EXPECT_EQ(Box()->text(), u"1"_s);
    Type(u"12"_s);
    grid.SetFocus();
    EXPECT_EQ(Box()->text(), u"1"_s);
}

TEST_F(PagingBar, KeysTurnPagesWhereverTheKeyboardIs) {
    Manager().SetPageCount(9);
    grid.Fill(3);
    grid.SetFocus();
    QTest::keyClick(grid.View(), Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(grid.View(), Qt::Key_End, Qt::AltModifier);
    QTest::keyClick(grid.View(), Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(grid.View(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(grid.View(), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyClick(grid.View(), Qt::Key_Home, Qt::AltModifier);
    QTest::keyClick(grid.View(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_THAT(grid.pages, ElementsAre(2, 9, 8, 7, 8, 1));
    EXPECT_TRUE(grid.View()->hasFocus());
}

TEST_F(PagingBar, KeyboardStaysInTheBarWhenItsButtonGoesDead) {
    Manager().SetPageCount(2);
    Button(u"pagingNext"_s)->setFocus();
    QTest::keyClick(Button(u"pagingNext"_s), Qt::Key_Space);
    EXPECT_THAT(grid.pages, ElementsAre(2));
    EXPECT_TRUE(Box()->hasFocus());
}

TEST_F(PagingBar, ManagerKeepsPagesInRange) {
    Manager().DoPage(7);
    Manager().SetPageCount(5);
    Manager().DoPage(7);
    Manager().DoPage(-1);
    Manager().DoFirstPage();
    EXPECT_THAT(grid.pages, ElementsAre(1, 5, 1, 1));
    Manager().SetPageCount(-3);
    EXPECT_EQ(Manager().GetPageCount(), 0);
}

TEST_F(PagingBar, ButtonsAndBoxHaveNamesAndTipsWithTheirKeys) {
    EXPECT_EQ(Button(u"pagingFirst"_s)->accessibleName(), u"首页"_s);
    EXPECT_EQ(Button(u"pagingFirst"_s)->toolTip(), u"首页（Alt+Home）"_s);
    EXPECT_EQ(Button(u"pagingNext"_s)->toolTip(), u"下一页（Alt+Right）"_s);
    EXPECT_FALSE(Box()->accessibleName().isEmpty());
    EXPECT_FALSE(Button(u"pagingLast"_s)->icon().isNull());
}

TEST_F(PagingBar, BarAndGridArePlacedByTheManager) {
    Manager().SetRect(QRect(5, 6, 310, 28));
    Manager().MoveGrid(QRect(1, 2, 300, 200));
    EXPECT_EQ(Manager().GetRect(), QRect(5, 6, 310, 28));
    EXPECT_EQ(grid.Widget()->geometry(), QRect(1, 2, 300, 200));
    EXPECT_EQ(Manager().Widget()->sizeHint(), QSize(300, 28));
    CMultiPageGridManager none;
    EXPECT_EQ(none.GetRect(), QRect());
    none.DoPage(3);
    none.UpdateBar();
}

TEST_F(PagingBar, ShowsAtOnceInAWindowThatIsShown) {
    CMultiPageGridManager other;
    other.Create(window.get());
    EXPECT_TRUE(other.Widget()->isVisible());
}

TEST_F(PagingBar, GoesWithItsManager) {
    auto other = std::make_unique<CMultiPageGridManager>();
    other->Create(window.get());
    const QPointer<QWidget> bar = other->Widget();
    other.reset();
    EXPECT_TRUE(!bar || !bar->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(bar.isNull());
}

TEST_F(PagingBar, ItsControlsStandSideBySideAtItsEnd) {
    Manager().SetRect(QRect(0, 0, 400, 28));
    const std::vector<const QWidget*> order = {
        Button(u"pagingFirst"_s),
        Button(u"pagingPrevious"_s),
        Box(),
        Manager().Widget()->findChild<QLabel*>(u"pagingTotal"_s),
        Button(u"pagingNext"_s),
        Button(u"pagingLast"_s)};
    for (size_t i = 1; i < order.size(); ++i) {
        EXPECT_EQ(order[i]->x(), order[i - 1]->geometry().right() + 1 + toolkit::kStep) << i;
    }
    EXPECT_EQ(order.back()->geometry().right(), 399);
    for (const QString& name :
         {u"pagingFirst"_s, u"pagingPrevious"_s, u"pagingNext"_s, u"pagingLast"_s}) {
        EXPECT_EQ(Button(name)->size(), QSize(26, 26));
        EXPECT_EQ(Button(name)->iconSize(), QSize(16, 16));
        EXPECT_TRUE(Button(name)->autoRaise());
    }
    EXPECT_TRUE(Box()->alignment().testFlag(Qt::AlignHCenter));
}

TEST_F(PagingBar, NineDigitsCanBeTyped) {
    Manager().SetPageCount(40);
    Type(u"1234567890"_s);
    EXPECT_EQ(Box()->text(), u"123456789"_s);
}

} // namespace
