#include "toolkit/media/WavePlayer.h"

#include "tests/support/AmrFiles.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ScriptedAudio.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/toolkit/media/SpokenAmr.h"
#include "toolkit/media/AmrDecoder.h"

#include <QElapsedTimer>
#include <QFile>
#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <random>

using namespace Qt::StringLiterals;
using support::Device;
using support::ScriptedAudio;

namespace {

class Player : public testing::Test {
protected:
    QString Note(const QByteArray& contents) { return folder.Write(u"note.amr"_s, contents); }
    /// Plays; gives the length, milliseconds.
    quint32 Play(const QString& path) {
        quint32 length = 12345;
        player->Play(path, length);
        return length;
    }
    [[nodiscard]] bool IsPlaying() const { return player->GetPlayState() == PlayState::Playing; }
    [[nodiscard]] bool WaitForEnd() {
        return support::WaitFor([this] { return player->GetPlayState() == PlayState::Idle; });
    }

    support::TempFolder folder;
    std::unique_ptr<WavePlayer> player = std::make_unique<WavePlayer>();
};

/// Kilobytes that the process has in memory.
qint64 ResidentKb() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("VmRSS:");
    return text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toLongLong();
}

} // namespace

TEST_F(Player, PlaysUntilItIsStopped) {
    const ScriptedAudio audio(Device::Holds);
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
    EXPECT_EQ(Play(Note(support::SilentAmr(100))), 2000U);
    EXPECT_TRUE(IsPlaying());
    player->Stop();
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
    EXPECT_EQ(audio.Alive(), 0) << "silent when Stop returns";
    player->Stop();
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
}

TEST_F(Player, IsIdleAtTheEndOfTheNote) {
    const ScriptedAudio audio(Device::Swallows);
    Play(Note(support::SilentAmr(7)));
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(audio.Samples().size(), 7U * 160);
    EXPECT_EQ(audio.Alive(), 0);
}

TEST_F(Player, ANarrowNoteSoundsAtItsPitch) {
    const ScriptedAudio audio(Device::Swallows);
    EXPECT_EQ(Play(Note(support::NarrowTone(400, 50))), 1000U);
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(audio.Rate(), 8000);
    EXPECT_EQ(audio.Samples().size(), 8000U);
    EXPECT_NEAR(support::PitchOf(audio.Samples(), 8000), 400, 8);
    EXPECT_GT(support::LoudnessOf(audio.Samples()), 4000);
}

TEST_F(Player, AWideNoteSoundsAtItsPitch) {
    const ScriptedAudio audio(Device::Swallows);
    EXPECT_EQ(Play(Note(support::WideTone(400, 50))), 1000U);
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(audio.Rate(), 16000);
    EXPECT_EQ(audio.Samples().size(), 16000U);
    EXPECT_NEAR(support::PitchOf(audio.Samples(), 16000), 400, 8);
    EXPECT_GT(support::LoudnessOf(audio.Samples()), 4000);
}

TEST_F(Player, AnotherNoteEndsTheOneBefore) {
    const ScriptedAudio audio(Device::Holds);
    Play(Note(support::SilentAmr(100)));
    EXPECT_EQ(Play(folder.Write(u"other.amr"_s, support::SilentAmr(50))), 1000U);
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(audio.Made(), 2);
    EXPECT_EQ(audio.Alive(), 1);
}

TEST_F(Player, AMissingFileReportsNothingAndHasNoLength) {
    const ScriptedAudio audio(Device::Holds);
    EXPECT_EQ(Play(folder.Path(u"none.amr"_s)), 0U);
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
    EXPECT_EQ(audio.Made(), 0);
}

TEST_F(Player, AMissingFileEndsTheNoteThatPlays) {
    Play(Note(support::SilentAmr(100)));
    EXPECT_EQ(Play(folder.Path(u"none.amr"_s)), 0U);
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
}

TEST_F(Player, AnEmptyFileHasNoLength) {
    EXPECT_EQ(Play(Note({})), 0U);
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
}

TEST_F(Player, AFileThatIsNoAmrHasNoLength) {
    EXPECT_EQ(Play(Note("RIFF....WAVEfmt ")), 0U);
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
}

TEST_F(Player, ATruncatedFileHasTheLengthOfItsWholeFrames) {
    const ScriptedAudio audio(Device::Swallows);
    EXPECT_EQ(Play(Note(support::NarrowTone(400, 10).chopped(5))), 180U);
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(audio.Samples().size(), 9U * 160);
}

TEST_F(Player, ANoteOfHoursHasItsLengthAtOnceAndLittleMemory) {
    constexpr int kFrames = 10 * 3600 * 50;
    QByteArray frame(32, '\0');
    frame[0] = '\x3C';
    const QString path = Note("#!AMR\n" + frame.repeated(kFrames));
    const qint64 before = ResidentKb();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Play(path), 10U * 3600 * 1000);
    EXPECT_LT(timer.elapsed(), 3000) << "no sound of hours was decoded";
    EXPECT_TRUE(IsPlaying());
    EXPECT_LT(ResidentKb() - before, 8 * 1024);
}

TEST_F(Player, WithoutADeviceTheNotePassesInSilence) {
    const ScriptedAudio audio(Device::None);
    const support::ManualClock clock;
    EXPECT_EQ(Play(Note(support::SilentAmr(73))), 1460U);
    EXPECT_TRUE(WaitForEnd());
    const std::vector<int> sleeps = clock.Sleeps();
    EXPECT_EQ(std::accumulate(sleeps.begin(), sleeps.end(), 0), 1460);
}

TEST_F(Player, WithoutADeviceTheNotePlaysUntilItIsStopped) {
    const ScriptedAudio audio(Device::None);
    Play(Note(support::SilentAmr(100000)));
    EXPECT_TRUE(IsPlaying());
    player->Stop();
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
}

TEST_F(Player, ADeviceThatCannotBeOpenedIsReplacedBySilence) {
    const ScriptedAudio audio(Device::FailsToOpen);
    const support::ManualClock clock;
    EXPECT_EQ(Play(Note(support::SilentAmr(10))), 200U);
    EXPECT_TRUE(WaitForEnd());
    const std::vector<int> sleeps = clock.Sleeps();
    EXPECT_EQ(std::accumulate(sleeps.begin(), sleeps.end(), 0), 200);
}

TEST_F(Player, ADeviceThatFailsIsReplacedBySilenceForTheRest) {
    const ScriptedAudio audio(Device::FailsLater);
    const support::ManualClock clock;
    EXPECT_EQ(Play(Note(support::SilentAmr(25))), 500U);
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(audio.Samples().size(), 5U * 160);
    const std::vector<int> sleeps = clock.Sleeps();
    EXPECT_EQ(std::accumulate(sleeps.begin(), sleeps.end(), 0), 400);
}

TEST_F(Player, EndsWithItsOwnerWhileANotePlays) {
    for (const Device device : {Device::Holds, Device::None, Device::Swallows}) {
        const ScriptedAudio audio(device);
        const QString path = Note(support::NarrowTone(300, 200));
        for (int i = 0; i < 50; ++i) {
            player = std::make_unique<WavePlayer>();
            Play(path);
            if (i % 2 == 0) {
                player->Stop();
            }
            if (i % 4 == 0) {
                Play(path);
            }
            player.reset();
            EXPECT_EQ(audio.Alive(), 0);
        }
    }
}

TEST_F(Player, AFileThatVanishesWhileItPlaysChangesNothing) {
    const ScriptedAudio audio(Device::Holds);
    const QString path = Note(support::SilentAmr(100));
    Play(path);
    ASSERT_TRUE(QFile::remove(path));
    player->Stop();
    EXPECT_EQ(player->GetPlayState(), PlayState::Idle);
}

TEST(AmrDecoder, DecodesWhateverAFrameHolds) {
    std::mt19937 random(7);
    const int narrow[] = {13, 14, 16, 18, 20, 21, 27, 32, 6};
    const int wide[] = {18, 24, 33, 37, 41, 47, 51, 59, 61, 6, 0, 0, 0, 0, 1, 1};
    const auto narrowDecoder = toolkit::MakeAmrDecoder(toolkit::AmrBand::Narrow);
    const auto wideDecoder = toolkit::MakeAmrDecoder(toolkit::AmrBand::Wide);
    for (int round = 0; round < 2000; ++round) {
        const auto type = unsigned(random()) % 16;
        std::vector<unsigned char> frame(64);
        for (unsigned char& byte : frame) {
            byte = static_cast<unsigned char>(random());
        }
        frame[0] = static_cast<unsigned char>(type << 3U | (random() & 0x87U));
        const size_t narrowSize = type < 9 ? size_t(narrow[type]) : 1;
        if (type < 9 || type == 15) {
            EXPECT_EQ(narrowDecoder->Decode(std::span(frame).first(narrowSize)).size(), 160U);
        }
        if (wide[type] != 0) {
            EXPECT_EQ(wideDecoder->Decode(std::span(frame).first(size_t(wide[type]))).size(), 320U);
        }
    }
}

TEST(AmrDecoder, ThereIsNoneWithoutABand) {
    EXPECT_EQ(toolkit::MakeAmrDecoder(toolkit::AmrBand::None), nullptr);
}

TEST(AudioOutput, AskingForTheMachinesDeviceSaysNothingWhetherThereIsOneOrNot) {
    toolkit::IAudioOutputs* before = toolkit::SetAudioOutputs(nullptr);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i) {
        const std::unique_ptr<toolkit::IAudioOutput> output = toolkit::MakeAudioOutput();
        ASSERT_TRUE(output) << "the library that knows devices lies beside the toolkit";
        static_cast<void>(output->Open(8000, {}));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    toolkit::SetAudioOutputs(before);
}
