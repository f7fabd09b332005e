// The painted sheet with its checkpoints.
#pragma once

#include "host/drawings/SheetStore.h"
#include "host/ui/drawing/SheetFlags.h"

#include <QWidget>

#include <optional>

namespace host {

class Blink;

/// A place on a sheet: page from 0, parts of its width and height, 0 to 1.
struct SheetPlace {
    int page = 0;
    QPointF at;
};

/// Where a person asks what can be done.
struct SheetMenuRequest {
    qint32 pointId = 0; ///< of the flag; 0: none
    SheetPlace place;
    QPoint screen;
};

/// Shows one page of a drawing: zoom about the pointer, pan by hand, flags that are opened by a
/// click. What isn't sharp yet is painted from what is there. Knows no services.
/// Thread: user interface. Owned by its parent.
class DrawingCanvas final : public QWidget {
    Q_OBJECT

public:
    /// The store must outlive the canvas.
    DrawingCanvas(SheetStore& store, QWidget* parent);

    /// What is shown instead while no drawing is there.
    void SetEmptyText(const QString& text);
    void SetFlags(std::vector<SheetFlag> flags);
    [[nodiscard]] const std::vector<SheetFlag>& Flags() const { return m_flags; }
    /// A click on an empty place tells of it, and the pointer says so.
    void SetPlacing(bool on);

    [[nodiscard]] int Page() const { return m_page; }
    /// Nothing for a page that isn't there.
    void ShowPage(int page);
    void Fit();
    /// About the middle.
    void Zoom(double factor);
    /// Brings a flag's page and place into sight and lets it blink; false if there is none.
    bool LocateFlag(qint32 pointId);
    [[nodiscard]] const SheetView& View() const { return m_view; }
    [[nodiscard]] bool IsLit() const;
    /// Where a flag lies in this widget; empty for one that isn't on this page.
    [[nodiscard]] QRectF RectOf(qint32 pointId) const;
    /// The page's place under a pixel; nothing beside the sheet.
    [[nodiscard]] std::optional<SheetPlace> PlaceUnder(const QPointF& pixel) const;
    /// The checkpoint under a pixel; 0: none.
    [[nodiscard]] qint32 PointUnder(const QPointF& pixel) const;

signals:
    void PageChanged();
    void ViewChanged();
    void FlagOpened(qint32 pointId);
    void MenuWanted(const host::SheetMenuRequest& request);
    /// A click while placing.
    void PlaceClicked(const host::SheetPlace& place);
    /// Escape.
    void Left();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void OnStateChanged();
    /// Of the page that is shown, points; empty without one.
    [[nodiscard]] QSizeF Sheet() const;
    [[nodiscard]] QSizeF Pane() const { return size(); }
    void SetView(const SheetView& view);
    void WantSeen();
    void Choose(int flag);
    void Click(const QPointF& pixel);
    void SetHovered(int flag);
    void UpdatePointer();
    [[nodiscard]] int FlagAt(const QPointF& pixel) const;
    void PaintTiles(QPainter& painter) const;
    void PaintFlags(QPainter& painter) const;
    [[nodiscard]] QString Notice() const;

    SheetStore& m_store;
    std::vector<SheetFlag> m_flags;
    QString m_emptyText;
    int m_page = 0;
    SheetView m_view;
    bool m_isFit = true; ///< a pane of another size shows the whole sheet again
    bool m_isPlacing = false;
    int m_hovered = -1;
    int m_chosen = -1;
    int m_pressed = -1;
    qint32 m_blinking = 0;
    std::optional<QPointF> m_grabbed;
    bool m_isPanning = false;
    QPointF m_pressedAt;
    Blink* m_blink = nullptr;
};

} // namespace host
