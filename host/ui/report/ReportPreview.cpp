#include "host/ui/report/ReportPreview.h"

#include "host/report/PagePaint.h"
#include "host/ui/report/PreviewInk.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WaitCursor.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kPageGap = 16;
constexpr int kShotsKept = 8;
constexpr double kLeastZoom = 0.2;
constexpr double kMostZoom = 3;
constexpr double kZoomStep = 1.2;

bool HasRecord(const ReportSheet& sheet) {
    return std::ranges::any_of(sheet.blocks, [](const ReportBlock& block) {
        return std::holds_alternative<RecordBlock>(block);
    });
}

} // namespace

ReportPreview::ReportPreview(PrintPictures& pictures, QWidget* parent)
    : QAbstractScrollArea(parent), m_pictures(pictures), m_shots(kShotsKept) {
    setObjectName(u"reportPreview"_s);
    setAccessibleName(u"报告预览"_s);
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAutoFillBackground(false);
}

void ReportPreview::SetSheet(ReportSheet sheet) {
    const int page = CurrentPage();
    m_sheet = std::move(sheet);
    m_isWhole = !HasRecord(m_sheet);
    LayOut(false);
    GoTo(std::min(page, PageCount() - 1));
    if (!m_isWhole) {
        // A long record takes its time; what is there already can be read meanwhile.
        QTimer::singleShot(0, this, [this] {
            if (!m_isWhole) {
                const toolkit::WaitCursor wait;
                m_isWhole = true;
                LayOut(true);
            }
        });
    }
}

void ReportPreview::LayOut(bool withRecord) {
    m_pages = LayoutReport(m_sheet, withRecord);
    m_shots.clear();
    UpdateBars();
    viewport()->update();
    emit Moved();
}

void ReportPreview::PictureReady() {
    for (const int page : m_shots.keys()) {
        if (!m_shots.object(page)->isComplete) {
            m_shots.remove(page);
            viewport()->update(PlaceOf(page).toAlignedRect());
        }
    }
}

int ReportPreview::PageCount() const {
    return static_cast<int>(m_pages.pages.size());
}

double ReportPreview::Zoom() const {
    const double width = m_pages.shape.page.width();
    if (m_zoom || width <= 0) {
        return m_zoom.value_or(1);
    }
    return std::clamp((viewport()->width() - 2 * kPageGap) / width, kLeastZoom, kMostZoom);
}

QSizeF ReportPreview::PageSize() const {
    return m_pages.shape.page * Zoom();
}

QRectF ReportPreview::PlaceOf(int page) const {
    const QSizeF size = PageSize();
    const double left = std::max(kPageGap, (viewport()->width() - size.width()) / 2);
    return {QPointF(left - horizontalScrollBar()->value(),
                    kPageGap + page * (size.height() + kPageGap) - verticalScrollBar()->value()),
            size};
}

void ReportPreview::UpdateBars() {
    const QSizeF size = PageSize();
    const double height = kPageGap + PageCount() * (size.height() + kPageGap);
    const double width = size.width() + 2 * kPageGap;
    verticalScrollBar()->setRange(
        0, std::max(0, static_cast<int>(std::ceil(height)) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setRange(
        0, std::max(0, static_cast<int>(std::ceil(width)) - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
}

int ReportPreview::CurrentPage() const {
    const double step = PageSize().height() + kPageGap;
    const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
    return PageCount() == 0
               ? 0
               : std::clamp(static_cast<int>((middle - kPageGap / 2) / step), 0, PageCount() - 1);
}

void ReportPreview::GoTo(int page) {
    const double step = PageSize().height() + kPageGap;
    verticalScrollBar()->setValue(
        static_cast<int>(std::clamp(page, 0, std::max(0, PageCount() - 1)) * step));
}

void ReportPreview::SetZoom(std::optional<double> zoom) {
    const int page = CurrentPage();
    m_zoom = zoom ? std::optional(std::clamp(*zoom, kLeastZoom, kMostZoom)) : std::nullopt;
    m_shots.clear();
    UpdateBars();
    GoTo(page);
    viewport()->update();
    emit Moved();
}

bool ReportPreview::IsPainted() const {
    for (int page = 0; page < PageCount(); ++page) {
        if (PlaceOf(page).intersects(viewport()->rect())) {
            const Shot* shot = m_shots.object(page);
            if (shot == nullptr || !shot->isComplete) {
                return false;
            }
        }
    }
    return PageCount() > 0;
}

const ReportPreview::Shot& ReportPreview::ShotOf(int page) {
    if (const Shot* known = m_shots.object(page)) {
        return *known;
    }
    const double ratio = devicePixelRatioF();
    const double pixels = Zoom() * ratio;
    auto* shot = new Shot;
    shot->pixmap = QPixmap((PageSize() * ratio).toSize().expandedTo(QSize(1, 1)));
    shot->pixmap.fill(Qt::white);
    PreviewInk ink(m_pictures, pixels);
    {
        QPainter painter(&shot->pixmap);
        painter.scale(pixels, pixels);
        PaintPage(painter, m_pages, page, m_isWhole ? PageCount() : 0, ink);
    }
    shot->pixmap.setDevicePixelRatio(ratio);
    shot->isComplete = ink.IsComplete();
    m_shots.insert(page, shot);
    return *m_shots.object(page);
}

void ReportPreview::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), toolkit::Colors::GridLine());
    for (int page = 0; page < PageCount(); ++page) {
        const QRectF place = PlaceOf(page);
        if (place.bottom() < event->rect().top()) {
            continue;
        }
        if (place.top() > event->rect().bottom()) {
            break;
        }
        painter.drawPixmap(place.topLeft(), ShotOf(page).pixmap);
        painter.setPen(toolkit::Colors::Frame());
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    if (hasFocus()) {
        painter.setPen(QPen(toolkit::Colors::Accent(), 2));
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
    }
}

void ReportPreview::resizeEvent(QResizeEvent*) {
    const int page = CurrentPage();
    if (!m_zoom) {
        m_shots.clear();
    }
    UpdateBars();
    if (!m_zoom) {
        GoTo(page);
    }
    emit Moved();
}

void ReportPreview::scrollContentsBy(int, int) {
    viewport()->update();
    emit Moved();
}

void ReportPreview::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Home:
        GoTo(0);
        break;
    case Qt::Key_End:
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        SetZoom(Zoom() * kZoomStep);
        break;
    case Qt::Key_Minus:
        SetZoom(Zoom() / kZoomStep);
        break;
    case Qt::Key_0:
        SetZoom({});
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void ReportPreview::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        SetZoom(Zoom() * std::pow(kZoomStep, event->angleDelta().y() / 120.0));
        event->accept();
    } else {
        QAbstractScrollArea::wheelEvent(event);
    }
}

} // namespace host
