// From the data over the panel and the module's data provider to the flags of the plan, and back by
// clicks; what the clicks ask of the module is written down.
#include "host/app/MarkFlow.h"

#include "host/app/FlagMenu.h"
#include "host/app/ModuleLoader.h"
#include "host/app/PlanReader.h"
#include "host/services/ServiceSet.h"
#include "host/ui/Blink.h"
#include "host/ui/ObserverHub.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/plan/FloorPlanView.h"
#include "services/Factories.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "site/ICatalogue.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/RecordingPictures.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTreeView>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using host::MarkKind;
using support::WaitFor;

/// Photos of two marks on floors -1 and 1, one on none, and the issues of the small site.
class MarksOfAFolder : public testing::Test {
protected:
    void SetUp() override {
        site = MakeSmallSite(folder.Path(u"data"_s));
        ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        ASSERT_TRUE(session.OpenProject(site.firstProject));
        AddMorePhotos();
        ASSERT_FALSE(module.Load(QCoreApplication::applicationDirPath()));
        pictures = std::make_unique<RecordingPictures>(*module.Pictures());
        hub.AddObserver(&viewer);
        serving.Around().view = &view;
        pane.resize(900, 600);
        pane.show();
        panel.show();
        flow = MakeFlow();
        OpenPlan();
    }
    void TearDown() override {
        flow.reset();
        module.Release();
    }

    std::unique_ptr<host::MarkFlow> MakeFlow() {
        return std::make_unique<host::MarkFlow>(
            host::MarkFlow::Parts{session, panel, view, hub, *pictures, *module.PictureData()});
    }
    void OpenPlan() {
        host::PlanAxes axes(session);
        pane.SetModel(host::ReadFloorPlan(session, axes));
        flow->ProjectChanged();
        support::RunPendingEvents();
    }
    void AddMorePhotos() {
        site::SiteWriter writer(support::FolderOf(session));
        writer.AddMark(2, u"安全"_s, 0x00FF00);
        upperKey = writer.FindPosition(site.firstProject, u"1"_s, u"1"_s, u"A"_s);
        lastPhoto = Add(writer, upperKey, 2, 1'700'000'000);
        Add(writer, site.positionKey, 2, 1'600'000'000);
        Add(writer, QString(), 1, 1'700'000'000);
    }
    qint32 Add(site::SiteWriter& writer, const QString& key, qint32 mark, qint64 time) {
        site::NewBimPhoto photo;
        photo.ppid = site.firstProject;
        photo.fileName = u"更多%1.jpg"_s.arg(++added);
        photo.positionKey = key;
        photo.markId = mark;
        photo.uploader = u"张伟"_s;
        photo.uploadTime = time;
        return writer.FilePhoto(photo, {{}, JpegBytes(qRgb(added, 200, 1))});
    }

    /// On floor 1 at 2-B, with the first mark.
    void FileIssue(const QString& questionId, const QString& theme, qint64 time) {
        site::SiteWriter writer(support::FolderOf(session));
        site::NewIssue issue;
        issue.ppid = site.firstProject;
        issue.questionId = questionId;
        issue.theme = theme;
        issue.floor = u"1"_s;
        issue.posInfo = u"2-B轴"_s;
        issue.markId = 1;
        issue.creator = u"张伟"_s;
        issue.createTime = time;
        writer.FileIssue(issue);
        flow->Reload(MarkKind::Issues);
    }
    /// The row of the first mark of floor 1 among the issues.
    QModelIndex IssueMark() {
        host::MarkTreeModel& model = Page(MarkKind::Issues).Model();
        const QModelIndex mark = model.index(1, 0, model.index(1, 0));
        EXPECT_EQ(model.MarkOf(mark), 1);
        return mark;
    }
    [[nodiscard]] QVariant StateOf(const QModelIndex& index) {
        return index.data(Qt::CheckStateRole);
    }
    void LimitIssuesTo(qint64 second) {
        host::MarkPageState state = Page(MarkKind::Issues).State();
        const QDate day = QDateTime::fromSecsSinceEpoch(second).date();
        state.days = {second != 0, day, day};
        Page(MarkKind::Issues).SetState(state);
        flow->Reload(MarkKind::Issues);
    }

    [[nodiscard]] host::FloorPlanCanvas& Plan() { return pane.Canvas(); }
    [[nodiscard]] host::MarkPage& Page(MarkKind kind) { return panel.Page(kind); }
    /// How many photos or issues the flag of a mark at a key of the shown floor stands for; 0: no
    /// flag.
    int FlagCount(const QString& key, qint32 markId, MarkKind kind = MarkKind::Photos) {
        for (const host::PlacedFlag& flag : Plan().Flags()) {
            if (flag.flag.kind == kind && flag.flag.markId == markId &&
                flag.flag.positionKey == key) {
                return flag.flag.count;
            }
        }
        return 0;
    }
    void Tick(MarkKind kind, int floor, int mark, bool on) {
        host::MarkTreeModel& model = Page(kind).Model();
        QModelIndex index = model.index(floor, 0);
        if (mark >= 0) {
            index = model.index(mark, 0, index);
        }
        ASSERT_TRUE(model.setData(index, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole));
    }
    void ClickFlag(const QString& key, qint32 markId) {
        for (const host::FlagBox& box : Plan().FlagsLayout().boxes) {
            const host::MarkFlag& flag = Plan().Flags()[box.flag].flag;
            if (flag.positionKey == key && flag.markId == markId) {
                QTest::mouseClick(&Plan(), Qt::LeftButton, {}, box.rect.center().toPoint());
                return;
            }
        }
        FAIL() << "no such flag";
    }
    [[nodiscard]] const KX_DATA::ShownPicMarks& Shown() const {
        return GetProjCacheMng()->GetCurrentModel()->GetShownPicMarks();
    }
    host::FlagMenu Menu(const host::FlagMenuRequest& request) {
        return host::FlagMenu({session, hub, *pictures}, request);
    }
    [[nodiscard]] static QStringList Texts(const QMenu& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator()) {
                texts << action->text();
            }
        }
        return texts;
    }

    support::TempFolder folder;
    SmallSite site;
    QString upperKey;
    qint32 lastPhoto = 0;
    int added = 0;
    host::HostSession session;
    host::ModuleLoader module;
    host::ObserverHub hub;
    RecordingViewer viewer;
    host::FloorPlanPane pane{nullptr};
    host::FloorPlanView view{pane};
    host::Serving serving{session};
    host::MarkPanelDock panel{nullptr};
    std::unique_ptr<RecordingPictures> pictures;
    std::unique_ptr<host::MarkFlow> flow;
};

TEST_F(MarksOfAFolder, AtFirstEverythingIsTickedAndHasItsFlag) {
    ASSERT_EQ(Page(MarkKind::Photos).Model().rowCount(), 3);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 5);
    EXPECT_EQ(FlagCount(site.positionKey, 2), 1);
    Plan().SetFloor(1);
    EXPECT_EQ(FlagCount(upperKey, 2), 1);
    Plan().SetFloor(2);
    EXPECT_EQ(FlagCount(QString(), 1), 1);
    EXPECT_EQ(Shown().size(), 3U);
    EXPECT_TRUE(Shown().at("-1").empty());
}

TEST_F(MarksOfAFolder, AMarkThatIsUntickedLosesItsFlagAndGetsItBack) {
    Tick(MarkKind::Photos, 0, 0, false);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 0);
    EXPECT_EQ(FlagCount(site.positionKey, 2), 1);
    ASSERT_TRUE(Shown().at("-1").contains(QString()));
    EXPECT_EQ(Shown().at("-1").at(QString()).size(), 1U);
    EXPECT_FALSE(view.LocatePicture(site.positionKey, 1));
    Tick(MarkKind::Photos, 0, 0, true);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 5);
    EXPECT_TRUE(view.LocatePicture(site.positionKey, 1));
}

TEST_F(MarksOfAFolder, WithNothingTickedThereIsNoFlag) {
    Page(MarkKind::Photos).Model().TickAll(false);
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(FlagCount(site.positionKey, 1) + FlagCount(site.positionKey, 2), 0);
}

TEST_F(MarksOfAFolder, WhatIsNotDisplayedCannotBeLocatedAndStaysTicked) {
    Page(MarkKind::Photos).ShownAction()->trigger();
    EXPECT_FALSE(view.LocatePicture(site.positionKey, 1));
    EXPECT_EQ(FlagCount(site.positionKey, 1), 0);
    EXPECT_EQ(Shown().size(), 3U);
    Page(MarkKind::Photos).ShownAction()->trigger();
    EXPECT_TRUE(view.LocatePicture(site.positionKey, 1));
    EXPECT_EQ(FlagCount(site.positionKey, 1), 5);
}

TEST_F(MarksOfAFolder, CountsFollowEachChangeOfAPhoto) {
    const qint32 ppid = site.firstProject;
    site::SiteWriter writer(support::FolderOf(session));
    Add(writer, site.positionKey, 1, 1'700'000'100);
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 6);
    ASSERT_TRUE(GetVeskPicMng()->SetBimPicsShown(ppid, {site.photos[0], site.photos[1]}, true));
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 4);
    ASSERT_TRUE(GetVeskPicMng()->DeleteBimPics({site.photos[2]}));
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 3);
    KX_DATA::BimPicUpdate update;
    update.picId = site.photos[3];
    update.fileName = u"a.jpg"_s;
    update.positionKey = upperKey;
    update.markId = 2;
    ASSERT_TRUE(GetVeskPicMng()->UpdateBimPic(ppid, update));
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 2);
    Plan().SetFloor(1);
    EXPECT_EQ(FlagCount(upperKey, 2), 2);
}

TEST_F(MarksOfAFolder, AReloadKeepsTicksAndReadsNothingWhereNothingHasChanged) {
    Tick(MarkKind::Photos, 0, 0, false);
    int changes = 0;
    QObject::connect(&Page(MarkKind::Photos).Model(), &QAbstractItemModel::dataChanged,
                     [&] { ++changes; });
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(changes, 0);
    site::SiteWriter writer(support::FolderOf(session));
    Add(writer, site.positionKey, 1, 1'700'000'100);
    flow->Reload(MarkKind::Photos);
    EXPECT_GT(changes, 0);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 0);
}

TEST_F(MarksOfAFolder, DaysLimitFlagsCountsAndThePhotosThatViewersShow) {
    host::MarkPageState state = Page(MarkKind::Photos).State();
    const QDate day = QDateTime::fromSecsSinceEpoch(1'600'000'000).date();
    state.days = {true, day, day};
    Page(MarkKind::Photos).SetState(state);
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(Page(MarkKind::Photos).Model().rowCount(), 1);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 0);
    EXPECT_EQ(FlagCount(site.positionKey, 2), 1);
    ASSERT_EQ(Shown().size(), 1U);
    const auto& photos = Shown().at("-1").at(QString()).at(2);
    ASSERT_EQ(photos.size(), 1U);
    EXPECT_EQ(photos[0].itemName, "2/B");
    EXPECT_EQ(photos[0].picId, lastPhoto + 1);
}

TEST_F(MarksOfAFolder, AllDaysAsALimitGiveTheSameFlagsAsNone) {
    host::MarkPageState state = Page(MarkKind::Photos).State();
    state.days = {true, QDate(2000, 1, 1), QDate(2100, 1, 1)};
    Page(MarkKind::Photos).SetState(state);
    flow->Reload(MarkKind::Photos);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 5);
    EXPECT_EQ(FlagCount(site.positionKey, 2), 1);
    Plan().SetFloor(2);
    EXPECT_EQ(FlagCount(QString(), 1), 1);
    EXPECT_EQ(Shown().at("-1").at(QString()).at(1).size(), 5U);
}

TEST_F(MarksOfAFolder, AnotherProjectHasItsOwnMarksAndTicksAndTheFirstOnesComeBack) {
    Tick(MarkKind::Photos, 0, 0, false);
    flow->Keep();
    ASSERT_TRUE(session.OpenProject(site.secondProject));
    OpenPlan();
    EXPECT_EQ(Page(MarkKind::Photos).Model().rowCount(), 0);
    EXPECT_TRUE(Plan().Flags().empty());
    EXPECT_FALSE(view.LocatePicture(site.positionKey, 2));
    EXPECT_TRUE(Shown().empty());
    ASSERT_TRUE(session.OpenProject(site.firstProject));
    OpenPlan();
    EXPECT_EQ(FlagCount(site.positionKey, 1), 0);
    EXPECT_EQ(FlagCount(site.positionKey, 2), 1);
}

TEST_F(MarksOfAFolder, WithoutAProjectNothingIsLeft) {
    session.CloseProject();
    OpenPlan();
    EXPECT_TRUE(Plan().Flags().empty());
    EXPECT_TRUE(Shown().empty());
    EXPECT_FALSE(view.LocatePicture(site.positionKey, 1));
    flow->Keep();
}

TEST_F(MarksOfAFolder, TheStateIsKeptForEachPerson) {
    Tick(MarkKind::Photos, 0, 0, false);
    flow->Keep();
    ASSERT_TRUE(session.SignIn(u"李娜"_s));
    flow = MakeFlow();
    OpenPlan();
    EXPECT_EQ(FlagCount(site.positionKey, 1), 5);
}

TEST_F(MarksOfAFolder, AWorksetShowsTheFloorsAndFlagsOfAllItsProjects) {
    site::SiteWriter writer(support::FolderOf(session));
    const QString key = writer.FindPosition(site.secondProject, u"-1"_s, u"2"_s, u"B"_s);
    site::NewBimPhoto photo;
    photo.ppid = site.secondProject;
    photo.fileName = u"b.jpg"_s;
    photo.positionKey = key;
    photo.markId = 1;
    photo.uploader = u"张伟"_s;
    photo.uploadTime = 1'700'000'000;
    writer.FilePhoto(photo, {{}, JpegBytes(qRgb(9, 9, 9))});
    ASSERT_TRUE(session.OpenWorkset(session.Site().Catalogue().Worksets().front().id));
    OpenPlan();
    EXPECT_EQ(Plan().Model().floors.size(), 5U);
    EXPECT_EQ(FlagCount(site.positionKey, 1), 5);
    EXPECT_EQ(FlagCount(key, 1), 0);
    ASSERT_TRUE(view.LocatePicture(key, 1));
    EXPECT_EQ(Plan().State().floor, 2);
    EXPECT_EQ(FlagCount(key, 1), 1);
    ClickFlag(key, 1);
    EXPECT_EQ(viewer.calls,
              QStringList{u"ViewBimPic %1 -1 %2 1"_s.arg(site.secondProject).arg(key)});
}

TEST_F(MarksOfAFolder, AClickOnAFlagAsksTheViewerForItsPositionAndMark) {
    ClickFlag(site.positionKey, 1);
    EXPECT_EQ(viewer.calls,
              QStringList{u"ViewBimPic %1 -1 %2 1"_s.arg(site.firstProject).arg(site.positionKey)});
    EXPECT_TRUE(pictures->calls.isEmpty());
}

TEST_F(MarksOfAFolder, TheMenuOfAFlagOpensOnePhotoThroughTheFacade) {
    host::MarkFlag flag = Plan().Flags().front().flag;
    ASSERT_EQ(flag.count, 5);
    host::FlagMenu menu = Menu({{flag}, u"2轴 / B轴"_s, site.positionKey, {}});
    const QStringList texts = Texts(menu.Menu());
    ASSERT_EQ(texts.size(), 9);
    EXPECT_TRUE(texts[0].contains(u"质量（照片 5 张）"_s));
    EXPECT_EQ(texts[1], u"打开照片"_s);
    EXPECT_TRUE(texts[3].startsWith(u"照片4.jpg"_s));
    EXPECT_EQ(texts[8], u"编辑照片"_s);
    for (QAction* action : menu.Menu().actions()) {
        if (action->text().startsWith(u"照片2.jpg"_s) || action->text() == u"在控制台中列出"_s) {
            action->trigger();
        }
    }
    EXPECT_EQ(pictures->calls, (QStringList{u"ShowBimPicMngFor %1 1 -1"_s.arg(site.positionKey),
                                            u"ViewBimPic %1 -1 %2 1 %3"_s.arg(site.firstProject)
                                                .arg(site.positionKey)
                                                .arg(site.photos[2])}));
}

TEST_F(MarksOfAFolder, TheMenuOfAFlagHasAPhotoEditedByWhoMay) {
    const host::FlagMenuRequest request{{Plan().Flags().front().flag}, {}, {}, {}};
    host::FlagMenu menu = Menu(request);
    const QMenu* editing = menu.Menu().actions().back()->menu();
    ASSERT_NE(editing, nullptr);
    ASSERT_EQ(editing->actions().size(), 5);
    editing->actions()[1]->trigger();
    EXPECT_EQ(pictures->calls,
              QStringList{u"EditBimPic %1 %2"_s.arg(site.firstProject).arg(site.photos[3])});
    site::SiteWriter(support::FolderOf(session)).AddUser(u"王监理"_s, {});
    ASSERT_TRUE(session.SignIn(u"王监理"_s));
    ASSERT_TRUE(session.OpenProject(site.firstProject));
    EXPECT_FALSE(Texts(Menu(request).Menu()).contains(u"编辑照片"_s));
}

TEST_F(MarksOfAFolder, TheMenuOfAPlaceHasAMenuForEachOfItsFlags) {
    std::vector<host::MarkFlag> flags;
    for (const host::PlacedFlag& placed : Plan().Flags()) {
        flags.push_back(placed.flag);
    }
    ASSERT_GE(flags.size(), 2U);
    host::FlagMenu menu = Menu({{flags[0], flags[1]}, u"2轴 / B轴"_s, site.positionKey, {}});
    EXPECT_EQ(Texts(menu.Menu()),
              (QStringList{u"2轴 / B轴"_s, u"质量（照片 5 张）"_s, u"安全（照片 1 张）"_s,
                           u"在控制台中列出此处照片"_s}));
    QMenu* below = menu.Menu().actions()[3]->menu();
    ASSERT_NE(below, nullptr);
    EXPECT_TRUE(below->isEmpty());
    emit below->aboutToShow();
    EXPECT_EQ(Texts(*below).size(), 4);
    below->actions().front()->trigger();
    EXPECT_EQ(viewer.calls.size(), 1);
}

TEST_F(MarksOfAFolder, APhotoThatCannotBeReadIsNotOffered) {
    const host::MarkFlag flag = Plan().Flags().front().flag;
    support::FolderOf(session).Db().Exec(u"ALTER TABLE bim_photo RENAME TO moved"_s);
    host::FlagMenu menu = Menu({{flag}, {}, {}, {}});
    EXPECT_TRUE(Texts(menu.Menu()).contains(u"读不到照片，请刷新后再试"_s));
}

TEST_F(MarksOfAFolder, OfVeryManyPhotosTheLatestAreNamed) {
    site::SiteWriter writer(support::FolderOf(session));
    writer.BeginBatch();
    for (int more = 0; more < 30; ++more) {
        Add(writer, upperKey, 2, 1'700'001'000 + more);
    }
    writer.CommitBatch();
    flow->Reload(MarkKind::Photos);
    Plan().SetFloor(1);
    host::FlagMenu menu = Menu({{Plan().Flags().front().flag}, {}, {}, {}});
    const QStringList texts = Texts(menu.Menu());
    EXPECT_EQ(texts.size(), 3 + host::FlagMenu::kMostNamed + 2);
    EXPECT_EQ(texts[texts.size() - 2], u"另有 11 张"_s);
    EXPECT_TRUE(texts[3].startsWith(u"更多33.jpg"_s));
}

TEST_F(MarksOfAFolder, IssuesHaveFlagsAreTickedAndLocated) {
    FileIssue(u"q-crack"_s, u"裂缝"_s, 1'700'000'000);
    EXPECT_TRUE(view.LocateIssue(u"q-crack"_s));
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    ASSERT_NE(Plan().Chosen(), nullptr);
    EXPECT_EQ(Plan().Chosen()->positionKey,
              site::SiteWriter(support::FolderOf(session))
                  .FindPosition(site.firstProject, u"1"_s, u"2"_s, u"B"_s));
    EXPECT_TRUE(Plan().Light().IsLit());
    host::MarkTreeModel& model = Page(MarkKind::Issues).Model();
    ASSERT_EQ(model.rowCount(), 2);
    Tick(MarkKind::Issues, 1, -1, false);
    EXPECT_FALSE(view.LocateIssue(u"q-crack"_s));
    EXPECT_EQ(GetProjCacheMng()->GetCurrentModel()->GetShownIssueMarks().size(), 1U);
    const QModelIndex mark = IssueMark();
    model.fetchMore(mark);
    ASSERT_EQ(model.rowCount(mark), 1);
    EXPECT_EQ(model.EntryOf(model.index(0, 0, mark)), u"q-crack"_s);
    ASSERT_TRUE(model.setData(model.index(0, 0, mark), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(view.LocateIssue(u"q-crack"_s));
    Page(MarkKind::Issues).ShownAction()->trigger();
    EXPECT_FALSE(view.LocateIssue(u"q-crack"_s));
}

TEST_F(MarksOfAFolder, ASingleIssuesTickOutlastsDaysThatLeaveItOutAndGoesWithTheIssue) {
    FileIssue(u"q-crack"_s, u"裂缝"_s, 1'700'000'000);
    FileIssue(u"q-hollow"_s, u"空鼓"_s, 1'600'000'000);
    host::MarkTreeModel& model = Page(MarkKind::Issues).Model();
    model.fetchMore(IssueMark());
    ASSERT_EQ(model.EntryOf(model.index(0, 0, IssueMark())), u"q-crack"_s);
    model.setData(model.index(0, 0, IssueMark()), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_EQ(StateOf(IssueMark()), Qt::PartiallyChecked);
    LimitIssuesTo(1'600'000'000);
    EXPECT_EQ(StateOf(model.index(0, 0)), Qt::Checked);
    EXPECT_TRUE(view.LocateIssue(u"q-hollow"_s));
    LimitIssuesTo(0);
    EXPECT_EQ(StateOf(IssueMark()), Qt::PartiallyChecked);
    EXPECT_FALSE(view.LocateIssue(u"q-crack"_s));
    ASSERT_TRUE(GetTNQuestionMng()->DeleteIssues({u"q-crack"_s}));
    flow->Reload(MarkKind::Issues);
    EXPECT_EQ(StateOf(IssueMark()), Qt::Checked);
    EXPECT_TRUE(model.Ticks().Exceptions().empty());
}

TEST_F(MarksOfAFolder, AFlagsMenuTellsThePhotosThatAreHiddenBehindIt) {
    ASSERT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.firstProject, {site.photos[0]}, true));
    flow->Reload(MarkKind::Photos);
    const host::MarkFlag flag = Plan().Flags().front().flag;
    host::FlagMenu menu = Menu({{flag}, {}, {}, {}});
    const QStringList texts = Texts(menu.Menu());
    EXPECT_EQ(texts.front(), u"质量（照片 4 + 1 隐藏）"_s);
    EXPECT_TRUE(texts.contains(u"隐藏的 1 张请在控制台中查看"_s));
}

TEST_F(MarksOfAFolder, AClickOnAnIssuesFlagLocatesItAndSeveralAreOffered) {
    host::MarkFlag flag;
    flag.kind = MarkKind::Issues;
    flag.markId = 1;
    flag.count = 2;
    flag.ppid = site.firstProject;
    flag.issues = {{u"q1"_s, u"裂缝 & 渗漏"_s}, {u"q2"_s, u"空鼓"_s}};
    host::FlagMenu menu = Menu({{flag}, {}, {}, {}});
    EXPECT_EQ(Texts(menu.Menu()),
              (QStringList{u"未知（2 个问题）"_s, u"裂缝 && 渗漏"_s, u"空鼓"_s}));
    menu.Menu().actions().back()->trigger();
    flag.issues.pop_back();
    emit view.FlagOpened(flag);
    EXPECT_EQ(viewer.calls, (QStringList{u"LocateIssue %1 q2"_s.arg(site.firstProject),
                                         u"LocateIssue %1 q1"_s.arg(site.firstProject)}));
}

TEST_F(MarksOfAFolder, OfVeryManyIssuesAsManyAreNamedInEveryMenuAndTheRestIsCounted) {
    host::MarkFlag flag;
    flag.kind = MarkKind::Issues;
    flag.ppid = site.firstProject;
    for (const int count : {host::FlagMenu::kMostNamed, host::FlagMenu::kMostNamed + 5}) {
        flag.count = count;
        flag.issues.assign(size_t(count), {u"q"_s, u"裂缝"_s});
        host::FlagMenu alone = Menu({{flag}, {}, {}, {}});
        host::FlagMenu several = Menu({{flag, flag}, {}, {}, {}});
        QMenu* below = several.Menu().actions()[0]->menu();
        emit below->aboutToShow();
        for (const QMenu* menu :
             {static_cast<const QMenu*>(&alone.Menu()), static_cast<const QMenu*>(below)}) {
            const QStringList texts = Texts(*menu);
            EXPECT_EQ(texts.count(u"裂缝"_s), host::FlagMenu::kMostNamed);
            EXPECT_EQ(texts.contains(u"另有 5 个"_s), count > host::FlagMenu::kMostNamed);
        }
    }
}

TEST_F(MarksOfAFolder, NamesInAMenuAreNoPlaceholdersAndNotWiderThanTheScreen) {
    host::MarkFlag flag;
    flag.kind = MarkKind::Issues;
    flag.ppid = site.firstProject;
    flag.name = u"%2"_s;
    flag.count = 1;
    flag.issues = {{u"q"_s, u"首"_s + QString(500, u'长') + u"尾<b>"_s}};
    host::FlagMenu menu = Menu({{flag}, {}, {}, {}});
    const QAction* issue = menu.Menu().actions().back();
    EXPECT_EQ(menu.Menu().actions().front()->text(), u"%2（1 个问题）"_s);
    EXPECT_LE(issue->text().size(), 60);
    EXPECT_TRUE(issue->text().startsWith(u"首长"_s) && issue->text().endsWith(u"尾<b>"_s));
    EXPECT_TRUE(issue->toolTip().contains(flag.issues[0].theme.toHtmlEscaped()));
}

TEST_F(MarksOfAFolder, IssuesThatNobodySeesAreReadOnceTheyAreShown) {
    host::MarkState state;
    state.issues.shown = false;
    panel.SetState(state);
    flow->Keep();
    OpenPlan();
    EXPECT_EQ(Page(MarkKind::Issues).Model().rowCount(), 0);
    EXPECT_TRUE(GetProjCacheMng()->GetCurrentModel()->GetShownIssueMarks().empty());
    Page(MarkKind::Issues).ShownAction()->trigger();
    EXPECT_EQ(Page(MarkKind::Issues).Model().rowCount(), 2);
    EXPECT_EQ(GetProjCacheMng()->GetCurrentModel()->GetShownIssueMarks().size(), 2U);
}

TEST_F(MarksOfAFolder, ThePhotosArePaintedBeforeTheIssuesAreRead) {
    /// Notes at the first painting with rows how many rows the issues have.
    class PaintWatch final : public QObject {
    public:
        PaintWatch(QTreeView& watchedTree, host::MarkTreeModel& issueModel)
            : m_tree(watchedTree), m_issues(issueModel) {
            m_tree.viewport()->installEventFilter(this);
        }
        int issueRows = -1;

    private:
        bool eventFilter(QObject*, QEvent* event) override {
            if (issueRows < 0 && event->type() == QEvent::Paint && m_tree.model()->rowCount() > 0) {
                issueRows = m_issues.rowCount();
            }
            return false;
        }
        QTreeView& m_tree;
        host::MarkTreeModel& m_issues;
    };
    PaintWatch watch(*Page(MarkKind::Photos).findChild<QTreeView*>(),
                     Page(MarkKind::Issues).Model());
    flow->ProjectChanged();
    ASSERT_TRUE(WaitFor([&] { return Page(MarkKind::Issues).Model().rowCount() > 0; }));
    EXPECT_EQ(watch.issueRows, 0);
}

TEST_F(MarksOfAFolder, AFailedReadLeavesNoFlagsAndSaysSo) {
    QStringList told;
    session.Desk()->SetMessageSink([&](host::MessageLevel, const QString& text) { told << text; });
    support::FolderOf(session).Db().Exec(u"DROP TABLE bim_place_tally"_s);
    site::SiteWriter(support::FolderOf(session)).AddFloor(site.firstProject, u"新楼层"_s);
    flow->Reload(MarkKind::Photos);
    EXPECT_FALSE(told.isEmpty());
    EXPECT_EQ(FlagCount(site.positionKey, 1), 0);
    EXPECT_FALSE(view.LocatePicture(site.positionKey, 1));
    session.Desk()->SetMessageSink({});
}

} // namespace
} // namespace roads
