// Photographs of a report on the screen.
#pragma once

#include "host/report/PageInk.h"
#include "host/report/PrintPictures.h"

namespace host {

/// Draws those that stand ready, and asks for the others. Thread: user interface.
class PreviewInk final : public IPageInk {
public:
    /// @param pixels  of the device for 1/96 inch.
    PreviewInk(PrintPictures& source, double pixels) : m_pictures(source), m_pixels(pixels) {}

    void DrawPhoto(QPainter& painter, const PhotoPlace& place, const QString& file,
                   const QString& lack) override;
    /// Made smaller as a whole: a painter leaves lines of a plan out.
    void DrawImage(QPainter& painter, const QRectF& place, const QImage& image) override;
    /// Nothing that was drawn is still to come.
    [[nodiscard]] bool IsComplete() const { return m_isComplete; }

private:
    PrintPictures& m_pictures;
    const double m_pixels;
    bool m_isComplete = true;
};

} // namespace host
