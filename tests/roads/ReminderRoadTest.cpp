// What another client files while this one runs: toasts, the way to the item, the list to catch up.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "services/IKXAuthMng.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/Toasts.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/PopupWindow.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QProcess>
#include <QStatusBar>
#include <QToolButton>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::ToastLines;
using support::ToastsInSight;
using support::WaitFor;

class ReminderRoad : public PhotoRoad {
protected:
    void SetUp() override {
        PhotoRoad::SetUp();
        OpenOther();
    }
    void TearDown() override {
        CBCGPPopupWindow::CloseAll();
        support::RunPendingEvents();
        PhotoRoad::TearDown();
    }
    void OpenOther() {
        m_other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(m_other.site, nullptr);
        theirs = m_other.site->NewIntake();
    }
    void FilePhoto(site::IIntake& into, const QString& name, qint32 ppid = 0) const {
        site::NewBimPhoto photo;
        photo.ppid = ppid == 0 ? site.firstProject : ppid;
        photo.fileName = name;
        photo.positionKey = photo.ppid == site.firstProject ? site.positionKey : QString();
        photo.markId = 1;
        photo.uploader = u"李娜"_s;
        photo.uploadTime = 1'700'000'000;
        static_cast<void>(into.FilePhoto(photo, {{}, JpegBytes(qRgb(10, 200, 10))}));
    }
    QString FileIssue(const QString& theme) const {
        site::NewIssue issue;
        issue.ppid = site.firstProject;
        issue.theme = theme;
        issue.floor = u"-1"_s;
        issue.posInfo = u"2/B"_s;
        issue.markId = 1;
        issue.creator = u"李娜"_s;
        issue.createTime = 1'700'000'000;
        return theirs->FileIssue(issue);
    }
    [[nodiscard]] host::CatchUpDock& Dock() const { return client->Window()->CatchUpList(); }
    /// Names in the list, an unread one with a star.
    [[nodiscard]] QStringList Listed() const {
        QStringList names;
        for (const host::CatchUpItem& item : Dock().Model().All()) {
            names << item.name + (item.isRead ? u""_s : u"*"_s);
        }
        return names;
    }
    /// So many are listed and all of their toasts are made: one that is on its way when the client
    /// ends would, as it should, end the reminders of the process.
    [[nodiscard]] bool HaveArrived(int count) const {
        return WaitFor([this, count] {
            return Listed().size() == count &&
                   CBCGPPopupWindow::CountShown() + CBCGPPopupWindow::CountWaiting() == count;
        });
    }
    [[nodiscard]] QString ToolbarCount() const {
        for (const QToolButton* button : client->Window()->findChildren<QToolButton*>()) {
            if (button->text().startsWith(u"新到"_s)) {
                return button->text();
            }
        }
        return {};
    }
    void ClickListed(int row) const {
        auto* list = Dock().findChild<QListView*>(u"catchUpList"_s);
        Dock().raise();
        ASSERT_TRUE(WaitFor([&] {
            return hands::ClickAt(list->viewport(),
                                  list->visualRect(list->model()->index(row, 0)).center());
        }));
    }
    void StartAgain() {
        End();
        ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        Start();
        ASSERT_TRUE(ChooseProject(u"一期工程"_s) || session.CurrentProject().ppid != 0);
    }

    std::unique_ptr<site::IIntake> theirs;

private:
    site::OpenedSite m_other;
};

TEST_F(ReminderRoad, APhotoOfAnotherClientPopsUpWithItsPictureWithinTwoSeconds) {
    QElapsedTimer since;
    since.start();
    FilePhoto(*theirs, u"新墙.jpg"_s);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().size() == 1; }));
    EXPECT_LT(since.elapsed(), 2000);
    const QWidget* toast = ToastsInSight()[0];
    EXPECT_EQ(toast->windowTitle(), u"Vesk照片提醒"_s);
    EXPECT_EQ(ToastLines(), QStringList{u"名称:新墙.jpg"_s});
    EXPECT_EQ(toast->findChild<QLabel*>(u"line4"_s)->text(), u"位置:-1层 2/B"_s);
    EXPECT_EQ(toast->findChild<QLabel*>(u"line5"_s)->text(), u"上传人:李娜"_s);
    const QImage preview = toast->findChild<QWidget*>(u"preview"_s)->grab().toImage();
    EXPECT_GT(qGreen(preview.pixel(preview.rect().center())), 150);
}

TEST_F(ReminderRoad, LookingAtOnceGoesToThePhotoInThePlan) {
    FilePhoto(*theirs, u"新墙.jpg"_s);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().size() == 1; }));
    ASSERT_TRUE(
        WaitFor([] { return hands::Click(ToastsInSight()[0]->findChild<QWidget*>(u"look"_s)); }));
    EXPECT_TRUE(WaitFor([] { return ToastsInSight().empty(); }));
    EXPECT_EQ(Listed(), QStringList{u"新墙.jpg"_s}) << "read by that";
    EXPECT_EQ(ToolbarCount(), u"新到"_s);
    EXPECT_EQ(client->Window()->Plan().CurrentFloor(), u"-1"_s);
    EXPECT_TRUE(client->Window()->statusBar()->currentMessage().contains(u"新墙.jpg"_s))
        << client->Window()->statusBar()->currentMessage().toStdString();
    EXPECT_EQ(PhotoFlag(Plan(), site.positionKey, 1).count, 6) << "with the new one";
}

TEST_F(ReminderRoad, AnIssuePopsUpAsOne) {
    FileIssue(u"钢筋外露"_s);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().size() == 1; }));
    EXPECT_EQ(ToastsInSight()[0]->windowTitle(), u"TN问题提醒"_s);
    EXPECT_EQ(ToastLines(), QStringList{u"问题主题:钢筋外露"_s});
    EXPECT_EQ(Listed(), QStringList{u"钢筋外露*"_s});
}

TEST_F(ReminderRoad, OnesOwnIsAnnouncedNowhere) {
    const auto own = session.Site().NewIntake();
    FilePhoto(*own, u"我的.jpg"_s);
    FilePhoto(*theirs, u"他人.jpg"_s);
    ASSERT_TRUE(WaitFor([] { return !ToastsInSight().empty(); }));
    support::RunPendingEvents();
    EXPECT_EQ(ToastLines(), QStringList{u"名称:他人.jpg"_s});
    EXPECT_EQ(Listed(), QStringList{u"他人.jpg*"_s});
    EXPECT_EQ(ToolbarCount(), u"新到 1"_s);
}

TEST_F(ReminderRoad, EachComesOnceAndInOrder) {
    QStringList filed;
    for (int at = 0; at < 20; ++at) {
        FilePhoto(*theirs, u"%1.jpg"_s.arg(at));
        filed.prepend(u"%1.jpg*"_s.arg(at));
    }
    ASSERT_TRUE(WaitFor([&] { return Listed().size() == 20; }));
    EXPECT_EQ(Listed(), filed);
    EXPECT_TRUE(WaitFor(
        [] { return CBCGPPopupWindow::CountShown() + CBCGPPopupWindow::CountWaiting() == 20; }));
}

TEST_F(ReminderRoad, AProjectThatIsNotOpenPopsNothingUpAndItsListWaitsForIt) {
    FilePhoto(*theirs, u"那边.jpg"_s, site.secondProject);
    FilePhoto(*theirs, u"这边.jpg"_s);
    ASSERT_TRUE(WaitFor([] { return !ToastsInSight().empty(); }));
    EXPECT_EQ(ToastLines(), QStringList{u"名称:这边.jpg"_s});
    EXPECT_EQ(Listed(), QStringList{u"这边.jpg*"_s});
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_EQ(Listed(), QStringList{u"那边.jpg*"_s});
    EXPECT_EQ(ToolbarCount(), u"新到 1"_s);
}

TEST_F(ReminderRoad, SwitchedOffNothingPopsUpAndTheListStillTells) {
    client->Window()->PhotoReminders().trigger();
    client->Window()->IssueReminders().trigger();
    FilePhoto(*theirs, u"新墙.jpg"_s);
    FileIssue(u"钢筋外露"_s);
    ASSERT_TRUE(WaitFor([this] { return Listed().size() == 2; }));
    support::RunPendingEvents();
    EXPECT_TRUE(ToastsInSight().empty());
}

TEST_F(ReminderRoad, TheSwitchesAreKept) {
    client->Window()->PhotoReminders().trigger();
    StartAgain();
    EXPECT_FALSE(client->Window()->PhotoReminders().isChecked());
    EXPECT_TRUE(client->Window()->IssueReminders().isChecked());
    FilePhoto(*theirs, u"新墙.jpg"_s);
    FileIssue(u"钢筋外露"_s);
    ASSERT_TRUE(WaitFor([] { return !ToastsInSight().empty(); }));
    EXPECT_EQ(ToastLines(), QStringList{u"问题主题:钢筋外露"_s});
}

TEST_F(ReminderRoad, WhatCameWhileNoClientRanIsListedAndPopsNothingUp) {
    End();
    FilePhoto(*theirs, u"夜里.jpg"_s);
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    ASSERT_TRUE(session.SignIn(u"张伟"_s));
    Start();
    EXPECT_EQ(Listed(), QStringList{u"夜里.jpg*"_s});
    EXPECT_EQ(ToolbarCount(), u"新到 1"_s);
    support::RunPendingEvents();
    EXPECT_TRUE(ToastsInSight().empty());
}

TEST_F(ReminderRoad, AClickInTheListOpensThePhotoAndARestartKnowsThatItWasRead) {
    FilePhoto(*theirs, u"新墙.jpg"_s);
    FilePhoto(*theirs, u"旧墙.jpg"_s);
    ASSERT_TRUE(HaveArrived(2));
    CBCGPPopupWindow::CloseAll();
    ClickListed(1);
    EXPECT_TRUE(WaitFor([] { return Viewer() != nullptr; }));
    EXPECT_EQ(Listed(), (QStringList{u"旧墙.jpg*"_s, u"新墙.jpg"_s}));
    EXPECT_EQ(ToolbarCount(), u"新到 1"_s);
    CloseViewer();
    StartAgain();
    EXPECT_EQ(Listed(), QStringList{u"旧墙.jpg*"_s});
}

TEST_F(ReminderRoad, AClickOnAnIssueListsItInTheConsole) {
    FileIssue(u"钢筋外露"_s);
    ASSERT_TRUE(HaveArrived(1));
    CBCGPPopupWindow::CloseAll();
    ClickListed(0);
    EXPECT_TRUE(WaitFor([] { return ConsoleColumnTexts(u"问题主题"_s).contains(u"钢筋外露"_s); }))
        << ConsoleColumnTexts(u"问题主题"_s).join(u' ').toStdString();
    EXPECT_EQ(Listed(), QStringList{u"钢筋外露"_s});
}

TEST_F(ReminderRoad, OneCommandMarksAllAsReadAndARestartKnowsIt) {
    FilePhoto(*theirs, u"甲.jpg"_s);
    FilePhoto(*theirs, u"乙.jpg"_s);
    ASSERT_TRUE(HaveArrived(2));
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_R,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    EXPECT_EQ(Listed(), (QStringList{u"乙.jpg"_s, u"甲.jpg"_s}));
    EXPECT_EQ(ToolbarCount(), u"新到"_s);
    StartAgain();
    EXPECT_TRUE(Listed().isEmpty());
}

TEST_F(ReminderRoad, WhatIsDeletedLeavesTheList) {
    FilePhoto(*theirs, u"甲.jpg"_s);
    FilePhoto(*theirs, u"乙.jpg"_s);
    ASSERT_TRUE(HaveArrived(2));
    Other().DeletePhotos({Dock().Model().At(0).picId});
    EXPECT_TRUE(WaitFor([this] { return Listed() == QStringList{u"甲.jpg*"_s}; }))
        << Listed().join(u' ').toStdString();
    EXPECT_EQ(ToolbarCount(), u"新到 1"_s);
}

TEST_F(ReminderRoad, ThePictureOfARowComes) {
    FilePhoto(*theirs, u"新墙.jpg"_s);
    ASSERT_TRUE(HaveArrived(1));
    CBCGPPopupWindow::CloseAll();
    Dock().raise();
    auto* list = Dock().findChild<QListView*>(u"catchUpList"_s);
    EXPECT_TRUE(WaitFor([list] {
        const QRect row = list->visualRect(list->model()->index(0, 0));
        const QImage seen = list->viewport()->grab(row).toImage();
        return qGreen(seen.pixel(40, seen.height() / 2)) > 150 &&
               qRed(seen.pixel(40, seen.height() / 2)) < 100;
    }));
}

TEST_F(ReminderRoad, APhotoThatAnotherProcessFilesPopsUpHereAndIsLocated) {
    folder.Write(u"phone/现场.jpg"_s, JpegBytes(qRgb(10, 200, 10)));
    site::SiteWriter(support::FolderOf(session)).AddUser(u"李娜"_s, {KX_DATA::kRightEdit});
    QProcess phone;
    phone.start(QDir(QCoreApplication::applicationDirPath()).filePath(u"vesk-client"_s),
                {u"import"_s, folder.Path(u"phone"_s), u"--data"_s, folder.Path(u"data"_s),
                 u"--project"_s, u"一期工程"_s, u"--user"_s, u"李娜"_s, u"--floor"_s, u"-1"_s,
                 u"--x"_s, u"2"_s, u"--y"_s, u"B"_s});
    ASSERT_TRUE(WaitFor([] { return !ToastsInSight().empty(); }, std::chrono::seconds(60)));
    ASSERT_TRUE(WaitFor([&] { return phone.state() == QProcess::NotRunning; }));
    EXPECT_EQ(phone.exitCode(), 0) << phone.readAllStandardError().toStdString();
    EXPECT_EQ(ToastLines(), QStringList{u"名称:现场.jpg"_s});
    EXPECT_EQ(Listed(), QStringList{u"现场.jpg*"_s});
    ASSERT_TRUE(
        WaitFor([] { return hands::Click(ToastsInSight()[0]->findChild<QWidget*>(u"look"_s)); }));
    EXPECT_TRUE(WaitFor([] { return ToastsInSight().empty(); }));
    EXPECT_EQ(client->Window()->Plan().CurrentFloor(), u"-1"_s);
    EXPECT_TRUE(client->Window()->statusBar()->currentMessage().contains(u"现场.jpg"_s))
        << client->Window()->statusBar()->currentMessage().toStdString();
}

TEST_F(ReminderRoad, AnotherProjectLeavesWhatIsOnItsWayAlone) {
    FilePhoto(*theirs, u"新墙.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return Listed().size() == 1; }));
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(WaitFor([] { return ToastLines() == QStringList{u"名称:新墙.jpg"_s}; }));
}

} // namespace
} // namespace roads
