#include "tests/host/import/ForeignPictures.h"

#include <QColorSpace>

#include <gtest/gtest.h>
#include <libheif/heif.h>
#include <tiffio.h>
#include <webp/encode.h>
#include <webp/mux.h>

#include <array>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
// The encoder of the test pictures leaves a few bytes of each of its own; the product has none.
// It looks for the name from a library of its own.
extern "C" [[gnu::visibility("default")]] const char*
__lsan_default_suppressions() { // NOLINT: the sanitizer's name
    return "leak:libx265.so\n";
}
#endif

namespace importtest {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kCornerColors{Qt::red, Qt::green, Qt::blue, Qt::white};

std::array<QPoint, 4> CornerPlaces(QSize size) {
    constexpr int kIn = 3;
    const int right = size.width() - 1 - kIn;
    const int bottom = size.height() - 1 - kIn;
    return {QPoint(kIn, kIn), QPoint(right, kIn), QPoint(right, bottom), QPoint(kIn, bottom)};
}

QChar LetterOf(const QColor& color) {
    const bool red = color.red() > 180;
    const bool green = color.green() > 180;
    const bool blue = color.blue() > 180;
    if (red && green && blue) {
        return u'W';
    }
    if (int(red) + int(green) + int(blue) != 1) {
        return u'?';
    }
    return red ? u'R' : green ? u'G' : u'B';
}

void AppendNumber(QByteArray& target, quint32 number, int size, bool isBig) {
    for (int index = 0; index < size; ++index) {
        target += static_cast<char>(number >> 8 * (isBig ? size - 1 - index : index) & 0xFF);
    }
}

/// One field of a directory; a text of more than three letters stands at `at`.
QByteArray TextField(quint16 tag, const QByteArray& text, qsizetype at, bool isBig) {
    QByteArray field;
    AppendNumber(field, tag, 2, isBig);
    AppendNumber(field, 2, 2, isBig);
    AppendNumber(field, static_cast<quint32>(text.size() + 1), 4, isBig);
    AppendNumber(field, static_cast<quint32>(at), 4, isBig);
    return field;
}

QByteArray NumberField(quint16 tag, quint16 type, quint32 number, bool isBig) {
    QByteArray field;
    AppendNumber(field, tag, 2, isBig);
    AppendNumber(field, type, 2, isBig);
    AppendNumber(field, 1, 4, isBig);
    AppendNumber(field, number, type == 3 ? 2 : 4, isBig);
    return field.leftJustified(12, '\0');
}

heif_error AppendHeif(heif_context* /*context*/, const void* data, size_t size, void* target) {
    static_cast<QByteArray*>(target)->append(static_cast<const char*>(data),
                                             static_cast<qsizetype>(size));
    return {heif_error_Ok, heif_suberror_Unspecified, ""};
}

/// Writes files in memory with libtiff.
struct TiffMemory {
    QByteArray bytes;
    qsizetype at = 0;
};

TIFF* OpenTiffMemory(TiffMemory& memory) {
    return TIFFClientOpen(
        "test", "w", &memory,
        [](thandle_t handle, void* target, tmsize_t size) -> tmsize_t {
            auto* file = static_cast<TiffMemory*>(handle);
            const qsizetype count = std::min<qsizetype>(size, file->bytes.size() - file->at);
            std::memcpy(target, file->bytes.constData() + file->at, static_cast<size_t>(count));
            file->at += count;
            return count;
        },
        [](thandle_t handle, void* source, tmsize_t size) -> tmsize_t {
            auto* file = static_cast<TiffMemory*>(handle);
            if (file->bytes.size() < file->at + size) {
                file->bytes.resize(file->at + size);
            }
            std::memcpy(file->bytes.data() + file->at, source, static_cast<size_t>(size));
            file->at += size;
            return size;
        },
        [](thandle_t handle, toff_t offset, int whence) -> toff_t {
            auto* file = static_cast<TiffMemory*>(handle);
            const qsizetype base = whence == SEEK_CUR   ? file->at
                                   : whence == SEEK_END ? file->bytes.size()
                                                        : 0;
            file->at = base + static_cast<qsizetype>(offset);
            return static_cast<toff_t>(file->at);
        },
        [](thandle_t) { return 0; },
        [](thandle_t handle) -> toff_t {
            return static_cast<toff_t>(static_cast<TiffMemory*>(handle)->bytes.size());
        },
        nullptr, nullptr);
}

void WriteTiles(TIFF* tiff, const QImage& rows, int samples) {
    constexpr int kSide = 32;
    TIFFSetField(tiff, TIFFTAG_TILEWIDTH, kSide);
    TIFFSetField(tiff, TIFFTAG_TILELENGTH, kSide);
    for (int top = 0; top < rows.height(); top += kSide) {
        for (int left = 0; left < rows.width(); left += kSide) {
            const QImage tile = rows.copy(left, top, kSide, kSide);
            QByteArray bytes;
            for (int y = 0; y < kSide; ++y) {
                bytes.append(reinterpret_cast<const char*>(tile.constScanLine(y)), kSide * samples);
            }
            TIFFWriteTile(tiff, bytes.data(), static_cast<uint32_t>(left),
                          static_cast<uint32_t>(top), 0, 0);
        }
    }
}

void WritePage(TIFF* tiff, const QImage& picture, const TiffWishes& wishes, bool isSmallCopy) {
    const QImage rows =
        picture.convertToFormat(wishes.hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    const int samples = wishes.hasAlpha ? 4 : 3;
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, isSmallCopy ? FILETYPE_REDUCEDIMAGE : 0);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, rows.width());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, rows.height());
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, wishes.orientation);
    if (wishes.hasAlpha) {
        const uint16_t kind = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &kind);
    }
    if (!wishes.icc.isEmpty()) {
        TIFFSetField(tiff, TIFFTAG_ICCPROFILE, static_cast<uint32_t>(wishes.icc.size()),
                     wishes.icc.constData());
    }
    if (wishes.hasCamera) {
        TIFFSetField(tiff, TIFFTAG_MAKE, "Maker");
        TIFFSetField(tiff, TIFFTAG_MODEL, "Model 7");
    }
    if (wishes.isTiled) {
        WriteTiles(tiff, rows, samples);
        return;
    }
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 10);
    for (int y = 0; y < rows.height(); ++y) {
        TIFFWriteScanline(tiff, const_cast<uchar*>(rows.constScanLine(y)), static_cast<uint32_t>(y),
                          0);
    }
}

QByteArray WithChunks(const QByteArray& webp, const WebpWishes& wishes) {
    const auto data = [](const QByteArray& bytes) {
        return WebPData{reinterpret_cast<const uint8_t*>(bytes.constData()),
                        static_cast<size_t>(bytes.size())};
    };
    const WebPData plain = data(webp);
    WebPMux* mux = WebPMuxCreate(&plain, 1);
    const WebPData exif = data(wishes.exif);
    const WebPData icc = data(wishes.icc);
    if (exif.size != 0) {
        WebPMuxSetChunk(mux, "EXIF", &exif, 1);
    }
    if (icc.size != 0) {
        WebPMuxSetChunk(mux, "ICCP", &icc, 1);
    }
    WebPData whole{};
    EXPECT_EQ(WebPMuxAssemble(mux, &whole), WEBP_MUX_OK);
    QByteArray bytes(reinterpret_cast<const char*>(whole.bytes),
                     static_cast<qsizetype>(whole.size));
    WebPDataClear(&whole);
    WebPMuxDelete(mux);
    return bytes;
}

QByteArray AnimatedWebp(const QImage& picture, int frames) {
    WebPAnimEncoder* encoder = WebPAnimEncoderNew(picture.width(), picture.height(), nullptr);
    WebPConfig config;
    WebPConfigInit(&config);
    config.lossless = 1;
    QImage rows = picture.convertToFormat(QImage::Format_RGBA8888);
    for (int frame = 0; frame < frames; ++frame) {
        WebPPicture one;
        WebPPictureInit(&one);
        one.use_argb = 1;
        one.width = rows.width();
        one.height = rows.height();
        WebPPictureImportRGBA(&one, rows.constBits(), static_cast<int>(rows.bytesPerLine()));
        EXPECT_TRUE(WebPAnimEncoderAdd(encoder, &one, frame * 100, &config));
        WebPPictureFree(&one);
        rows.fill(frame % 2 == 0 ? Qt::black : Qt::gray);
    }
    WebPAnimEncoderAdd(encoder, nullptr, frames * 100, nullptr);
    WebPData whole{};
    EXPECT_TRUE(WebPAnimEncoderAssemble(encoder, &whole));
    QByteArray bytes(reinterpret_cast<const char*>(whole.bytes),
                     static_cast<qsizetype>(whole.size));
    WebPDataClear(&whole);
    WebPAnimEncoderDelete(encoder);
    return bytes;
}

} // namespace

QImage Corners(QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    const auto places = CornerPlaces(size);
    for (size_t corner = 0; corner < places.size(); ++corner) {
        for (int y = -3; y <= 3; ++y) {
            for (int x = -3; x <= 3; ++x) {
                picture.setPixelColor(places[corner] + QPoint(x, y), kCornerColors[corner]);
            }
        }
    }
    return picture;
}

QString CornersOf(const QImage& picture) {
    QString letters;
    for (const QPoint place : CornerPlaces(picture.size())) {
        letters += LetterOf(picture.pixelColor(place));
    }
    return letters;
}

QByteArray CameraExif(int orientation, bool isBig) {
    const QByteArray maker("Maker");
    const QByteArray model("Model 7");
    const QByteArray taken("2024:03:12 14:25:36");
    constexpr qsizetype kTextsAt = 8 + 2 + 4 * 12 + 4;
    const qsizetype modelAt = kTextsAt + maker.size() + 1;
    const qsizetype detailsAt = modelAt + model.size() + 1;
    QByteArray block(isBig ? "MM" : "II");
    AppendNumber(block, 42, 2, isBig);
    AppendNumber(block, 8, 4, isBig);
    AppendNumber(block, 4, 2, isBig);
    block += TextField(0x010F, maker, kTextsAt, isBig);
    block += TextField(0x0110, model, modelAt, isBig);
    block += NumberField(0x0112, 3, static_cast<quint32>(orientation), isBig);
    block += NumberField(0x8769, 4, static_cast<quint32>(detailsAt), isBig);
    AppendNumber(block, 0, 4, isBig);
    block += maker + '\0' + model + '\0';
    AppendNumber(block, 1, 2, isBig);
    block += TextField(0x9003, taken, detailsAt + 2 + 12 + 4, isBig);
    AppendNumber(block, 0, 4, isBig);
    return block + taken + '\0';
}

QByteArray RgbIcc() {
    return QColorSpace(QColorSpace::SRgb).iccProfile();
}

QByteArray Heic(const QImage& picture, const HeicWishes& wishes) {
    heif_context* context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder);
    heif_encoder_set_lossy_quality(encoder, 95);
    heif_encoder_set_parameter(encoder, "preset", "ultrafast");
    const QImage rows = picture.convertToFormat(QImage::Format_RGB888);
    for (int index = 0; index < wishes.pictures; ++index) {
        heif_image* image = nullptr;
        heif_image_create(rows.width(), rows.height(), heif_colorspace_RGB,
                          heif_chroma_interleaved_RGB, &image);
        heif_image_add_plane(image, heif_channel_interleaved, rows.width(), rows.height(), 8);
        int stride = 0;
        uint8_t* plane = heif_image_get_plane(image, heif_channel_interleaved, &stride);
        for (int y = 0; y < rows.height(); ++y) {
            std::memcpy(plane + qsizetype{y} * stride, rows.constScanLine(y),
                        static_cast<size_t>(rows.width()) * 3);
        }
        if (!wishes.icc.isEmpty()) {
            heif_image_set_raw_color_profile(image, "prof", wishes.icc.constData(),
                                             static_cast<size_t>(wishes.icc.size()));
        }
        heif_image_handle* handle = nullptr;
        heif_encoding_options* options = heif_encoding_options_alloc();
        options->image_orientation = static_cast<heif_orientation>(wishes.orientation);
        const heif_error error =
            heif_context_encode_image(context, image, encoder, options, &handle);
        heif_encoding_options_free(options);
        EXPECT_EQ(error.code, heif_error_Ok) << error.message;
        if (!wishes.exif.isEmpty()) {
            heif_context_add_exif_metadata(context, handle, wishes.exif.constData(),
                                           static_cast<int>(wishes.exif.size()));
        }
        heif_image_handle_release(handle);
        heif_image_release(image);
    }
    QByteArray bytes;
    heif_writer writer{1, AppendHeif};
    heif_context_write(context, &writer, &bytes);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return bytes;
}

QByteArray Tiff(const QImage& picture, const TiffWishes& wishes) {
    TiffMemory memory;
    TIFF* tiff = OpenTiffMemory(memory);
    for (int page = 0; page < wishes.pages; ++page) {
        WritePage(tiff, page == 0 ? picture : picture.mirrored(), wishes, false);
        if (page == 0 && wishes.hasCamera) {
            // Written first with room for the pointer, which is known only afterwards.
            TIFFSetField(tiff, TIFFTAG_EXIFIFD, static_cast<uint64_t>(0));
        }
        TIFFWriteDirectory(tiff);
    }
    if (wishes.hasSmallCopy) {
        WritePage(tiff, picture.scaled(16, 12), wishes, true);
        TIFFWriteDirectory(tiff);
    }
    if (wishes.hasCamera) {
        TIFFCreateEXIFDirectory(tiff);
        TIFFSetField(tiff, EXIFTAG_DATETIMEORIGINAL, "2024:03:12 14:25:36");
        uint64_t at = 0;
        TIFFWriteCustomDirectory(tiff, &at);
        TIFFSetDirectory(tiff, 0);
        TIFFSetField(tiff, TIFFTAG_EXIFIFD, at);
        TIFFRewriteDirectory(tiff);
    }
    TIFFClose(tiff);
    return memory.bytes;
}

QByteArray TiffOfSize(quint32 width, quint32 height) {
    QByteArray bytes("II*\0", 4);
    AppendNumber(bytes, 8, 4, false);
    AppendNumber(bytes, 8, 2, false);
    bytes += NumberField(0x0100, 4, width, false);
    bytes += NumberField(0x0101, 4, height, false);
    bytes += NumberField(0x0102, 3, 8, false);
    bytes += NumberField(0x0103, 3, 1, false);
    bytes += NumberField(0x0106, 3, 1, false);
    bytes += NumberField(0x0111, 4, 120, false);
    bytes += NumberField(0x0115, 3, 1, false);
    bytes += NumberField(0x0117, 4, 8, false);
    AppendNumber(bytes, 0, 4, false);
    return bytes.leftJustified(128, 'x');
}

QByteArray Webp(const QImage& picture, const WebpWishes& wishes) {
    if (wishes.frames > 1) {
        return AnimatedWebp(picture, wishes.frames);
    }
    const QImage rows = picture.convertToFormat(QImage::Format_RGBA8888);
    uint8_t* encoded = nullptr;
    const size_t size = WebPEncodeLosslessRGBA(rows.constBits(), rows.width(), rows.height(),
                                               static_cast<int>(rows.bytesPerLine()), &encoded);
    QByteArray bytes(reinterpret_cast<const char*>(encoded), static_cast<qsizetype>(size));
    WebPFree(encoded);
    return wishes.exif.isEmpty() && wishes.icc.isEmpty() ? bytes : WithChunks(bytes, wishes);
}

} // namespace importtest
