#include "sample/SpokenVoice.h"

#include <QByteArray>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using namespace Qt::StringLiterals;
using sample::ReadWave;
using sample::SpokenSound;

/// 16-bit PCM of one channel at 8,000 a second: 1, -1 and 0.5 of full scale.
QByteArray Wave() {
    return QByteArray::fromHex("52494646"
                               "2a000000"
                               "57415645"
                               "666d7420"
                               "10000000"
                               "0100"
                               "0100"
                               "401f0000"
                               "803e0000"
                               "0200"
                               "1000"
                               "64617461"
                               "06000000"
                               "ff7f"
                               "0080"
                               "0040");
}

SpokenSound Tone(double hertz, int rate) {
    SpokenSound sound;
    sound.rate = rate;
    for (int i = 0; i < rate; ++i) {
        sound.samples.push_back(
            static_cast<float>(std::sin(2 * std::numbers::pi * hertz * i / rate)));
    }
    return sound;
}

/// Root of the mean square, ends left out.
double LoudnessOf(const std::vector<float>& samples) {
    double sum = 0;
    size_t count = 0;
    for (size_t i = 200; i + 200 < samples.size(); ++i, ++count) {
        sum += static_cast<double>(samples[i]) * samples[i];
    }
    return std::sqrt(sum / static_cast<double>(count));
}

int RisesOf(const std::vector<float>& samples) {
    int rises = 0;
    for (size_t i = 1; i < samples.size(); ++i) {
        rises += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
    }
    return rises;
}

TEST(SpokenVoice, SpeaksAChineseSentence) {
    const auto sound = sample::Speak(u"三层楼板有裂缝，请尽快整改。"_s, 1);
    ASSERT_TRUE(sound) << "espeak-ng is one of the packages that the client is built with";
    EXPECT_GE(sound->rate, 8000);
    const double seconds = static_cast<double>(sound->samples.size()) / sound->rate;
    EXPECT_GT(seconds, 1.5);
    EXPECT_LT(seconds, 12);
    EXPECT_GT(LoudnessOf(sound->samples), 0.01);
}

TEST(SpokenVoice, OfALongTextTheFirstSentencesAreSpoken) {
    const QString sentence = u"三层楼板有裂缝，请尽快整改。"_s;
    const auto once = sample::Speak(sentence, 1);
    const auto often = sample::Speak(sentence.repeated(40), 1);
    ASSERT_TRUE(once && often);
    EXPECT_LT(often->samples.size(), 6 * once->samples.size());
}

TEST(SpokenVoice, NobodySpeaksWithoutTheProgramOrTheText) {
    EXPECT_FALSE(sample::Speak(u"有裂缝"_s, 1, u"no-such-speaker"_s));
    EXPECT_FALSE(sample::Speak(u"有裂缝"_s, 1, u"false"_s));
    EXPECT_FALSE(sample::Speak(u"有裂缝"_s, 1, u"true"_s)) << "it says nothing";
    EXPECT_FALSE(sample::Speak(QString(), 1));
}

TEST(SpokenVoice, AWaveFileIsRead) {
    const auto sound = ReadWave(Wave());
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->rate, 8000);
    EXPECT_EQ(sound->samples, std::vector<float>({32767 / 32768.0F, -1, 0.5F}));
}

TEST(SpokenVoice, AWaveFileOutOfAPipeEndsWithItsBytes) {
    QByteArray file = Wave();
    file.replace(40, 4, QByteArray::fromHex("00f0ff7f"));
    const auto sound = ReadWave(file);
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->samples.size(), 3U);
}

TEST(SpokenVoice, WhatIsNoSuchWaveFileIsRefused) {
    EXPECT_FALSE(ReadWave({}));
    EXPECT_FALSE(ReadWave("RIFF1234WAVE"));
    EXPECT_FALSE(ReadWave(Wave().replace(8, 4, "AVI ")));
    EXPECT_FALSE(ReadWave(Wave().replace(22, 2, QByteArray::fromHex("0200")))) << "two channels";
    EXPECT_FALSE(ReadWave(Wave().replace(34, 2, QByteArray::fromHex("0800")))) << "8 bits";
    for (qsizetype length = 0; length < 45; ++length) {
        EXPECT_FALSE(ReadWave(Wave().left(length))) << length;
    }
}

TEST(SpokenVoice, AToneKeepsPitchLengthAndLoudnessAtAnotherRate) {
    for (const int rate : {8000, 11025, 44100}) {
        const std::vector<float> out = sample::Resampled(Tone(500, 22050), rate);
        EXPECT_NEAR(static_cast<double>(out.size()), rate, 2) << rate;
        EXPECT_NEAR(RisesOf(out), 500, 2) << rate;
        EXPECT_NEAR(LoudnessOf(out), std::sqrt(0.5), 0.01) << rate;
    }
}

TEST(SpokenVoice, WhatTheNewRateCannotHoldIsLeftOut) {
    EXPECT_LT(LoudnessOf(sample::Resampled(Tone(5500, 22050), 8000)), 0.02);
}

} // namespace
