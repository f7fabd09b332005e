#include "services/Factories.h"
#include "services/IConvertProjStateTool.h"
#include "services/IExProgress.h"
#include "services/IKXAuthMng.h"
#include "services/IKXDocMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "services/IKXPathMng.h"
#include "services/IKXSysMng.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"
#include "services/IRecentSearchMng.h"
#include "services/IRichEditorAuth.h"
#include "site/ICatalogue.h"
#include "site/sqlite/DataFolder.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

#include <QDir>
#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

TEST(Auth, RightsAreThoseOfTheUserAndNobodyElses) {
    ServiceSite site;
    for (const qint32 right : {5, 21, 22, 38}) {
        EXPECT_TRUE(GetKXAuthMng()->HasRight(right));
    }
    EXPECT_FALSE(GetKXAuthMng()->HasRight(1));
    EXPECT_TRUE(site.session.SignIn(u"guest"_s));
    EXPECT_FALSE(GetKXAuthMng()->HasRight(22));
    EXPECT_FALSE(site.session.SignIn(u"nobody"_s));
    EXPECT_EQ(site.session.UserName(), u"guest"_s);
}

TEST(Auth, NamesAreEightBitTextInCodePage936) {
    ServiceSite site;
    site.writer->AddUser(u"王芳"_s, {});
    ASSERT_TRUE(site.session.SignIn(u"王芳"_s));
    std::string name;
    GetKXAuthMng()->GetUserName(name);
    EXPECT_EQ(name, "\xcd\xf5\xb7\xbc");
    EXPECT_EQ(GetNRQAuthMng()->GetLoginInfo().userName, name);
}

TEST(GlobalData, WithoutAWorksetTheOpenProjectStandsAlone) {
    ServiceSite site;
    std::vector<KX_DATA::WorksetProject> projects;
    GetKXGlobalData()->GetWorksetProjects(projects);
    ASSERT_EQ(projects.size(), 1u);
    EXPECT_EQ(projects[0].ppid, site.first);
    EXPECT_EQ(projects[0].name, u"一号楼"_s);
    EXPECT_FALSE(GetKXGlobalData()->IsWorksetMode());
    site.session.CloseProject();
    GetKXGlobalData()->GetWorksetProjects(projects);
    EXPECT_TRUE(projects.empty());
}

TEST(GlobalData, AWorksetHasItsProjectsInTheirOrder) {
    ServiceSite site;
    ASSERT_TRUE(site.session.OpenWorkset(site.workset));
    EXPECT_TRUE(GetKXGlobalData()->IsWorksetMode());
    std::vector<qint32> ids;
    GetKXGlobalData()->GetOpenProjectIds(ids);
    EXPECT_EQ(ids, (std::vector<qint32>{site.first, site.second}));
    EXPECT_EQ(GetProjCacheMng()->GetCurrentProject()->GetProjectRecord()->ppid, site.first);
    EXPECT_FALSE(site.session.OpenWorkset(4711));
    EXPECT_TRUE(GetKXGlobalData()->IsWorksetMode());
    ASSERT_TRUE(site.session.OpenProject(site.second));
    EXPECT_FALSE(GetKXGlobalData()->IsWorksetMode());
}

TEST(GlobalData, ANameIsFilledAndReturnedAndEmptyForAnUnknownProject) {
    ServiceSite site;
    QString name;
    EXPECT_EQ(&GetKXGlobalData()->GetProjectName(name, site.second), &name);
    EXPECT_EQ(name, u"二号楼"_s);
    GetKXGlobalData()->GetProjectName(name, 4711);
    EXPECT_EQ(name, QString());
    const qint32 third = site.writer->AddProject(u"三号楼"_s);
    GetKXGlobalData()->GetProjectName(name, third);
    EXPECT_EQ(name, u"三号楼"_s);
}

TEST(ProjCache, TheRecordIsNullWithoutAProjectAndTheHandlesNever) {
    ServiceSite site;
    KX_DATA::IProjCacheHandle* project = GetProjCacheMng()->GetCurrentProject();
    ASSERT_NE(project->GetProjectRecord(), nullptr);
    EXPECT_EQ(project->GetProjectRecord()->name, u"一号楼"_s);
    EXPECT_EQ(project->GetProjectMajor(), 2);
    site.session.SetDrawing({9, u"一层平面图"_s});
    KX_DATA::CurrentDrawing drawing;
    project->GetCurrentDrawing(drawing);
    EXPECT_EQ(drawing.drawingId, 9);
    site.session.CloseProject();
    EXPECT_EQ(project->GetProjectRecord(), nullptr);
    project->GetCurrentDrawing(drawing);
    EXPECT_EQ(drawing.drawingId, -1);
    EXPECT_TRUE(GetProjCacheMng()->GetCurrentModel()->GetShownPicMarks().empty());
}

TEST(Marks, TheTableIsThatOfTheDatabaseAndFollowsItsChanges) {
    ServiceSite site;
    std::map<qint32, KX_DATA::MarkRecord> table;
    EXPECT_TRUE(GetKXLocalCacheData()->GetMarkTable(table));
    EXPECT_EQ(table.size(), 2u);
    EXPECT_EQ(table[2].color, 0x00ff00);
    site.writer->AddMark(3, u"进度"_s, 0xff0000);
    KX_DATA::MarkRecord record;
    EXPECT_TRUE(GetKXLocalCacheData()->GetMarkInfo(3, record));
    EXPECT_EQ(record.name, u"进度"_s);
    EXPECT_FALSE(GetKXLocalCacheData()->GetMarkInfo(99, record));
}

TEST(Paths, FoldersExistEndWithTheirSeparatorAndLieOutsideTheStore) {
    ServiceSite site;
    QString pics;
    QString thumbs;
    QString attach;
    EXPECT_EQ(&GetKXPathMng()->GetPicFolder(pics, site.first, {}), &pics);
    GetKXPathMng()->GetThumbFolder(thumbs, site.first, {});
    GetKXPathMng()->GetAttachFolder(attach, site.first, {});
    QString work;
    GetKXPathMng()->GetWorkFolder(work);
    QString log;
    GetKXCommonPathMng()->GetLogFolder(log);
    QString open;
    GetVeskPathTool()->GetOpenFolder(open);
    for (const QString& folder : {pics, thumbs, attach, work, log, open}) {
        EXPECT_TRUE(QFileInfo(folder).isDir()) << folder.toStdString();
        EXPECT_TRUE(folder.endsWith(QDir::separator()));
        EXPECT_FALSE(folder.startsWith(support::FolderOf(site.session).StorePath()));
    }
    EXPECT_NE(pics, thumbs);
    QString other;
    GetKXPathMng()->GetPicFolder(other, site.second, {});
    EXPECT_NE(other, pics);
    site.serving.Around().imageFolder = u"/images"_s;
    GetKXPathMng()->GetWorkFolder(work);
    EXPECT_EQ(work, u"/images/"_s);
    GetVeskPathTool()->GetAttachFolder(attach, u"../x"_s);
    EXPECT_EQ(attach, QString());
}

TEST(ActionLog, IsKeptWithWhoAndWhereAndTold) {
    ServiceSite site;
    std::vector<site::LoggedAction> told;
    site.session.Actions().SetSink(
        [&](const site::LoggedAction& action) { told.push_back(action); });
    GetKXSysMng()->WriteActionLog(u"删除Vesk照片"_s);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].person, u"li"_s);
    EXPECT_EQ(told[0].ppid, site.first);
    const auto kept = site.session.Site().Catalogue().Actions(10);
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].action, u"删除Vesk照片"_s);
}

TEST(RecentSearches, AreKeptForEachUserInTheirOrder) {
    ServiceSite site;
    GetRecentSearchMng()->SaveRecent({u"墙"_s, u"柱"_s});
    ASSERT_TRUE(site.session.SignIn(u"guest"_s));
    std::vector<QString> keywords{u"x"_s};
    GetRecentSearchMng()->GetRecent(keywords);
    EXPECT_TRUE(keywords.empty());
    ASSERT_TRUE(site.session.SignIn(u"li"_s));
    GetRecentSearchMng()->GetRecent(keywords);
    EXPECT_EQ(keywords, (std::vector<QString>{u"墙"_s, u"柱"_s}));
    GetRecentSearchMng()->SaveRecent({});
    GetRecentSearchMng()->GetRecent(keywords);
    EXPECT_TRUE(keywords.empty());
}

TEST(Labels, OfDocumentsAreReadAndAddedUnderTheirOwnResults) {
    ServiceSite site;
    QString id;
    EXPECT_EQ(GetKXDocMng()->AddLabel(2, u"新标签"_s, 2, u"0"_s, id), KX_DATA::kLabelAdded);
    QString again;
    EXPECT_EQ(GetKXDocMng()->AddLabel(2, u"新标签"_s, 2, u"0"_s, again), KX_DATA::kLabelAdded);
    EXPECT_EQ(again, id);
    std::vector<KX_DATA::LabelEntry> labels;
    EXPECT_EQ(GetKXDocMng()->GetLabels(2, labels), KX_DATA::kLabelsOk);
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_EQ(labels[0].labelId, id);
    EXPECT_NE(GetKXDocMng()->AddLabel(2, {}, 2, u"0"_s, id), KX_DATA::kLabelAdded);
    EXPECT_NE(GetKXDocMng()->GetLabels(3, labels), KX_DATA::kLabelsOk);
}

TEST(States, TurnIntoNamesAndBack) {
    const ServiceSite site;
    QString text;
    GetConvertProjStateTool()->StateToText(text, 2);
    EXPECT_EQ(text, u"已整改"_s);
    EXPECT_EQ(GetConvertProjStateTool()->TextToState(text), 2);
}

TEST(ViewAndProgress, AreTheSessionsOrNone) {
    ServiceSite site;
    EXPECT_EQ(GetKXHoopsModuleMng()->GetView(), nullptr);
    ASSERT_NE(GetExProgress(), nullptr);
    GetExProgress()->Show(); // without a window nothing happens
    EXPECT_TRUE(GetRichEditorAuth()->IsRichTextEnabled());
}

TEST(SecondInstance, SeesWhatTheFirstChangesInItsLists) {
    ServiceSite site;
    EXPECT_TRUE(site.PhotoIds(site.Filter()).empty());
    site::DataFolder other(support::FolderOf(site.session).Path());
    ASSERT_FALSE(other.Open().has_value());
    site::SiteWriter(other).FilePhoto(site.UsualPhoto(), {{}, "jpeg"});
    EXPECT_EQ(site.PhotoIds(site.Filter()).size(), 1u);
}

TEST(RecentSearches, WithoutAnOpenFolderThereAreNone) {
    std::vector<QString> keywords{u"裂缝"_s};
    GetRecentSearchMng()->GetRecent(keywords);
    EXPECT_TRUE(keywords.empty());
}

TEST(Session, AFolderThatIsOpenedAfterAnotherIsNobodysYet) {
    ServiceSite site;
    site.writer.reset();
    ASSERT_TRUE(site.session.HasRight(5));
    ASSERT_FALSE(site.session.Open(site.dir.filePath(u"other"_s), {500, true}).has_value());
    EXPECT_EQ(site.session.UserName(), QString());
    EXPECT_FALSE(site.session.HasRight(5));
    EXPECT_TRUE(site.session.OpenPpids().empty());
}

} // namespace host
