// Floor plans for the sample's drawing photos.
#pragma once

#include <QByteArray>
#include <QString>

namespace sample {

/// What a sheet shows and what its title block says.
struct DrawingOrder {
    quint64 seed = 0;
    QString project;
    QString title;  ///< "首层建筑平面图"
    QString number; ///< "建施-03"
    QString date;
};

/// Grid of the sample plans: axes 1 to 9 and A to F.
inline constexpr int kPlanColumns = 9;
inline constexpr int kPlanRows = 6;

/// One A3 page as a PDF: axes with bubbles, columns, walls, doors, dimensions, title block.
/// Equal orders give equal bytes with the same fonts. Needs the application object.
[[nodiscard]] QByteArray MakeDrawing(const DrawingOrder& order);

} // namespace sample
