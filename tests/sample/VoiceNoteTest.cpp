#include "sample/VoiceNote.h"

#include <gtest/gtest.h>
#include <opencore-amrnb/interf_dec.h>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kFrameSizes{12, 13, 15, 17, 19, 20, 26, 31, 5, 0, 0, 0, 0, 0, 0, 0};

struct Decoded {
    int frames = 0;
    double loudness = 0; ///< root of the mean square
    bool whole = false;  ///< the file ends with a frame
};

Decoded Decode(const QByteArray& file) {
    Decoded result;
    void* decoder = Decoder_Interface_init();
    qsizetype at = 6;
    double squares = 0;
    while (at < file.size()) {
        const int size = 1 + kFrameSizes[(static_cast<unsigned char>(file[at]) >> 3) & 15];
        if (at + size > file.size()) {
            break;
        }
        std::array<short, 160> samples{};
        Decoder_Interface_Decode(decoder, reinterpret_cast<const unsigned char*>(file.data() + at),
                                 samples.data(), 0);
        for (const short sample : samples) {
            squares += static_cast<double>(sample) * sample;
        }
        ++result.frames;
        at += size;
    }
    Decoder_Interface_exit(decoder);
    result.whole = at == file.size();
    result.loudness = std::sqrt(squares / (160.0 * std::max(1, result.frames)));
    return result;
}

TEST(VoiceNote, HasTheOrderedLengthInWholeFrames) {
    const QByteArray file = sample::MakeVoiceNote(3, 2345);
    ASSERT_TRUE(file.startsWith("#!AMR\n"));
    const Decoded decoded = Decode(file);
    EXPECT_EQ(decoded.frames, 118);
    EXPECT_TRUE(decoded.whole);
}

TEST(VoiceNote, CanBeHeard) {
    const Decoded decoded = Decode(sample::MakeVoiceNote(8, 3000));
    EXPECT_GT(decoded.loudness, 300);
    EXPECT_LT(decoded.loudness, 15000);
}

TEST(VoiceNote, EqualSeedsSpeakEqually) {
    EXPECT_EQ(sample::MakeVoiceNote(4, 1000), sample::MakeVoiceNote(4, 1000));
    EXPECT_NE(sample::MakeVoiceNote(4, 1000), sample::MakeVoiceNote(5, 1000));
}

TEST(VoiceNote, ASentenceIsSpokenForAsLongAsItTakes) {
    const QString text = u"剪力墙根部漏浆，请尽快安排整改。"_s;
    const QByteArray file = sample::MakeSpokenNote(text, 5, 1000);
    ASSERT_TRUE(file.startsWith("#!AMR\n"));
    const Decoded decoded = Decode(file);
    EXPECT_TRUE(decoded.whole);
    EXPECT_GT(decoded.frames, 2 * 50);
    EXPECT_LT(decoded.frames, 12 * 50);
    EXPECT_GT(decoded.loudness, 300);
    EXPECT_LT(decoded.loudness, 15000);
    EXPECT_EQ(file, sample::MakeSpokenNote(text, 5, 1000));
    EXPECT_NE(file, sample::MakeSpokenNote(u"模板拼缝过大。"_s, 5, 1000));
}

TEST(VoiceNote, WhereNobodySpeaksOrThereIsNoTextSyllablesOfTheOrderedLengthStandIn) {
    const QByteArray babble = sample::MakeVoiceNote(5, 1000);
    EXPECT_EQ(sample::MakeSpokenNote(u"有裂缝"_s, 5, 1000, u"no-such-speaker"_s), babble);
    EXPECT_EQ(sample::MakeSpokenNote(u"有裂缝"_s, 5, 1000, u"false"_s), babble);
    EXPECT_EQ(sample::MakeSpokenNote(QString(), 5, 1000), babble);
}

TEST(VoiceNote, TheShortestIsOneFrame) {
    EXPECT_EQ(Decode(sample::MakeVoiceNote(1, 0)).frames, 1);
}

} // namespace
