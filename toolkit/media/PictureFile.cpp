#include "toolkit/media/PictureFile.h"

#include <QFile>
#include <QImageReader>
#include <QLoggingCategory>
#include <QPainter>
#include <QTransform>

#include <atomic>
#include <mutex>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

/// A phone's 108 megapixels as four bytes each, for the kinds that can't be reduced while reading.
constexpr int kAllocationLimitMb = 512;
constexpr qint64 kMostPlainPixels = 128'000'000;

/// A file that ends early when told so.
class StoppableFile final : public QFile {
public:
    StoppableFile(const QString& path, const std::atomic<bool>* stop) : QFile(path), m_stop(stop) {}

protected:
    qint64 readData(char* data, qint64 size) override {
        return m_stop != nullptr && m_stop->load() ? -1 : QFile::readData(data, size);
    }

private:
    const std::atomic<bool>* m_stop;
};

bool IsKnownFormat(const QByteArray& format) {
    return format == "jpeg" || format == "jpg" || format == "png" || format == "bmp" ||
           format == "gif" || format == "webp" || format == "tif" || format == "tiff";
}

bool ReducesWhileReading(const QImageReader& reader) {
    return reader.format() == "jpeg" || reader.format() == "jpg";
}

std::atomic<QLoggingCategory::CategoryFilter> filterBefore{nullptr};
std::atomic<IDecodeWatch*> decodeWatch{nullptr};

void TellWatch(const PictureRequest& request) {
    if (IDecodeWatch* watch = decodeWatch.load()) {
        watch->OnDecode(request);
    }
}

/// What a decoder says of a damaged file, or of one whose reading was given up, the user is told on
/// the screen.
void SilenceDecoders(QLoggingCategory* category) {
    if (const QLoggingCategory::CategoryFilter before = filterBefore.load()) {
        before(category);
    }
    if (QByteArrayView(category->categoryName()).startsWith("qt.gui.imageio")) {
        category->setEnabled(QtWarningMsg, false);
    }
}

/// Opens a reader on a file. False: no picture of a known kind.
bool Open(QImageReader& reader, QFile& file) {
    static std::once_flag prepared;
    std::call_once(prepared, [] {
        QImageReader::setAllocationLimit(kAllocationLimitMb);
        filterBefore = QLoggingCategory::installFilter(SilenceDecoders);
    });
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    reader.setDevice(&file);
    return IsKnownFormat(reader.format());
}

bool IsTurned(const QImageReader& reader) {
    return reader.transformation() & QImageIOHandler::TransformationRotate90;
}

/// Size as it stands in the file; empty if that is unknown or beyond the limit.
QSize RawSize(const QImageReader& reader) {
    const QSize size = reader.size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (size.isEmpty() || (pixels > kMostPlainPixels && !ReducesWhileReading(reader))) {
        return {};
    }
    return size;
}

QSize Turned(const QSize& size, bool turned) {
    return turned ? size.transposed() : size;
}

/// From a rectangle of the upright picture to the same one as it stands in the file.
QRect ToRaw(const QRect& upright, const QSize& raw, QImageIOHandler::Transformations turn) {
    QTransform toUpright;
    if (turn & QImageIOHandler::TransformationMirror) {
        toUpright *= QTransform(-1, 0, 0, 1, raw.width(), 0);
    }
    if (turn & QImageIOHandler::TransformationFlip) {
        toUpright *= QTransform(1, 0, 0, -1, 0, raw.height());
    }
    if (turn & QImageIOHandler::TransformationRotate90) {
        toUpright *= QTransform(0, 1, -1, 0, raw.height(), 0);
    }
    return toUpright.inverted().mapRect(QRectF(upright)).toRect();
}

/// How a part is got with the least memory.
struct Plan {
    QSize scaled; ///< of the whole, or of the clipped part; as it stands in the file
    QRect clip;   ///< as it stands in the file; empty: all of it
    QRect cut;    ///< of the upright scaled picture; empty: all of it
};

Plan MakePlan(const PictureRequest& request, const QSize& upright, const QImageReader& reader) {
    const bool turned = IsTurned(reader);
    const QRect whole(QPoint(0, 0), upright);
    const QRect part = request.part.isEmpty() ? whole : request.part & whole;
    if (part == whole || part.isEmpty()) {
        return {Turned(request.size, turned), {}, {}};
    }
    const double x = double(request.size.width()) / part.width();
    const double y = double(request.size.height()) / part.height();
    const double scaledWidth = upright.width() * x;
    const double scaledHeight = upright.height() * y;
    // Either the whole is scaled and cut, or the part is cut and scaled.
    if (scaledWidth * scaledHeight > double(part.width()) * part.height()) {
        return {Turned(request.size, turned),
                ToRaw(part, Turned(upright, turned), reader.transformation()),
                {}};
    }
    const QSize scaled = QSizeF(scaledWidth, scaledHeight).toSize().expandedTo(request.size);
    const QPoint corner(qMin(qRound(part.x() * x), scaled.width() - request.size.width()),
                        qMin(qRound(part.y() * y), scaled.height() - request.size.height()));
    return {Turned(scaled, turned), {}, QRect(corner, request.size)};
}

QImage OnBackground(const QImage& image, const QColor& background) {
    if (image.isNull() || image.format() == QImage::Format_RGB32) {
        return image;
    }
    if (!image.hasAlphaChannel()) {
        return image.convertToFormat(QImage::Format_RGB32);
    }
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(background);
    QPainter(&opaque).drawImage(0, 0, image);
    return opaque;
}

} // namespace

QSize ReadPictureSize(const QString& path) {
    QFile file(path);
    QImageReader reader;
    return Open(reader, file) ? Turned(RawSize(reader), IsTurned(reader)) : QSize();
}

QImage DecodePicture(const PictureRequest& request, const std::atomic<bool>* stop) {
    TellWatch(request);
    StoppableFile file(request.path, stop);
    QImageReader reader;
    if (request.size.isEmpty() || !Open(reader, file)) {
        return {};
    }
    const QSize raw = RawSize(reader);
    if (raw.isEmpty()) {
        return {};
    }
    const Plan plan = MakePlan(request, Turned(raw, IsTurned(reader)), reader);
    if (!plan.clip.isEmpty()) {
        reader.setClipRect(plan.clip);
    }
    reader.setScaledSize(plan.scaled);
    const QImage image = OnBackground(reader.read(), request.background);
    QImage result = plan.cut.isEmpty() || image.isNull() ? image : image.copy(plan.cut);
    // What a file says of its density is of no use on a screen.
    result.setDevicePixelRatio(1);
    return result;
}

QImage DecodeWholePicture(const QString& path) {
    TellWatch({path, {}, {}});
    QFile file(path);
    QImageReader reader;
    if (!Open(reader, file) || RawSize(reader).isEmpty()) {
        return {};
    }
    return reader.read();
}

IDecodeWatch* SetDecodeWatch(IDecodeWatch* watch) {
    return decodeWatch.exchange(watch);
}

} // namespace toolkit
