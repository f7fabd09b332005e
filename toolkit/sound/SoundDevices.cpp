// What the toolkit finds in this library.
#include "toolkit/sound/DeviceOutput.h"

#include <QCoreApplication>

#include <atomic>
#include <memory>

namespace toolkit {

namespace {

std::atomic<QtMessageHandler> g_messagesBefore{nullptr};

/// A machine without a sound server is nothing to complain about.
void WithoutServerComplaints(QtMsgType type, const QMessageLogContext& context,
                             const QString& text) {
    if (!text.contains(QLatin1String("PulseAudioService:"))) {
        g_messagesBefore.load()(type, context, text);
    }
}

std::unique_ptr<DeviceFinder>& Finder() {
    static std::unique_ptr<DeviceFinder> finder;
    return finder;
}

class Devices final : public IAudioOutputs {
public:
    Devices() {
        g_messagesBefore = qInstallMessageHandler(nullptr);
        qInstallMessageHandler(WithoutServerComplaints);
        Finder() = std::make_unique<DeviceFinder>();
        qAddPostRoutine([] { Finder().reset(); });
    }

    std::unique_ptr<IAudioOutput> Make() override {
        // None once the application has ended.
        if (!Finder()) {
            return nullptr;
        }
        return std::make_unique<DeviceOutput>(Finder()->Ask());
    }
};

} // namespace

} // namespace toolkit

extern "C" Q_DECL_EXPORT toolkit::IAudioOutputs* GetKXSoundDevices() {
    static toolkit::Devices devices;
    return &devices;
}
