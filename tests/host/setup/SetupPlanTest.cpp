#include "tests/host/setup/PlanCase.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using setuptest::ChangesIn;
using setuptest::FaultsIn;
using setuptest::PlanOf;
using setuptest::SomeState;

TEST(SetupPlan, WhatThereIsAlreadyChangesNothing) {
    const host::SetupPlan plan =
        PlanOf(u"[工程]\n名称\n一期\n[标识]\n名称\n渗水\n[标签]\n名称\n墙面\n"
               "[工作集]\n名称,工程\n全部,一期\n[人员]\n姓名\n小李\n"_s);
    EXPECT_EQ(setuptest::TextsOf(plan.faults), QStringList());
    EXPECT_EQ(setuptest::TextsOf(plan.changes), QStringList());
    EXPECT_EQ(plan.wanted, SomeState());
}

TEST(SetupPlan, ProjectsAreMadeAndChanged) {
    EXPECT_EQ(ChangesIn(u"[工程]\n名称,专业,归档\n一期,2,是\n三期,revit,\n四期,,是\n"_s),
              QStringList({u"工程“一期”：专业 土建 改为 钢筋"_s, u"工程“一期”：归档 否 改为 是"_s,
                           u"新增工程“三期”"_s, u"新增工程“四期”"_s}));
    const auto projects =
        PlanOf(u"[工程]\n名称,专业,归档\n一期,2,是\n三期,revit,\n四期,,是\n"_s).wanted.projects;
    ASSERT_EQ(projects.size(), 4);
    EXPECT_EQ(projects[0], (site::SetupProject{1, u"一期"_s, 2, true}));
    EXPECT_EQ(projects[1], SomeState().projects[1]);
    EXPECT_EQ(projects[2], (site::SetupProject{0, u"三期"_s, 4, false}));
    EXPECT_EQ(projects[3], (site::SetupProject{0, u"四期"_s, 1, true}));
}

TEST(SetupPlan, AllFaultsOfProjectsAreTold) {
    EXPECT_EQ(FaultsIn(u"[工程]\n名称,专业,归档\n一期,5,\n,土建,\n三期,,\n三期,,\n四期,,也许\n"_s),
              QStringList({u"工程 第 3 行：没有专业“5”，可以写 1 到 4 或 土建、钢筋、安装、Revit"_s,
                           u"工程 第 4 行：名称是空的"_s, u"工程 第 6 行：“三期”与第 5 行重复"_s,
                           u"工程 第 7 行：“归档”只能是“是”或空，不能是“也许”"_s}));
}

TEST(SetupPlan, TheSitesRulesAreToldWithTheirLines) {
    EXPECT_EQ(
        FaultsIn(u"[标签]\n名称\n地面\n%1\n[工程]\n名称\nA栋\na栋\n"_s.arg(QString(61, u'长'))),
        QStringList(
            {u"工程 第 8 行：工程“a栋”重复了，名称不能相同。"_s,
             u"标签 第 4 行：标签名称“%1...”太长，最多 60 个字。"_s.arg(QString(20, u'长'))}));
}

TEST(SetupPlan, WorksetsTakeProjectsOfOneOrSeveralLines) {
    EXPECT_EQ(
        ChangesIn(u"[工程]\n名称\n三期\n[工作集]\n名称,工程,归档\n新区,三期、一期\n新区,二期,是\n"
                  "全部,二期\n"_s),
        QStringList({u"新增工程“三期”"_s, u"新增工作集“新区”：三期、一期、二期"_s,
                     u"工作集“全部”：工程 一期、二期 改为 二期、一期"_s}));
    EXPECT_TRUE(PlanOf(u"[工作集]\n名称,工程,归档\n新区,一期\n新区,二期,是\n"_s)
                    .wanted.worksets[1]
                    .archived);
}

TEST(SetupPlan, FaultsOfWorksets) {
    EXPECT_EQ(
        FaultsIn(
            u"[工作集]\n名称,工程,归档\n甲,九期、一期\n甲,一期,是\n甲,二期,否\n乙,\n,一期\n"_s),
        QStringList({u"工作集 第 3 行：没有工程“九期”"_s, u"工作集 第 4 行：工程“一期”重复了"_s,
                     u"工作集 第 5 行：归档与第 3 行不一致"_s, u"工作集 第 6 行：没有写工程"_s,
                     u"工作集 第 7 行：名称是空的"_s}));
}

TEST(SetupPlan, PeopleByRoleAndByRights) {
    const QString text =
        u"[人员]\n姓名,角色,权限,停用\n小李,工程师,,是\n小张,现场人员\n小赵,管理员,编辑、删除\n"
        "小孙,查看者\n"_s;
    EXPECT_EQ(ChangesIn(text),
              QStringList({u"人员“小李”：权限 编辑 改为 编辑、删除、显示与隐藏、新增标签"_s,
                           u"人员“小李”：停用 否 改为 是"_s, u"新增人员“小张”：编辑、新增标签"_s,
                           u"新增人员“小赵”：编辑、删除"_s, u"新增人员“小孙”：无"_s}));
    const auto people = PlanOf(text).wanted.people;
    EXPECT_EQ(people[1].rights, (std::vector<qint32>{5, 7, 21, 22, 38})) << "7 has no name here";
    EXPECT_FALSE(people[1].active);
    EXPECT_EQ(people[3].rights, (std::vector<qint32>{21, 22}));
    EXPECT_TRUE(people[4].rights.empty() && people[4].active);
}

TEST(SetupPlan, FaultsOfPeople) {
    EXPECT_EQ(
        FaultsIn(u"[人员]\n姓名,角色,权限\n小张,组长,\n小赵,,写字\n小孙,,\n"_s),
        QStringList(
            {u"人员 第 3 行：没有角色“组长”，可用的角色：管理员、工程师、现场人员、查看者"_s,
             u"人员 第 4 行：没有权限“写字”，可用的权限：编辑、删除、显示与隐藏、新增标签、设置"_s,
             u"人员 第 5 行：新人员“小孙”没有角色，也没有权限"_s}));
    EXPECT_EQ(
        FaultsIn(u"[人员]\n姓名,角色\n王工,工程师\n"_s),
        QStringList{u"人员：至少要有一位未停用的人员有“设置”的权限，否则再也没有人能修改设置。"_s});
    EXPECT_EQ(
        FaultsIn(u"[人员]\n姓名,角色\n小𠮷,查看者\n"_s),
        QStringList{u"人员 第 3 行：姓名“小𠮷”中有代码页 936（GBK）没有的字，请换一种写法。"_s});
}

TEST(SetupPlan, MarksInTheOrderOfTheirLines) {
    const QString text = u"[标识]\n名称,颜色,编号\n渗水,#0000fe,\n新的,00FF80\n裂缝,,4\n"_s;
    EXPECT_EQ(ChangesIn(text),
              QStringList({u"标识“渗水”：颜色 #0000FF 改为 #0000FE"_s, u"新增标识“新的”：#00FF80"_s,
                           u"标识改变顺序：“渗水”、“新的”、“裂缝”"_s}));
    const auto marks = PlanOf(text).wanted.marks;
    ASSERT_EQ(marks.size(), 3);
    EXPECT_EQ(marks[0], (site::SetupMark{9, u"渗水"_s, 0xFE0000}));
    EXPECT_EQ(marks[1], (site::SetupMark{0, u"新的"_s, 0x80FF00}));
    EXPECT_EQ(marks[2], (site::SetupMark{4, u"裂缝"_s, 0x0000FF}));
}

TEST(SetupPlan, AMarkIsRenamedByItsNumber) {
    const host::SetupPlan plan = PlanOf(u"[标识]\n名称,颜色,编号\n开裂,#FF0000,4\n"_s);
    EXPECT_EQ(setuptest::TextsOf(plan.changes), QStringList{u"标识“裂缝”：名称 裂缝 改为 开裂"_s});
    EXPECT_EQ(plan.wanted.marks[0], (site::SetupMark{4, u"开裂"_s, 0x0000FF}));
    EXPECT_EQ(plan.wanted.marks[1], SomeState().marks[1]);
}

TEST(SetupPlan, FaultsOfMarks) {
    EXPECT_EQ(
        FaultsIn(u"[标识]\n名称,颜色,编号\n甲,红,\n乙,,\n丙,#000000,5\n"
                 "渗水,,4\n丁,#000000,9\n戊,#0,0\n"_s),
        QStringList(
            {u"标识 第 3 行：颜色“红”不对，请写成 #RRGGBB"_s, u"标识 第 4 行：新标识“乙”没有颜色"_s,
             u"标识 第 5 行：没有编号为“5”的标识；新标识的编号由系统给定，请空着"_s,
             u"标识 第 6 行：编号 4 是标识“裂缝”的"_s, u"标识 第 7 行：编号 9 是标识“渗水”的"_s,
             u"标识 第 8 行：没有编号为“0”的标识；新标识的编号由系统给定，请空着"_s}));
}

TEST(SetupPlan, ACellThatCouldNotBeReadIsNotCalledEmptyToo) {
    EXPECT_EQ(
        FaultsIn(u"[楼层]\n工程,楼层\n一期,=1\n一期,\n"_s),
        QStringList({u"楼层 第 3 行：B 列是公式，请换成数值"_s, u"楼层 第 4 行：楼层是空的"_s}));
}

TEST(SetupPlan, FaultsOfTheFileAreTheFirstOnes) {
    const host::SetupPlan plan = PlanOf(u"[标签]\n名称\n=1\n,\n地面\n地面\n"_s);
    EXPECT_FALSE(plan.IsGood());
    EXPECT_EQ(setuptest::TextsOf(plan.faults),
              QStringList({u"标签 第 3 行：A 列是公式，请换成数值"_s,
                           u"标签 第 6 行：“地面”与第 5 行重复"_s}));
}

TEST(SetupPlan, AFileThatCouldNotBeReadIsNotBlamedForThePeopleItLacks) {
    EXPECT_EQ(FaultsIn(u"[人 员]\n姓名,角色\n王工,管理员\n"_s, {}),
              QStringList{u"第 1 行：不认识的表“人 员”，可用的表：工程、工作集、人员、标识、标签、"
                          "楼层、轴网、交点、图纸"_s});
    EXPECT_EQ(setuptest::TextsOf(host::PlanSetup(host::ReadSetupFile(u"/proc/self"_s), {}).faults),
              QStringList{u"不是文件：/proc/self"_s});
}

} // namespace
