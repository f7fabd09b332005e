#include "host/import/FileExamination.h"

#include "host/import/ExifFacts.h"
#include "host/import/ImageSniff.h"
#include "host/import/ViewJpeg.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QStringList>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kHeadBytes = 32;
constexpr int kCheckSide = 256; // a JPEG is decoded to about this size to see that it decodes
constexpr qint64 kFullDecodePixels = 30'000'000; // what the reader's memory limit lets through

[[nodiscard]] bool IsImageName(const QString& suffix) {
    static const QStringList known{u"jpg"_s, u"jpeg"_s, u"jpe"_s,  u"jfif"_s, u"png"_s,
                                   u"bmp"_s, u"gif"_s,  u"heic"_s, u"heif"_s, u"hif"_s,
                                   u"tif"_s, u"tiff"_s, u"webp"_s};
    return known.contains(suffix);
}

[[nodiscard]] QString KindRefusal(ImageKind kind, const QString& suffix) {
    if (kind == ImageKind::None) {
        return IsImageName(suffix) ? u"内容不是图片，虽然扩展名是 .%1"_s.arg(suffix)
                                   : u"不是 JPEG、PNG、BMP、GIF、HEIC、TIFF 或 WebP 图片"_s;
    }
    if (!suffix.isEmpty() && !IsImageName(suffix)) {
        return u"扩展名 .%1 不是图片的扩展名"_s.arg(suffix);
    }
    return {};
}

[[nodiscard]] const char* FormatName(ImageKind kind) {
    switch (kind) {
    case ImageKind::Jpeg:
        return "jpeg";
    case ImageKind::Png:
        return "png";
    case ImageKind::Bmp:
        return "bmp";
    case ImageKind::Gif:
        return "gif";
    default:
        return ""; // read by libraries of their own, or not at all
    }
}

/// Empty if the picture decodes to its end.
[[nodiscard]] QString PlainRefusal(ImageKind kind, QByteArray& bytes) {
    if (!ReachesItsEnd(kind, bytes)) {
        return u"文件不完整，图片在中途断开"_s;
    }
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, FormatName(kind));
    const QSize size = reader.size();
    if (size.isEmpty()) {
        return u"图片已损坏，读不出尺寸"_s;
    }
    if (const QString tooLarge = TooManyPixels(size); !tooLarge.isEmpty()) {
        return tooLarge;
    }
    const qint64 pixels = static_cast<qint64>(size.width()) * size.height();
    if (kind == ImageKind::Jpeg) {
        reader.setScaledSize(
            size.scaled(kCheckSide, kCheckSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    } else if (pixels > kFullDecodePixels) {
        return {}; // whole by its structure; decoding it would take more memory than is allowed
    }
    return reader.read().isNull() ? u"图片已损坏，无法解码"_s : QString();
}

/// Reads the file if it can be a picture at all. Empty on success.
[[nodiscard]] QString ReadRefusal(const QFileInfo& info, ExaminedFile& result) {
    if (info.fileName().startsWith(u'.')) {
        return info.isDir() ? u"隐藏文件夹，未进入"_s : u"隐藏文件"_s;
    }
    if (info.isDir()) {
        return u"链接文件夹，未进入"_s;
    }
    if (!info.exists()) {
        return u"文件不存在"_s;
    }
    if (!info.isFile()) {
        return u"不是普通文件"_s;
    }
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly)) {
        return u"无法读取：%1"_s.arg(file.errorString());
    }
    if (file.size() == 0) {
        return u"文件是空的（0 字节）"_s;
    }
    const ImageKind kind = SniffImage(file.peek(kHeadBytes));
    const QString suffix = info.suffix().toLower();
    if (const QString refusal = KindRefusal(kind, suffix); !refusal.isEmpty()) {
        return refusal;
    }
    if (file.size() > kMaxFileBytes) {
        return u"文件太大：超过 %1 MB"_s.arg(kMaxFileBytes / 1024 / 1024);
    }
    result.bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return u"无法读取：%1"_s.arg(file.errorString());
    }
    return {};
}

[[nodiscard]] ImageKind KindOf(const QByteArray& bytes) {
    return SniffImage(QByteArrayView(bytes).first(std::min(kHeadBytes, bytes.size())));
}

/// The name with the suffix of what was made of it.
[[nodiscard]] QString JpegName(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return (dot > 0 ? name.left(dot) : name) + u".jpg"_s;
}

/// The JPEG takes the file's place, and the file becomes the original.
[[nodiscard]] QString ForeignRefusal(ImageKind kind, ExaminedFile& file,
                                     const PictureLibraries& libraries) {
    const std::unique_ptr<ForeignPicture> picture = OpenForeignPicture(kind, file.bytes, libraries);
    ViewJpeg jpeg = MakeViewJpeg(*picture);
    if (jpeg.refusal.isEmpty()) {
        file.note = picture->Head().note;
        file.original = std::exchange(file.bytes, std::move(jpeg.bytes));
        file.originalName = std::exchange(file.displayName, JpegName(file.displayName));
    }
    return jpeg.refusal;
}

} // namespace

QString TooManyPixels(QSize size) {
    return qint64{size.width()} * size.height() <= kMaxPixels
               ? QString()
               : u"图片太大：%1×%2 像素，上限为 %3 万像素"_s.arg(size.width())
                     .arg(size.height())
                     .arg(kMaxPixels / 10000);
}

ExaminedFile ReadFile(const QString& path) {
    const QFileInfo info(path);
    ExaminedFile result;
    result.path = path;
    result.displayName = CleanDisplayName(info.fileName());
    result.refusal = ReadRefusal(info, result);
    if (!result.refusal.isEmpty()) {
        result.bytes.clear();
        return result;
    }
    result.md5 = QString::fromLatin1(
        QCryptographicHash::hash(result.bytes, QCryptographicHash::Md5).toHex());
    return result;
}

void Examine(ExaminedFile& file, const PictureLibraries& libraries) {
    if (!file.refusal.isEmpty()) {
        return;
    }
    const ImageKind kind = KindOf(file.bytes);
    file.refusal =
        IsForeign(kind) ? ForeignRefusal(kind, file, libraries) : PlainRefusal(kind, file.bytes);
    if (!file.refusal.isEmpty()) {
        file.bytes.clear();
    } else if (KindOf(file.bytes) == ImageKind::Jpeg) {
        file.facts = ReadPhotoFacts(file.bytes);
    }
}

ExaminedFile ExamineFile(const QString& path, const PictureLibraries& libraries) {
    ExaminedFile file = ReadFile(path);
    Examine(file, libraries);
    return file;
}

QString CleanDisplayName(const QString& name) {
    constexpr qsizetype kLongest = 200;
    QString clean;
    for (const QChar letter : name) {
        if (letter == u'/' || letter == u'\\' || letter == u':') {
            clean += u'_';
        } else if (letter.category() != QChar::Other_Control &&
                   letter.category() != QChar::Other_Format) {
            clean += letter;
        }
    }
    clean = clean.trimmed();
    if (clean.size() > kLongest) {
        const qsizetype dot = clean.lastIndexOf(u'.');
        const QString suffix = dot > clean.size() - 12 ? clean.mid(dot) : QString();
        clean = clean.left(kLongest - suffix.size()) + suffix;
    }
    const bool nothing = clean.isEmpty() || clean == u"."_s || clean == u".."_s;
    return nothing ? u"照片"_s : clean;
}

} // namespace host
