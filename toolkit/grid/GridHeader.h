// The header of a grid: captions, the check box of column 0, widths dragged by the user.
#pragma once

#include <QHeaderView>

class CMultiPageGrid;

namespace toolkit {

/// Painted by itself. Shows where a click does something (column 0 and sortable columns); no mark
/// on the sorted column. Owned by its view, on the user interface thread.
class GridHeader final : public QHeaderView {
    Q_OBJECT
public:
    GridHeader(CMultiPageGrid& grid, QWidget* parent);

    void Detach();
    /// True while the user drags a width.
    [[nodiscard]] bool IsDragged() const { return m_mouseDown; }
    [[nodiscard]] QSize sizeHint() const override;

signals:
    /// A section was clicked; comes when the event is done with, so the receiver may end the view.
    void clicked(int column);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void SetHover(int column);
    [[nodiscard]] QString TipAt(int column) const;

    CMultiPageGrid* m_grid;
    int m_hover = -1;
    int m_clicked = -1;
    bool m_mouseDown = false;
    bool m_doubleClicked = false; ///< on a section, in the event at hand
};

} // namespace toolkit
