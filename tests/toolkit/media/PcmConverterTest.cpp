#include "toolkit/media/PcmConverter.h"

#include "tests/toolkit/media/SpokenAmr.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

using toolkit::PcmConverter;
using toolkit::PcmSample;

namespace {

template <typename T> std::vector<T> As(const QByteArray& bytes) {
    std::vector<T> values(size_t(bytes.size()) / sizeof(T));
    std::memcpy(values.data(), bytes.constData(), values.size() * sizeof(T));
    return values;
}

template <typename T>
std::vector<T> Converted(const std::vector<qint16>& samples, const toolkit::PcmFormat& target,
                         int rate = 8000) {
    return As<T>(PcmConverter(rate, target).Convert(samples));
}

std::vector<qint16> Tone(double hertz, int rate) {
    std::vector<qint16> samples;
    for (int i = 0; i < rate; ++i) {
        samples.push_back(
            qint16(std::lround(10000 * std::sin(2 * std::numbers::pi * hertz * i / rate))));
    }
    return samples;
}

} // namespace

TEST(PcmConverter, TheSameFormatComesOutAsItWentIn) {
    const std::vector<qint16> samples{1, -2, 32767, -32768, 0};
    EXPECT_EQ(Converted<qint16>(samples, {8000, 1, PcmSample::Int16}),
              std::vector<qint16>({1, -2, 32767, -32768}))
        << "the last one is held back";
}

TEST(PcmConverter, EverySampleTypeHasItsScale) {
    const std::vector<qint16> samples{0, 16384, -32768, 32767, 0};
    EXPECT_EQ(Converted<quint8>(samples, {8000, 1, PcmSample::UInt8}),
              std::vector<quint8>({128, 192, 0, 255}));
    EXPECT_EQ(Converted<qint32>(samples, {8000, 1, PcmSample::Int32}),
              std::vector<qint32>({0, 1 << 30, -2147483647 - 1, 32767 * 65536}));
    EXPECT_EQ(Converted<float>(samples, {8000, 1, PcmSample::Float}),
              std::vector<float>({0, 0.5F, -1, 32767 / 32768.0F}));
}

TEST(PcmConverter, AllChannelsGetTheSame) {
    EXPECT_EQ(Converted<qint16>({5, 7, 0}, {8000, 3, PcmSample::Int16}),
              std::vector<qint16>({5, 5, 5, 7, 7, 7}));
}

TEST(PcmConverter, BetweenTwoSamplesTheSoundGoesStraight) {
    EXPECT_EQ(Converted<qint16>({0, 600, 0}, {48000, 1, PcmSample::Int16}),
              std::vector<qint16>({0, 100, 200, 300, 400, 500, 600, 500, 400, 300, 200, 100}));
}

TEST(PcmConverter, AToneKeepsItsPitchAndLengthAtEveryRate) {
    for (const int rate : {8000, 11025, 16000, 22050, 44100, 48000}) {
        const std::vector<qint16> out =
            Converted<qint16>(Tone(300, 16000), {rate, 1, PcmSample::Int16}, 16000);
        EXPECT_NEAR(double(out.size()), rate, 6) << rate;
        EXPECT_NEAR(support::PitchOf(out, rate), 300, 1) << rate;
    }
}

TEST(PcmConverter, PiecesOfAnyLengthJoinWithoutAGap) {
    const std::vector<qint16> samples = Tone(440, 8000);
    const toolkit::PcmFormat target{44100, 2, PcmSample::Int16};
    PcmConverter pieces(8000, target);
    QByteArray joined;
    size_t begin = 0;
    for (size_t length = 0; begin < samples.size(); ++length) {
        const size_t end = std::min(begin + length, samples.size());
        joined += pieces.Convert(std::span(samples).subspan(begin, end - begin));
        begin = end;
    }
    EXPECT_EQ(As<qint16>(joined), Converted<qint16>(samples, target));
}

TEST(PcmConverter, NothingGivesNothing) {
    EXPECT_TRUE(PcmConverter(8000, {}).Convert({}).isEmpty());
}
