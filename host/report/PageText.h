// Texts on a page: their looks, and their lines in a column.
#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QString>
#include <QTextLayout>

#include <memory>

class QPainter;

namespace host {

inline constexpr QColor kTextInk{0x22, 0x22, 0x22};
inline constexpr QColor kFaintInk{0x5f, 0x6b, 0x7a};
inline constexpr QColor kHeadInk{0x15, 0x42, 0x8b};
inline constexpr QColor kFrameInk{0xb1, 0xc3, 0xd9};
inline constexpr QColor kShadeInk{0xf4, 0xf7, 0xfb};

enum class TextLook { Title, Heading, Subheading, Body, Strong, Faint };

/// Without hints of a screen, so that a line is as long on every device.
[[nodiscard]] QFont FontOf(TextLook look);
[[nodiscard]] QColor InkOf(TextLook look);

/// A text broken into lines of a width, 1/96 inch. Copies share their lines. Control characters are
/// blanks; line breaks stay. Thread: one at a time.
class TextColumn final {
public:
    TextColumn(const QString& text, TextLook textLook, double width);

    [[nodiscard]] int LineCount() const { return m_layout->lineCount(); }
    [[nodiscard]] double Height() const { return HeightOf(0, LineCount()); }
    /// Of the lines from `first` up to `end`.
    [[nodiscard]] double HeightOf(int first, int end) const;
    /// End of the lines from `first` on that fit into a height.
    [[nodiscard]] int EndIn(double height, int first) const;
    /// Of the longest line.
    [[nodiscard]] double NaturalWidth() const;
    /// The lines, the first of them at `corner`.
    void Draw(QPainter& painter, const QPointF& corner, int first, int end) const;

private:
    std::shared_ptr<QTextLayout> m_layout;
    TextLook m_look;
};

} // namespace host
