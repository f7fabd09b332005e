#include "toolkit/media/AudioOutput.h"

#include "toolkit/Clock.h"

#include <QFileInfo>
#include <QLibrary>

#include <dlfcn.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

/// Longest time that a stop waits for.
constexpr int kSilentStepMs = 20;

IAudioOutputs*& ReplacedOutputs() {
    static IAudioOutputs* replacement = nullptr;
    return replacement;
}

/// Lies beside the toolkit.
QString DeviceLibrary() {
    Dl_info toolkit{};
    if (dladdr(reinterpret_cast<void*>(&DeviceLibrary), &toolkit) == 0) {
        return u"KXSound"_s;
    }
    return QFileInfo(QString::fromLocal8Bit(toolkit.dli_fname)).absolutePath() + u"/KXSound"_s;
}

IAudioOutputs* LoadDevices() {
    QLibrary library(DeviceLibrary());
    const auto devices =
        reinterpret_cast<IAudioOutputs* (*)()>(library.resolve("GetKXSoundDevices"));
    return devices == nullptr ? nullptr : devices();
}

} // namespace

std::unique_ptr<IAudioOutput> MakeAudioOutput() {
    if (IAudioOutputs* replacement = ReplacedOutputs()) {
        return replacement->Make();
    }
    static IAudioOutputs* const devices = LoadDevices();
    return devices == nullptr ? nullptr : devices->Make();
}

IAudioOutputs* SetAudioOutputs(IAudioOutputs* outputs) {
    return std::exchange(ReplacedOutputs(), outputs);
}

bool SilentOutput::Open(int rate, const std::stop_token& stop) {
    Q_UNUSED(stop);
    m_rate = rate;
    return true;
}

bool SilentOutput::Write(std::span<const qint16> samples, const std::stop_token& stop) {
    int left = int(samples.size() * 1000 / size_t(m_rate));
    while (left > 0 && !stop.stop_requested()) {
        const int step = std::min(left, kSilentStepMs);
        Clock().SleepMilliseconds(step);
        left -= step;
    }
    return true;
}

} // namespace toolkit
