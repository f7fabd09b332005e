// Texts beside values: one line that is elided, several lines, one on a colour.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QColor>
#include <QLabel>

/// One line of plain text, "&" as it stands, centred vertically; what doesn't fit is elided in its
/// middle, as a path is, or at its end. Screen readers get all of it. Thread: user interface. Owned
/// by its parent.
class TOOLKIT_EXPORT CStaticFilespec : public QLabel {
public:
    explicit CStaticFilespec(QWidget* parent);

    /// True to begin with; false: elided at its end.
    void SetPathShortening(bool shortens);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode m_elision = Qt::ElideMiddle;
};

/// Plain text broken into as many lines as the height holds, at least one; the last one is elided.
/// Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CAutoLineStatic final : public CStaticFilespec {
public:
    explicit CAutoLineStatic(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// One line of plain text on a coloured ground.
/// Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CColorStatic final : public QLabel {
public:
    /// The alignment of marks: centred both ways on one line.
    static constexpr int kCentredLine = 37;

    explicit CColorStatic(QWidget* parent);

    /// kCentredLine centres; anything else stands left, centred vertically.
    void SetTxtAlian(int alignment);
    /// Drawn on whatever ground there is.
    void SetFontColor(const QColor& color);
    void SetBGColor(const QColor& color);
    [[nodiscard]] QColor FontColor() const { return m_fontColor; }
    [[nodiscard]] QColor BGColor() const { return m_background; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    QColor m_fontColor = Qt::black;
    QColor m_background;
};

namespace toolkit {

/// Puts a one-line text where it is told to stand; a place lower than the face's line grows evenly
/// up and down, so that nothing is cut.
TOOLKIT_EXPORT void PlaceLine(QLabel& line, const QRect& place);

} // namespace toolkit
