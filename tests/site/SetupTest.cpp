#include "site/IChanges.h"
#include "site/sqlite/SetupTables.h"
#include "tests/site/SetupSite.h"

#include <gmock/gmock.h>

namespace site {
namespace {

using sitetest::SetupSite;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace Qt::StringLiterals;

std::string Only(const QStringList& refusals) {
    EXPECT_EQ(refusals.size(), 1) << refusals.join(u'\n').toStdString();
    return refusals.value(0).toStdString();
}

TEST(Setup, TheStateSaysEverythingInItsOrder) {
    SetupSite site;
    const SetupState state = site.Read();
    ASSERT_EQ(state.projects.size(), 2U);
    EXPECT_EQ(state.projects[1], (SetupProject{site.other, u"科技大厦"_s, 2, false}));
    ASSERT_EQ(state.worksets.size(), 1U);
    EXPECT_THAT(state.worksets[0].projects, ElementsAre(u"滨江花园"_s, u"科技大厦"_s));
    ASSERT_EQ(state.people.size(), 2U);
    EXPECT_THAT(state.people[0].rights, ElementsAre(5, 21, 22, 38, kRightSetup));
    ASSERT_EQ(state.marks.size(), 2U);
    EXPECT_EQ(state.marks[1], (SetupMark{2, u"安全"_s, 0x00FF00}));
    EXPECT_EQ(state.labels.size(), 2U);
    ASSERT_EQ(state.grids.size(), 2U);
    ASSERT_EQ(state.grids[0].floors.size(), 3U);
    EXPECT_EQ(state.grids[0].floors[2].name, u"10"_s);
    ASSERT_EQ(state.grids[0].crossings.size(), 3U);
    EXPECT_EQ(state.grids[0].crossings[0],
              (SetupCrossing{site.keys[u"11A"_s], u"1"_s, u"1"_s, u"A"_s, true}));
}

TEST(Setup, GridsOfUnknownProjectsAreLeftOut) {
    SetupSite site;
    EXPECT_THAT(site.engine.Setup().Read({99}).grids, IsEmpty());
}

TEST(Setup, WhatIsWantedAsItWasSeenChangesNothingAndTellsNobody) {
    SetupSite site;
    site.engine.Changes().Look();
    const qint64 mark = site.engine.Changes().Mark();
    site.Do([](SetupState&) {});
    EXPECT_THAT(site.engine.Changes().Since(mark, 10).changes, IsEmpty());
}

TEST(Setup, AWholeProjectWithFloorsAndCrossingsIsMadeInOneGo) {
    SetupSite site;
    site.Do([](SetupState& state) {
        state.projects.push_back({0, u"新校区"_s, 3, false});
        state.worksets.push_back({0, u"学校"_s, {u"新校区"_s}, false});
        state.people.push_back({0, u"zhao"_s, {21, 38}, true});
        state.marks.push_back({0, u"进度"_s, 0x123456});
        state.labels.push_back({0, u"钢筋"_s});
        state.grids.push_back(
            {u"新校区"_s,
             {{u"-1"_s, {}}, {u"1"_s, {}}},
             {{{}, u"-1"_s, u"1"_s, u"A"_s, true}, {{}, u"1"_s, u"1"_s, u"B"_s, true}}});
    });
    const qint32 ppid = site.engine.Setup().Read({}).projects.back().ppid;
    EXPECT_EQ(site.engine.Catalogue().Project(ppid).name, u"新校区"_s);
    EXPECT_THAT(site.engine.Catalogue().Floors(ppid), ElementsAre(u"-1"_s, u"1"_s));
    EXPECT_THAT(site.engine.Catalogue().AxesX(ppid, u"1"_s), ElementsAre(u"1"_s));
    EXPECT_FALSE(site.engine.Catalogue().AxesY(ppid, u"1"_s, u"1"_s).front().second.isEmpty());
    EXPECT_THAT(site.engine.Catalogue().Worksets().back().ppids, ElementsAre(ppid));
    EXPECT_THAT(site.engine.Catalogue().RightsOf(u"zhao"_s), ElementsAre(21, 38));
    EXPECT_EQ(site.engine.Catalogue().Marks().at(3).color, 0x123456);
    EXPECT_EQ(site.engine.Catalogue().Labels().back().labelName, u"钢筋"_s);
}

TEST(Setup, NamesMayBeSwappedWithinAList) {
    SetupSite site;
    site.Do([](SetupState& state) {
        std::swap(state.projects[0].name, state.projects[1].name);
        state.worksets[0].projects = {u"科技大厦"_s};
        std::swap(state.labels[0].name, state.labels[1].name);
        std::swap(state.grids[0].project, state.grids[1].project);
        std::swap(state.grids[0].floors[0].name, state.grids[0].floors[1].name);
        for (SetupCrossing& crossing : state.grids[0].crossings) {
            crossing.floor = crossing.floor == u"1"_s ? u"2"_s : u"1"_s;
        }
    });
    EXPECT_EQ(site.engine.Catalogue().Project(site.ppid).name, u"科技大厦"_s);
    EXPECT_THAT(site.engine.Catalogue().Worksets()[0].ppids, ElementsAre(site.ppid));
    EXPECT_EQ(site.engine.Catalogue().Labels()[0].labelName, u"裂缝"_s);
    EXPECT_EQ(site.Row(site.photo).floor, u"2"_s);
    EXPECT_EQ(site.Row(site.photo).positionKey, site.keys[u"11A"_s]);
}

TEST(Setup, ARenamedFloorTakesItsPhotosIssuesAndCrossingsAlong) {
    SetupSite site;
    site.Do([](SetupState& state) {
        state.grids[0].floors[0].name = u"首层"_s;
        state.grids[0].floors[1].name = u"夹层"_s;
        for (SetupCrossing& crossing : state.grids[0].crossings) {
            crossing.floor = crossing.floor == u"1"_s ? u"首层"_s : u"夹层"_s;
        }
    });
    EXPECT_EQ(site.Row(site.photo).floor, u"首层"_s);
    EXPECT_NE(site.Row(site.photo).posValid, 0);
    KX_DATA::QuestionDetail detail;
    ASSERT_TRUE(site.engine.Issues().Detail(site.ppid, site.questionId, detail));
    EXPECT_EQ(detail.floor, u"夹层"_s);
    EXPECT_EQ(site.FloorsText(), u"首层 夹层 10"_s);
}

TEST(Setup, FloorsStandInTheOrderThatPeopleGaveThemEverywhere) {
    SetupSite site;
    site.Do(
        [](SetupState& state) { std::swap(state.grids[0].floors[0], state.grids[0].floors[2]); });
    EXPECT_EQ(site.FloorsText(), u"10 2 1"_s);
    SiteWriter writer(site.folder);
    const qint32 second = site.File(writer, site.ppid, site.keys[u"21A"_s], 1, {});
    ListFilter filter;
    filter.ppids = {site.ppid};
    std::vector<qint32> ids;
    for (const auto& row :
         site.engine.BimPhotos().PageOf(filter, {{u"floor,axis_symbol"_s, false}, 1, 9}).rows) {
        ids.push_back(row.picId);
    }
    EXPECT_THAT(ids, ElementsAre(site.loose, second, site.photo));
    // What an import adds later stands behind them.
    writer.AddFloor(site.ppid, u"3"_s);
    EXPECT_EQ(site.FloorsText(), u"10 2 1 3"_s);
}

TEST(Setup, FloorsInTheOrderOfTheirNumbersLetALaterOneInBetween) {
    SetupSite site;
    site.Do([](SetupState& state) { state.grids[0].floors.push_back({u"屋面"_s, {}}); });
    SiteWriter(site.folder).AddFloor(site.ppid, u"3"_s);
    EXPECT_EQ(site.FloorsText(), u"1 2 3 10 屋面"_s);
}

TEST(Setup, APhotoOutOfTheBinComesToTheFloorAsItIsCalledAndOrderedNow) {
    SetupSite site;
    (void)site.engine.Bin().DeleteBimPhotos({site.ppid}, {site.photo}, {u"li"_s, 1});
    site.Do([](SetupState& state) {
        state.grids[0].floors[0].name = u"首层"_s;
        for (SetupCrossing& crossing : state.grids[0].crossings) {
            crossing.floor = crossing.floor == u"1"_s ? u"首层"_s : crossing.floor;
        }
    });
    ASSERT_EQ(site.engine.Bin().Restore({site.engine.Bin().List().front().id}), 1);
    EXPECT_EQ(site.Row(site.photo).floor, u"首层"_s);
    ListFilter filter;
    filter.ppids = {site.ppid};
    filter.floor = u"首层"_s;
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.photo));
    EXPECT_EQ(site.engine.Setup().UsesOfFloor(site.ppid, u"首层"_s), u"照片 1 张"_s);
}

TEST(Setup, AxesOfACrossingChangeWithItsPhotos) {
    SetupSite site;
    site.Do([](SetupState& state) {
        std::swap(state.grids[0].crossings[0].axisX, state.grids[0].crossings[1].axisX);
    });
    EXPECT_EQ(site.Row(site.photo).axisX, u"2"_s);
    EXPECT_EQ(site.Row(site.photo).posText, u"2/A"_s);
    site.Do([](SetupState& state) { state.grids[0].crossings[1].valid = false; });
    EXPECT_EQ(site.Row(site.photo).posValid, 0);
}

TEST(Setup, WhatIsUsedIsNotRemovedAndSaysByWhat) {
    SetupSite site;
    EXPECT_THAT(Only(site.Refused([](SetupState& s) { s.marks.erase(s.marks.begin()); })),
                HasSubstr("标识“质量”正在使用（照片 1 张），不能删除。"));
    EXPECT_THAT(Only(site.Refused([](SetupState& s) { s.labels.erase(s.labels.begin()); })),
                HasSubstr("标签“墙面”正在使用（照片 1 张）"));
    EXPECT_THAT(Only(site.Refused([](SetupState& s) {
                    s.grids[0].floors.erase(s.grids[0].floors.begin() + 1);
                    std::erase_if(s.grids[0].crossings,
                                  [](const SetupCrossing& c) { return c.floor == u"2"_s; });
                })),
                HasSubstr("楼层“2”正在使用（问题 1 个）"));
    EXPECT_THAT(Only(site.Refused([](SetupState& s) {
                    s.grids[0].crossings.erase(s.grids[0].crossings.begin());
                })),
                HasSubstr("轴线交点“1 1/A”正在使用（照片 1 张），不能删除。可以改为"));
    const QStringList people = site.Refused([](SetupState& s) {
        s.people[1].rights = {kRightSetup};
        s.people.erase(s.people.begin());
    });
    EXPECT_THAT(Only(people), HasSubstr("人员“li”正在使用（照片 3 张、问题 1 个）"));
    EXPECT_THAT(Only(people), HasSubstr("可以改为停用"));
    const QStringList projects = site.Refused([](SetupState& s) {
        s.projects.pop_back();
        s.worksets.clear();
        s.grids.pop_back();
    });
    EXPECT_THAT(Only(projects),
                HasSubstr("工程“科技大厦”正在使用（照片 1 张），不能删除。可以改为归档。"));
}

TEST(Setup, WhatLiesInTheBinIsUsedToo) {
    SetupSite site;
    ASSERT_EQ(site.engine.Bin().DeleteBimPhotos({site.ppid, site.other}, {site.photo, site.foreign},
                                                {u"wang"_s, 1}),
              2);
    EXPECT_EQ(site.engine.Setup().UsesOf(SetupList::Mark, 1), u"回收站 1 项"_s);
    EXPECT_EQ(site.engine.Setup().UsesOf(SetupList::Label, site.wall), u"回收站 1 项"_s);
    EXPECT_EQ(site.engine.Setup().UsesOf(SetupList::Project, site.other), u"回收站 1 项"_s);
    EXPECT_THAT(Only(site.Refused([](SetupState& s) { s.labels.erase(s.labels.begin()); })),
                HasSubstr("回收站 1 项"));
    site.folder.Db().Exec(u"UPDATE bin SET content = 'no json'"_s);
    EXPECT_EQ(site.engine.Setup().UsesOf(SetupList::Mark, 1), QString());
}

TEST(Setup, WhatIsUnusedIsRemoved) {
    SetupSite site;
    site.Do([](SetupState& s) {
        s.labels.pop_back();
        s.people.pop_back();
        s.worksets.clear();
        s.grids[0].floors.pop_back();
        s.grids[0].crossings.erase(s.grids[0].crossings.begin() + 1);
        s.projects.push_back({0, u"空"_s, 1, false});
    });
    const SetupState state = site.Read();
    EXPECT_EQ(state.labels.size(), 1U);
    EXPECT_EQ(state.people.size(), 1U);
    EXPECT_THAT(state.worksets, IsEmpty());
    EXPECT_EQ(site.FloorsText(), u"1 2"_s);
    EXPECT_EQ(state.grids[0].crossings.size(), 2U);
    site.Do([](SetupState& s) { s.projects.pop_back(); });
    EXPECT_EQ(site.Read().projects.size(), 2U);
}

TEST(Setup, AMarkThatIsGoneGivesItsNumberToNoOther) {
    SetupSite site;
    SiteWriter writer(site.folder);
    (void)site.File(writer, site.ppid, {}, 7, {}); // of a phone with another table of marks
    site.Do([](SetupState& s) { s.marks.push_back({0, u"新"_s, 1}); });
    EXPECT_EQ(site.Read().marks.back().id, 8);
}

TEST(Setup, MarksAreListedInTheOrderThatPeopleGaveThem) {
    SetupSite site;
    site.Do([](SetupState& s) { std::swap(s.marks[0], s.marks[1]); });
    EXPECT_THAT(site.engine.Catalogue().MarkOrder(), ElementsAre(2, 1));
    SiteWriter(site.folder).AddMark(5, u"后来"_s, 0);
    EXPECT_THAT(site.engine.Catalogue().MarkOrder(), ElementsAre(2, 1, 5));
}

TEST(Setup, APersonKeepsTheirNameAndABlockedOneIsNotOffered) {
    SetupSite site;
    EXPECT_THAT(Only(site.Refused([](SetupState& s) { s.people[1].name = u"王"_s; })),
                HasSubstr("人员“wang”不能改名"));
    site.Do([](SetupState& s) { s.people[1].active = false; });
    EXPECT_THAT(site.engine.Catalogue().People(), ElementsAre(u"li"_s));
}

TEST(Setup, SomebodyWhoMaySetUpAlwaysStays) {
    SetupSite site;
    EXPECT_THAT(Only(site.Refused([](SetupState& s) { s.people[0].active = false; })),
                HasSubstr("至少要有一位"));
    EXPECT_THAT(Only(site.Refused([](SetupState& s) { s.people[0].rights = {21}; })),
                HasSubstr("至少要有一位"));
}

TEST(Setup, AnArchivedProjectIsStillThere) {
    SetupSite site;
    site.Do([](SetupState& s) {
        s.projects[1].archived = true;
        s.worksets[0].archived = true;
    });
    EXPECT_TRUE(site.engine.Catalogue().Project(site.other).archived);
    EXPECT_TRUE(site.engine.Catalogue().Worksets()[0].archived);
    EXPECT_EQ(site.engine.Catalogue().Projects().size(), 2U);
}

TEST(Setup, WhoeverWasFasterIsNotOverwritten) {
    SetupSite site;
    const SetupState seen = site.Read();
    SetupState mine = seen;
    mine.marks[0].name = u"我的"_s;
    SetupState theirs = seen;
    theirs.marks[0].name = u"他的"_s;
    ASSERT_TRUE(site.Apply(seen, theirs).IsDone());
    const SetupOutcome outcome = site.Apply(seen, mine);
    EXPECT_EQ(outcome.changedMeanwhile, SetupList::Mark);
    EXPECT_EQ(site.Read().marks[0].name, u"他的"_s);
    // Another list isn't concerned.
    SetupState label = seen;
    label.labels[0].name = u"标"_s;
    EXPECT_TRUE(site.Apply(seen, label).IsDone());
    EXPECT_EQ(site.Read().marks[0].name, u"他的"_s);
}

TEST(Setup, EveryListSaysThatItWasChangedMeanwhile) {
    const std::vector<std::pair<SetupList, std::function<void(SetupState&, const QString&)>>>
        changes{{SetupList::Project,
                 [](SetupState& s, const QString& n) {
                     s.projects.push_back({0, n, 1, false});
                 }},
                {SetupList::Workset,
                 [](SetupState& s, const QString& n) {
                     s.worksets.push_back({0, n, {u"滨江花园"_s}, false});
                 }},
                {SetupList::Person,
                 [](SetupState& s, const QString& n) {
                     s.people.push_back({0, n, {}, true});
                 }},
                {SetupList::Label,
                 [](SetupState& s, const QString& n) {
                     s.labels.push_back({0, n});
                 }},
                {SetupList::Floor,
                 [](SetupState& s, const QString& n) {
                     s.grids[0].floors.push_back({n, {}});
                 }},
                {SetupList::Crossing, [](SetupState& s, const QString& n) {
                     s.grids[0].crossings.push_back({{}, u"1"_s, n, u"Z"_s, true});
                 }}};
    for (const auto& [list, change] : changes) {
        SetupSite site;
        const SetupState seen = site.Read();
        SetupState one = seen;
        SetupState two = seen;
        change(one, u"x1"_s);
        change(two, u"x2"_s);
        EXPECT_TRUE(site.Apply(seen, one).IsDone());
        EXPECT_EQ(site.Apply(seen, two).changedMeanwhile, list);
    }
}

TEST(Setup, NothingIsHalfTaken) {
    SetupSite site;
    (void)site.Refused([](SetupState& s) {
        s.projects.push_back({0, u"新"_s, 1, false});
        s.labels.push_back({0, u"新"_s});
        s.marks.erase(s.marks.begin());
    });
}

TEST(Setup, AFailingDiskChangesNothing) {
    SetupSite site;
    const SetupState seen = site.Read();
    SetupState wanted = seen;
    wanted.marks[0].name = u"新名"_s;
    wanted.labels.push_back({0, u"新"_s});
    site.folder.Db().Exec(u"CREATE TRIGGER stop BEFORE INSERT ON label BEGIN SELECT"
                          " RAISE(ABORT, 'full'); END"_s);
    EXPECT_THROW((void)site.Apply(seen, wanted), DataError);
    EXPECT_EQ(site.Read(), seen);
}

TEST(Setup, ChangesAreToldToThoseWhoList) {
    SetupSite site;
    site.engine.Changes().Look();
    const qint64 mark = site.engine.Changes().Mark();
    site.Do([](SetupState& s) {
        s.marks[0].name = u"新"_s;
        s.people[1].rights = {};
        s.grids[0].floors.push_back({u"3"_s, {}});
    });
    std::vector<ChangeKind> kinds;
    for (const Change& change : site.engine.Changes().Since(mark, 20).changes) {
        kinds.push_back(change.kind);
        EXPECT_EQ(change.person, u"li"_s);
    }
    EXPECT_THAT(kinds, testing::UnorderedElementsAre(ChangeKind::Mark, ChangeKind::Person,
                                                     ChangeKind::Place, ChangeKind::BimPhoto,
                                                     ChangeKind::Issue));
}

TEST(Setup, TenThousandCrossingsAreTakenAtOnce) {
    SetupSite site;
    site.Do([](SetupState& s) {
        for (int x = 1; x <= 100; ++x) {
            for (int y = 1; y <= 100; ++y) {
                s.grids[0].crossings.push_back(
                    {{}, u"10"_s, QString::number(x), QString::number(y), true});
            }
        }
    });
    EXPECT_EQ(site.engine.Catalogue().AxesX(site.ppid, u"10"_s).size(), 100U);
}

TEST(Setup, AnEarlierSiteLetsThoseSetUpWhoMightDoEverything) {
    SetupSite site;
    // As before the step: nobody has the right.
    site.folder.Db().Exec(u"DELETE FROM person_right WHERE number = 90"_s);
    const auto give = SetupSchema();
    for (const QString& statement : give) {
        if (statement.startsWith(u"INSERT"_s)) {
            site.folder.Db().Exec(statement);
        }
    }
    EXPECT_THAT(site.engine.Catalogue().RightsOf(u"li"_s), testing::Contains(kRightSetup));
    EXPECT_THAT(site.engine.Catalogue().RightsOf(u"wang"_s),
                testing::Not(testing::Contains(kRightSetup)));
    site.folder.Db().Exec(u"DELETE FROM person_right"_s);
    for (const QString& statement : give) {
        if (statement.startsWith(u"INSERT"_s)) {
            site.folder.Db().Exec(statement);
        }
    }
    EXPECT_THAT(site.engine.Catalogue().RightsOf(u"li"_s), ElementsAre(kRightSetup));
}

} // namespace
} // namespace site
