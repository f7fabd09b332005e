#include "viewers/PlayProgressCtrl.h"

#include "toolkit/Look.h"
#include "toolkit/media/KxMemDC.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace {

constexpr int kBackground = 0xFDFCF8;
constexpr int kFrame = 0xE7DDCC;
constexpr int kGroove = 0xEEE7DA;
/// From the top; the bar has these four lines, whatever the control's height.
constexpr std::array<int, 4> kLines{0xFFC584, 0xCD410F, 0xCD410F, 0xFF966E};

} // namespace

CPlayProgressCtrl::CPlayProgressCtrl(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent, true);
}

void CPlayProgressCtrl::SetRange(int lower, int upper) {
    m_lower = lower;
    m_upper = std::max(lower, upper);
    SetPos(m_pos);
}

void CPlayProgressCtrl::SetPos(int pos) {
    m_pos = std::clamp(pos, m_lower, m_upper);
    update();
}

void CPlayProgressCtrl::SetVertical(bool vertical) {
    m_vertical = vertical;
    update();
}

QRect CPlayProgressCtrl::BarRect() const {
    if (m_upper == m_lower) {
        return {};
    }
    const float fraction = float(m_pos - m_lower) / float(m_upper - m_lower);
    if (m_vertical) {
        const int length = int(float(height()) * fraction);
        return {0, height() - length, width(), length};
    }
    return {0, 0, int(float(width()) * fraction), height()};
}

void CPlayProgressCtrl::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    CKxMemDC surface(&painter, rect(), true, true);
    QPainter& bar = surface.Painter();
    bar.fillRect(rect(), toolkit::ColorFromBgr(kBackground));
    const QRect frame = rect().adjusted(0, 0, 0, -1);
    bar.fillRect(frame, toolkit::ColorFromBgr(kFrame));
    bar.fillRect(frame.adjusted(1, 1, -1, -1), toolkit::ColorFromBgr(kGroove));
    const QRect full = BarRect();
    if (full.isEmpty()) {
        return;
    }
    const QRect inner = full.adjusted(1, 0, -1, 0);
    // Nothing is left of a bar of one pixel or two.
    if (inner.isEmpty()) {
        return;
    }
    for (size_t i = 0; i < kLines.size(); ++i) {
        bar.fillRect(QRect(inner.x(), inner.y() + int(i), inner.width(), 1),
                     toolkit::ColorFromBgr(kLines[i]));
    }
}
