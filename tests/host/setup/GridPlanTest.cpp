#include "tests/host/setup/PlanCase.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace Qt::StringLiterals;
using setuptest::ChangesIn;
using setuptest::FaultsIn;
using setuptest::PlanOf;
using setuptest::SomeState;

QString FloorNamesOf(const site::SetupGrid& grid) {
    QStringList names;
    for (const site::SetupFloor& floor : grid.floors) {
        names << floor.name + (floor.was.isEmpty() ? u"*"_s : QString());
    }
    return names.join(u' ');
}

site::SetupState OneProject() {
    site::SetupState state = SomeState();
    state.projects.pop_back();
    state.worksets[0].projects.pop_back();
    state.grids.pop_back();
    return state;
}

TEST(GridPlan, FloorsComeIntoTheirOrder) {
    const host::SetupPlan plan =
        PlanOf(u"[楼层]\n工程,楼层\n一期,B1\n一期,1F\n一期,2F\n一期,夹层\n二期,1\n"_s);
    EXPECT_EQ(setuptest::TextsOf(plan.faults), QStringList());
    EXPECT_EQ(
        setuptest::TextsOf(plan.changes),
        QStringList({u"新增楼层“一期 B1”"_s, u"新增楼层“一期 夹层”"_s, u"新增楼层“二期 1”"_s}));
    EXPECT_EQ(FloorNamesOf(plan.wanted.grids[0]), u"B1* 1F 2F 夹层* 3F");
    EXPECT_EQ(FloorNamesOf(plan.wanted.grids[1]), u"1*");
}

TEST(GridPlan, AnEmptyProjectIsTheOnlyOne) {
    EXPECT_EQ(ChangesIn(u"[楼层]\n楼层\n4F\n"_s, OneProject()),
              QStringList{u"新增楼层“一期 4F”"_s});
    EXPECT_EQ(
        ChangesIn(u"[工程]\n名称\n新\n[楼层]\n楼层\n4F\n[人员]\n姓名,角色\n王工,管理员\n"_s, {}),
        QStringList({u"新增工程“新”"_s, u"新增人员“王工”：编辑、删除、显示与隐藏、新增标签、设置"_s,
                     u"新增楼层“新 4F”"_s}));
    EXPECT_EQ(FaultsIn(u"[楼层]\n楼层\n4F\n"_s),
              QStringList{u"楼层 第 3 行：有 2 个工程，请写明是哪一个"_s});
}

TEST(GridPlan, TheProjectOfAPastedTableMayBeGiven) {
    host::SetupTables tables = host::ReadSetupText(u"[楼层]\n楼层\n4F\n"_s);
    tables.project = u"二期"_s;
    EXPECT_EQ(setuptest::TextsOf(host::PlanSetup(tables, SomeState()).changes),
              QStringList{u"新增楼层“二期 4F”"_s});
}

TEST(GridPlan, FloorsInNoOrderAndDoubledOnesAreTold) {
    EXPECT_EQ(
        FaultsIn(u"[楼层]\n工程,楼层\n二期,1F\n二期,3F\n二期,2F\n二期,1F\n二期,\n九期,1F\n"_s),
        QStringList({u"楼层 第 6 行：“1F”与第 3 行重复"_s, u"楼层 第 7 行：楼层是空的"_s,
                     u"楼层 第 8 行：没有工程“九期”，现有“一期”、“二期”"_s,
                     u"楼层 第 5 行：“2F”排在“3F”的上面；楼层请从低到高写"_s}));
    EXPECT_EQ(FaultsIn(u"[楼层]\n工程,楼层\n一期,2F\n一期,9F\n"_s),
              QStringList{u"楼层 第 4 行：“3F”排在“9F”的上面；楼层请从低到高写"_s});
}

TEST(GridPlan, AnOrderThatPeopleGaveBeforeIsTheirs) {
    site::SetupState state = SomeState();
    std::swap(state.grids[0].floors[0], state.grids[0].floors[1]);
    EXPECT_EQ(ChangesIn(u"[楼层]\n工程,楼层\n一期,2F\n一期,1F\n一期,3F\n一期,屋面\n"_s, state),
              QStringList{u"新增楼层“一期 屋面”"_s});
    EXPECT_EQ(ChangesIn(u"[楼层]\n工程,楼层\n一期,1F\n一期,2F\n"_s, state),
              QStringList{u"楼层“一期”改变顺序：“1F”、“2F”、“3F”"_s});
}

TEST(GridPlan, AxesCrossOnAllFloorsThatTheyName) {
    const host::SetupPlan plan =
        PlanOf(u"[轴网]\n工程,楼层,X轴,Y轴\n一期,1F-2F,1-3,A、B\n一期,全部,9,Z\n"_s);
    EXPECT_EQ(setuptest::TextsOf(plan.changes),
              QStringList({u"新增交点“一期 1F”：5 个"_s, u"新增交点“一期 2F”：5 个"_s,
                           u"交点“一期 2F”：失效 1 个 改为 有效"_s, u"新增交点“一期 3F”：1 个"_s}));
    const auto& crossings = plan.wanted.grids[0].crossings;
    ASSERT_EQ(crossings.size(), 4U + 11U);
    EXPECT_EQ(crossings[0], SomeState().grids[0].crossings[0]);
    EXPECT_TRUE(crossings[3].valid);
    EXPECT_EQ(crossings[3].positionKey, u"k4");
    EXPECT_EQ(crossings[4], (site::SetupCrossing{{}, u"1F"_s, u"2"_s, u"A"_s, true}));
}

TEST(GridPlan, BlocksMayOverlapAndFloorsMayBeNew) {
    EXPECT_EQ(
        ChangesIn(
            u"[楼层]\n工程,楼层\n二期,1\n[轴网]\n工程,楼层,X轴,Y轴\n二期,1,1-3,A\n二期,1,3-4,A\n"
            "[交点]\n工程,楼层,X轴,Y轴\n二期,1,4,A\n二期,1,1-2,A\n"_s),
        QStringList({u"新增楼层“二期 1”"_s, u"新增交点“二期 1”：5 个"_s}));
}

TEST(GridPlan, AxesThatCrossNowhereAreTold) {
    EXPECT_EQ(FaultsIn(u"[轴网]\n工程,楼层,X轴,Y轴\n一期,1F,1-3,\n一期,1F,,A\n一期,9F,1,A\n一期,,1,"
                       u"A\n一期,1F,3-1,A\n"
                       "一期,1F,,\n二期,全部,1,A\n"_s),
              QStringList(
                  {u"轴网 第 3 行：X轴“1-3”没有相交的Y轴"_s, u"轴网 第 4 行：Y轴“A”没有相交的X轴"_s,
                   u"轴网 第 5 行：没有楼层“9F”，工程“一期”有“1F”、“2F”、“3F”"_s,
                   u"轴网 第 6 行：楼层是空的"_s, u"轴网 第 7 行：“3-1”不是从小到大的范围"_s,
                   u"轴网 第 8 行：X轴和Y轴都是空的"_s,
                   u"轴网 第 9 行：没有写明楼层，工程“二期”还没有楼层"_s}));
}

TEST(GridPlan, FaultsOfCrossings) {
    EXPECT_EQ(FaultsIn(u"[交点]\n工程,楼层,X轴,Y轴\n一期,1F,5,A\n一期,1F,5,A\n"
                       "一期,9F,5,A\n一期,1F,5,\n一期,,5,A\n"_s),
              QStringList({u"交点 第 4 行：“1F 5/A”与第 3 行重复"_s,
                           u"交点 第 5 行：没有楼层“9F”，工程“一期”有“1F”、“2F”、“3F”"_s,
                           u"交点 第 6 行：X轴“5”没有相交的Y轴"_s, u"交点 第 7 行：楼层是空的"_s}));
}

TEST(GridPlan, RulesOfTheSiteForAxesAreToldOnceALine) {
    EXPECT_EQ(FaultsIn(u"[轴网]\n工程,楼层,X轴,Y轴\n一期,1F,%1,C-F\n一期,3F,1,B\n"
                       "[交点]\n工程,楼层,X轴,Y轴\n一期,1F,1,b\n"_s.arg(QString(21, u'x'))),
              QStringList({u"轴网 第 3 行：X轴“%1...”太长，最多 20 个字。"_s.arg(QString(20, u'x')),
                           u"交点 第 7 行：交点“1F 1/b”重复了。"_s}));
}

TEST(GridPlan, MillionsOfCrossingsAreNotMade) {
    EXPECT_EQ(FaultsIn(u"[楼层]\n工程,楼层\n二期,1\n二期,2\n二期,3\n[轴网]\n工程,楼层,X轴,Y轴\n"
                       "二期,1,1,A\n二期,全部,1-500,1-500\n二期,1,2,A\n"_s),
              QStringList({u"轴网 第 9 行：起交点超过 500000 个"_s,
                           u"轴网 第 10 行：起交点超过 500000 个"_s}));
}

TEST(GridPlan, DrawingsThatAreNotThereYet) {
    const auto tables =
        host::ReadSetupText(u"[图纸]\n工程,文件,名称\n一期,图\\一层.pdf,\n一期,b.pdf,二层\n"
                            "一期,有.pdf,\n二期,有.pdf,\n一期,c.pdf,二层\n一期,,\n"_s);
    const host::SetupPlan plan = host::PlanSetup(tables, SomeState(), {{u"一期"_s, {u"有"_s}}});
    EXPECT_EQ(setuptest::TextsOf(plan.faults),
              QStringList({u"图纸 第 7 行：“二层”与第 4 行重复"_s, u"图纸 第 8 行：文件是空的"_s}));
    EXPECT_EQ(setuptest::TextsOf(plan.changes),
              QStringList({u"新增图纸“一期 一层”：图/一层.pdf"_s, u"新增图纸“一期 二层”：b.pdf"_s,
                           u"新增图纸“二期 有”：有.pdf"_s}));
    ASSERT_EQ(plan.drawings.size(), 3);
    EXPECT_EQ(plan.drawings[1].name, u"二层");
    EXPECT_EQ(plan.drawings[1].line, 4);
}

/// Ten thousand lines of each table that may be long.
TEST(GridPlan, TenThousandLinesAreAllTaken) {
    QString text = u"[工程]\n名称\n"_s;
    const auto lines = [&text](const QString& head, const QString& line) {
        text += head;
        for (int number = 1; number <= 10'000; ++number) {
            text += line.arg(number) + u'\n';
        }
    };
    lines({}, u"工程%1"_s);
    lines(u"[工作集]\n名称,工程\n"_s, u"全,工程%1"_s);
    lines(u"[人员]\n姓名,角色\n"_s, u"人%1,管理员"_s);
    lines(u"[标识]\n名称,颜色\n"_s, u"标识%1,#000000"_s);
    lines(u"[标签]\n名称\n"_s, u"标签%1"_s);
    lines(u"[楼层]\n工程,楼层\n"_s, u"工程1,%1"_s);
    lines(u"[交点]\n工程,楼层,X轴,Y轴\n"_s, u"工程1,1,%1,A"_s);
    lines(u"[轴网]\n工程,楼层,X轴,Y轴\n"_s, u"工程1,2-9,%1,A-B"_s);
    const host::SetupPlan plan = PlanOf(text, {});
    EXPECT_EQ(setuptest::TextsOf(plan.faults), QStringList());
    EXPECT_EQ(plan.wanted.projects.size(), 10'000);
    EXPECT_EQ(plan.wanted.worksets.at(0).projects.size(), 10'000);
    EXPECT_EQ(plan.wanted.grids.at(0).floors.size(), 10'000);
    EXPECT_EQ(plan.wanted.grids.at(0).crossings.size(), 10'000 + 160'000);
}

} // namespace
