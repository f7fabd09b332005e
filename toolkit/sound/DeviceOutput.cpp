#include "toolkit/sound/DeviceOutput.h"

#include <QAudioDevice>
#include <QDeadlineTimer>
#include <QTimer>

#include <algorithm>

namespace toolkit {

namespace {

constexpr int kBufferMs = 200;
/// How often a full buffer is looked at.
constexpr int kLookMs = 10;
/// A device that takes nothing for so long has failed.
constexpr int kStuckMs = 3000;
/// Longest time that a note waits for its device.
constexpr std::chrono::seconds kFindingTime(3);

QAudioFormat NoteFormat(int rate) {
    QAudioFormat format;
    format.setSampleRate(rate);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

std::optional<PcmFormat> AsPcm(const QAudioFormat& format) {
    if (!format.isValid()) {
        return std::nullopt;
    }
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

} // namespace

DeviceOutput::~DeviceOutput() {
    // Drops what hasn't sounded yet.
    if (m_sink) {
        m_sink->reset();
    }
}

bool DeviceOutput::Open(int rate, const std::stop_token& stop) {
    const QAudioDevice device = m_question->Answer(kFindingTime, stop);
    if (device.isNull()) {
        return false;
    }
    QAudioFormat format = NoteFormat(rate);
    if (!device.isFormatSupported(format)) {
        format = device.preferredFormat();
    }
    const std::optional<PcmFormat> pcm = AsPcm(format);
    if (!pcm) {
        return false;
    }
    m_converter.emplace(rate, *pcm);
    m_loop = std::make_unique<QEventLoop>();
    m_sink = std::make_unique<QAudioSink>(device, format);
    m_sink->setBufferSize(format.bytesForDuration(qint64(kBufferMs) * 1000));
    m_stream = m_sink->start();
    return m_stream != nullptr && IsAlive();
}

bool DeviceOutput::Write(std::span<const qint16> samples, const std::stop_token& stop) {
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
        if (!IsAlive() || stuck.hasExpired()) {
            return false;
        }
    }
    return true;
}

void DeviceOutput::Drain(const std::stop_token& stop) {
    const QDeadlineTimer end(qint64(2) * kBufferMs);
    while (!stop.stop_requested() && !end.hasExpired() && m_sink->state() == QAudio::ActiveState) {
        Look();
    }
}

bool DeviceOutput::IsAlive() const {
    return m_sink->state() != QAudio::StoppedState &&
           (m_sink->error() == QAudio::NoError || m_sink->error() == QAudio::UnderrunError);
}

void DeviceOutput::Look() {
    QTimer::singleShot(kLookMs, Qt::PreciseTimer, m_loop.get(), &QEventLoop::quit);
    m_loop->exec();
}

} // namespace toolkit
