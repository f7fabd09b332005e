#include "site/IChanges.h"
#include "site/IssueCode.h"
#include "tests/site/IssueSite.h"

#include <gmock/gmock.h>

namespace site {
namespace {

using sitetest::IssueSite;
using sitetest::kRaisedAt;
using testing::ElementsAre;
using namespace Qt::StringLiterals;

TEST(IssueEdits, EveryChangedFieldIsALineOfTheHistoryAndTheRaisingIsTheLast) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.questionName = u"渗水"_s;
    update.markId = 2;
    update.status = 1;
    update.qrCode = u"code"_s;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_THAT(site.History(),
                ElementsAre(u"wang 6 >code 0"_s, u"wang 4 显示>隐藏 0"_s, u"wang 3 质量>安全 0"_s,
                            u"wang 1 裂缝>渗水 0"_s, u"li 0 > 0"_s));
    EXPECT_EQ(site.Issues().History(site.ppid, site.questionId).front().at, site.wang.at);
    EXPECT_TRUE(site.Issues().History(site.other, site.questionId).empty());
}

TEST(IssueEdits, ASaveIsFoundByItsNewWordsAndByThePersonAndNotByTheOldOnes) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.questionName = u"渗水"_s;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_EQ(site.Hits(u"渗水"_s), 1);
    EXPECT_EQ(site.Hits(u"裂缝"_s), 0);
    EXPECT_EQ(site.Hits(u"wang"_s), 1);
    EXPECT_EQ(site.Detail().updaterName, u"wang"_s);
    EXPECT_EQ(site.Detail().updateTime, site.wang.at);
}

TEST(IssueEdits, ARowOfTheListSaysWhatTheIssueHolds) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.status = 1;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    ListFilter filter;
    filter.ppids = {site.ppid};
    const auto rows = site.Issues().PageOf(filter, {{}, 1, 30}).rows;
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].questionId, site.questionId);
    EXPECT_EQ(rows[0].theme, u"裂缝"_s);
    EXPECT_EQ(rows[0].description, u"墙面"_s);
    EXPECT_EQ(rows[0].floor, u"1"_s);
    EXPECT_EQ(rows[0].compName, u"Q-1"_s);
    EXPECT_EQ(rows[0].markId, 1);
    EXPECT_EQ(rows[0].status, 1);
    EXPECT_EQ(rows[0].creatorName, u"li"_s);
    EXPECT_EQ(rows[0].createTime, sitetest::kRaisedAt);
    EXPECT_EQ(rows[0].updaterName, u"wang"_s);
    EXPECT_EQ(rows[0].updateTime, site.wang.at);
    EXPECT_EQ(rows[0].ppid, site.ppid);
}

TEST(IssueEdits, TheMarkPanelHasAnIssueWithItsComponentAndItsPlace) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.componentHandle = u"2A"_s;
    update.floor = u"2"_s;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    PanelFilter filter;
    filter.ppids = {site.ppid};
    const auto& floors = site.engine.PanelCounts().Issues(filter);
    ASSERT_EQ(floors.size(), 1U);
    EXPECT_EQ(floors[0].name, u"2"_s);
    ASSERT_EQ(floors[0].issues.size(), 1U);
    EXPECT_EQ(floors[0].issues[0].component, u"KZ-1"_s);
    EXPECT_EQ(floors[0].issues[0].markId, 1);
}

TEST(IssueEdits, ASaveOverWhatSomebodySavedMeanwhileIsRefusedInTheSameSecondToo) {
    IssueSite site;
    KX_DATA::QuestionDetail detail;
    const auto seen = site.Issues().Detail(site.ppid, site.questionId, detail);
    KX_DATA::IssueUpdate update = site.Read();
    update.questionName = u"甲"_s;
    EXPECT_EQ(site.Issues().Update(site.ppid, update, site.wang, seen), Saved::Yes);
    update.questionName = u"乙"_s;
    EXPECT_EQ(site.Issues().Update(site.ppid, update, site.wang, seen), Saved::ChangedMeanwhile);
    EXPECT_EQ(site.Detail().questionName, u"甲"_s);
}

TEST(IssueEdits, AnIssueOfAnotherProjectAndOneInTheBinAreGoneWithNothingChanged) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.questionName = u"丙"_s;
    EXPECT_EQ(site.Issues().Update(site.other, update, site.wang), Saved::Gone);
    ASSERT_EQ(site.engine.Bin().DeleteIssues({site.ppid}, {site.questionId}, site.wang), 1);
    EXPECT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Gone);
    EXPECT_FALSE(site.Issues().SaveRectification(
        {site.ppid}, {site.questionId, u"好"_s, 2, {}, 0, {}}, site.wang));
    EXPECT_FALSE(site.Issues().AddRectifyPics({site.ppid}, site.questionId,
                                              {site.Uploaded(u"g1"_s)}, site.wang));
    EXPECT_EQ(site.Count(u"issue_history"_s), 0);
}

TEST(IssueEdits, AnotherComponentGivesTheIssueItsFloorItsPlaceAndItsNames) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.componentHandle = u"2A"_s;
    update.floor = u"2"_s;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_EQ(site.Detail().componentName, u"KZ-1"_s);
    EXPECT_EQ(site.Detail().componentSubName, u"框架柱"_s);
    EXPECT_EQ(site.Detail().floor, u"2"_s);
    EXPECT_EQ(site.folder.Db().Value(u"SELECT pos_info FROM issue"_s), QVariant(u"3/B"_s));
    EXPECT_EQ(site.History().front(), u"wang 5 1层 Q-1>2层 框架柱 KZ-1 0"_s);
}

TEST(IssueEdits, AComponentThatIsntThereIsRefusedAndOneThatTheIssueHasStays) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.description = u"改"_s;
    EXPECT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes)
        << "its component is in no table of components";
    update.componentHandle = u"9Z"_s;
    update.description = u"又改"_s;
    EXPECT_THROW((void)site.Issues().Update(site.ppid, update, site.wang), DataError);
    update.componentHandle.clear();
    update.floor.clear();
    EXPECT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_EQ(site.Detail().componentHandle, u"1A"_s);
    EXPECT_EQ(site.Detail().floor, u"1"_s);
    EXPECT_EQ(site.Detail().description, u"又改"_s);
}

TEST(IssueEdits, WhatAnUpdateCantKnowStaysAsItIs) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.qrCode = u"code"_s;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    update.qrCode.clear();
    update.markId = 0;
    update.status = -1;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_EQ(site.Detail().qrCode, u"code"_s);
    EXPECT_EQ(site.Detail().markId, 1);
    EXPECT_EQ(site.Detail().status, 0);
}

TEST(IssueEdits, AMarkOfASaveIsCountedInThePlaceOfTheOldOne) {
    IssueSite site;
    KX_DATA::IssueUpdate update = site.Read();
    update.markId = 2;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_THAT(site.Issues().UsedMarks(), ElementsAre(2));
}

TEST(IssueEdits, ARectificationIsSavedWithItsStateByWhoeverSigns) {
    IssueSite site;
    ASSERT_TRUE(site.Issues().SaveRectification(
        {site.ppid}, {site.questionId, u"已修补"_s, 2, {}, 0, {}}, site.wang));
    EXPECT_EQ(site.Rectification().rectifyText, u"已修补"_s);
    EXPECT_EQ(site.Rectification().rectifierName, u"wang"_s);
    EXPECT_EQ(site.Rectification().state, 2);
    EXPECT_THAT(site.History(),
                ElementsAre(u"wang 10 未整改>已整改 0"_s, u"wang 9 >已修补 0"_s, u"li 0 > 0"_s));
    ASSERT_TRUE(site.Issues().SaveRectification({site.ppid}, {site.questionId, {}, 77, {}, 0, {}},
                                                {u"li"_s, kRaisedAt + 90}));
    EXPECT_EQ(site.Rectification().rectifyText, QString());
    EXPECT_EQ(site.Rectification().state, 2) << "77 is no state";
    EXPECT_EQ(site.Rectification().rectifierName, u"li"_s);
    EXPECT_FALSE(site.Issues().SaveRectification({site.other}, {site.questionId, {}, 0, {}, 0, {}},
                                                 site.wang));
}

TEST(IssueEdits, WhoHidesAnIssueStandsInTheHistoryAndNotInTheList) {
    IssueSite site;
    EXPECT_EQ(site.Issues().SetStatus(site.ppid, {site.questionId}, 1, site.wang), 1);
    EXPECT_EQ(site.Issues().SetStatus(site.ppid, {site.questionId}, 1, site.wang), 1);
    EXPECT_THAT(site.History(), ElementsAre(u"wang 4 显示>隐藏 0"_s, u"li 0 > 0"_s));
    EXPECT_EQ(site.Detail().updaterName, QString());
}

TEST(IssueEdits, TheFeedTellsOfEachChangeByTheIdOfTheIssue) {
    IssueSite site;
    site.engine.Changes().Look();
    Changes told;
    const auto kept = site.engine.Changes().Subscribe([&](const Changes& some) { told = some; });
    ASSERT_TRUE(site.Issues().DeletePics({site.ppid}, {site.picId}, site.wang));
    site.engine.Changes().Look();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].kind, ChangeKind::Issue);
    EXPECT_EQ(told[0].id, site.folder.Db().Value(u"SELECT id FROM issue"_s).toLongLong());
    EXPECT_EQ(told[0].person, u"wang"_s);
}

TEST(IssueEdits, ACodeLeadsToTheIssueInTheProjectsThatAreAskedForAlone) {
    IssueSite site;
    EXPECT_FALSE(site.Issues().FindByQrCode({site.ppid}, {}));
    KX_DATA::IssueUpdate update = site.Read();
    update.qrCode = u"kxissue:1"_s;
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    const auto found = site.Issues().FindByQrCode({site.other, site.ppid}, u"kxissue:1"_s);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->questionId, site.questionId);
    EXPECT_EQ(found->ppid, site.ppid);
    EXPECT_FALSE(site.Issues().FindByQrCode({site.other}, u"kxissue:1"_s));
    EXPECT_FALSE(site.Issues().FindByQrCode({site.ppid}, u"kxissue:2"_s));
}

TEST(IssueEdits, AnIssueIsFoundByACodeOfItsOwnIdToo) {
    IssueSite site;
    ASSERT_TRUE(site.Detail().qrCode.isEmpty());
    const QString own = u"kxissue:1:%1:%2"_s.arg(site.ppid).arg(site.questionId);
    EXPECT_EQ(IssueCode(site.ppid, site.questionId), own);
    const auto found = site.Issues().FindByQrCode({site.other, site.ppid}, own);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->questionId, site.questionId);
    EXPECT_EQ(found->ppid, site.ppid);
    EXPECT_FALSE(site.Issues().FindByQrCode({site.other}, own));
    for (const QString& text :
         {own + u"x"_s, IssueCode(site.other, site.questionId), u"kxissue:1:x:"_s + site.questionId,
          u"kxissue:1:%1:"_s.arg(site.ppid), u"kxissue:1:%1"_s.arg(site.ppid), site.questionId}) {
        EXPECT_FALSE(site.Issues().FindByQrCode({site.other, site.ppid}, text))
            << text.toStdString();
    }
    KX_DATA::IssueUpdate update = site.Read();
    update.qrCode = IssueCode(site.ppid, u"new"_s);
    ASSERT_EQ(site.Issues().Update(site.ppid, update, site.wang), Saved::Yes);
    EXPECT_TRUE(site.Issues().FindByQrCode({site.ppid}, own)) << "printed before it had a code";
}

} // namespace
} // namespace site
