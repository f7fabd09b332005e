// The voice notes of an issue and of its rectification.
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/AmrFiles.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"

#include <QCryptographicHash>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class NoteSentencesTest : public IssueFixture {
protected:
    [[nodiscard]] static QString SumOf(const QByteArray& contents) {
        return QString::fromLatin1(
            QCryptographicHash::hash(contents, QCryptographicHash::Md5).toHex());
    }
    void GiveNotes() {
        Detail().voiceUuid = u"v"_s;
        Detail().voiceMd5 = SumOf(sound);
        host.questions.rectifications[u"q1"_s].voiceUuid = u"rv"_s;
        host.questions.rectifications[u"q1"_s].voiceMd5 = SumOf(sound);
    }
    QString Write(const QString& uuid, const QByteArray& contents) {
        return folder.Write(u"1/attachments/%1.amr"_s.arg(uuid), contents);
    }
    static void Play(issues::IssuePane& page) { support::Click(page.Note().Button()); }
    [[nodiscard]] static bool WaitForPlaying(issues::IssuePane& page) {
        return support::WaitFor([&page] { return page.Note().IsPlaying(); });
    }
    [[nodiscard]] static QString Text(issues::IssuePane& page) {
        return page.Note().Status()->text();
    }

    QByteArray sound = support::SilentAmr(500);
};

} // namespace

TEST_F(NoteSentencesTest, BothAreReadyAndNothingIsFetchedUnasked) {
    GiveNotes();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Text(Page()), u"就绪");
    EXPECT_EQ(Text(Rectify()), u"就绪");
    EXPECT_TRUE(Page().Note().Button()->isEnabled());
    Wrap().TabWnd()->SetActiveTab(1);
    support::RunPendingEvents();
    EXPECT_EQ(Log().CountOf("StartDownload"), 0);
}

TEST_F(NoteSentencesTest, WithTheWrongSumItIsFetchedAgainAndThenPlays) {
    GiveNotes();
    Write(u"v"_s, "#!AMR\nother");
    host.files.stored[u"v"_s] = sound;
    ASSERT_TRUE(Open());
    Play(Page());
    EXPECT_FALSE(Page().Note().IsPlaying());
    EXPECT_TRUE(ModuleLog().contains(u"[开始]下载照片,UUID=v,Path="_s));
    EXPECT_TRUE(WaitForPlaying(Page()));
    EXPECT_EQ(folder.Read(u"1/attachments/v.amr"_s), sound);
}

TEST_F(NoteSentencesTest, TheRepairsNoteIsFetchedByTheSameRule) {
    GiveNotes();
    Write(u"rv"_s, "#!AMR\nother");
    host.files.stored[u"rv"_s] = sound;
    ASSERT_TRUE(OpenRectify());
    Play(Rectify());
    EXPECT_TRUE(ModuleLog().contains(u"[开始]下载照片,UUID=rv,Path="_s));
    EXPECT_TRUE(WaitForPlaying(Rectify()));
    EXPECT_EQ(folder.Read(u"1/attachments/rv.amr"_s), sound);
}

TEST_F(NoteSentencesTest, ItsSumIsComparedWithItsCase) {
    GiveNotes();
    Detail().voiceMd5 = Detail().voiceMd5.toUpper();
    Write(u"v"_s, sound);
    ASSERT_TRUE(Open());
    Play(Page());
    EXPECT_FALSE(Page().Note().IsPlaying());
    EXPECT_TRUE(ModuleLog().contains(u"[开始]下载照片,UUID=v"_s));
}

TEST_F(NoteSentencesTest, OneThatCannotBeFetchedWaitsOn) {
    GiveNotes();
    ASSERT_TRUE(Open());
    Play(Page());
    EXPECT_TRUE(support::WaitFor([] { return Text(Page()) == u"正在缓冲"_s; }));
    EXPECT_EQ(Page().VoiceState(), 1);
    Wrap().Widget()->close();
    EXPECT_EQ(Text(Page()), u"就绪");
}

TEST_F(NoteSentencesTest, ClosingStopsTheRepairsNote) {
    GiveNotes();
    Write(u"rv"_s, sound);
    ASSERT_TRUE(OpenRectify());
    Play(Rectify());
    ASSERT_TRUE(Rectify().Note().IsPlaying());
    Wrap().Widget()->close();
    EXPECT_FALSE(Rectify().Note().IsPlaying());
    EXPECT_EQ(Text(Rectify()), u"就绪");
    EXPECT_EQ(Rectify().Note().Button()->accessibleName(), u"播放语音");
}

TEST_F(NoteSentencesTest, AnotherPictureLetsBothPlayOn) {
    GiveNotes();
    Write(u"v"_s, sound);
    ASSERT_TRUE(Open());
    Play(Page());
    support::Click(Page().Widget());
    EXPECT_TRUE(Page().Note().IsPlaying());
}

TEST_F(NoteSentencesTest, ARefreshBringsTheNoteThatTheIssueHasNow) {
    GiveNotes();
    Write(u"v"_s, sound);
    const QByteArray later = support::SilentAmr(600);
    Write(u"v2"_s, later);
    ASSERT_TRUE(Open());
    Detail().voiceUuid = u"v2"_s;
    Detail().voiceMd5 = SumOf(later);
    QFile::remove(folder.Path(u"1/attachments/v.amr"_s));
    Wrap().Refresh();
    Play(Page());
    EXPECT_TRUE(Page().Note().IsPlaying());
}

TEST_F(NoteSentencesTest, TheNextIssueWithoutOneSaysSo) {
    GiveNotes();
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Open(u"q2"_s));
    EXPECT_EQ(Text(Page()), u"无语音");
    EXPECT_EQ(Text(Rectify()), u"无语音");
    EXPECT_FALSE(Page().Note().Button()->isEnabled());
    EXPECT_FALSE(Rectify().Note().Button()->isEnabled());
}
