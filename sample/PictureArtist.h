// Draws pictures that look like photographs from a building site.
#pragma once

#include "sample/scenes/SceneKinds.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

namespace sample {

/// How the caption is fixed to a picture.
enum class CaptionStyle : quint8 {
    Plate, ///< translucent plate with a coloured bar, bottom left
    Board, ///< a white measuring board with a table
    Stamp, ///< orange date at the bottom right
    None
};

/// One picture to draw. Equal orders give equal pictures, byte for byte.
struct PictureOrder {
    quint64 seed = 0;
    SceneKind kind = SceneKind::Room;
    QSize size{1600, 1200};
    CaptionStyle caption = CaptionStyle::Plate;
    QStringList lines; ///< "项目：某某" and the like; a Stamp writes the last one only
};

/// Draws one picture after the other and keeps its buffers. One artist belongs to one thread;
/// several may work at the same time. Needs the application object, for the lettering.
class PictureArtist final {
public:
    PictureArtist();
    ~PictureArtist();
    PictureArtist(const PictureArtist&) = delete;
    PictureArtist& operator=(const PictureArtist&) = delete;

    /// @return Format_RGB32 of the ordered size; null for a side under 64 pixels.
    [[nodiscard]] QImage Paint(const PictureOrder& order);
    /// The same as a JPEG file of quality 82; empty if it can't be drawn.
    [[nodiscard]] QByteArray PaintJpeg(const PictureOrder& order);

private:
    struct Tools;
    std::unique_ptr<Tools> m_tools;
};

} // namespace sample
