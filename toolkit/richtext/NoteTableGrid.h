// The size of a new table, chosen on a field of small squares.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QWidget>

namespace toolkit {

struct NoteTableSize {
    int rows = 1;
    int columns = 1;

    friend bool operator==(const NoteTableSize&, const NoteTableSize&) = default;
};

/// Rows and columns of squares.
inline constexpr int kTableGridSide = 8;

/// Where a square lies in the field; both from 0. Device-independent pixels.
[[nodiscard]] TOOLKIT_EXPORT QRect TableSquare(int row, int column);
/// The size that a place in the field stands for; beside the squares the nearest one.
[[nodiscard]] TOOLKIT_EXPORT NoteTableSize TableSizeAt(const QPoint& place);

/// Lights the squares up to the mouse, or as the arrow keys go, with the size in words below. A
/// click, Enter or the space bar chooses. Keys that lead out of the field are left to the menu that
/// it stands in. Begins again at one square whenever it comes up. Thread: user interface. Owned by
/// its parent.
class TOOLKIT_EXPORT NoteTableGrid final : public QWidget {
    Q_OBJECT

public:
    explicit NoteTableGrid(QWidget* parent);

    [[nodiscard]] const NoteTableSize& Lit() const { return m_lit; }
    [[nodiscard]] QSize sizeHint() const override;

signals:
    void Chosen(int rows, int columns);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Light(const NoteTableSize& size);

    NoteTableSize m_lit;
};

} // namespace toolkit
