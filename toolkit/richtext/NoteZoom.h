// A rich text shown larger or smaller than it is.
#pragma once

#include <QPaintDevice>
#include <QSyntaxHighlighter>

namespace toolkit {

/// Pixels of running text on the sheet, which everything else is shown in proportion to.
inline constexpr int kUsualFace = 12;
inline constexpr int kLeastFace = 6;
inline constexpr int kMostFace = 96;

/// Three means, as a document's layout has none for all: running text and headings follow the
/// document's own face, sizes in points and all distances the density of what it is laid out for,
/// and sizes in pixels a format of the layout. Nothing of it is part of the document, nor a step to
/// undo. Two things stay as they are, as no layout of Qt's asks anybody about them: the height of
/// an empty paragraph whose size is said in pixels, and margins left and right of a paragraph.
/// Pictures are their own handler's. Thread: user interface.
class NoteZoom final : public QSyntaxHighlighter {
public:
    /// @param document  owns this.
    explicit NoteZoom(QTextDocument& document);

    /// @param pixels  of running text; brought between the least and the most.
    void SetFace(int pixels);
    /// 1 at the usual size.
    [[nodiscard]] double Factor() const { return double(m_face) / kUsualFace; }

protected:
    void highlightBlock(const QString& text) override;

private:
    /// Paints nothing: it has a density.
    class Density final : public QPaintDevice {
    public:
        [[nodiscard]] QPaintEngine* paintEngine() const override { return nullptr; }
        int dotsPerInch = 0;

    protected:
        [[nodiscard]] int metric(PaintDeviceMetric which) const override;
    };

    QTextDocument& m_document;
    Density m_density;
    int m_face = kUsualFace;
};

} // namespace toolkit
