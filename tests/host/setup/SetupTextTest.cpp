#include "host/setup/SetupText.h"

#include "site/DataError.h"
#include "site/ISetup.h"
#include "site/OpenSite.h"
#include "tests/host/setup/PlanCase.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using setuptest::PlanOf;

site::SetupState StateOf(site::ISite& site) {
    site::Projects ppids;
    for (const site::SetupProject& project : site.Setup().Read({}).projects) {
        ppids.push_back(project.ppid);
    }
    return site.Setup().Read(ppids);
}

/// Plans a text over a site and applies it.
QStringList Apply(site::ISite& site, const QString& text) {
    const site::SetupState seen = StateOf(site);
    const host::SetupPlan plan = PlanOf(text, seen);
    if (!plan.IsGood()) {
        return setuptest::TextsOf(plan.faults);
    }
    const site::SetupOutcome outcome =
        site.Setup().Apply(seen, plan.wanted, {u"王工"_s, 1'700'000'000});
    EXPECT_FALSE(outcome.changedMeanwhile);
    return {outcome.refusals.begin(), outcome.refusals.end()};
}

QString TextOfSite(site::ISite& site) {
    return QString::fromUtf8(host::SetupTextOf(StateOf(site))).remove(u'\r').remove(u'\xFEFF');
}

/// Without what each site gives itself.
site::SetupState Plain(site::SetupState state) {
    for (auto& project : state.projects) {
        project.ppid = 0;
    }
    for (auto& workset : state.worksets) {
        workset.id = 0;
    }
    for (auto& person : state.people) {
        person.id = 0;
    }
    for (auto& mark : state.marks) {
        mark.id = 0;
    }
    for (auto& label : state.labels) {
        label.id = 0;
    }
    for (auto& grid : state.grids) {
        for (auto& crossing : grid.crossings) {
            crossing.positionKey.clear();
        }
    }
    return state;
}

const QString kWholeSetup =
    u"[工程]\n名称,专业,归档\n一期,土建\n\"#1楼, "
    u"\"\"东\"\"\",Revit,是\n[工作集]\n名称,工程,归档\n全部,\"一期\",是\n"
    "[人员]\n姓名,角色,权限,停用\n王工,管理员\n小李,,删除、新增标签,是\n小张,查看者\n"
    "[标识]\n名称,颜色\n渗水,#050009\n裂缝,#ABCDEF\n[标签]\n名称\n=墙\n'-1\n[地面]\n"
    "[楼层]\n工程,楼层\n一期,-1\n一期,1\n一期,2\n一期,3\n一期,\"屋;面\"\n"
    "[轴网]\n工程,楼层,X轴,Y轴\n一期,-1~2,1-3、1/3,A-C\n一期,3,1-2,A\n"
    "[交点]\n工程,楼层,X轴,Y轴\n一期,3,9-1,B\n一期,3,1,B\n一期,屋;面,1,A\n"_s;

TEST(SetupText, AnotherSiteBecomesTheSame) {
    const support::TempFolder folder;
    const auto one = site::OpenSite(folder.Path(u"one"_s)).site;
    const auto two = site::OpenSite(folder.Path(u"two"_s)).site;
    QString text = kWholeSetup;
    text.replace(u"=墙"_s, u"'=墙"_s).replace(u"\n[地面]\n"_s, u"\n\"[地面]\"\n"_s);
    ASSERT_EQ(Apply(*one, text), QStringList());
    const QString exported = TextOfSite(*one);
    ASSERT_EQ(Apply(*two, exported), QStringList()) << exported.toStdString();
    EXPECT_EQ(Plain(StateOf(*two)), Plain(StateOf(*one))) << exported.toStdString();
    EXPECT_EQ(TextOfSite(*two), exported);
    EXPECT_EQ(StateOf(*one).labels.at(2).name, u"[地面]");
    EXPECT_TRUE(exported.contains(u"渗水,#050009\n"_s)) << exported.toStdString();
    EXPECT_EQ(StateOf(*one).projects.at(1).name, u"#1楼, \"东\"");
    EXPECT_EQ(StateOf(*one).grids.at(0).crossings.size(), 3U * 12U + 2U + 3U);
}

TEST(SetupText, AWorksetOfProjectsWithSeparatorsInTheirNamesIsReadAgain) {
    const support::TempFolder folder;
    const auto one = site::OpenSite(folder.Path(u"one"_s)).site;
    const auto two = site::OpenSite(folder.Path(u"two"_s)).site;
    const QString text =
        u"[工程]\n名称,专业\n\"甲、乙\",土建\n丙,安装\n[人员]\n姓名,角色\n王工,管理员\n"
        "[工作集]\n名称,工程,归档\n全部,\"甲、乙\",是\n全部,丙,是\n"_s;
    ASSERT_EQ(Apply(*one, text), QStringList());
    const QString exported = TextOfSite(*one);
    ASSERT_EQ(Apply(*two, exported), QStringList()) << exported.toStdString();
    EXPECT_EQ(StateOf(*two).worksets.at(0).projects, (std::vector<QString>{u"甲、乙"_s, u"丙"_s}));
    EXPECT_TRUE(StateOf(*two).worksets.at(0).archived);
}

TEST(SetupText, TakenAgainItChangesNothing) {
    const support::TempFolder folder;
    const auto opened = site::OpenSite(folder.Path(u"one"_s)).site;
    ASSERT_EQ(Apply(*opened, QString(kWholeSetup).replace(u"=墙"_s, u"墙"_s).remove(u"\n[地面]"_s)),
              QStringList());
    const site::SetupState state = StateOf(*opened);
    const host::SetupPlan plan = PlanOf(TextOfSite(*opened), state);
    EXPECT_EQ(setuptest::TextsOf(plan.changes), QStringList());
    EXPECT_EQ(setuptest::TextsOf(plan.faults), QStringList());
    EXPECT_EQ(plan.wanted, state);
}

TEST(SetupText, FloorsThatAreAlikeStandInOneLine) {
    const QString text = QString::fromUtf8(host::SetupTextOf(setuptest::SomeState()));
    EXPECT_TRUE(text.contains(
        u"\r\n[轴网]\r\n工程,楼层,X轴,Y轴\r\n一期,1F,1,A、B\r\n一期,2F,1,A\r\n\r\n[交点]"_s))
        << text.toStdString();
    site::SetupState state = setuptest::SomeState();
    state.grids[0].crossings[3].valid = true;
    EXPECT_TRUE(
        QString::fromUtf8(host::SetupTextOf(state)).contains(u"\r\n一期,1F、2F,1,A、B\r\n"_s));
}

TEST(SetupText, OfAnEmptySiteItIsAFileToBeFilledIn) {
    const QByteArray text = host::SetupTextOf({});
    EXPECT_TRUE(text.startsWith("\xEF\xBB\xBF# "));
    const host::SetupTables tables =
        host::ReadSetupText(QString::fromUtf8(text).remove(u'\r').remove(u'\xFEFF'));
    ASSERT_EQ(tables.faults.size(), 1);
    EXPECT_TRUE(tables.faults[0].text.startsWith(u"文件里没有任何内容"_s));
}

} // namespace
