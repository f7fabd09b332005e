#include "toolkit/media/PcmConverter.h"

#include <cmath>
#include <cstring>

namespace toolkit {

namespace {

constexpr double kFullScale = 32768.0;

template <typename T> void AppendRaw(QByteArray& out, T value) {
    char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    out.append(bytes, sizeof(T));
}

void AppendSample(QByteArray& out, PcmSample sample, double value) {
    switch (sample) {
    case PcmSample::UInt8:
        AppendRaw(out, quint8(std::floor(value / 256.0) + 128));
        return;
    case PcmSample::Int16:
        AppendRaw(out, qint16(std::lround(value)));
        return;
    case PcmSample::Int32:
        AppendRaw(out, qint32(std::llround(value * 65536.0)));
        return;
    case PcmSample::Float:
        AppendRaw(out, float(value / kFullScale));
        return;
    }
}

} // namespace

PcmConverter::PcmConverter(int rate, const PcmFormat& target) : m_target(target), m_step(rate) {}

QByteArray PcmConverter::Convert(std::span<const qint16> samples) {
    QByteArray out;
    const qint64 interval = m_target.rate;
    for (const qint16 next : samples) {
        if (!m_begun) {
            m_begun = true;
            m_last = next;
            continue;
        }
        for (; m_position < interval; m_position += m_step) {
            const double part = double(m_position) / double(interval);
            Append(out, m_last + (next - m_last) * part);
        }
        m_position -= interval;
        m_last = next;
    }
    return out;
}

void PcmConverter::Append(QByteArray& out, double value) const {
    for (int channel = 0; channel < m_target.channels; ++channel) {
        AppendSample(out, m_target.sample, value);
    }
}

} // namespace toolkit
