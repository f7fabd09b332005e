// Mouse, wheel, keys; looking closely.
#include "viewers/PicViewDlg.h"

#include "viewers/PictureClip.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>

namespace {

constexpr int kWheelNotch = 120;

/// Also a disabled one.
const CDirectUIButton* ButtonUnder(const gallery::GalleryState& state, const QPoint& point) {
    for (const CDirectUIButton& button : state.buttons) {
        if (button.Covers(point)) {
            return &button;
        }
    }
    return nullptr;
}

const CDirectUIButton* ButtonAt(const gallery::GalleryState& state, const QPoint& point) {
    const CDirectUIButton* button = ButtonUnder(state, point);
    return button != nullptr && button->IsEnabled() ? button : nullptr;
}

} // namespace

void CPicViewDlg::TakeFocus() {
    if (m_pane) {
        m_pane->setFocus(Qt::OtherFocusReason);
    }
}

bool CPicViewDlg::PressButton(const QPoint& point) {
    for (CDirectUIButton& button : m_state.buttons) {
        if (button.Press(point)) {
            Repaint(button.rect);
            return true;
        }
    }
    return false;
}

void CPicViewDlg::ClickThumb(int index) {
    m_state.prevVisible = m_state.visible;
    m_state.stripSlidePending = true;
    SelectPic(index, gallery::kCurrentMiddle);
    // A click on the current thumbnail moves nothing, now or later.
    m_state.stripSlidePending = false;
}

void CPicViewDlg::OnLeftButtonDown(const QPoint& point) {
    if (PressButton(point)) {
        return;
    }
    TakeFocus();
    const int index = gallery::ThumbAt(m_state, point);
    if (index >= 0) {
        ClickThumb(index);
    } else if (!m_state.zoom.fit && m_state.bigArea.contains(point)) {
        m_dragFrom = point;
    }
    UpdateCursor(point);
}

void CPicViewDlg::OnLeftButtonUp(const QPoint& point) {
    m_dragFrom.reset();
    UpdateCursor(point);
    for (CDirectUIButton& button : m_state.buttons) {
        const bool pressed = button.IsPressed();
        const bool clicked = button.Release(point);
        if (pressed) {
            Repaint(button.rect);
        }
        if (clicked) {
            OnCommand(button.id);
            return;
        }
    }
}

void CPicViewDlg::OnDoubleClick(const QPoint& point) {
    const bool onPicture = ButtonAt(m_state, point) == nullptr && m_state.bigArea.contains(point);
    if (!onPicture) {
        // The second click of a quick pair counts like the first.
        OnLeftButtonDown(point);
        return;
    }
    SetZoom(gallery::ToggleZoom(m_state.zoom, gallery::ViewOf(m_state, Ratio()), point));
    UpdateCursor(point);
}

void CPicViewDlg::OnCommand(int commandId) {
    const int current = m_state.currentIndex;
    if (commandId == m_state.buttons[gallery::kPrevPic].id) {
        if (current >= 1) {
            SelectPic(current - 1, gallery::kCurrentFirst);
        }
    } else if (commandId == m_state.buttons[gallery::kNextPic].id) {
        if (m_state.HasItem(current)) {
            SelectPic(current + 1, gallery::kCurrentLast);
        }
    } else {
        PageStrip(commandId == m_state.buttons[gallery::kThumbRight].id ||
                  commandId == m_state.buttons[gallery::kThumbDown].id);
    }
}

void CPicViewDlg::SetHover(int index) {
    if (index == m_state.hoverIndex) {
        return;
    }
    m_state.hoverIndex = index;
    RepaintStrip();
}

void CPicViewDlg::OnMouseMove(const QPoint& point) {
    if (m_dragFrom) {
        SetZoom(
            gallery::PanBy(m_state.zoom, gallery::ViewOf(m_state, Ratio()), point - *m_dragFrom));
        m_dragFrom = point;
        return;
    }
    SetHover(gallery::ThumbAt(m_state, point));
    for (CDirectUIButton& button : m_state.buttons) {
        if (button.PointAt(point)) {
            Repaint(button.rect);
        }
    }
    UpdateCursor(point);
}

void CPicViewDlg::OnMouseLeave() {
    SetHover(-1);
    for (CDirectUIButton& button : m_state.buttons) {
        if (button.PointAt({-1, -1})) {
            Repaint(button.rect);
        }
    }
}

void CPicViewDlg::OnMouseWheel(int delta, const QPoint& point, bool control) {
    if (control) {
        if (m_state.bigArea.contains(point)) {
            SetZoom(gallery::ZoomBy(m_state.zoom, gallery::ViewOf(m_state, Ratio()),
                                    double(delta) / kWheelNotch, point));
        }
        return;
    }
    m_state.skipSlide = true;
    const int steps = delta / -kWheelNotch;
    SelectPic(m_state.currentIndex + steps,
              steps < 1 ? gallery::kCurrentFirst : gallery::kCurrentLast);
}

bool CPicViewDlg::OnKey(int key, Qt::KeyboardModifiers modifiers, bool onPane) {
    // Neither closes the dialog nor presses a button, in any viewer.
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
        return true;
    }
    if (key == Qt::Key_C && modifiers == Qt::ControlModifier && onPane) {
        CopyPicture();
        return true;
    }
    if (m_state.items.empty() || (modifiers & (Qt::ControlModifier | Qt::AltModifier)) != 0) {
        return false;
    }
    return StepByKey(key);
}

bool CPicViewDlg::StepByKey(int key) {
    const int current = m_state.currentIndex;
    switch (key) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        PageStrip(key == Qt::Key_PageDown);
        return true;
    case Qt::Key_End:
        SelectPic(m_state.Count() - 1, gallery::kCurrentLast);
        return true;
    case Qt::Key_Home:
        SelectPic(0, gallery::kCurrentFirst);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Up:
        m_state.skipSlide = true;
        SelectPic(current - 1, gallery::kCurrentFirst);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
        m_state.skipSlide = true;
        SelectPic(current + 1, gallery::kCurrentLast);
        return true;
    default:
        return false;
    }
}

void CPicViewDlg::SetZoom(const gallery::Zoom& zoom) {
    m_state.zoom = gallery::ClampZoom(zoom, gallery::ViewOf(m_state, Ratio()));
    if (zoom.fit) {
        m_pictures.ForgetSharp();
    } else {
        m_pictures.WantSharp(m_state, Id(), Ratio());
    }
    if (m_pane) {
        m_pane->update(m_state.bigArea);
    }
}

void CPicViewDlg::UpdateCursor(const QPoint& point) {
    if (!m_pane) {
        return;
    }
    const bool draggable =
        !m_state.zoom.fit && m_state.bigArea.contains(point) && ButtonAt(m_state, point) == nullptr;
    if (draggable) {
        m_pane->setCursor(m_dragFrom ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    } else {
        m_pane->unsetCursor();
    }
}

void CPicViewDlg::CopyPicture() const {
    const GalleryItem* item = m_state.ItemAt(m_state.currentIndex);
    if (item != nullptr && !m_state.picRect.isEmpty()) {
        QGuiApplication::clipboard()->setMimeData(new gallery::PictureClip(item->picPath));
    }
}

QString CPicViewDlg::TipAt(const QPoint& point) const {
    const CDirectUIButton* button = ButtonUnder(m_state, point);
    return button == nullptr ? QString() : button->Tip();
}

QRect CPicViewDlg::TipPlace(const QPoint& point) const {
    const CDirectUIButton* button = ButtonUnder(m_state, point);
    return button == nullptr ? QRect() : button->rect;
}

std::span<const CDirectUIButton> CPicViewDlg::Buttons() const {
    return m_state.buttons;
}

void CPicViewDlg::OnButtonPressed(int index) {
    const CDirectUIButton& button = m_state.buttons[size_t(index)];
    if (button.IsEnabled()) {
        OnCommand(button.id);
    }
}
