#include "host/app/PlanPicture.h"

#include "host/ui/plan/FlagLayout.h"
#include "host/ui/plan/FlagPaint.h"
#include "host/ui/plan/FloorPlanLayout.h"
#include "host/ui/plan/FloorPlanPaint.h"
#include "host/ui/plan/FloorPlanState.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace host {

namespace {

/// The plan is painted as for a pane of this size, device-independent pixels; the picture has
/// more dots.
constexpr QSizeF kPlanPane(640, 400);
constexpr double kSharpness = 2.5;

} // namespace

QImage PlanPictureOf(const FloorPlanModel& model, const QString& positionKey) {
    const auto place = FindPlace(model, positionKey);
    if (!place) {
        return {};
    }
    const FloorPlanState state = Locate(*place);
    const PlanFloor& floor = model.floors[static_cast<size_t>(place->floor)];
    const FloorPlanLayout layout = LayoutFloorPlan(floor, kPlanPane);
    const QRectF all(QPointF(), layout.size);
    const double sharpness = std::min({kSharpness, kPlanPicture.width() / layout.size.width(),
                                       kPlanPicture.height() / layout.size.height()});
    QImage image((layout.size * sharpness).toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(sharpness, sharpness);
    const std::vector<PlacedFlag> noFlags;
    const FlagLayout noLayout;
    PaintFloorPlan(painter, {model, state, layout, {noFlags, noLayout, -1, -1, all}, false});
    return image;
}

SheetPicture::SheetPicture(Order pictureOrder, QObject* parent)
    : QObject(parent), m_order(std::move(pictureOrder)), m_reader(DrawingReader::Terms{}) {
    connect(&m_reader, &DrawingReader::Opened, this, &SheetPicture::OnOpened);
    connect(&m_reader, &DrawingReader::Rendered, this,
            [this](const RenderRequest&, const QImage& image) { OnRendered(image); });
    connect(&m_reader, &DrawingReader::Failed, this, [this](DrawingFault) { emit Made(QImage()); });
    m_reader.Open(m_order.path);
}

void SheetPicture::OnOpened(const SheetPages& pages) {
    if (m_order.page < 0 || m_order.page >= static_cast<int>(pages.size())) {
        emit Made(QImage());
        return;
    }
    m_points = pages[static_cast<size_t>(m_order.page)];
    const QSize full = m_points.scaled(kPlanPicture, Qt::KeepAspectRatio).toSize();
    m_reader.Render({m_order.page, full, QRect(QPoint(), full)});
}

void SheetPicture::OnRendered(const QImage& sheet) {
    QImage image = sheet.convertToFormat(QImage::Format_RGB32);
    const QSizeF pane = QSizeF(image.size()) / kSharpness;
    const SheetView view{pane.width() / m_points.width(),
                         QPointF(m_points.width() / 2, m_points.height() / 2)};
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(kSharpness, kSharpness);
        for (const SheetFlag& flag : m_order.flags) {
            if (flag.page == m_order.page) {
                PaintSheetFlag(painter, FlagRect(flag, m_points, view, pane), flag,
                               {false, flag.pointId == m_order.chosen, false});
            }
        }
    }
    emit Made(image);
}

} // namespace host
