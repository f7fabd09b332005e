// An off-screen surface for painting.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QImage>
#include <QPainter>
#include <QRect>

/// Stands for a rectangle of a target surface: painted on, then copied to the target in one piece
/// when the object ends, or kept as a cache that is drawn later. Has the target's device pixels, so
/// that it is sharp at every scale factor.
///
/// Thread: that of the target's painter; a surface made of a finished image: any one at a time.
class TOOLKIT_EXPORT CKxMemDC final {
public:
    /// @param targetDC      painter of the target, which must outlive the surface if it is copied;
    ///                      null: a surface of its own with one device pixel a unit.
    /// @param rect          the part of the target that it covers, device-independent pixels;
    /// empty:
    ///                      a surface that nothing can be painted on.
    /// @param offsetOrigin  the owner paints with the target's coordinates; otherwise from 0, 0.
    /// @param copyOnEnd     the surface is copied to `rect` of the target when the object ends.
    CKxMemDC(QPainter* targetDC, const QRect& rect, bool offsetOrigin, bool copyOnEnd);
    /// A cache that takes over a finished image; its size follows the image's own pixel ratio.
    explicit CKxMemDC(const QImage& image);
    ~CKxMemDC();
    CKxMemDC(const CKxMemDC&) = delete;
    CKxMemDC& operator=(const CKxMemDC&) = delete;

    /// Paints on the surface; begun at the first call, ended by Bitmap() and with the object.
    [[nodiscard]] QPainter& Painter();
    /// What is painted so far.
    [[nodiscard]] const QImage& Bitmap();
    [[nodiscard]] const QRect& Rect() const { return m_rect; }
    /// Device-independent pixels.
    [[nodiscard]] QSize Size() const { return m_rect.size(); }
    /// Width and height of the surface in device pixels.
    [[nodiscard]] QSize DeviceSize() const { return m_bitmap.size(); }

private:
    QImage m_bitmap;
    QPainter* m_targetDC = nullptr;
    QRect m_rect;
    bool m_offsetOrigin = false;
    bool m_copyOnEnd = false;
    QPainter m_painter;
};
