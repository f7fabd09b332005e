#include "sample/SpokenVoice.h"

#include "sample/Dice.h"

#include <QDebug>
#include <QProcess>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <numbers>
#include <numeric>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSpeakMs = 30000;
constexpr qsizetype kMostSpoken = 28;
constexpr std::array kVoices{"cmn+m3", "cmn+f2", "cmn+m7", "cmn+f4", "cmn+m1", "cmn+f3"};

/// The text up to its last stop within what a person says into a phone.
QString SpokenPart(const QString& text) {
    if (text.size() <= kMostSpoken) {
        return text;
    }
    const QString part = text.left(kMostSpoken);
    const qsizetype stop = std::max(part.lastIndexOf(u'。'), part.lastIndexOf(u'，'));
    return stop > 0 ? part.left(stop) : part;
}

void SayThatNobodySpeaks(const QString& program) {
    static std::atomic<bool> said{false};
    if (!said.exchange(true)) {
        qWarning().noquote() << u"未找到 %1，示例语音用合成音节代替。"_s.arg(program);
    }
}

/// Length of the part of the filter on each side of its middle, in samples of the slower rate.
constexpr int kZeroCrossings = 12;

/// A low pass at the slower rate's limit (Hann-windowed sinc), at a distance in source samples.
double Weight(double distance, double cut, double reach) {
    if (std::abs(distance) >= reach) {
        return 0;
    }
    const double window = 0.5 + 0.5 * std::cos(std::numbers::pi * distance / reach);
    const double angle = std::numbers::pi * cut * distance;
    return cut * window * (std::abs(angle) < 1e-9 ? 1 : std::sin(angle) / angle);
}

} // namespace

QString SpeechProgram() {
    return u"espeak-ng"_s;
}

std::optional<SpokenSound> Speak(const QString& text, quint64 seed, const QString& program) {
    const QByteArray words = SpokenPart(text).toUtf8();
    if (words.isEmpty()) {
        return std::nullopt;
    }
    Dice dice(seed);
    const char* voice = kVoices[static_cast<size_t>(dice.Pick(kVoices.size()))];
    const int pitch = 35 + dice.Pick(30);
    const int speed = 160 + dice.Pick(40);
    QProcess speaker;
    speaker.start(program,
                  {u"-v"_s, QString::fromLatin1(voice), u"-p"_s, QString::number(pitch), u"-s"_s,
                   QString::number(speed), u"-b"_s, u"1"_s, u"--stdin"_s, u"--stdout"_s});
    if (!speaker.waitForStarted()) {
        SayThatNobodySpeaks(program);
        return std::nullopt;
    }
    speaker.write(words);
    speaker.closeWriteChannel();
    if (!speaker.waitForFinished(kSpeakMs) || speaker.exitStatus() != QProcess::NormalExit ||
        speaker.exitCode() != 0) {
        speaker.kill();
        speaker.waitForFinished();
        return std::nullopt;
    }
    return ReadWave(speaker.readAllStandardOutput());
}

std::optional<SpokenSound> ReadWave(const QByteArray& file) {
    constexpr qsizetype kHead = 12;
    constexpr qsizetype kChunkHead = 8;
    constexpr qsizetype kFormat = 16;
    if (file.size() < kHead || !file.startsWith("RIFF") || file.mid(8, 4) != "WAVE") {
        return std::nullopt;
    }
    SpokenSound sound;
    for (qsizetype at = kHead; at + kChunkHead <= file.size();) {
        const QByteArray name = file.mid(at, 4);
        const auto announced = qFromLittleEndian<quint32>(file.constData() + at + 4);
        at += kChunkHead;
        const qsizetype size = std::min<qsizetype>(announced, file.size() - at);
        if (name == "fmt " && size >= kFormat) {
            const char* format = file.constData() + at;
            const bool pcm = qFromLittleEndian<quint16>(format) == 1 &&
                             qFromLittleEndian<quint16>(format + 2) == 1 &&
                             qFromLittleEndian<quint16>(format + 14) == 16;
            sound.rate = pcm ? qFromLittleEndian<qint32>(format + 4) : 0;
        } else if (name == "data") {
            for (qsizetype i = 0; i + 1 < size; i += 2) {
                sound.samples.push_back(
                    static_cast<float>(qFromLittleEndian<qint16>(file.constData() + at + i)) /
                    32768.0F);
            }
        }
        at += size + (size & 1);
    }
    if (sound.rate <= 0 || sound.samples.empty()) {
        return std::nullopt;
    }
    return sound;
}

std::vector<float> Resampled(const SpokenSound& sound, int rate) {
    const int common = std::gcd(sound.rate, rate);
    const int phases = rate / common; // the source's samples lie at as many places between ours
    const int step = sound.rate / common;
    const double cut = std::min(1.0, static_cast<double>(rate) / sound.rate);
    const double reach = kZeroCrossings / cut;
    const int taps = static_cast<int>(std::ceil(reach));
    const int width = 2 * taps + 1;
    std::vector<float> table;
    for (int phase = 0; phase < phases; ++phase) {
        for (int tap = -taps; tap <= taps; ++tap) {
            const double distance = tap - static_cast<double>(phase) / phases;
            table.push_back(static_cast<float>(Weight(distance, cut, reach)));
        }
    }
    std::vector<float> result;
    const auto count = static_cast<qint64>(sound.samples.size());
    for (qint64 place = 0; place / phases < count; place += step) {
        const qint64 middle = place / phases;
        const float* weights = table.data() + place % phases * width;
        float sum = 0;
        for (qint64 tap = std::max<qint64>(-taps, -middle);
             tap <= std::min<qint64>(taps, count - 1 - middle); ++tap) {
            sum += weights[tap + taps] * sound.samples[static_cast<size_t>(middle + tap)];
        }
        result.push_back(sum);
    }
    return result;
}

} // namespace sample
