#include "tests/toolkit/media/SpokenAmr.h"

#include <opencore-amrnb/interf_enc.h>
#include <vo-amrwbenc/enc_if.h>

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace support {

namespace {

constexpr double kLoud = 12000;
constexpr int kNarrowSamples = 160;
constexpr int kWideSamples = 320;
constexpr int kWide2385 = 8;

/// The frame's samples of a tone.
std::vector<short> ToneFrame(double hertz, int frame, int samples) {
    std::vector<short> sound;
    const double step = 2 * std::numbers::pi * hertz / (samples * 50.0);
    for (int i = 0; i < samples; ++i) {
        sound.push_back(short(std::lround(kLoud * std::sin(step * (frame * samples + i)))));
    }
    return sound;
}

} // namespace

QByteArray NarrowTone(double hertz, int frames) {
    void* encoder = Encoder_Interface_init(0);
    QByteArray file("#!AMR\n");
    std::array<unsigned char, 64> packed{};
    for (int frame = 0; frame < frames; ++frame) {
        const std::vector<short> sound = ToneFrame(hertz, frame, kNarrowSamples);
        const int size = Encoder_Interface_Encode(encoder, MR122, sound.data(), packed.data(), 0);
        file.append(reinterpret_cast<const char*>(packed.data()), size);
    }
    Encoder_Interface_exit(encoder);
    return file;
}

QByteArray WideTone(double hertz, int frames) {
    void* encoder = E_IF_init();
    QByteArray file("#!AMR-WB\n");
    std::array<unsigned char, 64> packed{};
    for (int frame = 0; frame < frames; ++frame) {
        const std::vector<short> sound = ToneFrame(hertz, frame, kWideSamples);
        const int size = E_IF_encode(encoder, kWide2385, sound.data(), packed.data(), 0);
        file.append(reinterpret_cast<const char*>(packed.data()), size);
    }
    E_IF_exit(encoder);
    return file;
}

double PitchOf(std::span<const qint16> samples, int rate) {
    const size_t margin = samples.size() / 10;
    int rises = 0;
    size_t first = 0;
    size_t last = 0;
    for (size_t i = margin + 1; i + margin < samples.size(); ++i) {
        if (samples[i - 1] >= 0 || samples[i] < 0) {
            continue;
        }
        if (rises == 0) {
            first = i;
        }
        last = i;
        ++rises;
    }
    return rises < 2 ? 0 : double(rises - 1) * rate / double(last - first);
}

double LoudnessOf(std::span<const qint16> samples) {
    double sum = 0;
    for (const qint16 sample : samples) {
        sum += double(sample) * sample;
    }
    return samples.empty() ? 0 : std::sqrt(sum / double(samples.size()));
}

} // namespace support
