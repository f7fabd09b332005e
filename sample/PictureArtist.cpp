#include "sample/PictureArtist.h"

#include "sample/Captions.h"
#include "sample/render/CameraFinish.h"
#include "sample/render/SceneRenderer.h"

#include <QBuffer>
#include <QImageWriter>

#include <algorithm>

namespace sample {

namespace {

constexpr int kLeastSide = 64;
constexpr int kJpegQuality = 82;

/// The lens of a phone resolves about half of what its sensor has in each direction; drawing more
/// of a big picture would cost four times the time and show nothing.
[[nodiscard]] QSize RenderSize(QSize size) {
    constexpr int kSharpPixels = 6'000'000;
    return size.width() * size.height() > kSharpPixels ? size / 2 : size;
}

[[nodiscard]] FinishSettings FinishFor(const PictureOrder& order, Dice& dice) {
    FinishSettings finish;
    finish.vignette = dice.Between(0.1F, 0.45F);
    const float warmth = dice.Between(-0.06F, 0.07F);
    finish.red = 1 + warmth;
    finish.blue = 1 - warmth;
    finish.green = 1 + dice.Between(-0.015F, 0.02F);
    const bool dark = order.kind == SceneKind::Garage || order.kind == SceneKind::Corridor;
    finish.noise = dark ? dice.Between(4, 8) : dice.Between(2, 5);
    finish.glow = dice.Between(0.12F, 0.3F);
    finish.shake = dice.Chance(0.08F) ? 2 + dice.Pick(4) : 0;
    finish.seed = static_cast<quint32>(dice.Next());
    return finish;
}

} // namespace

struct PictureArtist::Tools {
    SceneRenderer renderer;
};

PictureArtist::PictureArtist() : m_tools(std::make_unique<Tools>()) {}
PictureArtist::~PictureArtist() = default;

QImage PictureArtist::Paint(const PictureOrder& order) {
    if (std::min(order.size.width(), order.size.height()) < kLeastSide) {
        return {};
    }
    Dice dice(order.seed);
    const Scene scene = BuildScene(order.kind, dice);
    const QSize size = RenderSize(order.size);
    QImage image = m_tools->renderer.Render(scene, size);
    if (size != order.size) {
        for (int pass = 0; pass < 3; ++pass) {
            SoftenEdges(image); // stairs would grow with the picture
        }
        image = image.scaled(order.size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(QImage::Format_RGB32);
    }
    FinishPicture(image, FinishFor(order, dice));
    DrawCaption(image, order.caption, order.lines);
    return image;
}

QByteArray PictureArtist::PaintJpeg(const PictureOrder& order) {
    const QImage image = Paint(order);
    QByteArray bytes;
    if (image.isNull()) {
        return bytes;
    }
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(kJpegQuality);
    if (!writer.write(image)) {
        bytes.clear();
    }
    return bytes;
}

} // namespace sample
