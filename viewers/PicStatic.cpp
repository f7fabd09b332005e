#include "viewers/PicStatic.h"

#include "toolkit/Look.h"
#include "toolkit/media/KxMemDC.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/media/PictureRects.h"
#include "viewers/GalleryFonts.h"

#include <QFileInfo>
#include <QPainter>

CPicStatic::CPicStatic(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent, true);
}

const QImage& CPicStatic::Rendering() {
    const QSize size = m_clientRect.size() * devicePixelRatio();
    const QDateTime time = QFileInfo(picPath).lastModified();
    if (m_renderedPath == picPath && m_renderedTime == time && m_rendering.size() == size) {
        return m_rendering;
    }
    const QRect part = KXTools::RectToCoverParent(m_clientRect, toolkit::ReadPictureSize(picPath));
    m_rendering =
        part.isEmpty() ? QImage() : toolkit::DecodePicture({picPath, part, size, {250, 250, 250}});
    m_rendering.setDevicePixelRatio(devicePixelRatio());
    m_renderedPath = picPath;
    m_renderedTime = time;
    return m_rendering;
}

void CPicStatic::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    m_clientRect = rect();
    QPainter painter(this);
    if (picPath.isEmpty()) {
        painter.fillRect(m_clientRect, toolkit::Colors::Pane());
        gallery::PaintNoPictureOnMiddle(painter, m_clientRect);
        return;
    }
    CKxMemDC surface(&painter, m_clientRect, true, true);
    surface.Painter().fillRect(m_clientRect, toolkit::Colors::Pane());
    if (!Rendering().isNull()) {
        surface.Painter().drawImage(m_clientRect.topLeft(), m_rendering);
    }
}
