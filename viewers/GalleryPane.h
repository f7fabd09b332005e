// The window of a gallery: hands what happens to it to whoever paints and answers.
#pragma once

#include "toolkit/controls/DirectUIButton.h"

#include <QPoint>
#include <QRegion>
#include <QString>
#include <QWidget>

#include <span>
#include <vector>

class QPainter;

namespace gallery {

/// Positions are device-independent pixels of the pane.
class IGalleryEvents {
public:
    virtual ~IGalleryEvents() = default;

    /// The pane comes up, or to another screen.
    virtual void OnShown() = 0;
    /// Somebody takes a picture of the pane, which must be complete when it is painted next.
    virtual void OnPictureTaken() = 0;
    /// Paints what is there, and nothing else: no file, no decoding, no change of any state.
    virtual void OnPaint(QPainter& painter, const QRegion& region) const = 0;
    virtual void OnLeftButtonDown(const QPoint& point) = 0;
    virtual void OnLeftButtonUp(const QPoint& point) = 0;
    virtual void OnDoubleClick(const QPoint& point) = 0;
    virtual void OnMouseMove(const QPoint& point) = 0;
    virtual void OnMouseLeave() = 0;
    /// @param delta  eighths of a degree, positive away from the user.
    virtual void OnMouseWheel(int delta, const QPoint& point, bool control) = 0;
    /// A key that went to the pane or to a control on it. True: it goes no further.
    virtual bool OnKey(int key, Qt::KeyboardModifiers modifiers, bool onPane) = 0;
    /// Empty: none.
    [[nodiscard]] virtual QString TipAt(const QPoint& point) const = 0;
    [[nodiscard]] virtual QRect TipPlace(const QPoint& point) const = 0;
    /// The painted buttons, always the same number, as a screen reader finds them.
    [[nodiscard]] virtual std::span<const CDirectUIButton> Buttons() const = 0;
    /// A screen reader presses one of them by its place in Buttons; a disabled one does nothing.
    virtual void OnButtonPressed(int index) = 0;
};

/// Opaque; its painted buttons are children for screen readers (see GalleryAccess.h); sees the keys
/// of its controls before they do. Knows nothing of pictures. Thread: user interface. Owned by its
/// parent or by the dialog that made it.
class GalleryPane final : public QWidget {
    Q_OBJECT

public:
    GalleryPane(IGalleryEvents& events, QWidget* parent);
    ~GalleryPane() override;
    /// The dialog is gone: nothing is handed on any more.
    void Detach() { m_events = nullptr; }
    /// True while the window gets its new size; it is painted afterwards.
    [[nodiscard]] bool IsResizing() const { return m_resizing; }

    /// Empty once detached.
    [[nodiscard]] std::span<const CDirectUIButton> Buttons() const;
    void PressButton(int index);

signals:
    void ButtonEnabledChanged(int index);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void TellChangedButtons();

    IGalleryEvents* m_events;
    bool m_resizing = false;
    std::vector<bool> m_toldEnabled; ///< of each button, at the last paint
};

} // namespace gallery
