// What every viewer's player does.
#include "tests/viewers/notes/NoteFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using support::NotesOf;

namespace {

class APlayer : public NoteFixture {
protected:
    APlayer() { Open(NotesOf::Photos); }
    /// The state of the current item's note.
    void SetState(qint32 state) {
        std::vector<GalleryItem> items = gallery->State().items;
        // On disk already in this list, so nothing is fetched.
        items.front().audioState = state;
        gallery->SetPicItems(items);
    }
};

} // namespace

TEST_F(APlayer, BeginsDisabledWithThePlayImage) {
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Image(), u"play");
    EXPECT_EQ(Text(), u"无语音");
    EXPECT_EQ(gallery->note.Button()->size(), QSize(42, 43));
}

TEST_F(APlayer, OfAnItemWithoutANoteIsDisabledAndSaysSo) {
    SetItems({Item(QString())});
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Text(), u"无语音");
    EXPECT_EQ(Image(), u"play");
    Press();
    EXPECT_EQ(Image(), u"play");
    EXPECT_EQ(audio.Made(), 0);
}

TEST_F(APlayer, OfAnItemWithANoteIsReady) {
    SetItems({Item(u"a"_s)});
    EXPECT_TRUE(IsEnabled());
    EXPECT_EQ(Text(), u"就绪");
    EXPECT_EQ(Image(), u"play");
    EXPECT_FALSE(IsPlaying());
}

TEST_F(APlayer, PlaysAtAPress) {
    SetItems({Item(u"a"_s, 250)});
    Press();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Image(), u"stop");
    EXPECT_EQ(Text(), u"就绪") << "until the first second is over";
    Tick();
    Tick();
    EXPECT_EQ(Text(), u"00:02 / 00:05");
    EXPECT_EQ(Pos(), 2);
    EXPECT_EQ(gallery->note.Progress()->Upper(), 5);
}

TEST_F(APlayer, ANoteOf90Point7SecondsIsOf0130AndStopsAfter90Ticks) {
    SetItems({Item(u"a"_s, 4535)});
    Press();
    for (int second = 1; second < 90; ++second) {
        Tick();
        ASSERT_EQ(Pos(), second);
    }
    EXPECT_EQ(Text(), u"01:29 / 01:30");
    EXPECT_TRUE(IsPlaying());
    Tick();
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(audio.Alive(), 0);
    EXPECT_EQ(Text(), u"00:00 / 01:30") << "not back to ready";
    EXPECT_EQ(Pos(), 0);
    EXPECT_EQ(Image(), u"play");
}

TEST_F(APlayer, APressWhilePlayingStopsAtOnceAndLeavesTheTimeDisplayAtPositionZero) {
    SetItems({Item(u"a"_s, 4535)});
    Press();
    Tick();
    Press();
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(audio.Alive(), 0);
    EXPECT_EQ(Text(), u"00:00 / 01:30");
    EXPECT_EQ(Pos(), 0);
    EXPECT_EQ(Image(), u"play");
    Press();
    EXPECT_TRUE(IsPlaying()) << "and it can be played again";
    EXPECT_EQ(audio.Made(), 2);
}

TEST_F(APlayer, ANoteShorterThanASecondStopsAtTheFirstTick) {
    SetItems({Item(u"a"_s, 30)});
    Press();
    EXPECT_EQ(gallery->note.Progress()->Upper(), 0);
    Tick();
    EXPECT_EQ(Text(), u"00:00 / 00:00");
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Image(), u"play");
}

TEST_F(APlayer, ANoteOf65536SecondsHasABarWithoutAnEnd) {
    SetItems({Item(u"a"_s, 65536 * 50)});
    Press();
    EXPECT_EQ(gallery->note.AudioSeconds(), 65536U);
    EXPECT_EQ(gallery->note.Progress()->Upper(), 0);
    Tick();
    Tick();
    EXPECT_EQ(Text(), u"00:01 / 1092:16") << "the position is the bar's";
    EXPECT_TRUE(IsPlaying());
}

TEST_F(APlayer, ANoteOfMoreThan65536SecondsHasTheBarOfTheRest) {
    SetItems({Item(u"a"_s, 65539 * 50)});
    Press();
    EXPECT_EQ(gallery->note.AudioSeconds(), 65539U);
    EXPECT_EQ(gallery->note.Progress()->Upper(), 3);
}

TEST_F(APlayer, WaitsForANoteThatIsNotThereYet) {
    for (const qint32 state : {kWaiting, kDownloading}) {
        SetItems({Item(u"a"_s)});
        SetState(state);
        Press();
        EXPECT_EQ(Image(), u"stop");
        EXPECT_FALSE(IsPlaying());
        EXPECT_EQ(Text(), u"就绪") << "until the first look";
    }
}

TEST_F(APlayer, ShowsTwoAsThePercentWhileTheDownloadRuns) {
    host.files.stored[u"b"_s] = support::SilentAmr(100);
    GalleryItem item = Item(u"b"_s);
    ASSERT_TRUE(QFile::remove(item.audioPath));
    item.audioState = kWaiting;
    SetItems({item});
    ASSERT_EQ(gallery->State().items.front().audioState, kDownloading) << "the queue fetches it";
    Press();
    WaitTick();
    EXPECT_EQ(Text(), u"正在缓冲 2%");
    EXPECT_EQ(Image(), u"stop");
    ASSERT_TRUE(
        support::WaitFor([this] { return gallery->State().items.front().audioState == kOnDisk; }));
    WaitTick();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Text(), u"正在缓冲 2%");
    EXPECT_EQ(Image(), u"stop");
}

TEST_F(APlayer, APressWhileWaitingDoesNotCancelTheWait) {
    SetItems({WaitingItem(u"a"_s)});
    ASSERT_EQ(gallery->State().items.front().audioState, kWaiting);
    Press();
    WaitTick();
    EXPECT_EQ(Text(), u"正在缓冲");
    Press();
    EXPECT_EQ(Image(), u"stop");
    EXPECT_EQ(Text(), u"正在缓冲");
    ASSERT_TRUE(
        support::WaitFor([this] { return gallery->State().items.front().audioState == kOnDisk; }));
    WaitTick();
    EXPECT_TRUE(IsPlaying());
}

TEST_F(APlayer, SaysThatADownloadFailedAndTriesNothingNew) {
    GalleryItem item = Item(u"a"_s);
    ASSERT_TRUE(QFile::remove(item.audioPath));
    item.audioState = kWaiting;
    SetItems({item});
    Press();
    EXPECT_EQ(Image(), u"stop");
    ASSERT_TRUE(support::WaitFor(
        [this] { return gallery->State().items.front().audioState == kDownloadFailedState; }));
    WaitTick();
    EXPECT_EQ(Text(), u"下载语音失败");
    EXPECT_EQ(Image(), u"play");
    EXPECT_TRUE(IsEnabled());
    Press();
    EXPECT_EQ(Text(), u"下载语音失败");
    EXPECT_EQ(Image(), u"play");
    EXPECT_EQ(Downloads(), 1);
    EXPECT_TRUE(ModuleLog().contains(u"下载照片失败,UUID=a, 信息=scripted failure"_s));
}

TEST_F(APlayer, CountsTheSecondsOfAFileThatCannotBeOpened) {
    GalleryItem item = Item(u"a"_s);
    SetItems({item});
    ASSERT_TRUE(QFile::remove(item.audioPath));
    Press();
    EXPECT_EQ(Image(), u"stop");
    EXPECT_EQ(Text(), u"就绪");
    EXPECT_FALSE(IsPlaying());
    Tick();
    EXPECT_EQ(Text(), u"00:00 / 00:00");
    EXPECT_EQ(Image(), u"play");
}

TEST_F(APlayer, HandsOtherTimersOn) {
    EXPECT_FALSE(gallery->note.OnTimer(gallery::kStripTimer));
    EXPECT_FALSE(gallery->note.OnTimer(gallery::kRenderTimer));
    EXPECT_TRUE(gallery->note.OnTimer(gallery::kNoteWaitTimer));
    EXPECT_FALSE(gallery->note.OnCommand(24066));
}

TEST_F(APlayer, CountsBySecondsOfItsOwnWindow) {
    SetItems({Item(u"a"_s, 500)});
    Press();
    EXPECT_TRUE(support::WaitFor([this] { return Text() == u"00:01 / 00:10"; }));
    Press();
    const QString stopped = Text();
    EXPECT_EQ(stopped, u"00:00 / 00:10");
}

TEST_F(APlayer, LooksForAnAwaitedNoteByItself) {
    GalleryItem item = Item(u"a"_s);
    item.audioState = kWaiting;
    SetItems({item});
    Press();
    EXPECT_TRUE(support::WaitFor([this] { return IsPlaying(); }));
    EXPECT_EQ(Image(), u"stop");
}

TEST_F(APlayer, IsUsedByKeys) {
    SetItems({Item(u"a"_s), Item(u"b"_s)});
    gallery->note.Button()->setFocus();
    QTest::keyClick(gallery->note.Button(), Qt::Key_Space);
    EXPECT_TRUE(IsPlaying());
    QTest::keyClick(gallery->note.Button(), Qt::Key_Right);
    EXPECT_EQ(gallery->State().currentIndex, 1) << "the gallery's keys work from here";
}

TEST_F(APlayer, NamesItsControls) {
    SetItems({Item(u"a"_s)});
    CImageButton* button = gallery->note.Button();
    EXPECT_EQ(button->text(), u"播放");
    EXPECT_EQ(button->accessibleName(), u"播放语音");
    EXPECT_EQ(button->toolTip(), u"播放语音");
    Press();
    EXPECT_EQ(button->accessibleName(), u"停止播放语音");
    EXPECT_EQ(gallery->note.Progress()->accessibleName(), u"语音播放进度");
    EXPECT_EQ(gallery->note.Status()->textFormat(), Qt::PlainText);
}

TEST_F(APlayer, ShowsItsProgressInPixels) {
    SetItems({Item(u"a"_s, 500)});
    Press();
    for (int second = 0; second < 5; ++second) {
        Tick();
    }
    const QImage bar = gallery->note.Progress()->grab().toImage();
    const QColor blue(0x0F, 0x41, 0xCD);
    EXPECT_EQ(bar.pixelColor(bar.width() / 2 - 3, 1), blue);
    EXPECT_NE(bar.pixelColor(bar.width() / 2 + 3, 1), blue);
}
