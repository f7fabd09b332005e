// Who works on what: rights, projects, marks, labels, recent searches, states, the view.
#include "tests/contracts/Contract.h"
#include "toolkit/GbkText.h"

namespace contracts {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class Environment : public Contract {};
ON_EVERY_SITE(Environment);

TEST_P(Environment, RightsAndNameAreThoseOfWhoIsSignedIn) {
    std::string name = "old";
    on.auth->GetUserName(name);
    EXPECT_EQ(name, "li");
    EXPECT_EQ(on.acting->GetLoginInfo().userName, "li");
    for (const qint32 right : {5, 21, 22, 38}) {
        EXPECT_TRUE(on.auth->HasRight(right)) << right;
    }
    EXPECT_FALSE(on.auth->HasRight(1));
    EXPECT_FALSE(on.auth->HasRight(0));
    site->SignIn(u"guest"_s);
    EXPECT_FALSE(on.auth->HasRight(21));
    EXPECT_EQ(on.acting->GetLoginInfo().userName, "guest");
}

TEST_P(Environment, WithoutAWorksetTheOpenProjectStandsAlone) {
    std::vector<qint32> ids{kUntouched};
    std::vector<KX_DATA::WorksetProject> projects(3);
    EXPECT_FALSE(on.global->IsWorksetMode());
    on.global->GetOpenProjectIds(ids);
    EXPECT_THAT(ids, ElementsAre(first));
    on.global->GetWorksetProjects(projects);
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0].name, u"一号楼"_s);
    site->CloseProject();
    on.global->GetOpenProjectIds(ids);
    EXPECT_TRUE(ids.empty());
    on.global->GetWorksetProjects(projects);
    EXPECT_TRUE(projects.empty());
}

TEST_P(Environment, AWorksetHasItsProjectsInTheirOrder) {
    site->OpenWorkset();
    EXPECT_TRUE(on.global->IsWorksetMode());
    std::vector<qint32> ids{kUntouched};
    on.global->GetOpenProjectIds(ids);
    EXPECT_THAT(ids, ElementsAre(first, site->second));
    std::vector<KX_DATA::WorksetProject> projects(3);
    on.global->GetWorksetProjects(projects);
    ASSERT_EQ(projects.size(), 2U);
    EXPECT_EQ(projects[1].ppid, site->second);
    EXPECT_EQ(projects[1].name, u"二号楼"_s);
    ASSERT_NE(on.project->GetProjectRecord(), nullptr);
    EXPECT_EQ(on.project->GetProjectRecord()->ppid, first);
}

TEST_P(Environment, NamesAreFilledAndReturnedAndEmptyForWhatIsUnknown) {
    QString name = u"old"_s;
    EXPECT_EQ(&on.global->GetProjectName(name, site->second), &name);
    EXPECT_EQ(name, u"二号楼"_s);
    EXPECT_EQ(on.global->GetProjectName(name, kNobody), QString());
    name = u"old"_s;
    on.global->GetGroupName(name, kNobody);
    EXPECT_EQ(name, QString());
    on.global->GetClientVersionText(name);
    EXPECT_FALSE(name.isEmpty());
    EXPECT_TRUE(on.global->IsTNReminderEnabled());
}

TEST_P(Environment, TheOpenProjectTellsItsRecordItsTradeAndItsDrawing) {
    EXPECT_EQ(on.cache->GetCurrentProject(), on.project);
    EXPECT_EQ(on.cache->GetCurrentModel(), on.model);
    ASSERT_NE(on.project->GetProjectRecord(), nullptr);
    EXPECT_EQ(on.project->GetProjectRecord()->name, u"一号楼"_s);
    EXPECT_EQ(on.project->GetProjectRecord()->ppid, first);
    EXPECT_EQ(on.project->GetProjectMajor(), 2);
    KX_DATA::CurrentDrawing drawing{kUntouched, u"old"_s};
    on.project->GetCurrentDrawing(drawing);
    EXPECT_EQ(drawing.drawingId, -1);
    EXPECT_EQ(drawing.drawingName, QString());
    site->SetDrawing({9, u"一层平面图"_s});
    on.project->GetCurrentDrawing(drawing);
    EXPECT_EQ(drawing.drawingId, 9);
    EXPECT_EQ(drawing.drawingName, u"一层平面图"_s);
}

TEST_P(Environment, WithoutAProjectTheRecordIsNullAndTheHandlesStay) {
    site->SetDrawing({9, u"一层平面图"_s});
    site->Tick({u"三层"_s, 2, u"B/7"_s, 5, u"q1"_s});
    site->CloseProject();
    ASSERT_NE(on.cache->GetCurrentProject(), nullptr);
    ASSERT_NE(on.cache->GetCurrentModel(), nullptr);
    EXPECT_EQ(on.project->GetProjectRecord(), nullptr);
    EXPECT_EQ(on.project->GetProjectMajor(), 0);
    KX_DATA::CurrentDrawing drawing{kUntouched, u"old"_s};
    on.project->GetCurrentDrawing(drawing);
    EXPECT_EQ(drawing.drawingId, -1);
    EXPECT_TRUE(on.model->GetShownPicMarks().empty());
    EXPECT_TRUE(on.model->GetShownIssueMarks().empty());
}

TEST_P(Environment, WhatIsTickedIsHandedOn) {
    site->Tick({u"三层"_s, 2, u"柱A/7"_s, 5, u"q1"_s});
    const KX_DATA::ShownPicMarks& pics = on.model->GetShownPicMarks();
    const std::string floor = toolkit::ToGbk(u"三层"_s);
    ASSERT_TRUE(pics.contains(floor));
    const std::vector<KX_DATA::ShownPicItem>& items = pics.at(floor).at(QString()).at(2);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].picId, 5);
    EXPECT_EQ(items[0].itemName, toolkit::ToGbk(u"柱A/7"_s));
    EXPECT_EQ(on.model->GetShownIssueMarks().at(u"q1"_s), 2);

    site->Tick({u"四层"_s, 1, u"B/7"_s, 6, u"q2"_s});
    EXPECT_FALSE(on.model->GetShownPicMarks().contains(floor)) << "the ticks before";
    EXPECT_TRUE(on.model->GetShownPicMarks().contains(toolkit::ToGbk(u"四层"_s)));
}

TEST_P(Environment, TheTableOfMarksIsWholeAndAnUnknownMarkIsAFailure) {
    std::map<qint32, KX_DATA::MarkRecord> table{{99, {}}};
    ASSERT_TRUE(on.marks->GetMarkTable(table));
    ASSERT_EQ(table.size(), 2U);
    EXPECT_EQ(table[1].name, u"质量"_s);
    EXPECT_EQ(table[2].color, 0x00ff00);
    KX_DATA::MarkRecord record;
    ASSERT_TRUE(on.marks->GetMarkInfo(2, record));
    EXPECT_EQ(record.name, u"安全"_s);
    EXPECT_EQ(record.color, 0x00ff00);
    EXPECT_FALSE(on.marks->GetMarkInfo(99, record));
    EXPECT_FALSE(on.marks->GetMarkInfo(0, record));
    EXPECT_EQ(record.name, u"安全"_s);
}

TEST_P(Environment, LabelsAreAddedOnceUnderTheirOwnResults) {
    QString id;
    QString again;
    ASSERT_EQ(on.docs->AddLabel(2, u"渗漏"_s, 2, u"0"_s, id), KX_DATA::kLabelAdded);
    ASSERT_EQ(on.docs->AddLabel(2, u"渗漏"_s, 2, u"0"_s, again), KX_DATA::kLabelAdded);
    EXPECT_EQ(again, id);
    EXPECT_FALSE(id.isEmpty());
    std::vector<KX_DATA::LabelEntry> labels(3);
    ASSERT_EQ(on.docs->GetLabels(2, labels), KX_DATA::kLabelsOk);
    ASSERT_EQ(labels.size(), 1U);
    EXPECT_EQ(labels[0].labelId, id);
    EXPECT_EQ(labels[0].labelName, u"渗漏"_s);
    EXPECT_NE(on.docs->AddLabel(2, {}, 2, u"0"_s, again), KX_DATA::kLabelAdded);
    EXPECT_NE(on.docs->AddLabel(3, u"x"_s, 2, u"0"_s, again), KX_DATA::kLabelAdded);
    EXPECT_NE(on.docs->GetLabels(3, labels), KX_DATA::kLabelsOk);
    EXPECT_EQ(again, id);
    EXPECT_EQ(labels.size(), 1U);
}

TEST_P(Environment, RecentSearchesAreKeptInTheirOrderAndReplaced) {
    std::vector<QString> keywords(3);
    on.recent->GetRecent(keywords);
    EXPECT_TRUE(keywords.empty());
    on.recent->SaveRecent({u"墙"_s, u"柱"_s});
    on.recent->GetRecent(keywords);
    EXPECT_THAT(keywords, ElementsAre(u"墙"_s, u"柱"_s));
    on.recent->SaveRecent({u"梁"_s});
    on.recent->GetRecent(keywords);
    EXPECT_THAT(keywords, ElementsAre(u"梁"_s));
    on.recent->SaveRecent({});
    on.recent->GetRecent(keywords);
    EXPECT_TRUE(keywords.empty());
}

TEST_P(Environment, StatesTurnIntoNamesAndBackAndUnknownOnesIntoNothing) {
    QString text = u"old"_s;
    on.states->StateToText(text, 2);
    EXPECT_EQ(text, u"已整改"_s);
    EXPECT_EQ(on.states->TextToState(text), 2);
    for (const qint32 unknown : {-1, 4}) {
        text = u"old"_s;
        on.states->StateToText(text, unknown);
        EXPECT_EQ(text, QString());
    }
    EXPECT_EQ(on.states->TextToState(u"全部"_s), -1);
    EXPECT_EQ(on.states->TextToState({}), -1);
}

TEST_P(Environment, ActionsAreRecordedInTheirOrder) {
    on.sys->WriteActionLog(u"删除Vesk照片"_s);
    on.sys->WriteActionLog(u"删除vesk照片"_s);
    EXPECT_THAT(site->Actions(), ElementsAre(u"删除Vesk照片"_s, u"删除vesk照片"_s));
}

TEST_P(Environment, TheViewIsNullUntilOneIsOpen) {
    EXPECT_EQ(on.hoops->GetView(), nullptr);
    site->SetView(true);
    EXPECT_NE(on.hoops->GetView(), nullptr);
}

TEST_P(Environment, PeopleHaveRichTexts) {
    EXPECT_TRUE(on.richAuth->IsRichTextEnabled());
}

TEST_P(Environment, WhoMayNotEditReadsRichTexts) {
    EXPECT_FALSE(on.richAuth->IsRichTextReadOnly());
    site->SignIn(u"guest"_s);
    EXPECT_TRUE(on.richAuth->IsRichTextReadOnly());
}

TEST_P(Environment, TheProgressWindowTakesItsCallsInAnyOrder) {
    on.progress->Close();
    on.progress->SetPos(3);
    on.progress->Create(0, u"p"_s);
    on.progress->SetTitle(u"下载"_s);
    on.progress->SetRange(0);
    on.progress->Show();
    on.progress->Close();
    on.progress->Close();
}

TEST_P(Environment, TheProgressStripTakesItsCallsInAnyOrder) {
    on.strip->CloseProgressBar();
    on.strip->SetShowInfo(u"正在上传照片(1/3)"_s);
    on.strip->ShowProgressBar(u"正在上传照片(1/3)"_s, 0);
    on.strip->ShowProgressBar(u"正在上传照片(2/3)"_s, 0);
    on.strip->SetShowInfo(u"正在上传照片(3/3)"_s);
    on.strip->CloseProgressBar();
    on.strip->CloseProgressBar();
}

TEST_P(Environment, WithoutARefusalThereIsNoLastText) {
    QString text;
    on.soapError->GetLastError(text);
    EXPECT_EQ(text, QString());
}

class EnvironmentFailures : public FailureContract {};
WHERE_NOTHING_IS_OPEN(EnvironmentFailures);

TEST_P(EnvironmentFailures, NobodyIsSignedInAndHasNoRight) {
    Fail({"GetUserName", "GetLoginInfo", "HasRight"});
    std::string name;
    on.auth->GetUserName(name);
    EXPECT_EQ(name, "");
    EXPECT_EQ(on.acting->GetLoginInfo().userName, "");
    EXPECT_FALSE(on.auth->HasRight(21));
}

TEST_P(EnvironmentFailures, NoProjectIsOpenAndNoneHasAName) {
    site->OpenWorkset();
    Fail({"IsWorksetMode", "GetOpenProjectIds", "GetWorksetProjects", "GetProjectName",
          "GetProjectRecord", "GetProjectMajor"});
    EXPECT_FALSE(on.global->IsWorksetMode());
    std::vector<qint32> ids{kUntouched};
    on.global->GetOpenProjectIds(ids);
    EXPECT_TRUE(ids.empty());
    std::vector<KX_DATA::WorksetProject> projects(3);
    on.global->GetWorksetProjects(projects);
    EXPECT_TRUE(projects.empty());
    QString name = u"old"_s;
    EXPECT_EQ(on.global->GetProjectName(name, first), QString());
    EXPECT_EQ(on.project->GetProjectRecord(), nullptr);
    EXPECT_EQ(on.project->GetProjectMajor(), 0);
}

class TableFailures : public FailureContract {};
WHERE_READING_FAILS(TableFailures);

TEST_P(TableFailures, MarksLabelsAndRecentSearchesTellIt) {
    site->AddLabel(u"渗漏"_s);
    on.recent->SaveRecent({u"墙"_s});
    Fail({"GetMarkTable", "GetMarkInfo", "GetLabels", "GetRecent"});
    std::map<qint32, KX_DATA::MarkRecord> table{{99, {}}};
    EXPECT_FALSE(on.marks->GetMarkTable(table));
    EXPECT_EQ(table.size(), 1U);
    KX_DATA::MarkRecord record{u"old"_s, 7};
    EXPECT_FALSE(on.marks->GetMarkInfo(1, record));
    EXPECT_EQ(record.color, 7);
    std::vector<KX_DATA::LabelEntry> labels(3);
    EXPECT_NE(on.docs->GetLabels(2, labels), KX_DATA::kLabelsOk);
    EXPECT_EQ(labels.size(), 3U);
    std::vector<QString> keywords(3);
    on.recent->GetRecent(keywords);
    EXPECT_TRUE(keywords.empty()) << "nobody reads a result";
}

class TableChangeFailures : public FailureContract {};
WHERE_WRITING_FAILS(TableChangeFailures);

TEST_P(TableChangeFailures, AddingALabelTellsItAndAddsNone) {
    Fail({"AddLabel"});
    QString id = u"old"_s;
    EXPECT_NE(on.docs->AddLabel(2, u"渗漏"_s, 2, u"0"_s, id), KX_DATA::kLabelAdded);
    EXPECT_EQ(id, u"old"_s);
    if (StillReads()) {
        std::vector<KX_DATA::LabelEntry> labels(3);
        EXPECT_EQ(on.docs->GetLabels(2, labels), KX_DATA::kLabelsOk);
        EXPECT_TRUE(labels.empty());
    }
}

TEST_P(TableChangeFailures, RecentSearchesStayAndActionsAreLostWithoutHarm) {
    on.recent->SaveRecent({u"墙"_s});
    Fail({"SaveRecent", "WriteActionLog"});
    on.recent->SaveRecent({u"柱"_s, u"梁"_s});
    on.sys->WriteActionLog(u"删除Vesk照片"_s);
    if (StillReads()) {
        std::vector<QString> keywords;
        on.recent->GetRecent(keywords);
        EXPECT_THAT(keywords, ElementsAre(u"墙"_s));
    }
}

} // namespace contracts
