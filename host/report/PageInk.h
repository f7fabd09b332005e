// How photographs come onto a painted page: decoded on a screen, as files in a PDF.
#pragma once

#include <QRectF>
#include <QString>

class QImage;
class QPainter;

namespace host {

/// A photograph is fitted into its room, at one of its edges or in the middle.
struct PhotoPlace {
    QRectF room;
    Qt::Alignment alignment = Qt::AlignCenter;
};

/// Lengths are 1/96 inch of the painter's coordinates.
class IPageInk {
public:
    virtual ~IPageInk() = default;

    /// One that isn't there becomes its reason.
    virtual void DrawPhoto(QPainter& painter, const PhotoPlace& place, const QString& file,
                           const QString& lack) = 0;
    /// One that was drawn for the report: a plan, a code, a logo.
    virtual void DrawImage(QPainter& painter, const QRectF& place, const QImage& image);

    /// Of a picture in its room: in its proportions, never larger than in its own dots.
    [[nodiscard]] static QRectF PlaceIn(const PhotoPlace& place, const QSizeF& picture);
    /// Stands where a photograph is missing.
    static void DrawLack(QPainter& painter, const QRectF& room, const QString& lack);
};

} // namespace host
