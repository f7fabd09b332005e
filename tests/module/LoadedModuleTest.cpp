#include "include/IKXVeskPicData.h"
#include "include/IKXVeskPicture.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/RecordingMainWindow.h"
#include "tests/support/RecordingSinks.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QWidget>
#include <gmock/gmock.h>

#include <dlfcn.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using ZelvorNRQ_KXVeskPicture::IKXVeskPicData;
using ZelvorNRQ_KXVeskPicture::IKXVeskPicture;

namespace {

/// The module, loaded on the first question and never unloaded, as a host does.
void* Module() {
    static void* const handle = [] {
        const QString path =
            QCoreApplication::applicationDirPath() + QStringLiteral("/" VESK_MODULE);
        void* loaded = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
        EXPECT_NE(loaded, nullptr) << dlerror();
        return loaded;
    }();
    return handle;
}

template <class Interface> Interface* Call(const char* function) {
    const auto factory = reinterpret_cast<Interface* (*)()>(dlsym(Module(), function));
    EXPECT_NE(factory, nullptr) << function;
    return factory != nullptr ? factory() : nullptr;
}

QWidget* WindowWithTitle(const QString& title) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == title) {
            return window;
        }
    }
    return nullptr;
}

} // namespace

/// One host around the module; the console is shut behind each test by a change of project.
class LoadedModule : public testing::Test {
protected:
    void SetUp() override {
        picture = Call<IKXVeskPicture>("GetKXVeskPicture");
        ASSERT_NE(picture, nullptr);
        picture->SetPicSink(&sink);
        picture->AttachObservers(&hub);
        host.Log().Clear();
    }

    void TearDown() override {
        ChangeProject();
        picture->SetPicSink(nullptr);
        support::RunPendingEvents();
    }

    void ChangeProject() {
        for (KXFRAME::IBaseObs* observer : hub.observers) {
            if (auto* change = dynamic_cast<KXFRAME::IProjChangeObs*>(observer)) {
                change->OnProjChange();
            }
        }
    }

    void AddBimPic(qint32 picId) {
        KX_DATA::BimPicRow row;
        row.picId = picId;
        row.ppid = 1;
        row.fileName = u"%1.jpg"_s.arg(picId);
        host.pics.bimPics.push_back(row);
    }

    support::ScriptedHost host;
    support::AnsweredPrompts prompts{&host.Log()};
    support::RecordingSink sink{host.script};
    support::RecordingHub hub{host.script};
    support::RecordingMainWindow mainWindow{host.script};
    IKXVeskPicture* picture = nullptr;
};

TEST_F(LoadedModule, GivesTheSameTwoObjectsAtEveryCall) {
    EXPECT_EQ(Call<IKXVeskPicture>("GetKXVeskPicture"), picture);
    IKXVeskPicData* data = Call<IKXVeskPicData>("GetKXVeskPicData");
    EXPECT_NE(data, nullptr);
    EXPECT_EQ(Call<IKXVeskPicData>("GetKXVeskPicData"), data);
}

TEST_F(LoadedModule, RegistersItsTwoObserversByName) {
    ASSERT_EQ(hub.observers.size(), 2U);
    EXPECT_EQ(hub.observers[0]->GetObsName(), u"ProjChange"_s);
    EXPECT_EQ(hub.observers[1]->GetObsName(), u"ViewBimPic"_s);
    EXPECT_NE(dynamic_cast<KXFRAME::IViewBimPicObs*>(hub.observers[1]), nullptr);
}

TEST_F(LoadedModule, OpensTheConsoleOnTheFirstPageAndTellsTheHost) {
    AddBimPic(7);
    EXPECT_EQ(picture->ShowPicMng(ZelvorNRQ_KXVeskPicture::kBimPhotos), 1);
    EXPECT_NE(WindowWithTitle(u"Vesk照片管理"_s), nullptr);
    EXPECT_THAT(
        host.Log().LinesOf({"QueryBimPics", "RefreshPdfMarks", "RefreshBimMarks"}),
        ElementsAre("QueryBimPics(page=1,size=30,sort=last_modifytime desc)", "RefreshPdfMarks()"));
    EXPECT_THAT(host.pics.lastBimFilter.projectIds, ElementsAre(1));
}

TEST_F(LoadedModule, ItsConsoleIsAWindowOfTheToolkitThatTheHostShares) {
    picture->ShowPicMng(ZelvorNRQ_KXVeskPicture::kIssues);
    QWidget* console = WindowWithTitle(u"TN问题管理"_s);
    ASSERT_NE(console, nullptr);
    const toolkit::WindowId id = toolkit::WindowOf(console);
    EXPECT_NE(id, toolkit::kNoWindow);
    EXPECT_NE(id, mainWindow.Id());
    EXPECT_EQ(toolkit::WidgetOf(id), console);
}

TEST_F(LoadedModule, AChangeOfProjectShutsTheConsole) {
    picture->ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
    ASSERT_NE(WindowWithTitle(u"Vesk照片管理"_s), nullptr);
    host.project.project.reset();
    ChangeProject();
    EXPECT_EQ(WindowWithTitle(u"Vesk照片管理"_s), nullptr);
}

TEST_F(LoadedModule, DeletesAPhotoThroughTheHostsServiceAndTellsItOnlyOfSuccess) {
    AddBimPic(7);
    host.script.FailNext("DeleteBimPics");
    EXPECT_FALSE(picture->DeleteBimPic(7));
    EXPECT_TRUE(picture->DeleteBimPic(7));
    EXPECT_TRUE(host.pics.bimPics.empty());
    EXPECT_THAT(
        host.Log().LinesOf({"DeleteBimPics", "RefreshBimMarks"}),
        ElementsAre("DeleteBimPics(ids=[7])", "DeleteBimPics(ids=[7])", "RefreshBimMarks()"));
}

TEST_F(LoadedModule, AsksTheHostsPromptsForItsMessages) {
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    host.script.FailNext("LocateIssue");
    picture->LocateIssue(1, u"question"_s);
    EXPECT_TRUE(prompts.AllAnswered());
}

TEST_F(LoadedModule, SurvivesAHostWithoutSink) {
    picture->SetPicSink(nullptr);
    EXPECT_EQ(picture->ShowPicMng(ZelvorNRQ_KXVeskPicture::kBimPhotos), 1);
    EXPECT_TRUE(host.Log().LinesOf({"RefreshPdfMarks"}).empty());
}

TEST_F(LoadedModule, SurvivesAHostWhoseEveryQueryFails) {
    for (const char* operation : {"QueryBimPics", "QueryPdfPics", "QueryIssues"}) {
        host.script.FailAlways(operation);
    }
    for (const qint32 kind :
         {ZelvorNRQ_KXVeskPicture::kBimPhotos, ZelvorNRQ_KXVeskPicture::kDrawingPhotos,
          ZelvorNRQ_KXVeskPicture::kIssues}) {
        EXPECT_EQ(picture->ShowPicMng(kind), 1);
    }
    EXPECT_EQ(host.Log().LinesOf({"QueryBimPics", "QueryPdfPics", "QueryIssues"}).size(), 3U);
    EXPECT_NE(WindowWithTitle(u"TN问题管理"_s), nullptr);
}

TEST_F(LoadedModule, HandsTheMarkPanelsQuestionToTheServiceUntouched) {
    IKXVeskPicData* data = Call<IKXVeskPicData>("GetKXVeskPicData");
    ASSERT_NE(data, nullptr);
    host.pics.markerIds = {4, 5};
    KX_DATA::MarkFilterArg argument;
    std::vector<qint32> ids;
    EXPECT_EQ(data->GetBimPicMarkerList(100, 200, 3, 2, argument, ids), 2);
    EXPECT_THAT(ids, ElementsAre(4, 5));
    EXPECT_THAT(host.Log().Lines(),
                ElementsAre("GetBimPicMarkerList(from=100,to=200,flag=3,mark=2)"));
}
