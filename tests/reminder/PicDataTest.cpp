#include "frame/KXVeskPictureImpl.h"
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "tests/support/ScriptedHost.h"
#include "toolkit/GbkText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

KX_DATA::PicMarkGroup Group(const QString& name) {
    KX_DATA::PicMarkGroup group;
    group.name = toolkit::ToGbk(name);
    group.items.push_back({"key", "item", {}, {}, {}, 0, 0, {{"", "", 1, 3, u"质量"_s}}});
    return group;
}

class PicData : public testing::Test {
protected:
    ~PicData() override {
        CKXVeskPictureImpl::ReleaseInstance();
        CKXVeskPicDataImpl::ReleaseInstance();
    }

    void Fetch() {
        KX_DATA::MarkFilterArg filterArg;
        std::vector<KX_DATA::PicFilterEntry> entries;
        m_data.GetPicFilterData(1, 2, 3, filterArg, entries);
    }

    support::ScriptedHost m_host;
    CKXVeskPicDataImpl& m_data = CKXVeskPicDataImpl::Instance();
};

} // namespace

TEST_F(PicData, TheServicesGroupsComeOutWithTheOthersLast) {
    m_host.pics.markGroups = {Group(u"A"_s), Group(u"其他"_s), Group(u"B"_s)};
    Fetch();
    std::vector<KX_DATA::PicMarkGroup> marks;
    const KX_DATA::ShownPicMarks all = {{"A", {}}, {"B", {}}, {toolkit::ToGbk(u"其他"_s), {}}};
    m_data.BuildPicMarks(all, marks);
    ASSERT_EQ(marks.size(), 3U);
    EXPECT_EQ(marks[0].name, "A");
    EXPECT_EQ(marks[1].name, "B");
    EXPECT_EQ(marks[2].name, toolkit::ToGbk(u"其他"_s));
}

TEST_F(PicData, TheOthersComeOutWithOneItemThatHoldsTheLeavesOfAll) {
    KX_DATA::PicMarkGroup others = Group(u"其他"_s);
    others.items.push_back({"last key", "last", {}, {}, {}, 9, 9, {{"", "", 2, 4, u"安全"_s}}});
    m_host.pics.markGroups = {others};
    Fetch();
    std::vector<KX_DATA::PicMarkGroup> marks;
    m_data.BuildPicMarks({{toolkit::ToGbk(u"其他"_s), {}}}, marks);
    ASSERT_EQ(marks.size(), 1U);
    ASSERT_EQ(marks[0].items.size(), 1U);
    EXPECT_EQ(marks[0].items[0].positionKey, "last key");
    EXPECT_EQ(marks[0].items[0].leaves.size(), 2U);
    EXPECT_EQ(marks[0].items[0].total, 7);
}

TEST_F(PicData, WithNothingTickedThereAreNoMarksAtAll) {
    m_host.pics.markGroups = {Group(u"A"_s), Group(u"其他"_s)};
    Fetch();
    std::vector<KX_DATA::PicMarkGroup> marks;
    m_data.BuildPicMarks({}, marks);
    EXPECT_TRUE(marks.empty());
}

TEST_F(PicData, TheSecondLevelIsLookedUpByTheNameOfTheGroupsId) {
    m_host.pics.markGroups = {Group(u"A"_s), Group(u"B"_s)};
    Fetch();
    QString second;
    m_host.global.GetGroupName(second, m_host.pics.markGroups[0].id);
    std::vector<KX_DATA::PicMarkGroup> marks;
    m_data.BuildPicMarks({{"A", {{second, {{1, {}}}}}}, {"B", {{second + u"?"_s, {{1, {}}}}}}},
                         marks);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_EQ(marks[0].name, "A");
}

TEST_F(PicData, AServiceThatReplacesNothingLeavesTheLastFetch) {
    m_host.pics.markGroups = {Group(u"A"_s)};
    Fetch();
    m_host.script.FailNext("GetBimPicFilterValues");
    Fetch();
    std::vector<KX_DATA::PicMarkGroup> marks;
    m_data.BuildPicMarks({{"A", {}}}, marks);
    EXPECT_EQ(marks.size(), 1U);
}

TEST_F(PicData, MarksBuiltBeforeAnyFetchAreEmpty) {
    std::vector<KX_DATA::PicMarkGroup> marks;
    m_data.BuildPicMarks({{"A", {}}}, marks);
    EXPECT_TRUE(marks.empty());
}

TEST_F(PicData, ClearingForgetsTheLastFetch) {
    m_host.pics.markGroups = {Group(u"A"_s)};
    Fetch();
    m_data.Clear();
    std::vector<KX_DATA::PicMarkGroup> marks;
    m_data.BuildPicMarks({{"A", {}}}, marks);
    EXPECT_TRUE(marks.empty());
}

TEST_F(PicData, TheFacadeHandsWhatIsTickedToTheView) {
    m_host.pics.markGroups = {Group(u"A"_s), Group(u"B"_s)};
    m_host.project.shownPicMarks = {{"B", {}}};
    Fetch();
    CKXVeskPictureImpl::Instance().RefreshPicMarks();
    ASSERT_EQ(m_host.view.picMarkers.size(), 1U);
    EXPECT_EQ(m_host.view.picMarkers[0].name, "B");
    EXPECT_EQ(m_host.view.picMarkers[0].items[0].total, 3);
}

TEST_F(PicData, WithoutAViewNothingIsHandedOver) {
    m_host.script.FailAlways("GetView");
    CKXVeskPictureImpl::Instance().RefreshPicMarks();
    CKXVeskPictureImpl::Instance().RefreshIssueMarks();
    EXPECT_EQ(m_host.Log().CountOf("SetVeskPicMarkers"), 0);
    EXPECT_EQ(m_host.Log().CountOf("SetTNIssueMarkers"), 0);
}

TEST_F(PicData, IssueEntriesAreFetchedSortedAndNamed) {
    m_host.questions.filterEntries = {{1, 1, u"10"_s, {}}, {2, 1, u"2"_s, {}}};
    m_host.questions.markGroups = {{u"2"_s, 1, 1, {{u"开裂"_s, u"k1"_s, {}, {}, 0}}}};
    m_host.project.shownIssueMarks = {{u"k1"_s, 1}};
    KX_DATA::MarkFilterArg filterArg;
    std::vector<KX_DATA::PicFilterEntry> entries;
    m_data.GetIssueFilterData(1, 2, 3, filterArg, entries);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].name, u"2"_s);
    EXPECT_EQ(m_data.IssueNameMap().at(u"k1"_s), u"开裂"_s);
    CKXVeskPictureImpl::Instance().RefreshIssueMarks();
    ASSERT_EQ(m_host.view.issueMarkers.size(), 1U);
    EXPECT_EQ(m_host.view.issueMarkers[0].entries[0].itemKey, u"k1"_s);
}

TEST_F(PicData, PhotoEntriesAreTheServicesAndOfEachFetchItsOwn) {
    KX_DATA::MarkFilterArg filterArg;
    std::vector<KX_DATA::PicFilterEntry> entries;
    m_host.pics.filterEntries = {{u"A"_s, 2, {{1, 2}}, 7}, {u"B"_s, 1, {}, 8}};
    m_data.GetPicFilterData(1, 2, 3, filterArg, entries);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].name, u"A"_s);
    EXPECT_EQ(entries[1].id, 8);
    m_host.pics.filterEntries = {{u"C"_s, 1, {}, 9}};
    m_data.GetPicFilterData(1, 2, 3, filterArg, entries);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].name, u"C"_s);
}
