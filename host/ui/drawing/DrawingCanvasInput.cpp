// What a person does to a sheet by mouse and keyboard.
#include "host/ui/drawing/DrawingCanvas.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>
#include <map>
#include <utility>

namespace host {

namespace {

constexpr double kZoomStep = 1.25; ///< of a key, or of a notch of the wheel
constexpr double kNotch = 120;
constexpr double kPanStep = 64; ///< of an arrow key, pixels

const std::map<int, QPointF>& ArrowMoves() {
    static const std::map<int, QPointF> moves = {{Qt::Key_Left, {kPanStep, 0}},
                                                 {Qt::Key_Right, {-kPanStep, 0}},
                                                 {Qt::Key_Up, {0, kPanStep}},
                                                 {Qt::Key_Down, {0, -kPanStep}}};
    return moves;
}

} // namespace

void DrawingCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) {
        return;
    }
    m_pressed = event->button() == Qt::LeftButton ? FlagAt(event->position()) : -1;
    m_pressedAt = event->position();
    if (m_pressed < 0 && !Sheet().isEmpty()) {
        m_grabbed = event->position();
    }
}

void DrawingCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (!m_grabbed) {
        SetHovered(FlagAt(event->position()));
        return;
    }
    const QPointF way = event->position() - m_pressedAt;
    if (!m_isPanning && way.manhattanLength() < QApplication::startDragDistance()) {
        return;
    }
    m_isPanning = true;
    UpdatePointer();
    SetView(PanSheet(m_view, Sheet(), Pane(), event->position() - *m_grabbed));
    m_grabbed = event->position();
}

void DrawingCanvas::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasPanning = m_isPanning;
    m_grabbed.reset();
    m_isPanning = false;
    UpdatePointer();
    if (event->button() == Qt::LeftButton && !wasPanning) {
        Click(event->position());
    }
}

void DrawingCanvas::Click(const QPointF& pixel) {
    const int pressed = std::exchange(m_pressed, -1);
    const int flag = FlagAt(pixel);
    if (flag != pressed) {
        return;
    }
    Choose(flag);
    if (m_isPlacing) {
        if (const auto place = PlaceUnder(pixel)) {
            emit PlaceClicked(*place);
        }
    } else if (flag >= 0) {
        emit FlagOpened(m_flags[size_t(flag)].pointId);
    }
}

void DrawingCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool isOnSheet = event->button() == Qt::LeftButton && !m_isPlacing && !Sheet().isEmpty();
    if (isOnSheet && FlagAt(event->position()) < 0) {
        SetView(ZoomSheet(m_view, Sheet(), Pane(), event->position(), 2));
    }
}

void DrawingCanvas::leaveEvent(QEvent*) {
    SetHovered(-1);
}

void DrawingCanvas::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (Sheet().isEmpty()) {
        return;
    }
    if ((event->modifiers() & Qt::ShiftModifier) != 0) {
        const QPoint turned = event->angleDelta();
        SetView(PanSheet(m_view, Sheet(), Pane(), QPointF(turned.x() + turned.y(), 0)));
        return;
    }
    const double notches = event->angleDelta().y() / kNotch;
    SetView(ZoomSheet(m_view, Sheet(), Pane(), event->position(), std::pow(kZoomStep, notches)));
}

void DrawingCanvas::keyPressEvent(QKeyEvent* event) {
    const bool isAmongFlags = (event->modifiers() & Qt::ControlModifier) != 0;
    const auto arrow = ArrowMoves().find(event->key());
    if (arrow != ArrowMoves().end() && isAmongFlags) {
        const bool isForward = event->key() == Qt::Key_Right || event->key() == Qt::Key_Down;
        Choose(NextFlag(m_flags, m_page, m_chosen, isForward ? 1 : -1));
    } else if (arrow != ArrowMoves().end() && !Sheet().isEmpty()) {
        SetView(PanSheet(m_view, Sheet(), Pane(), arrow->second));
    } else if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal) {
        Zoom(kZoomStep);
    } else if (event->key() == Qt::Key_Minus) {
        Zoom(1 / kZoomStep);
    } else if (event->key() == Qt::Key_0) {
        Fit();
    } else if (event->key() == Qt::Key_PageUp) {
        ShowPage(m_page - 1);
    } else if (event->key() == Qt::Key_PageDown) {
        ShowPage(m_page + 1);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (m_chosen >= 0) {
            emit FlagOpened(m_flags[size_t(m_chosen)].pointId);
        }
    } else if (event->key() == Qt::Key_Escape) {
        emit Left();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void DrawingCanvas::contextMenuEvent(QContextMenuEvent* event) {
    SheetMenuRequest request;
    QPointF at = event->pos();
    if (event->reason() == QContextMenuEvent::Keyboard && m_chosen >= 0) {
        at = FlagRect(m_flags[size_t(m_chosen)], Sheet(), m_view, Pane()).center();
    }
    const auto place = PlaceUnder(at);
    if (!place) {
        return;
    }
    Choose(FlagAt(at));
    request.pointId = PointUnder(at);
    request.place = *place;
    request.screen = mapToGlobal(at.toPoint());
    emit MenuWanted(request);
}

void DrawingCanvas::focusInEvent(QFocusEvent*) {
    update();
}

void DrawingCanvas::focusOutEvent(QFocusEvent*) {
    update();
}

} // namespace host
