// A place in the plan as a picture, for reports.
#pragma once

#include "host/drawings/DrawingReader.h"
#include "host/ui/drawing/SheetFlags.h"
#include "host/ui/plan/FloorPlanModel.h"

#include <QImage>
#include <QObject>

#include <vector>

namespace host {

/// Pixels of such a picture, at most.
inline constexpr QSize kPlanPicture(1600, 1000);

/// The floor with the intersection chosen. Null for a key that no floor has.
[[nodiscard]] QImage PlanPictureOf(const FloorPlanModel& model, const QString& positionKey);

/// One sheet of a drawing with its flags. Thread: user interface.
class SheetPicture final : public QObject {
    Q_OBJECT

public:
    struct Order {
        QString path;
        int page = 0;
        std::vector<SheetFlag> flags; ///< of the whole drawing
        qint32 chosen = 0;            ///< checkpoint that is stressed
    };

    SheetPicture(Order pictureOrder, QObject* parent);

signals:
    /// Null: the sheet can't be shown.
    void Made(const QImage& image);

private:
    void OnOpened(const SheetPages& pages);
    void OnRendered(const QImage& sheet);

    const Order m_order;
    QSizeF m_points; ///< of the page
    DrawingReader m_reader;
};

} // namespace host
