#include "host/pictures/WorkPictures.h"

#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <array>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kJpegQuality = 92;

/// How a button looks in one state: replaces the colours that stand in its vector.
struct FrameLook {
    const char* line;
    const char* plate;
    const char* plateOpacity;
};
constexpr std::array<FrameLook, 4> kFrames{{
    {"#15428B", "#FAFAFA", "0.6"},
    {"#15428B", "#A9DAF5", "0.9"},
    {"#15428B", "#00B6F0", "1"},
    {"#B1C3D9", "#FAFAFA", "0.3"},
}};

/// The vectors point to the left.
struct ButtonFile {
    QStringView name;
    QStringView vector;
    int degrees; ///< clockwise
};
constexpr std::array<ButtonFile, 6> kButtons{{
    {u"left_pic.png", u"step-button", 0},
    {u"right_pic.png", u"step-button", 180},
    {u"left_thumb.png", u"page-button", 0},
    {u"right_thumb.png", u"page-button", 180},
    {u"up_thumb.png", u"page-button", 90},
    {u"down_thumb.png", u"page-button", 270},
}};

QByteArray Vector(QStringView name) {
    QFile file(u":/host/pictures/%1.svg"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage Rendered(const QByteArray& svg) {
    QSvgRenderer renderer(svg);
    const QSize size = renderer.defaultSize() * kWorkPictureScale;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    return image;
}

QImage ButtonFrame(const ButtonFile& button, const FrameLook& look) {
    QByteArray svg = Vector(button.vector);
    svg.replace("#15428B", look.line)
        .replace("#FFFFFF", look.plate)
        .replace("fill-opacity=\"0.5\"",
                 QByteArray("fill-opacity=\"") + look.plateOpacity + QByteArray("\""));
    return Rendered(svg).transformed(QTransform().rotate(button.degrees));
}

QImage ButtonImage(const ButtonFile& button) {
    const bool stacked = button.degrees % 180 != 0;
    QImage all;
    for (size_t at = 0; at < kFrames.size(); ++at) {
        const QImage frame = ButtonFrame(button, kFrames[at]);
        if (all.isNull()) {
            const int count = int(kFrames.size());
            all = QImage(frame.width() * (stacked ? 1 : count),
                         frame.height() * (stacked ? count : 1), frame.format());
            all.fill(Qt::transparent);
        }
        QPainter(&all).drawImage(stacked ? QPoint(0, int(at) * frame.height())
                                         : QPoint(int(at) * frame.width(), 0),
                                 frame);
    }
    return all;
}

} // namespace

std::vector<WorkPicture> DrawWorkPictures() {
    std::vector<WorkPicture> pictures;
    for (const ButtonFile& button : kButtons) {
        pictures.push_back({button.name.toString(), ButtonImage(button)});
    }
    pictures.push_back(
        {u"DefaultPic.jpg"_s,
         Rendered(Vector(u"default-picture")).convertToFormat(QImage::Format_RGB32)});
    return pictures;
}

bool WriteWorkPictures(const QString& folder) {
    if (!QDir().mkpath(folder)) {
        return false;
    }
    const std::vector<WorkPicture> pictures = DrawWorkPictures();
    return std::all_of(pictures.begin(), pictures.end(), [&](const WorkPicture& picture) {
        QImageWriter writer(QDir(folder).filePath(picture.name));
        writer.setQuality(picture.name.endsWith(u".jpg"_s) ? kJpegQuality : -1);
        return !picture.image.isNull() && writer.write(picture.image);
    });
}

} // namespace host
