#include "sheets/ZipCheck.h"

#include <QFile>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace sheets {

namespace {

constexpr quint32 kCentralMark = 0x02014b50;
constexpr quint32 kEndMark = 0x06054b50;
constexpr quint16 kDeflated = 8;
constexpr qint64 kEndSize = 22;
constexpr qint64 kCentralSize = 46;
constexpr qint64 kLocalSize = 30;

struct ZipPart {
    QByteArray name;
    quint16 method = 0;
    quint32 sum = 0;
    quint32 packed = 0;
    quint32 offset = 0; ///< of the local header
};

template <typename Number> Number NumberAt(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

/// Parts by the directory at the end; nothing for what is no archive. A comment behind the end,
/// which the writer doesn't make, and ZIP64 are not read.
std::optional<std::vector<ZipPart>> PartsOf(QFile& file) {
    if (file.size() < kEndSize || !file.seek(file.size() - kEndSize)) {
        return std::nullopt;
    }
    const QByteArray end = file.read(kEndSize);
    if (end.size() != kEndSize || NumberAt<quint32>(end, 0) != kEndMark) {
        return std::nullopt;
    }
    const auto count = NumberAt<quint16>(end, 10);
    file.seek(NumberAt<quint32>(end, 16));
    const QByteArray directory = file.read(NumberAt<quint32>(end, 12));
    std::vector<ZipPart> parts;
    for (qsizetype at = 0; parts.size() < count;) {
        if (at + kCentralSize > directory.size() ||
            NumberAt<quint32>(directory, at) != kCentralMark) {
            return std::nullopt;
        }
        const auto nameSize = NumberAt<quint16>(directory, at + 28);
        parts.push_back(
            {directory.mid(at + kCentralSize, nameSize), NumberAt<quint16>(directory, at + 10),
             NumberAt<quint32>(directory, at + 16), NumberAt<quint32>(directory, at + 20),
             NumberAt<quint32>(directory, at + 42)});
        at += kCentralSize + nameSize + NumberAt<quint16>(directory, at + 30) +
              NumberAt<quint16>(directory, at + 32);
    }
    return parts;
}

/// Looks at a part's bytes as they come out: their sum, their beginning and their end.
class PartEyes final {
public:
    void Take(const QByteArray& bytes) {
        m_sum = crc32(m_sum, reinterpret_cast<const Bytef*>(bytes.constData()), uInt(bytes.size()));
        if (m_head.size() < kHead) {
            m_head += bytes.left(kHead - m_head.size());
        }
        m_tail = (m_tail + bytes.right(kTail)).right(kTail);
    }
    [[nodiscard]] quint32 Sum() const { return quint32(m_sum); }
    [[nodiscard]] bool EndsAsItBegan() const {
        const qsizetype declared = m_head.indexOf("?>");
        const qsizetype from = m_head.indexOf('<', std::max<qsizetype>(declared, 0)) + 1;
        qsizetype to = from;
        while (to < m_head.size() && !QByteArrayView(" />\n").contains(m_head[to])) {
            ++to;
        }
        const QByteArray tail = m_tail.trimmed();
        return from > 0 &&
               (tail.endsWith("</" + m_head.mid(from, to - from) + '>') ||
                (m_head.size() < kHead && tail.endsWith("/>") && m_head.indexOf('<', to) < 0));
    }

private:
    static constexpr qsizetype kHead = 1024;
    static constexpr qsizetype kTail = 64;
    uLong m_sum = crc32(0, nullptr, 0);
    QByteArray m_head;
    QByteArray m_tail;
};

/// Ends its stream.
class Inflating final {
public:
    Inflating() { m_ready = inflateInit2(&m_stream, -MAX_WBITS) == Z_OK; }
    ~Inflating() { inflateEnd(&m_stream); }
    Inflating(const Inflating&) = delete;
    Inflating& operator=(const Inflating&) = delete;

    /// False: damaged.
    bool Take(const QByteArray& packed, PartEyes& eyes) {
        m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.constData()));
        m_stream.avail_in = uInt(packed.size());
        while (m_ready && !m_ended && m_stream.avail_in > 0) {
            m_stream.next_out = reinterpret_cast<Bytef*>(m_out.data());
            m_stream.avail_out = uInt(m_out.size());
            const int result = inflate(&m_stream, Z_NO_FLUSH);
            m_ended = result == Z_STREAM_END;
            m_ready = result == Z_OK || m_ended;
            eyes.Take(QByteArray::fromRawData(m_out.data(),
                                              qsizetype(m_out.size() - m_stream.avail_out)));
        }
        return m_ready;
    }
    [[nodiscard]] bool HasEnded() const { return m_ended; }

private:
    z_stream m_stream{};
    std::array<char, 64 * 1024> m_out{};
    bool m_ready = false;
    bool m_ended = false;
};

bool IsWholePart(QFile& file, const ZipPart& part) {
    file.seek(part.offset);
    const QByteArray local = file.read(kLocalSize);
    if (local.size() != kLocalSize) {
        return false;
    }
    file.seek(part.offset + kLocalSize + NumberAt<quint16>(local, 26) +
              NumberAt<quint16>(local, 28));
    PartEyes eyes;
    Inflating inflating;
    for (qint64 left = part.packed; left > 0;) {
        const QByteArray bytes = file.read(std::min<qint64>(left, 64 * 1024));
        left -= bytes.size();
        if (bytes.isEmpty()) {
            return false;
        }
        if (part.method != kDeflated) {
            eyes.Take(bytes);
        } else if (!inflating.Take(bytes, eyes)) {
            return false;
        }
    }
    const bool isXml = part.name.endsWith(".xml") || part.name.endsWith(".rels");
    return (part.method != kDeflated || inflating.HasEnded()) && eyes.Sum() == part.sum &&
           (!isXml || eyes.EndsAsItBegan());
}

} // namespace

bool IsWholeWorkbook(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const auto parts = PartsOf(file);
    return parts && !parts->empty() &&
           std::all_of(parts->begin(), parts->end(),
                       [&file](const ZipPart& part) { return IsWholePart(file, part); });
}

} // namespace sheets
