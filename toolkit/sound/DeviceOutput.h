// One note on the machine's default audio device.
#pragma once

#include "toolkit/media/AudioOutput.h"
#include "toolkit/media/PcmConverter.h"
#include "toolkit/sound/DeviceFinder.h"

#include <QAudioSink>
#include <QEventLoop>

#include <memory>
#include <optional>

namespace toolkit {

/// See IAudioOutput. Fails if there is no device, or none is found in time.
class DeviceOutput final : public IAudioOutput {
public:
    explicit DeviceOutput(std::shared_ptr<DeviceQuestion> question)
        : m_question(std::move(question)) {}
    ~DeviceOutput() override;

    bool Open(int rate, const std::stop_token& stop) override;
    bool Write(std::span<const qint16> samples, const std::stop_token& stop) override;
    void Drain(const std::stop_token& stop) override;

private:
    [[nodiscard]] bool IsAlive() const;
    /// Gives the sink's own timers and events their turn.
    void Look();

    std::shared_ptr<DeviceQuestion> m_question;
    std::unique_ptr<QEventLoop> m_loop; ///< before the sink, whose timers need the thread's loop
    std::unique_ptr<QAudioSink> m_sink;
    QIODevice* m_stream = nullptr; ///< the sink's
    std::optional<PcmConverter> m_converter;
};

} // namespace toolkit
