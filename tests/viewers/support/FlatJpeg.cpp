#include "tests/viewers/support/FlatJpeg.h"

#include <cstdlib>

namespace support {

namespace {

constexpr int kBlock = 8;
constexpr int kMiddle = 128;
/// With a quantiser of 8 the mean of a block is its first coefficient.
constexpr char kQuantiser = 8;

class BitWriter final {
public:
    explicit BitWriter(QByteArray& out) : m_out(out) {}

    void Put(unsigned bits, int count) {
        for (int i = count - 1; i >= 0; --i) {
            m_byte = (m_byte << 1U) | ((bits >> unsigned(i)) & 1U);
            if (++m_filled == 8) {
                Flush();
            }
        }
    }
    void End() {
        while (m_filled != 0) {
            Put(1, 1);
        }
    }

private:
    void Flush() {
        m_out.append(char(m_byte));
        if (m_byte == 0xFF) {
            m_out.append('\0');
        }
        m_byte = 0;
        m_filled = 0;
    }

    QByteArray& m_out;
    unsigned m_byte = 0;
    int m_filled = 0;
};

void AppendShort(QByteArray& out, int value) {
    out.append(char(value >> 8));
    out.append(char(value & 0xFF));
}

void AppendSegment(QByteArray& out, int marker, const QByteArray& contents) {
    out.append('\xFF');
    out.append(char(marker));
    AppendShort(out, int(contents.size()) + 2);
    out.append(contents);
}

QByteArray FrameHeader(const QSize& size, int components) {
    QByteArray frame(1, char(8));
    AppendShort(frame, size.height());
    AppendShort(frame, size.width());
    frame.append(char(components));
    for (int i = 1; i <= components; ++i) {
        frame.append(char(i)).append('\x11').append('\0');
    }
    return frame;
}

QByteArray ScanHeader(int components) {
    QByteArray scan(1, char(components));
    for (int i = 1; i <= components; ++i) {
        scan.append(char(i)).append('\0');
    }
    return scan.append('\0').append('\x3F').append('\0');
}

/// Differences of means: "no difference" is the bit 0, those of 1 to 8 bits are 1 and the size.
QByteArray MeanTable() {
    QByteArray table(1, '\0');
    table.append('\x01').append(QByteArray(3, '\0')).append('\x08').append(QByteArray(11, '\0'));
    for (int category = 0; category <= 8; ++category) {
        table.append(char(category));
    }
    return table;
}

/// Nothing but "the block ends here", the bit 0.
QByteArray RestTable() {
    return QByteArray(1, '\x10').append('\x01').append(QByteArray(15, '\0')).append('\0');
}

void PutMean(BitWriter& bits, int difference) {
    if (difference == 0) {
        bits.Put(0, 1);
        return;
    }
    int category = 0;
    for (int rest = std::abs(difference); rest != 0; rest /= 2) {
        ++category;
    }
    bits.Put(0x10U + unsigned(category - 1), 5);
    const int coded = difference > 0 ? difference : difference + (1 << category) - 1;
    bits.Put(unsigned(coded), category);
}

} // namespace

QByteArray FlatJpeg(const QSize& size, const std::vector<int>& components) {
    QByteArray file("\xFF\xD8");
    if (components.size() == 4) {
        AppendSegment(file, 0xEE, QByteArray("Adobe\0\x64\0\0\0\0\0", 12));
    }
    AppendSegment(file, 0xDB, QByteArray(1, '\0').append(QByteArray(64, kQuantiser)));
    AppendSegment(file, 0xC0, FrameHeader(size, int(components.size())));
    AppendSegment(file, 0xC4, MeanTable());
    AppendSegment(file, 0xC4, RestTable());
    AppendSegment(file, 0xDA, ScanHeader(int(components.size())));
    const qint64 across = (size.width() + kBlock - 1) / kBlock;
    const qint64 down = (size.height() + kBlock - 1) / kBlock;
    file.reserve(file.size() + across * down * qint64(components.size()) / 4 + 64);
    BitWriter bits(file);
    for (qint64 block = 0; block < across * down; ++block) {
        for (const int value : components) {
            PutMean(bits, block == 0 ? value - kMiddle : 0);
            bits.Put(0, 1);
        }
    }
    bits.End();
    return file.append("\xFF\xD9");
}

} // namespace support
