#include "services/Factories.h"
#include "services/ITNQuestionMng.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

/// Issues on floors 2 and 10 and on none, one of them hidden.
class IssueSite : public ServiceSite {
public:
    IssueSite() {
        Add(u"10"_s, u"1-A轴"_s, 1, 0, 1000);
        Add(u"2"_s, u"3-B轴"_s, 2, 0, 2000);
        Add(u"2"_s, u"1-A轴"_s, 1, 0, 3000);
        Add(u"2"_s, u"2-A轴"_s, 2, 0, 3000);
        Add(u"2"_s, u"2-A轴"_s, 1, 1, 3000);
        Add({}, {}, 1, 0, 3000);
    }

    std::vector<KX_DATA::IssueMarkGroup> Groups(qint64 from = 0, qint64 to = 0, quint8 flag = 0) {
        std::vector<KX_DATA::IssueMarkGroup> groups(3);
        GetTNQuestionMng()->GetIssueGroups(flag, &from, &to, arg, groups);
        return groups;
    }
    std::vector<KX_DATA::IssueFilterSource> Entries(qint64 from = 0, qint64 to = 0,
                                                    quint8 flag = 0) {
        std::vector<KX_DATA::IssueFilterSource> entries(3);
        GetTNQuestionMng()->GetIssueFilterList(flag, &from, &to, arg, entries);
        return entries;
    }

    KX_DATA::MarkFilterArg arg;

private:
    void Add(const QString& floor, const QString& place, qint32 mark, qint32 status, qint64 time) {
        AddIssue([&](site::NewIssue& issue) {
            issue.questionId = u"q%1"_s.arg(++m_count);
            issue.floor = floor;
            issue.posInfo = place;
            issue.componentName = u"柱"_s;
            issue.markId = mark;
            issue.status = status;
            issue.createTime = time;
        });
    }
    int m_count = 0;
};

using Pairs = std::vector<std::pair<qint32, qint32>>;

} // namespace

TEST(IssuePanel, TheListHasEachFloorWithCountsBeforeMarks) {
    IssueSite site;
    const auto entries = site.Entries();
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].name, u"其他"_s);
    EXPECT_EQ(entries[1].name, u"2"_s);
    EXPECT_EQ(entries[1].count, 3);
    EXPECT_EQ(entries[1].pairs, (Pairs{{1, 1}, {2, 2}}));
    EXPECT_EQ(entries[2].name, u"10"_s);
}

TEST(IssuePanel, TheTreeHasEachFloorWithItsShownIssuesByPlace) {
    IssueSite site;
    const auto groups = site.Groups();
    ASSERT_EQ(groups.size(), 3u);
    EXPECT_EQ(groups[1].name, u"2"_s);
    EXPECT_EQ(groups[1].id, site.first);
    EXPECT_EQ(groups[1].count, 3);
    ASSERT_EQ(groups[1].entries.size(), 3u);
    const KX_DATA::IssueMarkEntry& entry = groups[1].entries[0];
    EXPECT_EQ(entry.itemText, u"裂缝"_s);
    EXPECT_EQ(entry.itemKey, u"q3"_s);
    EXPECT_EQ(entry.text3, u"1-A轴"_s);
    EXPECT_EQ(entry.text4, u"柱"_s);
    EXPECT_EQ(entry.value, 1);
    EXPECT_EQ(groups[1].entries[1].itemKey, u"q4"_s);
}

TEST(IssuePanel, ADateRangeLimitsListAndTree) {
    IssueSite site;
    EXPECT_EQ(site.Groups(2000, 2500, 1).size(), 1u);
    EXPECT_EQ(site.Groups(2000, 2500, 0).size(), 3u);
    const auto entries = site.Entries(2000, 2500, 1);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].pairs, (Pairs{{1, 2}}));
}

TEST(IssuePanel, WithoutBothEndsOfTheRangeAllTimesCount) {
    IssueSite site;
    std::vector<KX_DATA::IssueMarkGroup> groups;
    const qint64 from = 2900;
    GetTNQuestionMng()->GetIssueGroups(1, &from, nullptr, site.arg, groups);
    EXPECT_EQ(groups.size(), 3u);
    std::vector<KX_DATA::IssueFilterSource> entries;
    GetTNQuestionMng()->GetIssueFilterList(1, nullptr, nullptr, site.arg, entries);
    EXPECT_EQ(entries.size(), 3u);
}

TEST(IssuePanel, AWorksetHasOneEntryAFloorAndAGroupForEachOfItsProjects) {
    IssueSite site;
    site.AddIssue([&](site::NewIssue& issue) {
        issue.ppid = site.second;
        issue.floor = u"2"_s;
        issue.markId = 2;
    });
    ASSERT_TRUE(site.session.OpenWorkset(site.workset));
    const auto entries = site.Entries();
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[1].count, 4);
    EXPECT_EQ(entries[1].pairs, (Pairs{{1, 1}, {3, 2}}));
    const auto groups = site.Groups();
    ASSERT_EQ(groups.size(), 4u);
    EXPECT_EQ(groups[1].id, site.first);
    EXPECT_EQ(groups[2].name, u"2"_s);
    EXPECT_EQ(groups[2].id, site.second);
}

TEST(IssuePanel, AFailedReadLeavesBothEmptyAndTellsThePerson) {
    IssueSite site;
    support::FolderOf(site.session).Db().Exec(u"DROP TABLE issue"_s);
    EXPECT_TRUE(site.Groups().empty());
    EXPECT_TRUE(site.Entries().empty());
    EXPECT_EQ(site.messages.size(), 2u);
}

TEST(IssueList, AFailedSearchSaysWhatFailed) {
    IssueSite site;
    support::FolderOf(site.session).Db().Exec(u"DROP TABLE issue"_s);
    KX_DATA::PageResult result;
    std::vector<KX_DATA::IssueRow> rows;
    EXPECT_NE(
        GetTNQuestionMng()->QueryIssues(site.Filter(), {1, 30, u"ppid"_s, u"asc"_s}, result, rows),
        KX_DATA::kServiceOk);
    ASSERT_EQ(site.messages.size(), 1u);
    EXPECT_TRUE(site.messages[0].startsWith(u"查询TN问题失败："_s))
        << site.messages[0].toStdString();
}

TEST(IssuePanel, ReadsAnIndexAndNoRows) {
    IssueSite site;
    QString plan;
    support::FolderOf(site.session)
        .Db()
        .ForEach(
            u"EXPLAIN QUERY PLAN SELECT floor_sort, floor, question_id, theme, pos_info,"
            " component_name, mark_id FROM issue INDEXED BY issue_panel WHERE ppid = 1 AND status "
            "= 0"
            " AND modified BETWEEN 1 AND 2 AND modifier = 'x' ORDER BY floor_sort, pos_info, id"_s,
            {}, [&](const site::Statement& row) { plan += row.Text(3) + u'\n'; });
    EXPECT_TRUE(plan.contains(u"COVERING INDEX issue_panel"_s)) << plan.toStdString();
    EXPECT_FALSE(plan.contains(u"TEMP B-TREE"_s)) << plan.toStdString();
}

} // namespace host
