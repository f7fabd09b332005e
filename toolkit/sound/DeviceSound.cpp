// The machine's audio devices, in a library of its own that is loaded with the first note: what it
// stands on takes longer to load than the rest of the client's start allows.
#include "toolkit/AudioOutput.h"
#include "toolkit/PcmConverter.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QMediaDevices>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>

namespace {

using toolkit::PcmFormat;
using toolkit::PcmSample;

constexpr int kBufferMs = 200;
/// How often a full buffer is looked at.
constexpr int kLookMs = 10;
/// A device that takes nothing for so long has failed.
constexpr int kStuckMs = 3000;

QAudioFormat NoteFormat(int rate) {
    QAudioFormat format;
    format.setSampleRate(rate);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

std::optional<PcmFormat> AsPcm(const QAudioFormat& format) {
    if (!format.isValid())
        return std::nullopt;
    PcmFormat pcm{format.sampleRate(), format.channelCount(), PcmSample::Int16};
    switch (format.sampleFormat()) {
    case QAudioFormat::UInt8:
        pcm.sample = PcmSample::UInt8;
        return pcm;
    case QAudioFormat::Int16:
        return pcm;
    case QAudioFormat::Int32:
        pcm.sample = PcmSample::Int32;
        return pcm;
    case QAudioFormat::Float:
        pcm.sample = PcmSample::Float;
        return pcm;
    default:
        return std::nullopt;
    }
}

class DeviceOutput final : public toolkit::IAudioOutput {
public:
    explicit DeviceOutput(const QAudioDevice& device) : m_device(device) {}
    ~DeviceOutput() override {
        // Drops what hasn't sounded yet.
        if (m_sink)
            m_sink->reset();
    }

    bool Open(int rate) override {
        m_loop = std::make_unique<QEventLoop>();
        QAudioFormat format = NoteFormat(rate);
        if (!m_device.isFormatSupported(format))
            format = m_device.preferredFormat();
        const std::optional<PcmFormat> pcm = AsPcm(format);
        if (!pcm)
            return false;
        m_converter.emplace(rate, *pcm);
        m_sink = std::make_unique<QAudioSink>(m_device, format);
        m_sink->setBufferSize(format.bytesForDuration(qint64(kBufferMs) * 1000));
        m_stream = m_sink->start();
        return m_stream != nullptr && IsAlive();
    }

    bool Write(std::span<const qint16> samples, const std::stop_token& stop) override {
        const QByteArray bytes = m_converter->Convert(samples);
        qsizetype done = 0;
        QDeadlineTimer stuck(kStuckMs);
        while (done < bytes.size() && !stop.stop_requested()) {
            const qint64 free = std::min<qint64>(m_sink->bytesFree(), bytes.size() - done);
            const qint64 taken = free > 0 ? m_stream->write(bytes.constData() + done, free) : 0;
            if (taken > 0) {
                done += taken;
                stuck.setRemainingTime(kStuckMs);
                continue;
            }
            Look();
            if (!IsAlive() || stuck.hasExpired())
                return false;
        }
        return true;
    }

    void Drain(const std::stop_token& stop) override {
        const QDeadlineTimer end(2 * kBufferMs);
        while (!stop.stop_requested() && !end.hasExpired() &&
               m_sink->state() == QAudio::ActiveState)
            Look();
    }

private:
    [[nodiscard]] bool IsAlive() const {
        return m_sink->state() != QAudio::StoppedState &&
               (m_sink->error() == QAudio::NoError || m_sink->error() == QAudio::UnderrunError);
    }
    /// Gives the sink's own timers and events their turn.
    void Look() {
        QTimer::singleShot(kLookMs, Qt::PreciseTimer, m_loop.get(), &QEventLoop::quit);
        m_loop->exec();
    }

    QAudioDevice m_device;
    std::unique_ptr<QEventLoop> m_loop; ///< before the sink, whose timers need the thread's loop
    std::unique_ptr<QAudioSink> m_sink;
    QIODevice* m_stream = nullptr; ///< the sink's
    std::optional<toolkit::PcmConverter> m_converter;
};

std::atomic<QtMessageHandler> g_messages{nullptr};

/// A machine without a sound server is nothing to complain about.
void WithoutServerComplaint(QtMsgType type, const QMessageLogContext& context,
                            const QString& text) {
    if (!text.startsWith(QLatin1String("PulseAudioService:")))
        g_messages.load()(type, context, text);
}

class Devices final : public toolkit::IAudioOutputs {
public:
    std::unique_ptr<toolkit::IAudioOutput> Make() override {
        g_messages = qInstallMessageHandler(nullptr);
        qInstallMessageHandler(WithoutServerComplaint);
        const QAudioDevice device = QMediaDevices::defaultAudioOutput();
        qInstallMessageHandler(g_messages);
        if (device.isNull())
            return nullptr;
        return std::make_unique<DeviceOutput>(device);
    }
};

} // namespace

extern "C" Q_DECL_EXPORT toolkit::IAudioOutputs* GetKXSoundDevices() {
    static Devices devices;
    return &devices;
}
