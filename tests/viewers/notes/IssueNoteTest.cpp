// Notes of issues and rectifications: fetched at the press, played only if their sum is right.
#include "tests/viewers/notes/NoteFixture.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <atomic>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using support::NotesOf;

namespace {

QString SumOf(const QByteArray& contents) {
    return QString::fromLatin1(QCryptographicHash::hash(contents, QCryptographicHash::Md5).toHex());
}

std::atomic<int> warnings{0};

/// Counts what Qt complains of.
class Overheard {
public:
    Overheard() : m_before(qInstallMessageHandler(&Overheard::Count)) { warnings = 0; }
    ~Overheard() { qInstallMessageHandler(m_before); }
    Overheard(const Overheard&) = delete;
    Overheard& operator=(const Overheard&) = delete;

private:
    static void Count(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
        warnings += type == QtWarningMsg && text.contains(u"QFile"_s) ? 1 : 0;
    }

    QtMessageHandler m_before;
};

class IssueVoice : public NoteFixture {
protected:
    IssueVoice() {
        Open(NotesOf::Issue);
        QDir().mkpath(folder.Path(u"attach"_s));
    }
    void SetRecord(const QString& uuid, const QString& md5) {
        gallery->issueNote.SetRecord(uuid, md5, kNothingToFetch, folder.Path() + u"/attach/"_s,
                                     gallery->ServerText());
        gallery->note.ShowNote();
    }
    void SetRecord() { SetRecord(u"v"_s, SumOf(sound)); }
    void WriteNote(const QByteArray& contents) { folder.Write(u"attach/v.amr"_s, contents); }
    [[nodiscard]] qint32 State() const { return gallery->issueNote.State(); }
    /// Lets the download that a press began come to its end.
    [[nodiscard]] bool WaitForEnd() {
        return support::WaitFor([this] { return gallery->State().activeDownloads < 0; });
    }

    QByteArray sound = support::SilentAmr(150);
};

} // namespace

TEST(FileMd5, IsThatOfRfc1321InLowerCase) {
    const support::TempFolder folder;
    EXPECT_EQ(gallery::FileMd5(folder.Write(u"a"_s, "message digest")),
              u"f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(gallery::FileMd5(folder.Path(u"none"_s)), u"d41d8cd98f00b204e9800998ecf8427e");
}

TEST_F(IssueVoice, WithoutAUuidIsDisabledAndAPressDoesNothing) {
    SetRecord(QString(), QString());
    EXPECT_FALSE(IsEnabled());
    EXPECT_EQ(Text(), u"无语音");
    gallery->note.OnCommand(gallery::kNoteButton);
    EXPECT_EQ(Image(), u"play");
    EXPECT_EQ(Downloads(), 0);
}

TEST_F(IssueVoice, IsNotFetchedBeforeThePress) {
    host.files.stored[u"v"_s] = sound;
    SetRecord();
    support::RunPendingEvents();
    EXPECT_EQ(Text(), u"就绪");
    EXPECT_EQ(Downloads(), 0);
}

TEST_F(IssueVoice, OnDiskWithTheRightSumPlaysAtOnce) {
    WriteNote(sound);
    SetRecord();
    Press();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(State(), kOnDisk);
    EXPECT_EQ(Image(), u"stop");
    EXPECT_EQ(Text(), u"就绪");
    EXPECT_EQ(Downloads(), 0);
    Press();
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Text(), u"00:00 / 00:03");
}

TEST_F(IssueVoice, OfAUuidThatIsAPathNothingIsRemovedAndNothingPlayed) {
    const QString beside = folder.Write(u"beside.amr"_s, sound);
    SetRecord(u"../beside"_s, SumOf(sound));
    const Overheard overheard;
    Press();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(warnings, 0);
    EXPECT_FALSE(IsPlaying());
    EXPECT_TRUE(QFile::exists(beside));
}

TEST_F(IssueVoice, IsFetchedAtThePressAndThenPlaysByItself) {
    host.files.stored[u"v"_s] = sound;
    SetRecord();
    Press();
    EXPECT_EQ(State(), kWaiting);
    EXPECT_EQ(Image(), u"play") << "nothing else happens";
    EXPECT_TRUE(ModuleLog().contains(u"[开始]下载照片,UUID=v,Path="_s));
    WaitTick();
    EXPECT_EQ(Text(), u"正在缓冲");
    ASSERT_TRUE(WaitForEnd());
    EXPECT_THAT(host.Log().LinesOf({"StartDownload"}),
                testing::ElementsAre("StartDownload(uuid=v,kind=2,server=1.0)"));
    EXPECT_EQ(State(), kOnDisk);
    WaitTick();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Image(), u"stop");
}

TEST_F(IssueVoice, WithTheWrongSumIsDownloadedAgainOnTheNextPress) {
    WriteNote("#!AMR\nof another note");
    host.files.stored[u"v"_s] = sound;
    SetRecord();
    Press();
    EXPECT_EQ(State(), kWaiting);
    EXPECT_EQ(Image(), u"stop");
    EXPECT_FALSE(IsPlaying());
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(Downloads(), 1);
    EXPECT_EQ(State(), kOnDisk);
    EXPECT_EQ(folder.Read(u"attach/v.amr"_s), sound);
    WaitTick();
    EXPECT_TRUE(IsPlaying());
}

TEST_F(IssueVoice, OfWhichTheStoreHasOtherBytesFailsAndIsFetchedAgainAtTheNextPress) {
    host.files.stored[u"v"_s] = "#!AMR\nof another note";
    SetRecord();
    Press();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(State(), kDownloadFailedState);
    WaitTick();
    EXPECT_EQ(Text(), u"下载语音失败");
    EXPECT_EQ(Image(), u"play");
    Press();
    EXPECT_EQ(State(), kWaiting);
    ASSERT_TRUE(support::WaitFor([this] { return Downloads() == 2; }));
}

TEST_F(IssueVoice, ComparesTheSumAsTextWithItsCase) {
    WriteNote(sound);
    SetRecord(u"v"_s, SumOf(sound).toUpper());
    Press();
    EXPECT_EQ(State(), kWaiting);
    EXPECT_FALSE(IsPlaying());
}

TEST_F(IssueVoice, IsAwaitedForEverOnceItsDownloadFailed) {
    SetRecord();
    Press();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(gallery->extraAudio.state, kDownloadFailedState);
    EXPECT_EQ(State(), kWaiting);
    WaitTick();
    EXPECT_EQ(Text(), u"正在缓冲");
    WaitTick();
    EXPECT_EQ(Text(), u"正在缓冲");
    Press();
    ASSERT_TRUE(support::WaitFor([this] { return Downloads() == 2; }));
}

TEST_F(IssueVoice, LeavesTheGalleryWithOneDownloadTooFew) {
    host.files.stored[u"v"_s] = sound;
    SetRecord();
    Press();
    EXPECT_EQ(gallery->State().activeDownloads, 0);
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(gallery->State().activeDownloads, -1);
}

TEST_F(IssueVoice, GoesOnWhenThePageIsShownAgain) {
    WriteNote(sound);
    SetRecord();
    Press();
    gallery->note.ShowNote();
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Text(), u"就绪");
    Tick();
    EXPECT_EQ(Text(), u"00:01 / 00:03");
}

TEST_F(IssueVoice, GoesBackToRestWhenTheWindowCloses) {
    WriteNote(sound);
    SetRecord();
    Press();
    Tick();
    gallery->note.OnClose();
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Text(), u"就绪");
    EXPECT_EQ(Image(), u"play");
    EXPECT_EQ(Pos(), 0);
}

TEST_F(IssueVoice, ThatIsAwaitedStartsAlsoInAWindowThatIsOnlyHidden) {
    host.files.stored[u"v"_s] = sound;
    SetRecord();
    Press();
    gallery->note.OnClose();
    EXPECT_EQ(Text(), u"就绪");
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(support::WaitFor([this] { return IsPlaying(); }));
}

TEST_F(IssueVoice, ProgressOfTheDownloadChangesNothingButTheFirstAndTheLastValue) {
    WriteNote(sound);
    SetRecord();
    gallery->issueNote.OnAudioProgress(1);
    EXPECT_EQ(State(), kOnDisk);
    gallery->issueNote.OnAudioProgress(50);
    EXPECT_EQ(State(), kOnDisk);
    gallery->issueNote.OnAudioProgress(0);
    EXPECT_EQ(State(), kWaiting);
    WriteNote("other");
    gallery->issueNote.OnAudioProgress(1);
    EXPECT_EQ(State(), kDownloadFailedState);
}

TEST_F(IssueVoice, PlaysOnAcrossPictures) {
    SetItems({Item(u"a"_s), Item(u"b"_s)});
    sound = support::SilentAmr(500);
    WriteNote(sound);
    SetRecord();
    Press();
    Tick();
    Step(1);
    ExpectPlaysOn();
}
