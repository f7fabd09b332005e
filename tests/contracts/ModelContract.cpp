// IVeskPicMng: floors, axes and position keys of the model, names of states, the mark panel.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;

class Model : public Contract {};
ON_EVERY_SITE(Model);

TEST_P(Model, FloorsComeAsNumbersWhereTheyAreNumbersAndThenByTheirNames) {
    for (const QString& floor : {u"屋面"_s, u"10"_s, u"2"_s, u"-1"_s, u"2"_s}) {
        site->AddFloor(first, floor);
    }
    site->AddFloor(site->second, u"7"_s);
    std::vector<QString> floors(1);
    ASSERT_EQ(on.pics->GetProjectFloors(first, floors), kServiceOk);
    EXPECT_THAT(floors, ElementsAre(u"-1"_s, u"2"_s, u"10"_s, u"屋面"_s));
    ASSERT_EQ(on.pics->GetProjectFloors(kNobody, floors), kServiceOk);
    EXPECT_TRUE(floors.empty()) << "an unknown project has none";
}

TEST_P(Model, AxesOfAFloorComeShortNamesFirstEachOnceWithTheirKeys) {
    Position(u"3"_s, u"10"_s, u"A"_s, u"K1"_s);
    Position(u"3"_s, u"2"_s, u"B"_s, u"K2"_s);
    Position(u"3"_s, u"2"_s, u"A"_s, u"K3"_s);
    Position(u"4"_s, u"9"_s, u"A"_s, u"K4"_s);
    site->AddPosition({first, u"3"_s, u"1"_s, u"A"_s, u"K5"_s, false});
    std::vector<QString> axes(1);
    ASSERT_EQ(on.pics->GetFloorAxesX(first, u"3"_s, axes), kServiceOk);
    EXPECT_THAT(axes, ElementsAre(u"2"_s, u"10"_s)) << "without places that are gone";
    std::vector<KX_DATA::AxisYEntry> keys(1);
    ASSERT_EQ(on.pics->GetFloorAxesY(first, u"3"_s, u"2"_s, keys), kServiceOk);
    EXPECT_THAT(keys, ElementsAre(std::pair(u"A"_s, u"K3"_s), std::pair(u"B"_s, u"K2"_s)));
}

TEST_P(Model, WhatIsUnknownHasNoAxesAndThatIsNoFailure) {
    Position(u"3"_s, u"2"_s, u"A"_s);
    std::vector<QString> axes(1);
    EXPECT_EQ(on.pics->GetFloorAxesX(first, u"9"_s, axes), kServiceOk);
    EXPECT_TRUE(axes.empty());
    axes.resize(1);
    EXPECT_EQ(on.pics->GetFloorAxesX(site->second, u"3"_s, axes), kServiceOk);
    EXPECT_TRUE(axes.empty());
    std::vector<KX_DATA::AxisYEntry> keys(1);
    EXPECT_EQ(on.pics->GetFloorAxesY(first, u"3"_s, u"7"_s, keys), kServiceOk);
    EXPECT_TRUE(keys.empty());
    EXPECT_EQ(on.pics->GetFloorAxesY(first, {}, {}, keys), kServiceOk);
    EXPECT_TRUE(keys.empty());
}

TEST_P(Model, NamesOfStatesBeginWithTheOneThatMeansAll) {
    std::vector<QString> names(7);
    on.pics->GetStateNames(names);
    EXPECT_THAT(names,
                ElementsAre(u"全部"_s, u"未整改"_s, u"整改中"_s, u"已整改"_s, u"无需整改"_s));
}

class MarkPanel : public Contract {
protected:
    /// Two shown photos and a hidden one at one place of floor 3, one in the other project.
    void FilePhotos() {
        const QString key = Position(u"3"_s, u"B"_s, u"7"_s, u"K37"_s);
        for (const qint32 status : {0, 1, 0}) {
            shown.push_back(Photo([&](site::NewBimPhoto& photo) {
                photo.positionKey = key;
                photo.markId = 2;
                photo.status = status;
            }));
        }
        shown.erase(shown.begin() + 1);
        Photo([&](site::NewBimPhoto& photo) { photo.ppid = site->second; });
    }

    std::vector<qint32> shown;
    KX_DATA::MarkFilterArg arg;
};
ON_EVERY_SITE(MarkPanel);

TEST_P(MarkPanel, TheFilterListCountsShownPhotosOfTheOpenProjectByFloorAndMark) {
    FilePhotos();
    std::vector<KX_DATA::PicFilterEntry> entries(4);
    on.pics->GetBimPicFilterGroups(0, 0, 0, arg, entries);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].name, u"3"_s);
    EXPECT_EQ(entries[0].count, 2);
    EXPECT_THAT(entries[0].values, ElementsAre(std::pair(2, 2)));
}

TEST_P(MarkPanel, TheTreeHasAGroupAFloorAnItemAPlaceAndALeafAMark) {
    FilePhotos();
    std::vector<KX_DATA::PicMarkGroup> groups(4);
    on.pics->GetBimPicFilterValues(0, 0, 0, arg, groups);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].name, "3");
    ASSERT_EQ(groups[0].items.size(), 1U);
    const KX_DATA::PicMarkItem& item = groups[0].items[0];
    EXPECT_EQ(item.positionKey, "K37");
    EXPECT_EQ(item.itemName, "B/7");
    EXPECT_EQ(item.total, 2);
    EXPECT_EQ(item.groupId, groups[0].id);
    ASSERT_EQ(item.leaves.size(), 1U);
    EXPECT_EQ(item.leaves[0].markId, 2);
    EXPECT_EQ(item.leaves[0].count, 2);
    EXPECT_EQ(item.leaves[0].markName, u"安全"_s);
}

TEST_P(MarkPanel, TheMarkerListHasTheShownPhotosOfTheMarkAndTellsTheirNumber) {
    FilePhotos();
    std::vector<qint32> picIds{kUntouched};
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 2, arg, picIds), 2);
    EXPECT_THAT(picIds, testing::UnorderedElementsAreArray(shown));
}

TEST_P(MarkPanel, WithoutPhotosAndIssuesEverythingIsReplacedByNothing) {
    std::vector<KX_DATA::PicFilterEntry> entries(4);
    on.pics->GetBimPicFilterGroups(0, 0, 0, arg, entries);
    EXPECT_TRUE(entries.empty());
    std::vector<KX_DATA::PicMarkGroup> groups(4);
    on.pics->GetBimPicFilterValues(0, 0, 0, arg, groups);
    EXPECT_TRUE(groups.empty());
    std::vector<qint32> picIds{kUntouched};
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 1, arg, picIds), 0);
    EXPECT_TRUE(picIds.empty());
    std::vector<KX_DATA::IssueMarkGroup> issueGroups(4);
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, issueGroups);
    EXPECT_TRUE(issueGroups.empty());
    std::vector<KX_DATA::IssueFilterSource> sources(4);
    on.issues->GetIssueFilterList(0, nullptr, nullptr, arg, sources);
    EXPECT_TRUE(sources.empty());
}

TEST_P(MarkPanel, IssuesAreGroupedByFloorAndWithoutEndsAllTimesCount) {
    const QString one = Issue([](site::NewIssue& issue) {
        issue.posInfo = u"3-B轴"_s;
        issue.componentName = u"KL-3"_s;
    });
    Issue([](site::NewIssue& issue) { issue.status = 1; });
    std::vector<KX_DATA::IssueMarkGroup> groups(4);
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, groups);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].name, u"1"_s);
    EXPECT_EQ(groups[0].id, first);
    EXPECT_EQ(groups[0].count, 1);
    ASSERT_EQ(groups[0].entries.size(), 1U);
    EXPECT_EQ(groups[0].entries[0].itemText, u"裂缝"_s);
    EXPECT_EQ(groups[0].entries[0].itemKey, one);
    EXPECT_EQ(groups[0].entries[0].text3, u"3-B轴"_s);
    EXPECT_EQ(groups[0].entries[0].text4, u"KL-3"_s);
    EXPECT_EQ(groups[0].entries[0].value, 1);
    std::vector<KX_DATA::IssueFilterSource> sources(4);
    const qint64 from = 0;
    const qint64 to = 0;
    on.issues->GetIssueFilterList(0, &from, &to, arg, sources);
    ASSERT_EQ(sources.size(), 1U);
    EXPECT_EQ(sources[0].name, u"1"_s);
    EXPECT_EQ(sources[0].count, 1);
    EXPECT_THAT(sources[0].pairs, ElementsAre(std::pair(1, 1))) << "count first, then the mark";
}

class ModelFailures : public FailureContract {};
WHERE_READING_FAILS(ModelFailures);

TEST_P(ModelFailures, FloorsAndAxesTellItAndLeaveTheListsAlone) {
    Position(u"3"_s, u"2"_s, u"A"_s);
    Fail({"GetProjectFloors", "GetFloorAxesX", "GetFloorAxesY"});
    std::vector<QString> names(2);
    std::vector<KX_DATA::AxisYEntry> keys(2);
    EXPECT_NE(on.pics->GetProjectFloors(first, names), kServiceOk);
    EXPECT_NE(on.pics->GetFloorAxesX(first, u"3"_s, names), kServiceOk);
    EXPECT_NE(on.pics->GetFloorAxesY(first, u"3"_s, u"2"_s, keys), kServiceOk);
    EXPECT_EQ(names.size(), 2U);
    EXPECT_EQ(keys.size(), 2U);
}

TEST_P(ModelFailures, TheMarkPanelIsEmptyAsNobodyReadsAResult) {
    Photo();
    Issue();
    Fail({"GetBimPicFilterGroups", "GetBimPicFilterValues", "GetBimPicMarkerList", "GetIssueGroups",
          "GetIssueFilterList"});
    KX_DATA::MarkFilterArg arg;
    std::vector<KX_DATA::PicFilterEntry> entries(4);
    on.pics->GetBimPicFilterGroups(0, 0, 0, arg, entries);
    EXPECT_TRUE(entries.empty());
    std::vector<KX_DATA::PicMarkGroup> groups(4);
    on.pics->GetBimPicFilterValues(0, 0, 0, arg, groups);
    EXPECT_TRUE(groups.empty());
    std::vector<qint32> picIds{kUntouched};
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 1, arg, picIds), 0);
    EXPECT_TRUE(picIds.empty());
    std::vector<KX_DATA::IssueMarkGroup> issueGroups(4);
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, issueGroups);
    EXPECT_TRUE(issueGroups.empty());
    std::vector<KX_DATA::IssueFilterSource> sources(4);
    on.issues->GetIssueFilterList(0, nullptr, nullptr, arg, sources);
    EXPECT_TRUE(sources.empty());
}

} // namespace contracts
