// The voice notes of the BIM photo viewer.
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/AmrFiles.h"
#include "tests/support/ScriptedAudio.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class BimPicViewNoteTest : public BimViewFixture {
protected:
    /// Opens on the photo with the note and plays it.
    void PlayNote() {
        ASSERT_TRUE(Open(2));
        ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
        Click(Pane().Note().Button());
        ASSERT_TRUE(Pane().Note().IsPlaying());
    }

    support::ScriptedAudio audio;
};

} // namespace

TEST_F(BimPicViewNoteTest, APositionEmptiedWhileANotePlaysLetsItPlayOn) {
    PlayNote();
    const QString title = Wrap().Widget()->windowTitle();
    host.pics.files.clear();
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Pane().State().picRect.isEmpty());
    EXPECT_TRUE(Pane().Note().IsPlaying());
    EXPECT_TRUE(Pane().Note().Button()->isEnabled());
    EXPECT_EQ(PlayerText(), u"就绪");
    EXPECT_EQ(Wrap().Widget()->windowTitle(), title);
}

TEST_F(BimPicViewNoteTest, ANoteIsReadyAndAPhotoWithoutOneSaysSo) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(PlayerText(), u"无语音");
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
    Press(Qt::Key_Right);
    EXPECT_EQ(PlayerText(), u"就绪");
    EXPECT_TRUE(Pane().Note().Button()->isEnabled());
}

TEST_F(BimPicViewNoteTest, ANotePlaysItsSecondsAndEnds) {
    PlayNote();
    EXPECT_TRUE(support::WaitFor([] { return PlayerText() == u"00:01 / 00:03"; }));
    EXPECT_EQ(Pane().Note().Progress()->GetPos(), 1);
    EXPECT_TRUE(support::WaitFor([] { return !Pane().Note().IsPlaying(); }));
    EXPECT_EQ(PlayerText(), u"00:00 / 00:03");
}

TEST_F(BimPicViewNoteTest, ANoteThatIsStillToComeIsAwaited) {
    host.pics.files[1].audioUuid = u"late"_s;
    host.files.stored[u"late"_s] = support::SilentAmr(100);
    // Its picture is to come first, and fails.
    host.pics.files[1].picUuid = u"none"_s;
    ASSERT_TRUE(Open(2));
    Click(Pane().Note().Button());
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_TRUE(support::WaitFor([] { return Pane().Note().IsPlaying(); }));
    EXPECT_TRUE(support::WaitFor([] { return PlayerText() == u"00:01 / 00:02"; }));
}

TEST_F(BimPicViewNoteTest, AChangeOfPictureStopsTheNoteAndResetsTheBar) {
    PlayNote();
    EXPECT_TRUE(support::WaitFor([] { return PlayerText() == u"00:01 / 00:03"; }));
    Press(Qt::Key_Right);
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_EQ(Pane().Note().Progress()->GetPos(), 0);
    EXPECT_EQ(PlayerText(), u"无语音");
    Press(Qt::Key_Left);
    EXPECT_EQ(PlayerText(), u"就绪");
}

TEST_F(BimPicViewNoteTest, ClosingWhileANotePlaysStopsItBeforeTheWindowsGo) {
    PlayNote();
    bool stoppedFirst = false;
    QObject::connect(Pane().Widget(), &QObject::destroyed,
                     [&] { stoppedFirst = audio.Alive() == 0; });
    Wrap().Widget()->close();
    support::RunPendingEvents();
    EXPECT_TRUE(stoppedFirst);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().HasWindow());
}

TEST_F(BimPicViewNoteTest, ANoteStopsBeforeTheConsoleComesBack) {
    for (const bool paneAlone : {false, true}) {
        Facade().ShowPicMng(kModeBim);
        Facade().reopenConsole = true;
        PlayNote();
        int playing = -1;
        host.script.During("QueryBimPics", [&] { playing = audio.Alive(); });
        (paneAlone ? Pane().Widget() : Wrap().Widget())->close();
        EXPECT_EQ(playing, 0) << paneAlone;
        host.script.During("QueryBimPics", nullptr);
    }
}

TEST_F(BimPicViewNoteTest, AViewerThatEndsWithItsProjectStopsItsNoteAtOnce) {
    PlayNote();
    Wrap().DestroyViews();
    EXPECT_EQ(audio.Alive(), 0);
}

TEST_F(BimPicViewNoteTest, ClosingThePaneAloneStopsTheNoteAndBringsTheConsoleBack) {
    Facade().ShowPicMng(kModeBim);
    Console().Minimise();
    Facade().reopenConsole = true;
    PlayNote();
    Pane().Widget()->close();
    EXPECT_FALSE(Pane().HasWindow());
    EXPECT_EQ(audio.Alive(), 0);
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
    EXPECT_TRUE(Wrap().HasWindow());
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    EXPECT_FALSE(Open()) << "without its pane the window ends, and the next opening makes both";
    EXPECT_TRUE(Open());
}

TEST_F(BimPicViewNoteTest, AWorksetIsReadOnlyYetBrowsesAndPlays) {
    host.OpenWorkset({{1, u"示例工程"_s}, {2, u"二期"_s}});
    PlayNote();
    EXPECT_FALSE(Pane().ReportButton()->isEnabled());
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), 2);
}
