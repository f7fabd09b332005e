#include "host/ui/statistics/StatisticsDock.h"

#include "hands/Choices.h"
#include "host/ui/statistics/BarPaint.h"
#include "host/ui/statistics/StatisticsModel.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Look.h"

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

StatisticsChart SomeBars() {
    return {CountedKind::BimPhotos,
            {{u"质量"_s, 30, QColor(255, 0, 0)}, {u"无标识"_s, 10, {}}, {u"安全"_s, 0, Qt::blue}},
            40,
            {}};
}

class StatisticsBars : public testing::Test {
protected:
    void SetUp() override {
        window.addDockWidget(Qt::RightDockWidgetArea, dock);
        window.resize(700, 400);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(support::WaitFor([this] { return window.isActiveWindow(); }));
    }
    [[nodiscard]] QTreeView& Bars() const {
        return *dock->findChild<QTreeView*>(u"statisticsBars"_s);
    }
    [[nodiscard]] QString Text(int row, int column) const {
        return Bars().model()->index(row, column).data().toString();
    }
    [[nodiscard]] QLabel& Label(const QString& name) const {
        return *dock->findChild<QLabel*>(name);
    }
    /// Of the cell of a count.
    [[nodiscard]] QRect Cell(int row) const {
        return Bars().visualRect(Bars().model()->index(row, StatisticsModel::kCount));
    }

    QMainWindow window;
    StatisticsDock* dock = new StatisticsDock(&window);
};

TEST_F(StatisticsBars, EachHasNameCountAndShareAndTheTotalStandsAbove) {
    dock->SetChart(SomeBars());
    ASSERT_EQ(Bars().model()->rowCount(), 3);
    EXPECT_EQ(Text(0, StatisticsModel::kName), u"质量"_s);
    EXPECT_EQ(Text(0, StatisticsModel::kCount), u"30"_s);
    EXPECT_EQ(Text(0, StatisticsModel::kShare), u"75.0%"_s);
    EXPECT_EQ(Text(1, StatisticsModel::kShare), u"25.0%"_s);
    EXPECT_EQ(Label(u"statisticsTotal"_s).text(), u"共有照片 40 张"_s);
    EXPECT_FALSE(Label(u"statisticsHint"_s).isVisible());
}

TEST_F(StatisticsBars, AreReadOutWhole) {
    dock->SetChart(SomeBars());
    EXPECT_EQ(Bars().model()->index(0, 1).data(Qt::AccessibleTextRole).toString(),
              u"质量，照片 30 张，占 75.0%"_s);
}

TEST_F(StatisticsBars, ArePaintedInTheirColourAsLongAsTheirCount) {
    dock->SetChart(SomeBars());
    support::RunPendingEvents();
    const QImage seen = Bars().viewport()->grab().toImage();
    const int number = Bars().fontMetrics().horizontalAdvance(u"40"_s);
    const QRect longest = BarPaint::BarIn(Cell(0), 1, number);
    const QRect third = BarPaint::BarIn(Cell(1), 10.0 / 30, number);
    EXPECT_GT(longest.width(), 30);
    EXPECT_EQ(seen.pixelColor(longest.center()), QColor(255, 0, 0));
    EXPECT_EQ(seen.pixelColor(longest.right() - 2, longest.center().y()), QColor(255, 0, 0));
    EXPECT_EQ(seen.pixelColor(third.center()), toolkit::Colors::Accent());
    EXPECT_NE(seen.pixelColor(longest.center().x() + longest.width() / 3, third.center().y()),
              toolkit::Colors::Accent());
    EXPECT_TRUE(BarPaint::BarIn(Cell(2), 0, number).isEmpty());
}

TEST_F(StatisticsBars, ABarOfLittleIsSeenAndANarrowCellHoldsNoBar) {
    EXPECT_EQ(BarPaint::BarIn({0, 0, 200, 20}, 1e-6, 20).width(), 1);
    EXPECT_EQ(BarPaint::BarIn({0, 0, 10, 20}, 0.5, 20).width(), 1);
    EXPECT_LE(BarPaint::BarIn({0, 0, 200, 20}, 1, 20).right(), 180);
}

TEST_F(StatisticsBars, AClickOrEnterTellsWhichOneIsWantedOnce) {
    dock->SetChart(SomeBars());
    const QSignalSpy wanted(dock, &StatisticsDock::BarWanted);
    QTest::mouseClick(Bars().viewport(), Qt::LeftButton, {}, Cell(1).center());
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0][0].toInt(), 1);
    Bars().setFocus();
    QTest::keyClick(&Bars(), Qt::Key_Up);
    QTest::keyClick(&Bars(), Qt::Key_Return);
    ASSERT_EQ(wanted.size(), 2);
    EXPECT_EQ(wanted[1][0].toInt(), 0);
}

TEST_F(StatisticsBars, KeepTheKeysOnTheSameNameWhenTheCountsChange) {
    dock->SetChart(SomeBars());
    Bars().setCurrentIndex(Bars().model()->index(1, 0));
    StatisticsChart more = SomeBars();
    more.bars.insert(more.bars.begin(), {u"进度"_s, 5, {}});
    dock->SetChart(more);
    EXPECT_EQ(Bars().currentIndex().row(), 2);
}

TEST_F(StatisticsBars, WithoutAnyTheDockSaysWhy) {
    dock->SetChart({CountedKind::Issues, {}, 0, u"没有打开的工程。"_s});
    EXPECT_FALSE(Bars().isVisible());
    EXPECT_FALSE(Label(u"statisticsTotal"_s).isVisible());
    EXPECT_TRUE(Label(u"statisticsHint"_s).isVisible());
    EXPECT_EQ(Label(u"statisticsHint"_s).text(), u"没有打开的工程。"_s);
}

TEST_F(StatisticsBars, AnotherChoiceAsksForAnotherChart) {
    const QSignalSpy wanted(dock, &StatisticsDock::ChartWanted);
    EXPECT_EQ(dock->Kind(), CountedKind::BimPhotos);
    EXPECT_EQ(dock->Grouping(), CountedBy::Mark);
    auto* kind = dock->findChild<QComboBox*>(u"statisticsKind"_s);
    auto* grouping = dock->findChild<QComboBox*>(u"statisticsGrouping"_s);
    ASSERT_TRUE(support::WaitFor([&] { return hands::ChooseInCombo(kind, u"图纸照片"_s); }));
    ASSERT_TRUE(support::WaitFor([&] { return hands::ChooseInCombo(grouping, u"按图纸"_s); }));
    EXPECT_EQ(dock->Kind(), CountedKind::PdfPhotos);
    EXPECT_EQ(dock->Grouping(), CountedBy::Place);
    EXPECT_EQ(wanted.size(), 2);
}

TEST_F(StatisticsBars, ComingInSightAsksForTheChartAndBehindATabItIsOutOfSight) {
    EXPECT_TRUE(dock->IsInSight());
    auto* other = new QDockWidget(u"另一个"_s, &window);
    window.addDockWidget(Qt::RightDockWidgetArea, other);
    other->show();
    window.tabifyDockWidget(dock, other);
    other->raise();
    ASSERT_TRUE(support::WaitFor([&] { return !dock->IsInSight(); }));
    const QSignalSpy wanted(dock, &StatisticsDock::ChartWanted);
    dock->raise();
    ASSERT_TRUE(support::WaitFor([&] { return dock->IsInSight(); }));
    EXPECT_EQ(wanted.size(), 1);
}

} // namespace
} // namespace host
