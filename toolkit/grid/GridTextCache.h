// Laid-out texts of a grid's cells: shaping Chinese text costs more than drawing it.
#pragma once

#include <QFontMetrics>
#include <QHash>
#include <QStaticText>
#include <QString>

namespace toolkit {

/// A text as it is drawn in one line.
struct GridLine {
    QStaticText text;
    int width = 0; ///< device-independent pixels
};

/// Keeps what it laid out, up to some pages of it. User interface thread; one per view.
class GridTextCache final {
public:
    /// Forgets everything unless the font is the one from before.
    void SetFont(const QFont& font);
    /// The text, or what fits of it with an ellipsis. Valid until the next call.
    const GridLine& Line(const QString& whole, int room);

private:
    struct Entry {
        GridLine whole;
        GridLine elided;
        int elidedRoom = -1;
    };
    [[nodiscard]] GridLine LayOut(const QString& text) const;

    QFont m_font;
    QHash<QString, Entry> m_entries;
};

/// A text in one line: line breaks become blanks.
[[nodiscard]] QString GridLineText(const QString& text);

} // namespace toolkit
