// The checkpoint's voice note in the drawing photo viewer.
#include "base/ConsoleMode.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/pdf/PdfViewFixture.h"
#include "viewers/GalleryTimers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PdfPicViewNoteTest : public PdfViewFixture {
protected:
    /// Opens a checkpoint whose note is there, and presses play.
    void OpenAndPlay(qint32 drawingId = 101) {
        GiveNote(drawingId);
        ASSERT_TRUE(Open(drawingId));
        ASSERT_TRUE(support::WaitFor([] { return Pane().State().activeDownloads == 0; }));
        Click(Pane().Note().Button());
    }
};

} // namespace

TEST_F(PdfPicViewNoteTest, ACheckpointWithoutANoteSaysSo) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(PlayerText(), u"无语音");
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
    EXPECT_EQ(Pane().Note().Button()->ButtonImage(), u"play");
}

TEST_F(PdfPicViewNoteTest, ANoteThatIsThereIsReadyAndPlays) {
    GiveNote();
    ASSERT_TRUE(Open());
    EXPECT_EQ(PlayerText(), u"就绪");
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().activeDownloads == 0; }));
    Click(Pane().Note().Button());
    EXPECT_TRUE(Pane().Note().IsPlaying());
    EXPECT_EQ(Pane().Note().AudioSeconds(), 10U);
}

TEST_F(PdfPicViewNoteTest, TheNoteGoesOnAcrossPictures) {
    OpenAndPlay();
    Pane().Note().OnTimer(gallery::kNoteTickTimer);
    Press(Qt::Key_Right);
    EXPECT_TRUE(Pane().Note().IsPlaying());
    EXPECT_EQ(PlayerText(), u"00:01 / 00:10");
}

TEST_F(PdfPicViewNoteTest, WithNoPicturesAtAllTheNoteStillPlays) {
    OpenAndPlay(103);
    EXPECT_TRUE(Pane().State().items.empty());
    EXPECT_TRUE(support::WaitFor([] { return Pane().Note().IsPlaying(); }));
}

TEST_F(PdfPicViewNoteTest, OfTwoCheckpointsWithoutPicturesThePressPlaysTheNewOnesNote) {
    GiveNote(103);
    ASSERT_TRUE(Open(103));
    EXPECT_EQ(PlayerText(), u"就绪");
    Stored(103).audioUuid.clear();
    ASSERT_TRUE(Open(103));
    EXPECT_EQ(PlayerText(), u"无语音");
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
}

TEST_F(PdfPicViewNoteTest, PicturesThatAreOnlyKeptOnTheScreenLendNoNote) {
    GiveNote(101);
    ASSERT_TRUE(Open(101));
    ASSERT_TRUE(Open(103));
    EXPECT_EQ(PlayerText(), u"无语音");
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
}

TEST_F(PdfPicViewNoteTest, BesidePicturesThatAreOnlyKeptTheCheckpointsOwnNotePlays) {
    ASSERT_TRUE(Open(101));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().activeDownloads == 0; }));
    OpenAndPlay(103);
    EXPECT_EQ(Pane().State().Count(), 3);
    EXPECT_TRUE(Pane().Note().IsPlaying());
}

TEST_F(PdfPicViewNoteTest, AfterTheOnlyPictureWasDeletedTheNoteStillPlays) {
    GiveNote(102);
    ASSERT_TRUE(Open(102));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().activeDownloads == 0; }));
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
    Click(Pane().DeleteButton());
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().activeDownloads == 0; }));
    Click(Pane().Note().Button());
    EXPECT_TRUE(Pane().Note().IsPlaying());
}

TEST_F(PdfPicViewNoteTest, ANoteThatCannotBeFetchedSaysSo) {
    Stored().audioUuid = u"gone"_s;
    ASSERT_TRUE(Open());
    ASSERT_TRUE(support::WaitFor(
        [] { return Pane().State().items[0].audioState == kDownloadFailedState; }));
    Click(Pane().Note().Button());
    EXPECT_EQ(PlayerText(), u"下载语音失败");
    EXPECT_EQ(Pane().Note().Button()->ButtonImage(), u"play");
}

TEST_F(PdfPicViewNoteTest, ClosingTheWindowStopsTheNoteBeforeItGoes) {
    OpenAndPlay();
    ASSERT_TRUE(Pane().Note().IsPlaying());
    Facade().ShowPicMng(kModePdf);
    Facade().reopenConsole = true;
    bool plays = true;
    host.script.During("QueryPdfPics", [&] { plays = Pane().Note().IsPlaying(); });
    Wrap().Widget()->close();
    EXPECT_FALSE(plays);
}

TEST_F(PdfPicViewNoteTest, ThePanesOwnCloseStopsTheNoteBeforeTheConsoleComesBack) {
    OpenAndPlay();
    ASSERT_TRUE(Pane().Note().IsPlaying());
    Facade().ShowPicMng(kModePdf);
    Facade().reopenConsole = true;
    bool plays = true;
    host.script.During("QueryPdfPics", [&] { plays = Pane().Note().IsPlaying(); });
    Pane().Widget()->close();
    EXPECT_FALSE(plays);
}

TEST_F(PdfPicViewNoteTest, WindowsThatEndWithTheirProjectTakeTheNoteAlongAtOnce) {
    OpenAndPlay();
    ASSERT_TRUE(Pane().Note().IsPlaying());
    Wrap().DestroyViews();
    EXPECT_FALSE(Pane().Note().IsPlaying());
}

TEST_F(PdfPicViewNoteTest, AnEditWritesThePlayersTextAnewAndStopsNothing) {
    OpenAndPlay();
    Pane().Note().OnTimer(gallery::kNoteTickTimer);
    Pane().runEditor = [](const auto&, const auto&, auto) { return DialogResult::Ok; };
    Click(Pane().EditButton());
    EXPECT_EQ(PlayerText(), u"就绪");
    EXPECT_TRUE(Pane().Note().IsPlaying());
}
