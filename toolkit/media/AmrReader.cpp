#include "toolkit/media/AmrReader.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace toolkit {

namespace {

constexpr const char* kNarrowMagic = "#!AMR\n";
constexpr const char* kWideMagic = "#!AMR-WB\n";

/// Octets of a frame by its type, the type byte included; 0: no type of speech.
using FrameSizes = std::array<int, 16>;
constexpr FrameSizes kNarrowSizes{13, 14, 16, 18, 20, 21, 27, 32, 6, 0, 0, 0, 0, 0, 0, 1};
constexpr FrameSizes kWideSizes{18, 24, 33, 37, 41, 47, 51, 59, 61, 6, 0, 0, 0, 0, 1, 1};

int FrameSize(AmrBand band, unsigned char typeByte) {
    const size_t type = (typeByte >> 3U) & 0x0FU;
    return band == AmrBand::Wide ? kWideSizes[type] : kNarrowSizes[type];
}

} // namespace

AmrReader::AmrReader(const QString& path) : m_file(path) {
    // A pipe would keep its reader waiting.
    if (!QFileInfo(path).isFile() ||
        !m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered | QIODevice::ExistingOnly)) {
        return;
    }
    if (Skip(kNarrowMagic)) {
        m_band = AmrBand::Narrow;
    } else if (Skip(kWideMagic)) {
        m_band = AmrBand::Wide;
    }
}

std::span<const unsigned char> AmrReader::Next() {
    if (m_band == AmrBand::None || !Fill(1)) {
        return {};
    }
    const int size = FrameSize(m_band, m_buffer[size_t(m_begin)]);
    if (size == 0 || !Fill(size)) {
        m_band = AmrBand::None;
        return {};
    }
    const std::span<const unsigned char> frame(m_buffer.data() + m_begin, size_t(size));
    m_begin += size;
    return frame;
}

quint64 AmrReader::CountRest() {
    quint64 frames = 0;
    while (!Next().empty()) {
        ++frames;
    }
    return frames;
}

bool AmrReader::Fill(qint64 bytes) {
    if (m_end - m_begin >= bytes) {
        return true;
    }
    std::copy(m_buffer.data() + m_begin, m_buffer.data() + m_end, m_buffer.data());
    m_end -= m_begin;
    m_begin = 0;
    while (m_end < bytes) {
        const qint64 read = m_file.read(reinterpret_cast<char*>(m_buffer.data() + m_end),
                                        qint64(m_buffer.size()) - m_end);
        if (read <= 0) {
            return false;
        }
        m_end += read;
    }
    return true;
}

bool AmrReader::Skip(const char* magic) {
    const auto length = qint64(std::strlen(magic));
    if (!Fill(length) || std::memcmp(m_buffer.data() + m_begin, magic, size_t(length)) != 0) {
        return false;
    }
    m_begin += length;
    return true;
}

} // namespace toolkit
