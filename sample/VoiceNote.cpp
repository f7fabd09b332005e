#include "sample/VoiceNote.h"

#include "sample/Dice.h"

#include <opencore-amrnb/interf_enc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace sample {

namespace {

constexpr int kSampleRate = 8000;
constexpr int kFrameSamples = 160;
constexpr int kFrameMs = 20;
constexpr size_t kPauseSamples = 2000;

/// A two-pole filter that rings at one frequency, as a formant of the mouth does.
class Resonator final {
public:
    void Tune(float frequency, float width) {
        const float radius = std::exp(-std::numbers::pi_v<float> * width / kSampleRate);
        m_feed1 = 2 * radius * std::cos(2 * std::numbers::pi_v<float> * frequency / kSampleRate);
        m_feed2 = -radius * radius;
        m_gain = 1 - radius;
    }
    [[nodiscard]] float Run(float input) {
        const float output = m_gain * input + m_feed1 * m_last1 + m_feed2 * m_last2;
        m_last2 = m_last1;
        m_last1 = output;
        return output;
    }

private:
    float m_feed1 = 0;
    float m_feed2 = 0;
    float m_gain = 1;
    float m_last1 = 0;
    float m_last2 = 0;
};

struct Vowel {
    float first;
    float second;
};
constexpr std::array<Vowel, 6> kVowels{
    {{730, 1090}, {270, 2290}, {300, 870}, {530, 1840}, {570, 840}, {440, 1020}}};

/// Speaks sample by sample: syllables of 120 to 260 ms, each with a vowel, a tone and a pitch.
class Babble final {
public:
    explicit Babble(quint64 seed) : m_dice(seed), m_voice(m_dice.Between(105, 215)) {}

    [[nodiscard]] float Next() {
        if (m_left <= 0) {
            StartSyllable();
        }
        const float part = 1 - static_cast<float>(m_left) / static_cast<float>(m_length);
        --m_left;
        const float pitch = m_voice * (1 + m_slide * (part - 0.5F));
        m_phase += pitch / kSampleRate;
        m_phase -= std::floor(m_phase);
        // A falling ramp has the overtones of vocal cords; the breath adds a little noise.
        const float source = 1 - 2 * m_phase + m_dice.Between(-0.12F, 0.12F);
        const float envelope = m_silent ? 0 : std::sin(std::numbers::pi_v<float> * part);
        return (m_low.Run(source) + 0.6F * m_high.Run(source)) * envelope;
    }

private:
    void StartSyllable() {
        m_silent = m_dice.Chance(0.16F);
        m_length = static_cast<int>(m_dice.Between(0.12F, m_silent ? 0.42F : 0.26F) * kSampleRate);
        m_left = m_length;
        m_slide = m_dice.Between(-0.35F, 0.35F);
        const Vowel& vowel = kVowels[static_cast<size_t>(m_dice.Pick(kVowels.size()))];
        m_low.Tune(vowel.first, 90);
        m_high.Tune(vowel.second, 130);
    }

    Dice m_dice;
    Resonator m_low;
    Resonator m_high;
    float m_voice;
    float m_phase = 0;
    float m_slide = 0;
    int m_length = 1;
    int m_left = 0;
    bool m_silent = false;
};

struct EncoderDeleter {
    void operator()(void* encoder) const { Encoder_Interface_exit(encoder); }
};

/// @param next  gives the samples, -1 to 1.
template <typename Next> QByteArray Encode(int frames, Next next) {
    const std::unique_ptr<void, EncoderDeleter> encoder(Encoder_Interface_init(0));
    if (!encoder) {
        return {};
    }
    QByteArray file("#!AMR\n");
    std::array<short, kFrameSamples> samples{};
    std::array<unsigned char, 64> packed{};
    for (int frame = 0; frame < frames; ++frame) {
        for (short& sample : samples) {
            sample = static_cast<short>(std::clamp(next() * 26000, -32000.0F, 32000.0F));
        }
        const int size =
            Encoder_Interface_Encode(encoder.get(), MR74, samples.data(), packed.data(), 0);
        file.append(reinterpret_cast<const char*>(packed.data()), size);
    }
    return file;
}

/// Makes the loudest sample 1; silence stays silence.
void Normalise(std::vector<float>& samples) {
    float peak = 0;
    for (const float sample : samples) {
        peak = std::max(peak, std::abs(sample));
    }
    for (float& sample : samples) {
        sample = peak > 0 ? sample / peak : 0;
    }
}

} // namespace

QByteArray MakeVoiceNote(quint64 seed, int milliseconds) {
    Babble babble(seed);
    const int frames = std::max(1, (milliseconds + kFrameMs - 1) / kFrameMs);
    return Encode(frames, [&] { return babble.Next(); });
}

QByteArray MakeSpokenNote(const QString& text, quint64 seed, int milliseconds,
                          const QString& program) {
    const std::optional<SpokenSound> spoken = Speak(text, seed, program);
    if (!spoken) {
        return MakeVoiceNote(seed, milliseconds);
    }
    std::vector<float> samples = Resampled(*spoken, kSampleRate);
    Normalise(samples);
    samples.insert(samples.begin(), kPauseSamples, 0.0F);
    samples.insert(samples.end(), kPauseSamples, 0.0F);
    const auto frames = static_cast<int>((samples.size() + kFrameSamples - 1) / kFrameSamples);
    size_t at = 0;
    return Encode(frames, [&] { return at < samples.size() ? samples[at++] : 0.0F; });
}

} // namespace sample
