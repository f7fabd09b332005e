// Bad files, missing devices, windows that go at a bad time.
#include "tests/viewers/notes/NoteFixture.h"

#include "toolkit/windows/WindowRegistry.h"
#include "viewers/DownloadWorker.h"

using namespace Qt::StringLiterals;
using support::NotesOf;

namespace {

class NoteFaults : public NoteFixture {
protected:
    GalleryItem ItemWith(const QByteArray& contents) {
        GalleryItem item = Item(u"a"_s);
        folder.Write(u"pics/a.amr"_s, contents);
        return item;
    }
};

class NoteWindow : public NoteFixture {
protected:
    /// An item whose note only the store has, and which takes its time.
    GalleryItem Missing() {
        GalleryItem item = Item(u"a"_s);
        QFile::remove(item.audioPath);
        item.audioState = kWaiting;
        host.files.stored[u"a"_s] = support::SilentAmr(100);
        return item;
    }
};

} // namespace

TEST_F(NoteFaults, AFileWithoutAFramePassesAtTheFirstTick) {
    Open(NotesOf::Photos);
    for (const QByteArray& contents :
         {QByteArray(), QByteArray("#!AMR\n"), QByteArray("no sound at all"),
          QByteArray("#!AMR\n\x3C too short")}) {
        SetItems({ItemWith(contents)});
        Press();
        EXPECT_FALSE(IsPlaying());
        EXPECT_EQ(Image(), u"stop");
        Tick();
        EXPECT_EQ(Text(), u"00:00 / 00:00");
        EXPECT_EQ(Image(), u"play");
    }
    EXPECT_EQ(audio.Made(), 0);
}

TEST_F(NoteFaults, ATruncatedNotePlaysToItsLastWholeFrame) {
    Open(NotesOf::Photos);
    QByteArray frame(32, '\0');
    frame[0] = '\x3C';
    SetItems({ItemWith("#!AMR\n" + frame.repeated(100).chopped(7))});
    Press();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(gallery->note.AudioSeconds(), 1U);
}

TEST_F(NoteFaults, ANoteOfHoursPlaysAtOnce) {
    Open(NotesOf::Photos);
    SetItems({ItemWith(support::SilentAmr(3 * 3600 * 50))});
    Press();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(gallery->note.AudioSeconds(), 10800U);
}

TEST_F(NoteFaults, WithoutADeviceTheSecondsCount) {
    const support::ScriptedAudio none(support::Device::None);
    Open(NotesOf::Photos);
    SetItems({Item(u"a"_s, 100)});
    Press();
    Tick();
    EXPECT_EQ(Text(), u"00:01 / 00:02");
    EXPECT_EQ(Pos(), 1);
    Tick();
    EXPECT_EQ(Text(), u"00:00 / 00:02");
    EXPECT_EQ(Image(), u"play");
}

TEST_F(NoteFaults, APlayerThatEndedBeforeItsCountIsPlayedAnewByAPress) {
    const support::ScriptedAudio quick(support::Device::Swallows);
    Open(NotesOf::Photos);
    SetItems({Item(u"a"_s, 100)});
    Press();
    ASSERT_TRUE(support::WaitFor([this] { return !IsPlaying(); }));
    Tick();
    EXPECT_EQ(Text(), u"00:01 / 00:02") << "the end is found by the seconds";
    Press();
    EXPECT_EQ(Pos(), 0);
    EXPECT_EQ(quick.Made(), 2);
}

TEST_F(NoteWindow, ClosedWhilePlayingEndsTheSound) {
    Open(NotesOf::Photos);
    SetItems({Item(u"a"_s)});
    Press();
    gallery->Widget()->close();
    EXPECT_EQ(audio.Alive(), 0) << "before the window is gone";
    EXPECT_FALSE(gallery->HasWindow());
}

TEST_F(NoteWindow, DestroyedWhilePlayingEndsTheSound) {
    Open(NotesOf::Photos);
    SetItems({Item(u"a"_s)});
    Press();
    gallery->Destroy();
    support::RunPendingEvents();
    EXPECT_EQ(audio.Alive(), 0);
}

TEST_F(NoteWindow, WhoseParentDiesWhilePlayingEndsTheSound) {
    auto parent = std::make_unique<QWidget>();
    const auto id =
        toolkit::RegisterWindow(parent.get(), [](const toolkit::WindowEvent&) { return 0; });
    gallery = std::make_unique<support::NotedGallery>();
    gallery->Create(id);
    SetItems({Item(u"a"_s)});
    gallery->note.OnCommand(gallery::kNoteButton);
    ASSERT_TRUE(IsPlaying());
    parent.reset();
    EXPECT_EQ(audio.Alive(), 0);
    EXPECT_FALSE(gallery->HasWindow());
    gallery->note.StopAudio();
    gallery->note.ShowNote();
}

TEST_F(NoteWindow, WhoseObjectDiesWhilePlayingEndsTheSound) {
    Open(NotesOf::Photos);
    SetItems({Item(u"a"_s)});
    Press();
    gallery.reset();
    EXPECT_EQ(audio.Alive(), 0);
    support::RunPendingEvents();
}

TEST_F(NoteWindow, ClosedWhileItsNoteIsFetchedCanBeOpenedAgain) {
    for (const NotesOf notes : {NotesOf::Photos, NotesOf::Issue}) {
        Open(notes);
        const GalleryItem item = Missing();
        gallery->issueNote.SetRecord(u"a"_s, u"none"_s, kNothingToFetch,
                                     folder.Path() + u"/pics/"_s, QString());
        if (notes == NotesOf::Photos) {
            SetItems({item});
        }
        gallery->note.ShowNote();
        Press();
        gallery->Widget()->close();
        gallery::JoinDownloadWorkers();
        support::RunPendingEvents();
        gallery->Create(toolkit::kNoWindow);
        EXPECT_FALSE(IsPlaying());
        EXPECT_EQ(Text(), u"无语音");
        EXPECT_EQ(Image(), u"play");
        QFile::remove(folder.Path(u"pics/a.amr"_s));
    }
}

TEST_F(NoteWindow, OpenedAndEndedAgainAndAgainLosesNothing) {
    const GalleryItem onDisk = Item(u"b"_s);
    for (int i = 0; i < 30; ++i) {
        Open(NotesOf::Photos);
        SetItems({i % 2 == 0 ? onDisk : Missing()});
        Press();
        WaitTick();
        if (i % 3 == 0) {
            gallery->Widget()->close();
        } else if (i % 3 == 1) {
            gallery->Destroy();
        }
        gallery.reset();
        support::RunPendingEvents();
        EXPECT_EQ(audio.Alive(), 0);
    }
}
