#include "hands/Hands.h"
#include "tests/roads/ClientFixture.h"

#include "host/app/Faults.h"
#include "host/app/PlanReader.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "include/KXEvents.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IKXView.h"
#include "services/IVeskPicMng.h"
#include "site/IBin.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QDateTime>

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QTableView>
#include <QThreadPool>
#include <QTimer>

#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::ConsoleTotal;

TEST_F(ClientOnAFolder, OpensTheFirstProjectWithItsPlan) {
    EXPECT_TRUE(client->Window()->windowTitle().startsWith(u"一期工程"_s));
    ASSERT_EQ(Plan().Model().floors.size(), 3U);
    EXPECT_EQ(Plan().Model().floors[0].name, u"-1"_s);
    EXPECT_EQ(host::CountPhotos(Plan().Model().floors[0]), (host::PhotoCount{5, 0}));
}

TEST_F(ClientOnAFolder, ThePlanCountsHiddenPhotosApartAndNotThoseOfTheBin) {
    ASSERT_EQ(session.Site().Bin().DeleteBimPhotos({site.firstProject}, {site.photos[0]},
                                                   {u"张伟"_s, QDateTime::currentSecsSinceEpoch()}),
              1);
    ASSERT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.firstProject, {site.photos[1]}, true));
    host::PlanAxes axes(session);
    const host::FloorPlanModel plan = host::ReadFloorPlan(session, axes);
    const auto place = host::FindPlace(plan, site.positionKey);
    ASSERT_TRUE(place);
    EXPECT_EQ(plan.floors[place->floor].intersections[place->intersection].photos,
              (host::PhotoCount{3, 1}));
}

TEST_F(ClientOnAFolder, OpensTheThreeConsolesByTheirKeys) {
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    ASSERT_TRUE(Press(Qt::Key_2));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 1; }));
    ASSERT_TRUE(Press(Qt::Key_3));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 2; }));
}

TEST_F(ClientOnAFolder, PresetsLimitTheConsoleToPlaceFloorAndDrawing) {
    ASSERT_TRUE(Plan().LocateKey(site.positionKey));
    ASSERT_TRUE(Press(Qt::Key_4));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    ASSERT_TRUE(Press(Qt::Key_5));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 1; }));
    EXPECT_EQ(tour::ConsoleText(0, u"问题主题"_s), u"问题-1"_s);
    ASSERT_TRUE(Press(Qt::Key_6));
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleColumn(u"图纸"_s) >= 0; }));
    EXPECT_EQ(ConsoleTotal(), 1);
}

TEST_F(ClientOnAFolder, AnotherProjectShutsTheConsoleAndIsRememberedForThePerson) {
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_EQ(tour::Console(), nullptr);
    EXPECT_EQ(session.CurrentProject().ppid, site.secondProject);
    client->Stop();
    session.CloseProject();
    Start();
    EXPECT_TRUE(client->Window()->windowTitle().startsWith(u"二期工程"_s));
}

TEST_F(ClientOnAFolder, AWorksetHidesWhatChangesPhotos) {
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    EXPECT_EQ(tour::ConsoleControl(u"deleteButton"_s), nullptr);
    EXPECT_GE(tour::ConsoleColumn(u"所属工程"_s), 0);
}

TEST_F(ClientOnAFolder, TheModulesViewIsTheFloorPlan) {
    KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView();
    ASSERT_NE(view, nullptr);
    Plan().SetFloor(1);
    EXPECT_TRUE(view->LocatePicture(site.positionKey, 1));
    EXPECT_EQ(Plan().State().floor, 0);
    client->Stop();
    EXPECT_EQ(GetKXHoopsModuleMng()->GetView(), nullptr);
}

TEST_F(ClientOnAFolder, GivesTheModuleItsFixedImages) {
    QString work;
    GetKXPathMng()->GetWorkFolder(work);
    for (const QString& name :
         {u"DefaultPic.jpg"_s, u"left_pic.png"_s, u"right_pic.png"_s, u"left_thumb.png"_s,
          u"right_thumb.png"_s, u"up_thumb.png"_s, u"down_thumb.png"_s}) {
        EXPECT_FALSE(QImage(work + name).isNull()) << name.toStdString();
    }
}

TEST_F(ClientOnAFolder, ALookupIsToldInTheStatusBarAndBringsUpItsFloor) {
    Plan().SetFloor(1);
    const QString text = u"-1-1-%1"_s.arg(site.photos[2]);
    toolkit::SendWindowEvent(client->Window()->Id(), ZelvorNRQ_KXVeskPicture::WM_VESK_PIC_LOCATE, 0,
                             quintptr(&text));
    const QWidget* status = client->Window()->findChild<QWidget*>(u"mainStatus"_s);
    EXPECT_TRUE(
        tour::ReadText(status).startsWith(u"定位照片 照片2.jpg：-1层，标识 质量数据文件夹："_s));
    EXPECT_EQ(Plan().State().floor, 0);
    EXPECT_EQ(Plan().Chosen(), nullptr);
}

TEST_F(ClientOnAFolder, ALookupOfWhatIsGoneSaysSoWithoutNumbers) {
    const QWidget* status = client->Window()->findChild<QWidget*>(u"mainStatus"_s);
    emit client->Window()->PhotoLocated(u"-1-77-99999"_s);
    EXPECT_TRUE(
        tour::ReadText(status).startsWith(u"定位照片 （已不存在）：-1层，标识 未知数据文件夹："_s));
    emit client->Window()->PhotoLocated(u"99999"_s);
    EXPECT_TRUE(tour::ReadText(status).startsWith(u"无法识别的定位请求数据文件夹："_s));
    emit client->Window()->DrawingLocated(99999);
    EXPECT_TRUE(tour::ReadText(status).startsWith(u"定位图纸上的检查点：已不存在数据文件夹："_s));
}

TEST_F(ClientOnAFolder, ALookupOnADrawingNamesTheDrawingAndTheNumberOfItsCheckpoint) {
    const int point = support::FolderOf(session)
                          .Db()
                          .Value(u"SELECT id FROM checkpoint WHERE number = 1"_s)
                          .toInt();
    toolkit::PostWindowEvent(client->Window()->Id(), ZelvorNRQ_KXVeskPicture::WM_VESK_PDF_LOCATE, 3,
                             quintptr(point));
    const QWidget* status = client->Window()->findChild<QWidget*>(u"mainStatus"_s);
    EXPECT_TRUE(WaitFor([status] {
        return tour::ReadText(status).startsWith(u"定位图纸 一层平面图 的检查点 1数据文件夹："_s);
    }));
}

TEST_F(ClientOnAFolder, ALookupThatMakesNoSenseMovesNothing) {
    Plan().SetFloor(1);
    for (const QString& text : {u"1-17"_s, u"77-1-17"_s, QString()}) {
        toolkit::SendWindowEvent(client->Window()->Id(),
                                 ZelvorNRQ_KXVeskPicture::WM_VESK_PIC_LOCATE, 0, quintptr(&text));
    }
    EXPECT_EQ(Plan().State().floor, 1);
}

TEST_F(ClientOnAFolder, HidingAPhotoInTheConsoleTakesItOffItsFlag) {
    ASSERT_EQ(FlagCounts(), (std::vector<int>{5}));
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    ASSERT_TRUE(WaitFor([] { return tour::ClickConsoleCheck(0); }));
    ASSERT_TRUE(WaitFor([] { return hands::Click(tour::ConsoleControl(u"hideButton"_s)); }));
    EXPECT_TRUE(WaitFor([this] { return FlagCounts() == std::vector<int>{4}; }));
}

TEST_F(ClientOnAFolder, UntickingAllInThePanelTakesTheFlagsAwayAndStaysForThePerson) {
    const auto click = [this](const QString& button) {
        return WaitFor([&] { return hands::Click(tour::FindIn(client->Window(), button)); });
    };
    ASSERT_TRUE(click(u"noneButton"_s));
    EXPECT_TRUE(WaitFor([this] { return FlagCounts().empty(); }));
    EXPECT_FALSE(GetKXHoopsModuleMng()->GetView()->LocatePicture(site.positionKey, 1));
    client->Stop();
    session.CloseProject();
    Start();
    EXPECT_TRUE(FlagCounts().empty());
    ASSERT_TRUE(click(u"allButton"_s));
    EXPECT_TRUE(WaitFor([this] { return FlagCounts() == std::vector<int>{5}; }));
}

TEST_F(ClientOnAFolder, TheDisplayOfPhotoMarksIsSwitchedByItsKey) {
    const auto press = [this] {
        return WaitFor([this] {
            return hands::PressKey(client->Window(), Qt::Key_1,
                                   Qt::ControlModifier | Qt::ShiftModifier);
        });
    };
    ASSERT_TRUE(press());
    EXPECT_TRUE(WaitFor([this] { return FlagCounts().empty(); }));
    ASSERT_TRUE(press());
    EXPECT_TRUE(WaitFor([this] { return FlagCounts() == std::vector<int>{5}; }));
}

TEST_F(ClientOnAFolder, AnotherProjectTakesTheFlagsOfTheFirstOneAlong) {
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(FlagCounts().empty());
    EXPECT_FALSE(GetKXHoopsModuleMng()->GetView()->LocatePicture(site.positionKey, 1));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    EXPECT_EQ(FlagCounts(), (std::vector<int>{5}));
}

TEST_F(ClientOnAFolder, AFailedQueryIsToldInTheMessageBar) {
    support::FolderOf(session).Db().Exec(u"DROP TABLE bim_photo"_s);
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
    // The console told the person in its own way, and stays open.
    EXPECT_TRUE(WaitFor(
        [] { return tour::OpenMessageBox() == nullptr || tour::AnswerMessageBox(u"确定"_s); }));
}

TEST_F(ClientOnAFolder, AMessageFromAnotherThreadReachesTheBar) {
    QThreadPool pool;
    pool.start([this] { session.Desk()->Report(host::MessageLevel::Error, u"传输失败"_s); });
    pool.waitForDone();
    EXPECT_TRUE(WaitFor([this] { return Messages().contains(u"传输失败"_s); }));
}

TEST_F(ClientOnAFolder, AFolderDroppedOnTheWindowIsImportedOnce) {
    const QString photos = folder.Path(u"photos"_s);
    folder.Write(u"photos/a.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    folder.Write(u"photos/b.jpg"_s, JpegBytes(qRgb(1, 250, 1)));
    folder.Write(u"photos/c.jpg"_s, "text");
    for (const QString& expected : {u"导入 2 张照片，重复 0 张，跳过 1 个文件。"_s,
                                    u"导入 0 张照片，重复 2 张，跳过 1 个文件。"_s}) {
        ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(client->Window(), {photos}); }));
        ASSERT_TRUE(WaitFor([] {
            return hands::Click(
                tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
        }));
        EXPECT_TRUE(WaitFor([&] {
            return !Messages().isEmpty() && Messages().front().startsWith(expected);
        })) << Messages().join(u'\n').toStdString();
    }
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 7; }));
}

TEST_F(ClientOnAFolder, EveryFileThatAnImportLeftOutIsListed) {
    for (int number = 0; number < 30; ++number) {
        folder.Write(u"photos/%1.jpg"_s.arg(number), "text");
    }
    ASSERT_TRUE(
        WaitFor([&] { return hands::DropPaths(client->Window(), {folder.Path(u"photos"_s)}); }));
    ASSERT_TRUE(WaitFor([] {
        return hands::Click(tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
    }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"importResult"_s) != nullptr; }));
    const auto* table =
        tour::FindWindow(u"importResult"_s)->findChild<QTableView*>(u"importTable"_s);
    EXPECT_EQ(table->model()->rowCount(), 30);
    EXPECT_EQ(Messages().front(), u"导入 0 张照片，重复 0 张，跳过 30 个文件。"_s);
}

TEST_F(ClientOnAFolder, WhatIsRestoredFromTheBinIsInTheConsoleAtOnce) {
    ASSERT_TRUE(GetVeskPicMng()->DeleteBimPics({site.photos[0]}));
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 4; }));
    ASSERT_TRUE(Press(Qt::Key_B));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"binWindow"_s) != nullptr; }));
    auto* bin = tour::FindWindow(u"binWindow"_s);
    bin->findChild<QTableView*>(u"binTable"_s)->selectRow(0);
    ASSERT_TRUE(WaitFor([&] { return hands::Click(tour::FindIn(bin, u"binRestore"_s)); }));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
}

TEST_F(ClientOnAFolder, StoppingWithOpenWindowsLeavesNone) {
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    ASSERT_TRUE(Press(Qt::Key_B));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"binWindow"_s) != nullptr; }));
    client->Stop();
    client->Stop();
    support::RunPendingEvents();
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
    }
    EXPECT_EQ(client->Window(), nullptr);
}

TEST_F(ClientOnAFolder, AWindowThatStaysKeepsTheClientOpen) {
    class Stubborn final : public QWidget {
    public:
        bool stays = true;

    protected:
        void closeEvent(QCloseEvent* event) override { event->setAccepted(!stays); }
    } stubborn;
    stubborn.show();
    EXPECT_FALSE(client->Window()->close());
    EXPECT_TRUE(client->Window()->isVisible());
    stubborn.stays = false;
    EXPECT_TRUE(client->Window()->close());
    EXPECT_FALSE(stubborn.isVisible());
}

TEST_F(ClientOnAFolder, ANewProjectIsOpenedAndTakesPhotos) {
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(tour::FindWindow(u"projectNameDialog"_s));
        if (dialog == nullptr) {
            return;
        }
        answer.stop();
        dialog->findChild<QLineEdit*>(u"projectName"_s)->setText(u" 三期工程 "_s);
        dialog->accept();
    });
    answer.start(1);
    ASSERT_TRUE(Press(Qt::Key_N));
    EXPECT_EQ(session.CurrentProject().name, u"三期工程"_s);
    EXPECT_TRUE(client->Window()->windowTitle().startsWith(u"三期工程"_s));
    EXPECT_TRUE(Plan().Model().floors.empty());
}

TEST_F(ClientOnAFolder, TheWindowComesBackAsItWasLeft) {
    client->Window()->resize(1000, 700);
    auto* dock = client->Window()->findChild<QWidget*>(u"actionLogDock"_s);
    dock->hide();
    client->Stop();
    Start();
    EXPECT_EQ(client->Window()->size(), QSize(1000, 700));
    EXPECT_FALSE(client->Window()->findChild<QWidget*>(u"actionLogDock"_s)->isVisible());
}

TEST_F(ClientOnAFolder, WithoutItsModuleTheClientSaysWhatIsMissing) {
    client->Stop();
    host::Client other(session);
    const auto lack = other.Start(folder.Path());
    ASSERT_TRUE(lack);
    EXPECT_TRUE(lack->contains(u"KXVeskPicture"_s));
}

TEST_F(ClientOnAFolder, WithoutRightsTheConsoleHidesItsButtons) {
    client->Stop();
    ASSERT_TRUE(session.SignIn(u"李娜"_s));
    Start();
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    EXPECT_EQ(tour::ConsoleControl(u"deleteButton"_s), nullptr);
    EXPECT_EQ(tour::ConsoleControl(u"hideButton"_s), nullptr);
    EXPECT_NE(tour::ConsoleControl(u"downloadButton"_s), nullptr);
}

} // namespace
} // namespace roads
