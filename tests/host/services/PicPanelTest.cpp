#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

#include <set>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

/// Photos on floors 2 and 10 and on none, one of them hidden.
class PanelSite : public ServiceSite {
public:
    PanelSite() {
        writer->AddPosition({first, u"10"_s, u"A"_s, u"1"_s, u"ten"_s, true});
        writer->AddPosition({first, u"2"_s, u"A"_s, u"1"_s, u"two-1"_s, true});
        writer->AddPosition({first, u"2"_s, u"B"_s, u"1"_s, u"two-2"_s, true});
        Add(u"ten"_s, 1, 0, u"zhang"_s, 1000);
        Add(u"two-1"_s, 1, 0, u"zhang"_s, 2000);
        Add(u"two-1"_s, 1, 0, u"wang"_s, 3000);
        Add(u"two-1"_s, 2, 0, u"wang"_s, 3000);
        Add(u"two-2"_s, 2, 0, u"wang"_s, 3000);
        Add({}, 1, 0, u"zhang"_s, 3000);
        Add(u"two-2"_s, 1, 1, u"zhang"_s, 3000);
    }

    KX_DATA::MarkFilterArg arg;

private:
    void Add(const QString& key, qint32 mark, qint32 status, const QString& person, qint64 time) {
        AddPhoto([&](site::NewBimPhoto& photo) {
            photo.positionKey = key;
            photo.markId = mark;
            photo.status = status;
            photo.uploader = person;
            photo.uploadTime = time;
        });
    }
};

} // namespace

TEST(PicPanel, TheListHasEachFloorWithItsMarksAndReplacesWhatWasThere) {
    PanelSite site;
    std::vector<KX_DATA::PicFilterEntry> entries(5);
    GetVeskPicMng()->GetBimPicFilterGroups(0, 0, 0, site.arg, entries);
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].name, u"其他"_s);
    EXPECT_EQ(entries[1].name, u"2"_s);
    EXPECT_EQ(entries[1].count, 4);
    EXPECT_EQ(entries[1].values, (std::vector<std::pair<qint32, qint32>>{{1, 2}, {2, 2}}));
    EXPECT_EQ(entries[2].name, u"10"_s);
}

TEST(PicPanel, TheTreeHasFloorsIntersectionsAndMarks) {
    PanelSite site;
    std::vector<KX_DATA::PicMarkGroup> groups(2);
    GetVeskPicMng()->GetBimPicFilterValues(0, 0, 0, site.arg, groups);
    ASSERT_EQ(groups.size(), 3u);
    EXPECT_EQ(groups[0].name, "\xc6\xe4\xcb\xfb"); // the group of no floor, in code page 936
    ASSERT_EQ(groups[1].items.size(), 2u);
    const KX_DATA::PicMarkItem& item = groups[1].items[0];
    EXPECT_EQ(item.positionKey, "two-1");
    EXPECT_EQ(item.itemName, "A/1");
    EXPECT_EQ(item.total, 3);
    ASSERT_EQ(item.leaves.size(), 2u);
    EXPECT_EQ(item.leaves[0].markId, 1);
    EXPECT_EQ(item.leaves[0].count, 2);
    EXPECT_EQ(item.leaves[0].markName, u"质量"_s);
    EXPECT_EQ(item.leaves[0].text1, std::to_string(site.first));
}

TEST(PicPanel, HiddenPhotosAreInNoneOfTheModulesLists) {
    PanelSite site;
    site::Database& db = support::FolderOf(site.session).Db();
    db.Exec(u"UPDATE bim_photo SET status = 1 WHERE floor = '10' OR (position_key = 'two-1' AND"
            " mark_id = 2)"_s);
    std::vector<KX_DATA::PicFilterEntry> entries;
    GetVeskPicMng()->GetBimPicFilterGroups(0, 0, 0, site.arg, entries);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[1].values, (std::vector<std::pair<qint32, qint32>>{{1, 2}, {2, 1}}));
    std::vector<KX_DATA::PicMarkGroup> groups;
    GetVeskPicMng()->GetBimPicFilterValues(0, 0, 0, site.arg, groups);
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[1].items[0].leaves.size(), 1u);
    EXPECT_EQ(groups[1].items[0].total, 2);
    EXPECT_EQ(groups[1].items[1].leaves.size(), 1u);
    db.Exec(u"UPDATE bim_photo SET status = 1 WHERE position_key = 'two-2'"_s);
    GetVeskPicMng()->GetBimPicFilterValues(0, 0, 0, site.arg, groups);
    EXPECT_EQ(groups[1].items.size(), 1u);
}

TEST(PicPanel, TheSecondLevelOfPhotosHasNoName) {
    PanelSite site;
    std::vector<KX_DATA::PicMarkGroup> groups;
    GetVeskPicMng()->GetBimPicFilterValues(0, 0, 0, site.arg, groups);
    QString group = u"old"_s;
    GetKXGlobalData()->GetGroupName(group, groups[1].id);
    EXPECT_TRUE(group.isEmpty());
}

TEST(PicPanel, UnderADateRangeOnlyItsPhotosCount) {
    PanelSite site;
    std::vector<KX_DATA::PicMarkGroup> groups;
    GetVeskPicMng()->GetBimPicFilterValues(1000, 2000, 1, site.arg, groups);
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0].name, "2");
    ASSERT_EQ(groups[0].items.size(), 1u);
    ASSERT_EQ(groups[0].items[0].leaves.size(), 1u);
    EXPECT_EQ(groups[0].items[0].leaves[0].count, 1);
    EXPECT_EQ(groups[1].name, "10");
}

TEST(PicPanel, TheSamePlaceOfTwoProjectsHasTwoNames) {
    PanelSite site;
    site.writer->AddPosition({site.second, u"2"_s, u"A"_s, u"1"_s, u"other-1"_s, true});
    site.AddPhoto([&](site::NewBimPhoto& photo) {
        photo.ppid = site.second;
        photo.positionKey = u"other-1"_s;
    });
    ASSERT_TRUE(site.session.OpenWorkset(site.workset));
    std::vector<KX_DATA::PicMarkGroup> groups;
    GetVeskPicMng()->GetBimPicFilterValues(0, 0, 0, site.arg, groups);
    ASSERT_EQ(groups.size(), 3u);
    ASSERT_EQ(groups[1].items.size(), 3u);
    std::set<std::string> names;
    for (const KX_DATA::PicMarkItem& item : groups[1].items) {
        names.insert(item.itemName);
    }
    EXPECT_EQ(names.size(), 3u);
    EXPECT_EQ(groups[1].items[2].positionKey, "other-1");
    EXPECT_EQ(groups[1].items[2].leaves[0].text1, std::to_string(site.second));
}

TEST(PicPanel, AFailedReadLeavesTheListsEmptyAndTellsThePerson) {
    PanelSite site;
    support::FolderOf(site.session).Db().Exec(u"DROP TABLE bim_place_tally"_s);
    std::vector<KX_DATA::PicFilterEntry> entries(2);
    GetVeskPicMng()->GetBimPicFilterGroups(0, 0, 0, site.arg, entries);
    EXPECT_TRUE(entries.empty());
    std::vector<KX_DATA::PicMarkGroup> groups(2);
    GetVeskPicMng()->GetBimPicFilterValues(0, 0, 0, site.arg, groups);
    EXPECT_TRUE(groups.empty());
    EXPECT_EQ(site.messages.size(), 2u);
}

TEST(PicPanel, AChangeByAnotherClientCountsAtOnce) {
    PanelSite site;
    std::vector<KX_DATA::PicFilterEntry> entries;
    GetVeskPicMng()->GetBimPicFilterGroups(0, 0, 0, site.arg, entries);
    site::DataFolder other(support::FolderOf(site.session).Path());
    ASSERT_FALSE(other.Open().has_value());
    other.Db().Exec(u"UPDATE bim_photo SET status = 1 WHERE floor = '10'"_s);
    GetVeskPicMng()->GetBimPicFilterGroups(0, 0, 0, site.arg, entries);
    EXPECT_EQ(entries.size(), 2u);
}

TEST(PicPanel, TimesCountOnlyWithTheFlagAndPeopleAndProjectsLimit) {
    PanelSite site;
    std::vector<qint32> ids;
    EXPECT_EQ(GetVeskPicMng()->GetBimPicMarkerList(2000, 3000, 0, 1, site.arg, ids), 4);
    EXPECT_EQ(GetVeskPicMng()->GetBimPicMarkerList(2000, 3000, 1, 1, site.arg, ids), 3);
    site.arg.userName = u"wang"_s;
    EXPECT_EQ(GetVeskPicMng()->GetBimPicMarkerList(2000, 3000, 1, 1, site.arg, ids), 1);
    EXPECT_EQ(ids.size(), 1u);
    site.arg.projectIds = {site.second};
    EXPECT_EQ(GetVeskPicMng()->GetBimPicMarkerList(0, 0, 0, 1, site.arg, ids), 0);
    EXPECT_TRUE(ids.empty());
}

} // namespace host
