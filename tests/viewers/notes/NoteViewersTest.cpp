// How the viewers' players differ.
#include "tests/viewers/notes/NoteFixture.h"

using namespace Qt::StringLiterals;
using support::NotesOf;

namespace {

class NotesOfPhotos : public NoteFixture {
protected:
    NotesOfPhotos() { Open(NotesOf::Photos); }
};

class NotesOfPreviews : public NoteFixture {
protected:
    NotesOfPreviews() { Open(NotesOf::Previews); }
};

class NoteOfACheckpoint : public NoteFixture {
protected:
    NoteOfACheckpoint() { Open(NotesOf::Checkpoint); }
    void SetExtra(const QString& uuid) {
        gallery->extraAudio.uuid = uuid;
        gallery->extraAudio.path = folder.Path(gallery::NotePath(u"thumbs/"_s, uuid));
        gallery->extraAudio.state = uuid.isEmpty() ? kNothingToFetch : kWaiting;
        if (!uuid.isEmpty()) {
            gallery->StartDownload(gallery::kExtraAudio, gallery::DownloadKind::Audio);
        }
        gallery->note.ShowNote();
    }
};

} // namespace

TEST_F(NotesOfPhotos, AChangeOfPictureStopsTheNoteAndResetsTheBar) {
    SetItems({Item(u"a"_s, 500), Item(u"b"_s, 500)});
    Press();
    Tick();
    Step(1);
    ExpectAtRest(u"就绪"_s);
}

TEST_F(NotesOfPhotos, AChangeToTheSameNoteStopsItToo) {
    SetItems({Item(u"a"_s, 500), Item(u"a"_s, 500)});
    Press();
    Step(1);
    EXPECT_FALSE(IsPlaying());
}

TEST_F(NotesOfPhotos, AnotherListStopsTheNote) {
    SetItems({Item(u"a"_s, 500)});
    Press();
    SetItems({Item(QString())});
    EXPECT_FALSE(IsPlaying());
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Text(), u"无语音");
}

TEST_F(NotesOfPhotos, ANoteThatIsReadyStartsByItselfWhenTheUserMovesOnWhileWaiting) {
    SetItems({WaitingItem(u"w"_s), Item(u"b"_s, 150)});
    Press();
    ASSERT_FALSE(IsPlaying());
    Step(1);
    EXPECT_EQ(Text(), u"就绪");
    WaitTick();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Text(), u"就绪");
    EXPECT_EQ(Image(), u"stop");
}

TEST_F(NotesOfPhotos, AnItemWithoutANoteLeavesTheWaitWithoutEffect) {
    SetItems({WaitingItem(u"w"_s), Item(QString())});
    Press();
    Step(1);
    WaitTick();
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Text(), u"无语音");
    EXPECT_FALSE(IsEnabled());
}

TEST_F(NotesOfPreviews, TheSameNotePlaysOnAndKeepsItsTimeDisplay) {
    SetItems({Item(u"a"_s, 500), Item(u"a"_s, 500)});
    EXPECT_EQ(Text(), u"就绪");
    Press();
    Tick();
    Step(1);
    ExpectPlaysOn();
}

TEST_F(NotesOfPreviews, AnotherNoteStopsItAndItsTimeDisplayStays) {
    SetItems({Item(u"a"_s, 500), Item(u"b"_s, 500)});
    Press();
    Tick();
    Step(1);
    ExpectAtRest(u"00:00 / 00:10"_s);
}

TEST_F(NotesOfPreviews, AnotherNoteWhileNonePlaysIsReady) {
    SetItems({Item(u"a"_s, 500), Item(u"b"_s, 500)});
    Step(1);
    ExpectAtRest(u"就绪"_s);
}

TEST_F(NotesOfPreviews, APhotoWithoutANoteStopsItAndItsTimeDisplayStays) {
    SetItems({Item(u"a"_s, 500), Item(QString()), Item(QString())});
    Press();
    Step(1);
    EXPECT_FALSE(IsPlaying());
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Text(), u"00:00 / 00:10");
    Step(2);
    EXPECT_EQ(Text(), u"无语音");
}

TEST_F(NotesOfPreviews, AFirstPhotoWithoutANoteSaysSo) {
    SetItems({Item(QString()), Item(u"a"_s)});
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Text(), u"无语音");
    Step(1);
    EXPECT_TRUE(IsEnabled());
    EXPECT_EQ(Text(), u"就绪");
}

TEST_F(NoteOfACheckpoint, PlaysOnAcrossPictures) {
    SetItems({Item(u"a"_s, 500), Item(u"a"_s, 500)});
    gallery->note.ShowNote();
    Press();
    Tick();
    Step(1);
    ExpectPlaysOn();
}

TEST_F(NoteOfACheckpoint, IsFetchedOnceForAllPictures) {
    host.files.stored[u"a"_s] = support::SilentAmr(100);
    std::vector<GalleryItem> items{Item(u"a"_s), Item(u"a"_s), Item(u"a"_s)};
    ASSERT_TRUE(QFile::remove(items.front().audioPath));
    for (GalleryItem& item : items) {
        item.audioState = kWaiting;
    }
    SetItems(items);
    ASSERT_TRUE(
        support::WaitFor([this] { return gallery->State().items.back().audioState == kOnDisk; }));
    EXPECT_EQ(Downloads(), 1);
}

TEST_F(NoteOfACheckpoint, WithoutPicturesIsFetchedAtOnceAndPlays) {
    host.files.stored[u"x"_s] = support::SilentAmr(150);
    SetExtra(u"x"_s);
    EXPECT_TRUE(IsEnabled());
    EXPECT_EQ(Text(), u"就绪");
    ASSERT_TRUE(support::WaitFor([this] { return gallery->extraAudio.state == kOnDisk; }));
    Press();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Text(), u"就绪");
}

TEST_F(NoteOfACheckpoint, WithoutPicturesSaysThatItsDownloadFailed) {
    SetExtra(u"x"_s);
    ASSERT_TRUE(
        support::WaitFor([this] { return gallery->extraAudio.state == kDownloadFailedState; }));
    Press();
    EXPECT_EQ(Text(), u"下载语音失败");
    EXPECT_EQ(Image(), u"play");
}

TEST_F(NoteOfACheckpoint, WithoutPicturesAndWithoutANoteIsDisabled) {
    SetExtra(QString());
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Text(), u"无语音");
    EXPECT_EQ(Downloads(), 0);
}
