// The frames of an AMR file, one after the other.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QFile>
#include <QString>

#include <array>
#include <span>

namespace toolkit {

enum class AmrBand { None, Narrow, Wide };

inline constexpr int kAmrFrameMs = 20;

/// Reads a single-channel AMR or AMR-WB file in blocks: what it needs of memory doesn't depend on
/// the file. Format: RFC 4867, section 5 (magic line; then for each frame a byte with its type and
/// as many octets of speech as the type says, tables 1a of 3GPP TS 26.101 and 26.201).
///
/// A file that is missing, empty, no regular file or of another kind has the band None and no
/// frames. The frames end where the file does, with the last whole one, and at a type that speech
/// doesn't have. Thread: one at a time.
class TOOLKIT_EXPORT AmrReader final {
public:
    explicit AmrReader(const QString& path);

    [[nodiscard]] AmrBand Band() const { return m_band; }
    /// The next frame with its type byte, 1 to 61 bytes, valid until the next call; empty at the
    /// end.
    [[nodiscard]] std::span<const unsigned char> Next();
    /// Number of the frames that Next hasn't given yet; it gives none after that.
    [[nodiscard]] quint64 CountRest();

private:
    /// Makes at least `bytes` available, if the file has them.
    [[nodiscard]] bool Fill(qint64 bytes);
    [[nodiscard]] bool Skip(const char* magic);

    QFile m_file;
    AmrBand m_band = AmrBand::None;
    std::array<unsigned char, std::size_t(64) * 1024> m_buffer{};
    qint64 m_begin = 0; ///< of what isn't given out yet
    qint64 m_end = 0;
};

} // namespace toolkit
