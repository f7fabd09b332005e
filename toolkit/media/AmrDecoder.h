// AMR frames to sound.
#pragma once

#include "toolkit/media/AmrReader.h"

#include <QtCore/qglobal.h>

#include <memory>
#include <span>

namespace toolkit {

/// Decodes the frames of one file in their order. Thread: one at a time.
class TOOLKIT_EXPORT IAmrDecoder {
public:
    virtual ~IAmrDecoder() = default;

    /// Samples in a second: 8,000 or 16,000.
    [[nodiscard]] virtual int Rate() const = 0;
    /// @param frame  as AmrReader gives it, not empty.
    /// @return       20 ms, 16-bit, one channel; valid until the next call.
    [[nodiscard]] virtual std::span<const qint16> Decode(std::span<const unsigned char> frame) = 0;
};

/// Null for the band None or if the decoder can't be made.
[[nodiscard]] TOOLKIT_EXPORT std::unique_ptr<IAmrDecoder> MakeAmrDecoder(AmrBand band);

} // namespace toolkit
