// Roads over a drawing with checkpoints, in the main window's drawing view.
#pragma once

#include "host/ui/MainWindow.h"
#include "host/ui/drawing/DrawingPane.h"
#include "site/IDrawings.h"
#include "tests/roads/PhotoRoad.h"

#include <QComboBox>
#include <QToolButton>

namespace roads {

inline constexpr QSizeF kDrawingSheet(1000, 800);

/// The client with a drawing "首层平面图" of two pages in front: checkpoint 3 with a photo
/// "墙面.jpg", checkpoint 4 without; the other drawing has no file.
class DrawingRoad : public PhotoRoad {
protected:
    void Furnish() override;
    void SetUp() override;

    [[nodiscard]] host::DrawingPane& Pane() const { return client->Window()->Drawing(); }
    [[nodiscard]] host::DrawingCanvas& Canvas() const { return Pane().Canvas(); }
    [[nodiscard]] host::SheetStore& Store() const { return Pane().Store(); }
    [[nodiscard]] QComboBox* Choice() const {
        return Pane().findChild<QComboBox*>(QStringLiteral("drawingChoice"));
    }
    void Choose(const QString& name) const;
    [[nodiscard]] QPoint PixelOf(double x, double y) const;
    void ClickOnSheet(double x, double y) const;
    /// Opens the menu of a flag, or of a place with none, and takes an entry; false if it has none.
    [[nodiscard]] bool ChooseInMenu(const QPoint& at, const QString& entry) const;
    [[nodiscard]] QPoint OnFlag(qint32 point) const {
        return Canvas().RectOf(point).center().toPoint() - QPoint(0, 3);
    }
    [[nodiscard]] std::vector<site::CheckpointFlag> Points() const {
        return session.Site().Drawings().Flags({site.firstProject}, drawing).value();
    }
    [[nodiscard]] QStringList Drawings() const;
    [[nodiscard]] QToolButton* PlaceButton() const {
        return Pane().findChild<QToolButton*>(QStringLiteral("placeCheckpoint"));
    }
    void Locate(qint32 point) const;
    [[nodiscard]] bool Says(const QString& part) const;

    qint32 drawing = 0;
    qint32 withPhoto = 0;
    qint32 without = 0;
    qint32 photo = 0; ///< 墙面.jpg
};

} // namespace roads
