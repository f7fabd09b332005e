#include "host/import/ExifBlock.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace host {

namespace {

constexpr quint16 kOrientationTag = 0x0112;
constexpr quint16 kExifTag = 0x8769;
constexpr quint16 kGpsTag = 0x8825;
constexpr quint16 kShortType = 3;
constexpr quint16 kLongType = 4;
constexpr quint16 kDirectoryType = 13; // of TIFF 6.0, Technical Note 1: a pointer, as a long one
constexpr qsizetype kHeadSize = 8;
constexpr qsizetype kEntrySize = 12;
constexpr quint32 kLongestCopied = 8192; // longer values are pictures and notes of makers

/// Description, maker, model, resolution, software, time, author, rights.
constexpr std::array<quint16, 10> kMainTags{0x010E, 0x010F, 0x0110, 0x011A, 0x011B,
                                            0x0128, 0x0131, 0x0132, 0x013B, 0x8298};
/// Notes of the camera's maker, and another directory: they count from where they stood.
constexpr std::array<quint16, 2> kUnmovable{0x927C, 0xA005};

struct BlockField {
    quint16 tag = 0;
    quint16 type = 0;
    quint32 count = 0;
    QByteArray value;
    qsizetype valueAt = 0; ///< where it stands in the block
};
using BlockFields = std::vector<BlockField>;

[[nodiscard]] quint32 SizeOfType(quint16 type) {
    constexpr std::array<quint32, 14> sizes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < sizes.size() ? sizes[type] : 0;
}

/// Numbers in the byte order of a block.
class ExifBytes final {
public:
    explicit ExifBytes(QByteArrayView block) : m_block(block), m_isBig(block.startsWith("MM")) {}

    [[nodiscard]] quint32 Number(qsizetype at, int size) const {
        quint32 value = 0;
        for (int index = 0; index < size; ++index) {
            const int byte = m_isBig ? index : size - 1 - index;
            value = (value << 8) | static_cast<unsigned char>(m_block[at + byte]);
        }
        return value;
    }
    [[nodiscard]] bool Has(qsizetype at, qsizetype size) const {
        return at >= 0 && size >= 0 && at <= m_block.size() - size;
    }
    [[nodiscard]] qsizetype Main() const { return Number(4, 4); }

    /// Entries whose values lie within the block; empty for a directory that doesn't.
    [[nodiscard]] BlockFields Directory(qsizetype at) const {
        BlockFields entries;
        const qsizetype count = Has(at, 2) ? Number(at, 2) : 0;
        for (qsizetype index = 0; index < count; ++index) {
            const qsizetype entryAt = at + 2 + index * kEntrySize;
            if (!Has(entryAt, kEntrySize)) {
                break;
            }
            if (std::optional<BlockField> entry = Entry(entryAt)) {
                entries.push_back(std::move(*entry));
            }
        }
        return entries;
    }

private:
    [[nodiscard]] std::optional<BlockField> Entry(qsizetype at) const {
        BlockField entry{static_cast<quint16>(Number(at, 2)),
                         static_cast<quint16>(Number(at + 2, 2)),
                         Number(at + 4, 4),
                         {},
                         at + 8};
        const qint64 size = qint64{entry.count} * SizeOfType(entry.type);
        if (size > 4) {
            entry.valueAt = Number(at + 8, 4);
        }
        if (size == 0 || !Has(entry.valueAt, size)) {
            return std::nullopt;
        }
        if (size <= kLongestCopied) {
            entry.value = m_block.sliced(entry.valueAt, size).toByteArray();
        }
        return entry;
    }

    QByteArrayView m_block;
    bool m_isBig;
};

[[nodiscard]] const BlockField* FindEntry(const BlockFields& entries, quint16 tag) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const BlockField& entry) { return entry.tag == tag; });
    return found == entries.end() ? nullptr : &*found;
}

template <size_t size> bool Contains(const std::array<quint16, size>& tags, quint16 tag) {
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

/// Puts directories together in one byte order.
class ExifWriter final {
public:
    explicit ExifWriter(bool isBig) : m_isBig(isBig) {}

    [[nodiscard]] BlockField Whole(quint16 tag, quint16 type, quint32 number) const {
        BlockField entry{tag, type, 1, {}, 0};
        Append(entry.value, number, type == kShortType ? 2 : 4);
        return entry;
    }
    [[nodiscard]] static qsizetype SizeOf(const BlockFields& entries) {
        qsizetype size = 2 + kEntrySize * static_cast<qsizetype>(entries.size()) + 4;
        for (const BlockField& entry : entries) {
            size += entry.value.size() > 4 ? Even(entry.value.size()) : 0;
        }
        return size;
    }
    /// Sorted by tag, as readers may expect.
    void AppendDirectory(QByteArray& block, BlockFields entries) const {
        std::sort(entries.begin(), entries.end(),
                  [](const BlockField& a, const BlockField& b) { return a.tag < b.tag; });
        const auto count = static_cast<qsizetype>(entries.size());
        const qsizetype valuesAt = block.size() + 2 + kEntrySize * count + 4;
        QByteArray values;
        Append(block, static_cast<quint32>(count), 2);
        for (const BlockField& entry : entries) {
            Append(block, entry.tag, 2);
            Append(block, entry.type, 2);
            Append(block, entry.count, 4);
            if (entry.value.size() <= 4) {
                block += entry.value.leftJustified(4, '\0');
            } else {
                Append(block, static_cast<quint32>(valuesAt + values.size()), 4);
                values += entry.value.leftJustified(Even(entry.value.size()), '\0');
            }
        }
        Append(block, 0, 4);
        block += values;
    }
    [[nodiscard]] QByteArray Head() const {
        QByteArray head(m_isBig ? "MM" : "II");
        Append(head, 42, 2);
        Append(head, kHeadSize, 4);
        return head;
    }

private:
    [[nodiscard]] static qsizetype Even(qsizetype size) { return size + size % 2; }
    void Append(QByteArray& target, quint32 number, int size) const {
        for (int index = 0; index < size; ++index) {
            const int shift = 8 * (m_isBig ? size - 1 - index : index);
            target += static_cast<char>(number >> shift & 0xFF);
        }
    }

    bool m_isBig;
};

[[nodiscard]] BlockFields Movable(const ExifBytes& bytes, const BlockField* pointer) {
    BlockFields kept;
    if (pointer == nullptr || (pointer->type != kLongType && pointer->type != kDirectoryType)) {
        return kept;
    }
    for (BlockField& entry : bytes.Directory(bytes.Number(pointer->valueAt, 4))) {
        if (!entry.value.isEmpty() && !Contains(kUnmovable, entry.tag)) {
            kept.push_back(std::move(entry));
        }
    }
    return kept;
}

} // namespace

QByteArrayView PlainExif(QByteArrayView bytes) {
    constexpr qsizetype kFurthest = 64; // what stands before a block is a few bytes
    for (qsizetype at = 0; at + kHeadSize <= bytes.size() && at < kFurthest; ++at) {
        const QByteArrayView rest = bytes.sliced(at);
        if (rest.startsWith(QByteArrayView("II*\0", 4)) ||
            rest.startsWith(QByteArrayView("MM\0*", 4))) {
            return rest;
        }
    }
    return {};
}

int ExifOrientation(QByteArrayView block) {
    if (PlainExif(block).size() != block.size() || block.isEmpty()) {
        return 1;
    }
    const ExifBytes bytes(block);
    const BlockFields entries = bytes.Directory(bytes.Main());
    const BlockField* entry = FindEntry(entries, kOrientationTag);
    const bool isNumber = entry != nullptr && entry->type == kShortType;
    const quint32 orientation = isNumber ? bytes.Number(entry->valueAt, 2) : 1;
    return orientation >= 1 && orientation <= 8 ? static_cast<int>(orientation) : 1;
}

QByteArray UprightExif(QByteArrayView block) {
    block = PlainExif(block);
    if (block.size() > kMostExif) {
        return TiffExif(block);
    }
    if (block.isEmpty()) {
        return {};
    }
    const ExifBytes bytes(block);
    const BlockFields entries = bytes.Directory(bytes.Main());
    if (entries.empty()) {
        return {};
    }
    QByteArray upright = block.toByteArray();
    const BlockField* entry = FindEntry(entries, kOrientationTag);
    if (entry != nullptr && entry->type == kShortType) {
        const bool isBig = block.startsWith("MM");
        upright[entry->valueAt] = isBig ? '\0' : '\1';
        upright[entry->valueAt + 1] = isBig ? '\1' : '\0';
    }
    // The next directory is that of the thumbnail, which lies as the picture lay.
    const qsizetype nextAt = bytes.Main() + 2 + kEntrySize * bytes.Number(bytes.Main(), 2);
    if (bytes.Has(nextAt, 4)) {
        upright.replace(nextAt, 4, QByteArray(4, '\0'));
    }
    return upright;
}

QByteArray TiffExif(QByteArrayView tiff) {
    if (PlainExif(tiff).size() != tiff.size() || tiff.isEmpty()) {
        return {};
    }
    const ExifBytes bytes(tiff);
    const BlockFields all = bytes.Directory(bytes.Main());
    const BlockFields details = Movable(bytes, FindEntry(all, kExifTag));
    const BlockFields place = Movable(bytes, FindEntry(all, kGpsTag));
    BlockFields main;
    for (const BlockField& entry : all) {
        if (!entry.value.isEmpty() && Contains(kMainTags, entry.tag)) {
            main.push_back(entry);
        }
    }
    if (main.empty() && details.empty() && place.empty()) {
        return {};
    }
    const ExifWriter writer(tiff.startsWith("MM"));
    main.push_back(writer.Whole(kOrientationTag, kShortType, 1));
    const qsizetype pointers =
        (details.empty() ? 0 : kEntrySize) + (place.empty() ? 0 : kEntrySize);
    const qsizetype detailsAt = kHeadSize + ExifWriter::SizeOf(main) + pointers;
    const qsizetype placeAt = detailsAt + (details.empty() ? 0 : ExifWriter::SizeOf(details));
    if (!details.empty()) {
        main.push_back(writer.Whole(kExifTag, kLongType, static_cast<quint32>(detailsAt)));
    }
    if (!place.empty()) {
        main.push_back(writer.Whole(kGpsTag, kLongType, static_cast<quint32>(placeAt)));
    }
    QByteArray block = writer.Head();
    writer.AppendDirectory(block, main);
    if (!details.empty()) {
        writer.AppendDirectory(block, details);
    }
    if (!place.empty()) {
        writer.AppendDirectory(block, place);
    }
    return block.size() <= kMostExif ? block : QByteArray();
}

} // namespace host
