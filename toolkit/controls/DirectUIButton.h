// A button without a window of its own: its owner paints it, hits it and asks it what to say.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QImage>
#include <QRect>
#include <QString>

class QPainter;

/// How the four states lie in a button's image, in the order normal, hover, pressed, disabled.
enum class ClipType {
    SideBySide = 0, ///< from left to right
    Stacked = 1,    ///< from top to bottom
};

/// Where a button points that has no image.
enum class ButtonArrow { Left, Right, Up, Down };

/// Place, state and image of one button. A value: no window, no timer. Disabled at first.
/// Thread: one at a time.
class TOOLKIT_EXPORT CDirectUIButton final {
public:
    CDirectUIButton() = default;
    CDirectUIButton(int commandId, ButtonArrow arrow, const QString& buttonName,
                    const QString& keyName = {})
        : id(commandId), name(buttonName), shortcut(keyName), m_arrow(arrow) {}

    int id = 0;
    QRect rect;        ///< device-independent pixels of the owner; empty: neither painted nor hit
    bool shown = true; ///< false: neither painted nor hit, its place stays
    QString name;      ///< what a screen reader says
    QString shortcut;  ///< the key that does the same; empty: none

    /// Name and key.
    [[nodiscard]] QString Tip() const;

    [[nodiscard]] bool IsEnabled() const { return m_enabled; }
    /// Disabling ends hover and press.
    void Enable(bool enabled);
    [[nodiscard]] bool IsHot() const { return m_hot; }
    [[nodiscard]] bool IsPressed() const { return m_pressed; }

    /// An image with four frames; one that can't be loaded leaves a plain arrow.
    void SetImage(const QImage& image, ClipType clipType);
    [[nodiscard]] bool HasImage() const { return !m_image.isNull(); }

    /// Whether a button lies there, enabled or not.
    [[nodiscard]] bool Covers(const QPoint& point) const { return shown && rect.contains(point); }
    /// Whether an enabled button lies there.
    [[nodiscard]] bool Hits(const QPoint& point) const;
    /// The pointer moved, or left (a point outside). True: paint again.
    bool PointAt(const QPoint& point);
    /// The left button went down. True: the press is this button's.
    bool Press(const QPoint& point);
    /// The left button came up. True: the button was clicked.
    bool Release(const QPoint& point);

    /// The frame of the present state, in its own proportions, as large as fits `rect`, centred.
    void Paint(QPainter& painter) const;

private:
    [[nodiscard]] int FrameIndex() const;
    [[nodiscard]] QRect FrameInImage() const;
    void PaintArrow(QPainter& painter) const;

    ButtonArrow m_arrow = ButtonArrow::Left;
    bool m_enabled = false;
    bool m_hot = false;
    bool m_pressed = false;
    QImage m_image;
    ClipType m_clipType = ClipType::SideBySide;
};
