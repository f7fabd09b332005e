// Mouse, wheel, keys; looking closely.
#include "viewers/PicViewDlg.h"

#include "viewers/PictureClip.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>

bool CPicViewDlg::PressButton(const QPoint& point) {
    for (CDirectUIButton& button : m_state.buttons) {
        if (button.Press(point)) {
            m_surface.Repaint(button.rect);
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
    m_surface.TakeFocus();
    switch (gallery::HoldAt(m_state, point)) {
    case gallery::Hold::Thumb:
        ClickThumb(gallery::ThumbAt(m_state, point));
        break;
    case gallery::Hold::Picture:
        m_dragFrom = point;
        break;
    case gallery::Hold::Nothing:
        break;
    }
    UpdateCursor(point);
}

void CPicViewDlg::OnLeftButtonUp(const QPoint& point) {
    m_dragFrom.reset();
    UpdateCursor(point);
    for (size_t at = 0; at < m_state.buttons.size(); ++at) {
        CDirectUIButton& button = m_state.buttons[at];
        const bool pressed = button.IsPressed();
        const bool clicked = button.Release(point);
        if (pressed) {
            m_surface.Repaint(button.rect);
        }
        if (clicked) {
            Do(gallery::ActionOf(gallery::GalleryButton(at)));
            return;
        }
    }
}

void CPicViewDlg::OnDoubleClick(const QPoint& point) {
    if (!gallery::ZoomsAt(m_state, point)) {
        // The second click of a quick pair counts like the first.
        OnLeftButtonDown(point);
        return;
    }
    m_picture.SetZoom(gallery::ToggleZoom(m_state.zoom, m_picture.View(), point));
    UpdateCursor(point);
}

void CPicViewDlg::Do(gallery::GalleryAction action) {
    if (action == gallery::GalleryAction::CopyPicture) {
        CopyPicture();
    } else if (action == gallery::GalleryAction::PageBack ||
               action == gallery::GalleryAction::PageForward) {
        PageStrip(action == gallery::GalleryAction::PageForward);
    } else if (const auto selection = gallery::SelectionOf(action, m_state)) {
        Select(*selection);
    }
}

void CPicViewDlg::Select(const gallery::Selection& selection) {
    m_state.skipSlide = selection.skipSlide;
    SelectPic(selection.index, selection.mode);
}

void CPicViewDlg::SetHover(int index) {
    if (index == m_state.hoverIndex) {
        return;
    }
    m_state.hoverIndex = index;
    m_strip.Repaint();
}

void CPicViewDlg::OnMouseMove(const QPoint& point) {
    if (m_dragFrom) {
        m_picture.SetZoom(gallery::PanBy(m_state.zoom, m_picture.View(), point - *m_dragFrom));
        m_dragFrom = point;
        return;
    }
    SetHover(gallery::ThumbAt(m_state, point));
    for (CDirectUIButton& button : m_state.buttons) {
        if (button.PointAt(point)) {
            m_surface.Repaint(button.rect);
        }
    }
    UpdateCursor(point);
}

void CPicViewDlg::OnMouseLeave() {
    SetHover(-1);
    for (CDirectUIButton& button : m_state.buttons) {
        if (button.PointAt({-1, -1})) {
            m_surface.Repaint(button.rect);
        }
    }
}

void CPicViewDlg::OnMouseWheel(int delta, const QPoint& point, bool control) {
    if (control) {
        if (m_state.bigArea.contains(point)) {
            m_picture.SetZoom(
                gallery::ZoomBy(m_state.zoom, m_picture.View(), gallery::NotchesOf(delta), point));
        }
        return;
    }
    Select(gallery::SelectionOfWheel(delta, m_state));
}

bool CPicViewDlg::OnKey(int key, Qt::KeyboardModifiers modifiers, bool onPane) {
    const gallery::GalleryAction action =
        gallery::ActionOf({key, modifiers, onPane, !m_state.items.empty()});
    Do(action);
    return action != gallery::GalleryAction::None;
}

void CPicViewDlg::UpdateCursor(const QPoint& point) {
    if (gallery::IsDraggableAt(m_state, point)) {
        m_surface.SetCursor(m_dragFrom ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    } else {
        m_surface.UnsetCursor();
    }
}

void CPicViewDlg::CopyPicture() const {
    const GalleryItem* item = m_state.ItemAt(m_state.currentIndex);
    if (item != nullptr && !m_state.picRect.isEmpty()) {
        QGuiApplication::clipboard()->setMimeData(new gallery::PictureClip(item->picPath));
    }
}

QString CPicViewDlg::TipAt(const QPoint& point) const {
    const CDirectUIButton* button = gallery::ButtonUnder(m_state, point);
    return button == nullptr ? QString() : button->Tip();
}

QRect CPicViewDlg::TipPlace(const QPoint& point) const {
    const CDirectUIButton* button = gallery::ButtonUnder(m_state, point);
    return button == nullptr ? QRect() : button->rect;
}

std::span<const CDirectUIButton> CPicViewDlg::Buttons() const {
    return m_state.buttons;
}

void CPicViewDlg::OnButtonPressed(int index) {
    if (m_state.buttons[size_t(index)].IsEnabled()) {
        Do(gallery::ActionOf(gallery::GalleryButton(index)));
    }
}
