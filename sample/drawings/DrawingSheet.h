// Floor plans for the sample's drawing photos.
#pragma once

#include <QByteArray>
#include <QString>

namespace sample {

/// What a plan shows beside its walls and axes.
enum class SheetTrade { Building, Structure, Plumbing, Electrical };

/// What a sheet shows and what its title block says.
struct DrawingOrder {
    quint64 seed = 0;
    QString project;
    QString title;  ///< "首层建筑平面图"
    QString number; ///< "建施-03"
    QString date;
    SheetTrade trade = SheetTrade::Building;
    int columns = 9; ///< axes 1 to columns, A and on; two at least of each
    int rows = 6;
};

/// One A1 page as a PDF, 1:100: axes with bubbles, columns, walls, doors, windows, what the trade
/// adds, dimensions, title block; lines and letters, no picture. Equal orders give equal bytes with
/// the same fonts. Needs the application object.
[[nodiscard]] QByteArray MakeDrawing(const DrawingOrder& order);

} // namespace sample
