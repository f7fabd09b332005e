#include "services/Factories.h"
#include "services/ITNQuestionMng.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

std::vector<KX_DATA::IssueRow> IssuesOf(const KX_DATA::PicQueryFilter& filter,
                                        const QString& sort = QStringLiteral("modifytime")) {
    KX_DATA::PageResult result;
    std::vector<KX_DATA::IssueRow> rows;
    EXPECT_EQ(GetTNQuestionMng()->QueryIssues(filter, {1, 30, sort, u"asc"_s}, result, rows),
              KX_DATA::kServiceOk);
    EXPECT_EQ(result.totalCount, static_cast<qint32>(rows.size()));
    return rows;
}

} // namespace

TEST(IssueList, ThePresetIsAFloorAndOnlyWithItAComponent) {
    ServiceSite site;
    const QString one =
        site.AddIssue([](site::NewIssue& issue) { issue.componentHandle = u"h1"_s; });
    site.AddIssue([](site::NewIssue& issue) { issue.componentHandle = u"h2"_s; });
    site.AddIssue([](site::NewIssue& issue) {
        issue.floor = u"2"_s;
        issue.componentHandle = u"h1"_s;
    });
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.presetExtra = u"h1"_s;
    EXPECT_EQ(IssuesOf(filter).size(), 3u);
    filter.presetKey = u"1"_s;
    ASSERT_EQ(IssuesOf(filter).size(), 1u);
    EXPECT_EQ(IssuesOf(filter)[0].questionId, one);
    filter.presetExtra.clear();
    EXPECT_EQ(IssuesOf(filter).size(), 2u);
    filter.keyword = u"裂"_s;
    filter.markId = 1;
    EXPECT_EQ(IssuesOf(filter).size(), 2u);
}

TEST(IssueList, EveryKeyOfTheirTableSortsAndPlacesSortByFloorPlaceAndComponent) {
    ServiceSite site;
    const auto add = [&](const QString& floor, const QString& place, const QString& component) {
        return site.AddIssue([&](site::NewIssue& issue) {
            issue.floor = floor;
            issue.posInfo = place;
            issue.componentName = component;
        });
    };
    const QString last = add(u"10"_s, u"A/1"_s, u"柱"_s);
    const QString third = add(u"2"_s, u"B/1"_s, u"墙"_s);
    const QString second = add(u"2"_s, u"A/1"_s, u"板"_s);
    const QString first = add(u"-1"_s, u"C/9"_s, u"柱"_s);
    for (const QString& key :
         {u"modifytime"_s, u"markerId"_s, u"theme"_s, u"ppid"_s, u"modifyuser"_s,
          u"floor,posinfo,compname"_s, u"rectifyStatus"_s, u"describe"_s, u"status"_s}) {
        EXPECT_EQ(IssuesOf(site.Filter(), key).size(), 4u) << key.toStdString();
    }
    std::vector<QString> ids;
    for (const auto& row : IssuesOf(site.Filter(), u"floor,posinfo,compname"_s)) {
        ids.push_back(row.questionId);
    }
    EXPECT_EQ(ids, (std::vector<QString>{first, second, third, last}));
}

TEST(IssueList, TheKeywordIsFoundInThemePeopleAndDescriptionAndTheStateLimits) {
    ServiceSite site;
    site.AddIssue([](site::NewIssue& issue) {
        issue.theme = u"楼板渗漏"_s;
        issue.description = u"三层东侧"_s;
        issue.creator = u"王芳"_s;
        issue.state = 2;
    });
    site.AddIssue([](site::NewIssue&) {});
    for (const QString& keyword : {u"板渗"_s, u"东"_s, u"芳"_s}) {
        KX_DATA::PicQueryFilter filter = site.Filter();
        filter.keyword = keyword;
        EXPECT_EQ(IssuesOf(filter).size(), 1u) << keyword.toStdString();
        filter.status = u"已整改"_s;
        EXPECT_EQ(IssuesOf(filter).size(), 1u);
        filter.status = u"整改中"_s;
        EXPECT_TRUE(IssuesOf(filter).empty());
    }
}

TEST(IssueList, AnIssueThatNobodyChangedHasItsCreationTwice) {
    ServiceSite site;
    site.AddIssue([](site::NewIssue&) {});
    const auto rows = IssuesOf(site.Filter());
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].createTime, rows[0].updateTime);
    EXPECT_EQ(rows[0].updaterName, QString());
    EXPECT_EQ(rows[0].rectifyText, u"未整改"_s);
}

TEST(IssueList, HidingShowingAndDeletingTakeQuestionIds) {
    ServiceSite site;
    const QString one = site.AddIssue([](site::NewIssue&) {});
    const QString two = site.AddIssue([](site::NewIssue&) {});
    EXPECT_TRUE(GetTNQuestionMng()->SetIssuesShown(site.first, {two}, true));
    EXPECT_EQ(IssuesOf(site.Filter(), u"status"_s)[1].questionId, two);
    EXPECT_EQ(IssuesOf(site.Filter(), u"status"_s)[1].status, 1);
    EXPECT_TRUE(GetTNQuestionMng()->DeleteIssues({one}));
    ASSERT_EQ(IssuesOf(site.Filter()).size(), 1u);
    EXPECT_EQ(IssuesOf(site.Filter())[0].questionId, two);
    EXPECT_TRUE(GetTNQuestionMng()->DeleteIssues({}));
}

TEST(IssueDetail, IsReadWithVoicePicturesAndRectificationAndLeavesTheCallersFieldsAlone) {
    ServiceSite site;
    site::NewIssue issue = site.UsualIssue();
    issue.componentName = u"KL-3"_s;
    issue.rectifier = u"wang"_s;
    issue.rectifyText = u"已修补"_s;
    issue.state = 2;
    const QString id = site.writer->FileIssue(issue, {{}, "amr"});
    site.writer->FileIssuePic(issue.ppid, {id, false, u"a.jpg"_s, u"zhang"_s, 5}, {{}, "abc"});
    KX_DATA::QuestionDetail detail;
    detail.questionId = u"mine"_s;
    detail.ppid = 77;
    EXPECT_NE(GetTNQuestionMng()->GetIssueDetail(site.first, id, detail), 0);
    EXPECT_EQ(detail.questionId, u"mine"_s);
    EXPECT_EQ(detail.ppid, 77);
    EXPECT_EQ(detail.componentName, u"KL-3"_s);
    EXPECT_EQ(detail.voiceMd5.size(), 32);
    std::vector<KX_DATA::QuestionPicRecord> pics;
    EXPECT_NE(GetTNQuestionMng()->GetIssuePics(site.first, id, 0, pics), 0);
    ASSERT_EQ(pics.size(), 1u);
    EXPECT_EQ(pics[0].fileSize, 3);
    EXPECT_EQ(pics[0].thumbUuid, pics[0].fileUuid);
    KX_DATA::RectifyRecord record;
    EXPECT_TRUE(GetTNQuestionMng()->GetRectification(id, record));
    EXPECT_EQ(record.rectifierName, u"wang"_s);
    EXPECT_EQ(record.state, 2);
    EXPECT_EQ(GetTNQuestionMng()->GetIssueDetail(site.second, id, detail), 0);
    EXPECT_EQ(GetTNQuestionMng()->GetIssuePics(site.first, u"x"_s, 0, pics), 0);
    EXPECT_FALSE(GetTNQuestionMng()->GetRectification(u"x"_s, record));
}

TEST(IssueDetail, APictureThatIsDeletedIsGoneAndTheServiceSaysSo) {
    ServiceSite site;
    const site::NewIssue issue = site.UsualIssue();
    const QString id = site.writer->FileIssue(issue);
    const QString picId =
        site.writer->FileIssuePic(issue.ppid, {id, false, u"a.jpg"_s, u"zhang"_s, 5}, {{}, "abc"});
    EXPECT_TRUE(GetTNQuestionMng()->DeletePics(KX_DATA::kIssuePicKind, {picId}));
    std::vector<KX_DATA::QuestionPicRecord> pics(2);
    EXPECT_NE(GetTNQuestionMng()->GetIssuePics(site.first, id, 0, pics), 0);
    EXPECT_TRUE(pics.empty());
}

TEST(IssueMarks, AreThoseInUseThatTheTableKnows) {
    ServiceSite site;
    site.AddIssue([](site::NewIssue& issue) { issue.markId = 2; });
    site.AddIssue([](site::NewIssue& issue) { issue.markId = 99; });
    std::vector<qint32> marks;
    EXPECT_TRUE(GetTNQuestionMng()->GetUsedMarks(KX_DATA::kIssueMarkKind, marks));
    EXPECT_EQ(marks, (std::vector<qint32>{2}));
    EXPECT_FALSE(GetTNQuestionMng()->GetUsedMarks(8, marks));
}

} // namespace host
