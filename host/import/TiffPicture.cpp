#include "host/import/ExifBlock.h"
#include "host/import/ForeignPicture.h"
#include "host/import/Upright.h"

#include <tiffio.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBand = 1LL << 30; // bytes of a strip or of a row of tiles
constexpr tdir_t kLookedThrough = 16;   // pages that are asked whether they are small copies

/// The file as libtiff reads it: nothing is copied.
struct TiffBytes {
    const QByteArray& bytes;
    toff_t at = 0;
};

TiffBytes& BytesOf(thandle_t handle) {
    return *static_cast<TiffBytes*>(handle);
}

tmsize_t ReadTiff(thandle_t handle, void* target, tmsize_t size) {
    TiffBytes& file = BytesOf(handle);
    const auto length = static_cast<toff_t>(file.bytes.size());
    const toff_t there = file.at < length ? length - file.at : 0;
    const toff_t count = std::min(there, static_cast<toff_t>(std::max<tmsize_t>(size, 0)));
    if (count > 0) {
        std::memcpy(target, file.bytes.constData() + file.at, count);
    }
    file.at += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t WriteTiff(thandle_t /*handle*/, void* /*source*/, tmsize_t /*size*/) {
    return -1;
}

toff_t SeekTiff(thandle_t handle, toff_t offset, int whence) {
    TiffBytes& file = BytesOf(handle);
    const toff_t base = whence == SEEK_CUR   ? file.at
                        : whence == SEEK_END ? static_cast<toff_t>(file.bytes.size())
                                             : 0;
    file.at = base + offset;
    return file.at;
}

int CloseTiff(thandle_t /*handle*/) {
    return 0;
}

toff_t SizeOfTiff(thandle_t handle) {
    return static_cast<toff_t>(BytesOf(handle).bytes.size());
}

int MapTiff(thandle_t handle, void** base, toff_t* size) {
    // Read only, whatever the type says.
    *base = const_cast<char*>(BytesOf(handle).bytes.constData());
    *size = SizeOfTiff(handle);
    return 1;
}

void UnmapTiff(thandle_t /*handle*/, void* /*base*/, toff_t /*size*/) {}

// What is wrong with a file is for the import's list, not for the terminal.
int SwallowTiffWord(TIFF* /*tiff*/, void* /*user*/, const char* /*module*/, const char* /*format*/,
                    va_list /*values*/) {
    return 1;
}

struct TiffDeleter {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffOwned = std::unique_ptr<TIFF, TiffDeleter>;

[[nodiscard]] TiffOwned OpenTiffBytes(TiffBytes& file) {
    TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
    TIFFOpenOptionsSetMaxSingleMemAlloc(options, kMostBand);
    TIFFOpenOptionsSetErrorHandlerExtR(options, SwallowTiffWord, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options, SwallowTiffWord, nullptr);
    TiffOwned tiff(TIFFClientOpenExt("import", "r", &file, ReadTiff, WriteTiff, SeekTiff, CloseTiff,
                                     SizeOfTiff, MapTiff, UnmapTiff, options));
    TIFFOpenOptionsFree(options);
    return tiff;
}

/// Directories that aren't small copies of another one.
[[nodiscard]] int PagesOf(TIFF* tiff) {
    const tdir_t all = TIFFNumberOfDirectories(tiff);
    if (all <= 1 || all > kLookedThrough) {
        return static_cast<int>(all);
    }
    int pages = 1;
    for (tdir_t page = 1; page < all; ++page) {
        uint32_t type = 0;
        if (TIFFSetDirectory(tiff, page) != 0) {
            TIFFGetField(tiff, TIFFTAG_SUBFILETYPE, &type);
            pages += (type & FILETYPE_REDUCEDIMAGE) == 0 ? 1 : 0;
        }
    }
    TIFFSetDirectory(tiff, 0);
    return pages;
}

/// Ends what was begun of reading in RGBA.
class RgbaReading final {
public:
    explicit RgbaReading(TIFF* tiff) {
        char message[1024] = "";
        m_isOpen = TIFFRGBAImageBegin(&m_image, tiff, 1, message) != 0;
        m_image.req_orientation = m_image.orientation; // the rows as they are stored
    }
    ~RgbaReading() {
        if (m_isOpen) {
            TIFFRGBAImageEnd(&m_image);
        }
    }
    RgbaReading(const RgbaReading&) = delete;
    RgbaReading& operator=(const RgbaReading&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    [[nodiscard]] bool HasAlpha() const { return m_image.alpha != 0; }
    [[nodiscard]] bool Read(int y, QSize size, std::vector<uint32_t>& pixels) {
        m_image.row_offset = y;
        return TIFFRGBAImageGet(&m_image, pixels.data(), static_cast<uint32_t>(size.width()),
                                static_cast<uint32_t>(size.height())) != 0;
    }

private:
    TIFFRGBAImage m_image{};
    bool m_isOpen = false;
};

/// libtiff hands out colours that are multiplied by their alpha.
void PutPixel(uchar* target, uint32_t pixel, bool hasAlpha) {
    const uint32_t white = hasAlpha ? 255 - TIFFGetA(pixel) : 0;
    target[0] = static_cast<uchar>(std::min<uint32_t>(255, TIFFGetR(pixel) + white));
    target[1] = static_cast<uchar>(std::min<uint32_t>(255, TIFFGetG(pixel) + white));
    target[2] = static_cast<uchar>(std::min<uint32_t>(255, TIFFGetB(pixel) + white));
}

class TiffPicture final : public ForeignPicture {
public:
    explicit TiffPicture(const QByteArray& bytes) : m_file{bytes}, m_tiff(OpenTiffBytes(m_file)) {
        uint32_t width = 0;
        uint32_t height = 0;
        if (!m_tiff || TIFFGetField(m_tiff.get(), TIFFTAG_IMAGEWIDTH, &width) == 0 ||
            TIFFGetField(m_tiff.get(), TIFFTAG_IMAGELENGTH, &height) == 0 || width > INT_MAX ||
            height > INT_MAX) {
            m_head.refusal = u"TIFF 文件不完整或已损坏"_s;
            return;
        }
        char message[1024] = "";
        if (TIFFRGBAImageOK(m_tiff.get(), message) == 0) {
            m_head.refusal = u"这种 TIFF 图片无法读取，请先转换为 JPEG"_s;
            return;
        }
        m_head.size = QSize(static_cast<int>(width), static_cast<int>(height));
        if (const int pages = PagesOf(m_tiff.get()); pages > 1) {
            m_head.note = u"共 %1 页，只取第一页"_s.arg(pages);
        }
        uint16_t orientation = 1;
        TIFFGetFieldDefaulted(m_tiff.get(), TIFFTAG_ORIENTATION, &orientation);
        m_orientation = orientation;
        m_head.exif = TiffExif(bytes);
        ReadProfile();
    }

    [[nodiscard]] QImage Decode() override {
        const int rows = RowsOfBand();
        if (qint64{m_head.size.width()} * rows * 4 > kMostBand) {
            return {};
        }
        RgbaReading reading(m_tiff.get());
        QImage upright(UprightSize(m_head.size, m_orientation), QImage::Format_RGB888);
        if (!reading.IsOpen() || upright.isNull()) {
            return {};
        }
        std::vector<uint32_t> pixels(static_cast<size_t>(m_head.size.width()) *
                                     static_cast<size_t>(rows));
        for (int y = 0; y < m_head.size.height(); y += rows) {
            const QSize band(m_head.size.width(), std::min(rows, m_head.size.height() - y));
            if (!reading.Read(y, band, pixels)) {
                return {};
            }
            PutBand(upright, y, band, pixels, reading.HasAlpha());
        }
        return upright;
    }

private:
    /// Reads what is decoded at one go, and no more.
    [[nodiscard]] int RowsOfBand() const {
        uint32_t rows = 0;
        if (TIFFIsTiled(m_tiff.get()) != 0) {
            TIFFGetField(m_tiff.get(), TIFFTAG_TILELENGTH, &rows);
        } else {
            TIFFGetFieldDefaulted(m_tiff.get(), TIFFTAG_ROWSPERSTRIP, &rows);
        }
        const auto height = static_cast<uint32_t>(m_head.size.height());
        return static_cast<int>(std::clamp<uint32_t>(rows, 1, height));
    }

    void PutBand(QImage& upright, int top, QSize band, const std::vector<uint32_t>& pixels,
                 bool hasAlpha) const {
        uchar* const bits = upright.bits();
        const uint32_t* pixel = pixels.data();
        for (int y = top; y < top + band.height(); ++y) {
            for (int x = 0; x < band.width(); ++x, ++pixel) {
                const QPoint place = UprightPlace({x, y}, m_head.size, m_orientation);
                PutPixel(bits + place.y() * upright.bytesPerLine() + place.x() * qsizetype{3},
                         *pixel, hasAlpha);
            }
        }
    }

    void ReadProfile() {
        uint32_t size = 0;
        const void* profile = nullptr;
        if (TIFFGetField(m_tiff.get(), TIFFTAG_ICCPROFILE, &size, &profile) != 0) {
            m_head.colourProfile = RgbProfile(
                QByteArray(static_cast<const char*>(profile), static_cast<qsizetype>(size)));
        }
    }

    TiffBytes m_file;
    TiffOwned m_tiff;
    int m_orientation = 1;
};

} // namespace

std::unique_ptr<ForeignPicture> OpenTiff(const QByteArray& bytes) {
    return std::make_unique<TiffPicture>(bytes);
}

} // namespace host
