// What the viewer does at its events, and in which order.
#include "console/VeskPicMngDlg.h"
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/ScriptedAudio.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"

#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::IsEmpty;

class BimPicViewEventsTest : public BimViewFixture {
protected:
    support::ScriptedAudio audio;
};

TEST_F(BimPicViewEventsTest, ClosingBringsTheConsoleBackBeforeTheViewerGoes) {
    Facade().ShowPicMng(1);
    Facade().reopenConsole = true;
    Console().Minimise();
    ASSERT_TRUE(Open());
    bool there = false;
    host.script.During("QueryBimPics", [&] { there = Wrap().HasWindow() && Pane().HasWindow(); });
    Wrap().Widget()->close();
    EXPECT_TRUE(there);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().HasWindow());
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

TEST_F(BimPicViewEventsTest, EnterAndEscapeDoNothingWhereverTheKeyboardIs) {
    ASSERT_TRUE(Open(2));
    Log().Clear();
    for (QWidget* control :
         {static_cast<QWidget*>(Pane().ReportButton()),
          static_cast<QWidget*>(Pane().Note().Button()), Pane().Widget(), Wrap().Widget()}) {
        control->setFocus();
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QTest::keyClick(control, key);
        }
    }
    EXPECT_TRUE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(BimPicViewEventsTest, EveryWindowWritesItsLine) {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Open());
    EXPECT_EQ(ModuleLog().count(u"-------BIM模型照片查看-------"_s), 1);
    Wrap().Widget()->close();
    ASSERT_TRUE(Open());
    EXPECT_EQ(ModuleLog().count(u"-------BIM模型照片查看-------"_s), 2);
}

TEST_F(BimPicViewEventsTest, AFailedListEmptiesTheDetailsAndLeavesThePicturesUntilTheWindowCloses) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetPicFilesByPosition");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([] {
        EXPECT_TRUE(Pane().Items().empty());
        EXPECT_EQ(Pane().State().Count(), 3);
    });
    EXPECT_FALSE(Open());
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(BimPicViewEventsTest, AFailedDetailStopsTheNoteAndKeepsTextsAndTitle) {
    ASSERT_TRUE(Open(2));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
    Click(Pane().Note().Button());
    ASSERT_TRUE(Pane().Note().IsPlaying());
    const QString title = Wrap().Widget()->windowTitle();
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Press(Qt::Key_Right);
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_EQ(Pane().Note().Progress()->GetPos(), 0);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), title);
    EXPECT_EQ(Texts().descText->text(), u"描述：描述2");
    EXPECT_EQ(Current(), 2);
    EXPECT_EQ(Pane().Items()[2].loaded, 0);
}

TEST_F(BimPicViewEventsTest, AChangeOfProjectShutsTheConsoleThenTheViewerThenLooksAtTheProject) {
    Facade().ShowPicMng(1);
    ASSERT_TRUE(Open());
    std::string seen;
    host.script.During("SaveRecent",
                       [&] { seen += Wrap().HasWindow() ? "console first;" : "viewer first;"; });
    host.script.During("GetCurrentProject", [&] {
        seen += Console().HasWindow() || Wrap().HasWindow() || Pane().HasWindow() ? "open;"
                                                                                  : "all shut;";
    });
    CVeskPicProjChangeObs().OnProjChange();
    EXPECT_EQ(seen, "console first;all shut;");
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(BimPicViewEventsTest, APhotoThatCannotBeReadLeavesThePhotoThatWaitsForTheNextViewer) {
    Facade().pendingPicId = 5;
    ZelvorNRQ_KXVeskPicture::ViewPicRequest request;
    request.picId = 99;
    request.ppid = 1;
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    Facade().ViewBimPic(request);
    EXPECT_EQ(Facade().pendingPicId, 5);
}

TEST_F(BimPicViewEventsTest, TheWheelStepsByItsNotchesAndPutsTheStripAtItsEdge) {
    for (qint32 id = 4; id <= 30; ++id) {
        AddPhoto(id);
    }
    ASSERT_TRUE(Open());
    const int visible = Pane().State().visibleCount;
    ASSERT_LT(visible + 2, 30);
    const auto wheel = [](int delta) {
        const QPointF place = Pane().State().bigArea.center();
        QWheelEvent event(place, Pane().Widget()->mapToGlobal(place), {}, {0, delta}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Pane().Widget(), &event);
    };
    wheel(-120 * (visible + 1));
    EXPECT_EQ(Current(), visible + 1);
    EXPECT_EQ(Pane().State().visible.last, visible + 1);
    wheel(120 * (visible + 1));
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(Pane().State().visible.first, 0);
    wheel(-359);
    EXPECT_EQ(Current(), 2);
    wheel(239);
    EXPECT_EQ(Current(), 1);
}

} // namespace
