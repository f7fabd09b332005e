// ITNQuestionMng: issues, their pictures and rectifications.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;

namespace {

/// Nothing about it is left out.
site::NewIssue WholeIssue(qint32 ppid) {
    site::NewIssue issue;
    issue.ppid = ppid;
    issue.theme = u"裂缝"_s;
    issue.description = u"宽两毫米"_s;
    issue.floor = u"3"_s;
    issue.posInfo = u"3-B轴"_s;
    issue.componentName = u"KL-3"_s;
    issue.componentSubName = u"框架梁"_s;
    issue.componentHandle = u"h7"_s;
    issue.markId = 2;
    issue.state = 2;
    issue.creator = u"zhang"_s;
    issue.createTime = 1700000000;
    issue.updater = u"wang"_s;
    issue.updateTime = 1700000600;
    issue.rectifyText = u"已修补"_s;
    issue.rectifier = u"zhao"_s;
    return issue;
}

} // namespace

class Issues : public Contract {};
ON_EVERY_SITE(Issues);

TEST_P(Issues, ARowTellsEverythingOfItsIssue) {
    const QString id = site->AddIssue(WholeIssue(first), {});
    KX_DATA::PageResult result;
    std::vector<KX_DATA::IssueRow> rows;
    ASSERT_EQ(on.issues->QueryIssues(Filter(), {}, result, rows), kServiceOk);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].questionId, id);
    EXPECT_EQ(rows[0].theme, u"裂缝"_s);
    EXPECT_EQ(rows[0].description, u"宽两毫米"_s);
    EXPECT_EQ(rows[0].floor, u"3"_s);
    EXPECT_EQ(rows[0].posInfo, u"3-B轴"_s);
    EXPECT_EQ(rows[0].compName, u"KL-3"_s);
    EXPECT_EQ(rows[0].markId, 2);
    EXPECT_EQ(rows[0].rectifyText, u"已整改"_s);
    EXPECT_EQ(rows[0].status, 0);
    EXPECT_EQ(rows[0].creatorName, u"zhang"_s);
    EXPECT_EQ(rows[0].createTime, 1700000000);
    EXPECT_EQ(rows[0].updaterName, u"wang"_s);
    EXPECT_EQ(rows[0].updateTime, 1700000600);
    EXPECT_EQ(rows[0].ppid, first);
}

TEST_P(Issues, PagesCountFromOneAndTellTheTotals) {
    Issue();
    Issue();
    const QString last = Issue();
    KX_DATA::PageResult result;
    std::vector<KX_DATA::IssueRow> rows;
    ASSERT_EQ(on.issues->QueryIssues(Filter(), {2, 2, u"ppid"_s, u"asc"_s}, result, rows),
              kServiceOk);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].questionId, last);
    EXPECT_EQ(rows[0].updateTime, rows[0].createTime) << "nobody changed it";
    EXPECT_EQ(result.totalCount, 3);
    EXPECT_EQ(result.pageCount, 2);
    ASSERT_EQ(on.issues->QueryIssues(Filter(), {0, 2, u"ppid"_s, u"asc"_s}, result, rows),
              kServiceOk);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(result.totalCount, 3);
}

TEST_P(Issues, ADetailTellsEverythingAndLeavesTheCallersOwnFieldsAlone) {
    const QString id = site->AddIssue(WholeIssue(first), "amr");
    KX_DATA::QuestionDetail detail;
    detail.questionId = u"mine"_s;
    detail.ppid = 77;
    ASSERT_NE(on.issues->GetIssueDetail(first, id, detail), 0);
    EXPECT_EQ(detail.questionId, u"mine"_s);
    EXPECT_EQ(detail.ppid, 77);
    EXPECT_EQ(detail.componentName, u"KL-3"_s);
    EXPECT_EQ(detail.componentSubName, u"框架梁"_s);
    EXPECT_EQ(detail.componentHandle, u"h7"_s);
    EXPECT_EQ(detail.createTime, 1700000000);
    EXPECT_EQ(detail.creatorName, u"zhang"_s);
    EXPECT_EQ(detail.description, u"宽两毫米"_s);
    EXPECT_EQ(detail.floor, u"3"_s);
    EXPECT_EQ(detail.markId, 2);
    EXPECT_EQ(detail.updateTime, 1700000600);
    EXPECT_EQ(detail.updaterName, u"wang"_s);
    EXPECT_EQ(detail.questionName, u"裂缝"_s);
    EXPECT_EQ(detail.status, 0);
    EXPECT_FALSE(detail.voiceUuid.isEmpty());
    EXPECT_EQ(detail.voiceMd5, u"c06e016f63751d7af476fd754d97a533"_s);
    EXPECT_NE(detail.voiceState, 0);
}

TEST_P(Issues, ADetailWithoutAVoiceNoteTakesBackWhatWasThereOfOne) {
    const QString id = Issue();
    KX_DATA::QuestionDetail detail;
    detail.voiceUuid = u"old"_s;
    detail.voiceMd5 = u"old"_s;
    detail.voiceState = 1;
    ASSERT_NE(on.issues->GetIssueDetail(first, id, detail), 0);
    EXPECT_EQ(detail.voiceUuid, QString());
    EXPECT_EQ(detail.voiceMd5, QString());
    EXPECT_EQ(detail.voiceState, 0);
}

TEST_P(Issues, AHiddenIssueHasADetailAndAForeignOrUnknownOneNone) {
    const QString hidden = Issue([](site::NewIssue& issue) { issue.status = 1; });
    KX_DATA::QuestionDetail detail;
    ASSERT_NE(on.issues->GetIssueDetail(first, hidden, detail), 0);
    EXPECT_EQ(detail.status, 1);
    detail.markId = kUntouched;
    EXPECT_EQ(on.issues->GetIssueDetail(site->second, hidden, detail), 0);
    EXPECT_EQ(on.issues->GetIssueDetail(first, u"unknown"_s, detail), 0);
    EXPECT_EQ(on.issues->GetIssueDetail(first, {}, detail), 0);
    EXPECT_EQ(detail.markId, kUntouched);
}

TEST_P(Issues, PicturesOfAnIssueAreNotThoseOfItsRectification) {
    const QString id = Issue();
    site->AddIssuePic({id, false, u"a.jpg"_s, u"zhang"_s, 5}, "abc");
    site->AddIssuePic({id, true, u"b.jpg"_s, u"zhao"_s, 6}, "defg");
    std::vector<KX_DATA::QuestionPicRecord> pics(4);
    ASSERT_NE(on.issues->GetIssuePics(first, id, 0, pics), 0);
    ASSERT_EQ(pics.size(), 1U);
    EXPECT_FALSE(pics[0].picId.isEmpty());
    EXPECT_EQ(pics[0].fileName, u"a.jpg"_s);
    EXPECT_EQ(pics[0].uploaderName, u"zhang"_s);
    EXPECT_EQ(pics[0].uploadTime, 5);
    EXPECT_EQ(pics[0].fileSize, 3);
    EXPECT_EQ(pics[0].fileMd5, u"900150983cd24fb0d6963f7d28e17f72"_s);
    EXPECT_EQ(pics[0].thumbUuid, pics[0].fileUuid);
    EXPECT_EQ(pics[0].thumbSize, 3);
    KX_DATA::RectifyRecord record;
    ASSERT_TRUE(on.issues->GetRectification(id, record));
    ASSERT_EQ(record.pics.size(), 1U);
    EXPECT_EQ(record.pics[0].fileName, u"b.jpg"_s);
    EXPECT_EQ(record.pics[0].fileSize, 4);
}

TEST_P(Issues, AnIssueWithoutPicturesHasAnEmptyListAndAnUnknownOneNone) {
    const QString id = Issue();
    std::vector<KX_DATA::QuestionPicRecord> pics(4);
    EXPECT_NE(on.issues->GetIssuePics(first, id, 0, pics), 0);
    EXPECT_TRUE(pics.empty());
    pics.resize(2);
    EXPECT_EQ(on.issues->GetIssuePics(first, u"unknown"_s, 0, pics), 0);
    EXPECT_EQ(on.issues->GetIssuePics(site->second, id, 0, pics), 0);
    EXPECT_EQ(pics.size(), 2U);
}

TEST_P(Issues, ARectificationTellsItsTextItsStateAndWhoDidIt) {
    const QString id = site->AddIssue(WholeIssue(first), {});
    const QString untouched = Issue();
    KX_DATA::RectifyRecord record;
    ASSERT_TRUE(on.issues->GetRectification(id, record));
    EXPECT_EQ(record.questionId, id);
    EXPECT_EQ(record.rectifyText, u"已修补"_s);
    EXPECT_EQ(record.rectifierName, u"zhao"_s);
    EXPECT_EQ(record.state, 2);
    EXPECT_TRUE(record.pics.empty());
    EXPECT_EQ(record.voiceUuid, QString());
    ASSERT_TRUE(on.issues->GetRectification(untouched, record));
    EXPECT_EQ(record.rectifyText, QString());
    EXPECT_EQ(record.rectifierName, QString());
    record.state = kUntouched;
    EXPECT_FALSE(on.issues->GetRectification(u"unknown"_s, record));
    EXPECT_EQ(record.state, kUntouched);
}

TEST_P(Issues, HidingShowingAndDeletingTakeQuestionIds) {
    const QString one = Issue();
    const QString two = Issue();
    ASSERT_TRUE(on.issues->SetIssuesShown(first, {two, u"unknown"_s}, true));
    EXPECT_EQ(IssueRows()[0].status, 0);
    EXPECT_EQ(IssueRows()[1].status, 1);
    ASSERT_TRUE(on.issues->SetIssuesShown(first, {two}, false));
    EXPECT_EQ(IssueRows()[1].status, 0);
    EXPECT_TRUE(on.issues->SetIssuesShown(first, {}, true));
    EXPECT_FALSE(on.issues->SetIssuesShown(first, {u"unknown"_s}, true));
    EXPECT_FALSE(on.issues->SetIssuesShown(site->second, {one}, true));
    EXPECT_EQ(IssueRows()[0].status, 0);
    ASSERT_TRUE(on.issues->DeleteIssues({one, u"unknown"_s}));
    ASSERT_EQ(IssueRows().size(), 1U);
    EXPECT_EQ(IssueRows()[0].questionId, two);
    EXPECT_FALSE(on.issues->DeleteIssues({one}));
    EXPECT_TRUE(on.issues->DeleteIssues({}));
    EXPECT_EQ(IssueRows().size(), 1U);
}

TEST_P(Issues, MarksInUseAreThoseOfTheTableAndAskedForByTheirKind) {
    for (const qint32 mark : {2, 99, 2}) {
        Issue([mark](site::NewIssue& issue) { issue.markId = mark; });
    }
    std::vector<qint32> marks;
    ASSERT_TRUE(on.issues->GetUsedMarks(KX_DATA::kIssueMarkKind, marks));
    EXPECT_THAT(marks, ElementsAre(2));
    EXPECT_FALSE(on.issues->GetUsedMarks(8, marks));
    EXPECT_THAT(marks, ElementsAre(2));
}

class IssueFailures : public FailureContract {};
WHERE_READING_FAILS(IssueFailures);

TEST_P(IssueFailures, AQueryTellsItAndLeavesRowsAndTotalsAlone) {
    Issue();
    Fail({"QueryIssues"});
    KX_DATA::PageResult result{1, 2, kUntouched};
    std::vector<KX_DATA::IssueRow> rows(3);
    EXPECT_NE(on.issues->QueryIssues(Filter(), {}, result, rows), kServiceOk);
    EXPECT_EQ(rows.size(), 3U);
    EXPECT_EQ(result.pageCount, kUntouched);
}

TEST_P(IssueFailures, WhatBelongsToAnIssueTellsItAndIsLeftAlone) {
    const QString id = Issue();
    Fail({"GetIssueDetail", "GetIssuePics", "GetRectification", "GetUsedMarks"});
    KX_DATA::QuestionDetail detail;
    detail.markId = kUntouched;
    EXPECT_EQ(on.issues->GetIssueDetail(first, id, detail), 0);
    EXPECT_EQ(detail.markId, kUntouched);
    std::vector<KX_DATA::QuestionPicRecord> pics(2);
    EXPECT_EQ(on.issues->GetIssuePics(first, id, 0, pics), 0);
    EXPECT_EQ(pics.size(), 2U);
    KX_DATA::RectifyRecord record;
    record.state = kUntouched;
    EXPECT_FALSE(on.issues->GetRectification(id, record));
    EXPECT_EQ(record.state, kUntouched);
    std::vector<qint32> marks{kUntouched};
    EXPECT_FALSE(on.issues->GetUsedMarks(KX_DATA::kIssueMarkKind, marks));
    EXPECT_THAT(marks, ElementsAre(kUntouched));
}

class IssueChangeFailures : public FailureContract {};
WHERE_WRITING_FAILS(IssueChangeFailures);

TEST_P(IssueChangeFailures, HidingAndDeletingTellItAndChangeNothing) {
    const QString id = Issue();
    Fail({"SetIssuesShown", "DeleteIssues"});
    EXPECT_FALSE(on.issues->SetIssuesShown(first, {id}, true));
    EXPECT_FALSE(on.issues->DeleteIssues({id}));
    if (StillReads()) {
        ASSERT_EQ(IssueRows().size(), 1U);
        EXPECT_EQ(IssueRows()[0].status, 0);
    }
}

} // namespace contracts
