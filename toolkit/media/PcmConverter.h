// Sound of one format to another.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QByteArray>

#include <span>

namespace toolkit {

enum class PcmSample { UInt8, Int16, Int32, Float };

struct PcmFormat {
    int rate = 8000; ///< samples in a second and channel, above 0
    int channels = 1;
    PcmSample sample = PcmSample::Int16;
};

/// Brings 16-bit sound of one channel to what a device takes: between two samples on a straight
/// line, on all channels alike, in the machine's byte order.
class TOOLKIT_EXPORT PcmConverter final {
public:
    /// @param rate  of what comes in, above 0.
    PcmConverter(int rate, const PcmFormat& target);

    /// The next piece; pieces may be of any length and join without a gap. The last sample of each
    /// is held back until the next piece comes.
    [[nodiscard]] QByteArray Convert(std::span<const qint16> samples);

private:
    void Append(QByteArray& out, double value) const;

    PcmFormat m_target;
    qint64 m_step;         ///< of the source for each sample of the target, 1 / m_target.rate
    qint64 m_position = 0; ///< of the next sample behind m_last, in the same unit
    qint16 m_last = 0;
    bool m_begun = false;
};

} // namespace toolkit
