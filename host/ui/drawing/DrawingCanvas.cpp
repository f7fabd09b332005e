#include "host/ui/drawing/DrawingCanvas.h"

#include "host/ui/Blink.h"
#include "toolkit/Look.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Where a square's edges lie on the screen: whole device pixels, so that neighbours leave no seam.
QRectF OnScreen(const QRectF& area, const SheetView& view, const QSizeF& pane, qreal ratio) {
    const auto whole = [ratio](double at) { return std::round(at * ratio) / ratio; };
    const QPointF from = ToPane(view, pane, area.topLeft());
    const QPointF to = ToPane(view, pane, area.bottomRight());
    return {QPointF(whole(from.x()), whole(from.y())), QPointF(whole(to.x()), whole(to.y()))};
}

} // namespace

DrawingCanvas::DrawingCanvas(SheetStore& store, QWidget* parent) : QWidget(parent), m_store(store) {
    setObjectName(u"drawingCanvas"_s);
    setAccessibleName(u"图纸"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_blink = new Blink(this);
    connect(m_blink, &Blink::Changed, this, qOverload<>(&QWidget::update));
    connect(&m_store, &SheetStore::StateChanged, this, &DrawingCanvas::OnStateChanged);
    connect(&m_store, &SheetStore::TilesCame, this, qOverload<>(&QWidget::update));
}

void DrawingCanvas::OnStateChanged() {
    if (m_store.Present() == SheetStore::State::Open) {
        m_page = std::clamp(m_page, 0, int(m_store.Pages().size()) - 1);
        Fit();
        emit PageChanged();
    } else if (m_store.Present() != SheetStore::State::Opening) {
        m_page = 0;
        emit PageChanged();
    }
    update();
}

void DrawingCanvas::SetEmptyText(const QString& text) {
    m_emptyText = text;
    update();
}

void DrawingCanvas::SetFlags(std::vector<SheetFlag> flags) {
    const auto pointOf = [this](int flag) { return flag < 0 ? 0 : m_flags[size_t(flag)].pointId; };
    const qint32 chosen = pointOf(m_chosen);
    const qint32 hovered = pointOf(m_hovered);
    m_flags = std::move(flags);
    m_chosen = FlagOfPoint(m_flags, chosen);
    m_hovered = FlagOfPoint(m_flags, hovered);
    m_pressed = -1;
    update();
}

void DrawingCanvas::SetPlacing(bool on) {
    m_isPlacing = on;
    UpdatePointer();
}

QSizeF DrawingCanvas::Sheet() const {
    const SheetPages& pages = m_store.Pages();
    return m_page < int(pages.size()) ? pages[size_t(m_page)] : QSizeF();
}

void DrawingCanvas::ShowPage(int page) {
    if (page == m_page || page < 0 || page >= int(m_store.Pages().size())) {
        return;
    }
    m_page = page;
    m_chosen = -1;
    m_hovered = -1;
    Fit();
    update();
    emit PageChanged();
}

void DrawingCanvas::Fit() {
    if (!Sheet().isEmpty()) {
        SetView(FitSheet(Sheet(), Pane()));
        m_isFit = true;
    }
}

void DrawingCanvas::Zoom(double factor) {
    if (!Sheet().isEmpty()) {
        SetView(ZoomSheet(m_view, Sheet(), Pane(), QRectF(rect()).center(), factor));
    }
}

bool DrawingCanvas::LocateFlag(qint32 pointId) {
    const int found = FlagOfPoint(m_flags, pointId);
    if (found < 0 || Sheet().isEmpty()) {
        return false;
    }
    const SheetFlag flag = m_flags[size_t(found)];
    ShowPage(flag.page);
    if (!QRectF(rect()).contains(FlagRect(flag, Sheet(), m_view, Pane()))) {
        SetView(CentreSheet(m_view, Sheet(), Pane(),
                            {flag.place.x() * Sheet().width(), flag.place.y() * Sheet().height()}));
    }
    m_blinking = pointId;
    m_blink->Start();
    Choose(FlagOfPoint(m_flags, pointId));
    return true;
}

bool DrawingCanvas::IsLit() const {
    return m_blink->IsLit();
}

QRectF DrawingCanvas::RectOf(qint32 pointId) const {
    const int found = FlagOfPoint(m_flags, pointId);
    if (found < 0 || Sheet().isEmpty() || m_flags[size_t(found)].page != m_page) {
        return {};
    }
    return FlagRect(m_flags[size_t(found)], Sheet(), m_view, Pane());
}

std::optional<SheetPlace> DrawingCanvas::PlaceUnder(const QPointF& pixel) const {
    const QSizeF sheet = Sheet();
    const QPointF place = ToSheet(m_view, Pane(), pixel);
    if (sheet.isEmpty() || !QRectF(QPointF(), sheet).contains(place)) {
        return std::nullopt;
    }
    return SheetPlace{m_page, {place.x() / sheet.width(), place.y() / sheet.height()}};
}

int DrawingCanvas::FlagAt(const QPointF& pixel) const {
    return Sheet().isEmpty() ? -1 : FlagUnder(m_flags, m_page, pixel, Sheet(), m_view, Pane());
}

qint32 DrawingCanvas::PointUnder(const QPointF& pixel) const {
    const int flag = FlagAt(pixel);
    return flag < 0 ? 0 : m_flags[size_t(flag)].pointId;
}

void DrawingCanvas::SetView(const SheetView& view) {
    m_isFit = false;
    m_view = view;
    WantSeen();
    update();
    emit ViewChanged();
}

void DrawingCanvas::WantSeen() {
    SheetWish wish;
    wish.page = m_page;
    wish.level = LevelFor(m_view.scale * devicePixelRatioF());
    const QRectF seen = SeenOfSheet(m_view, Pane());
    wish.tiles = TilesUnder(seen, Sheet(), wish.level);
    wish.middle = seen.center() * LevelScale(wish.level) / kTileSide;
    m_store.Want(wish);
}

void DrawingCanvas::Choose(int flag) {
    m_chosen = flag;
    update();
}

void DrawingCanvas::SetHovered(int flag) {
    if (flag != m_hovered) {
        m_hovered = flag;
        update();
    }
    UpdatePointer();
}

void DrawingCanvas::UpdatePointer() {
    if (m_isPanning) {
        setCursor(Qt::ClosedHandCursor);
    } else if (m_hovered >= 0) {
        setCursor(Qt::PointingHandCursor);
    } else {
        setCursor(m_isPlacing ? Qt::CrossCursor : Qt::ArrowCursor);
    }
}

QString DrawingCanvas::Notice() const {
    switch (m_store.Present()) {
    case SheetStore::State::Opening:
        return u"正在打开图纸…"_s;
    case SheetStore::State::Broken:
        return u"无法显示图纸。"_s + DrawingFaultText(m_store.Fault());
    case SheetStore::State::Empty:
        return m_emptyText;
    default:
        return {};
    }
}

/// What is there of the present level, over what is there of others, the nearest uppermost.
void DrawingCanvas::PaintTiles(QPainter& painter) const {
    const int level = LevelFor(m_view.scale * devicePixelRatioF());
    std::vector<TileKey> tiles = m_store.Tiles().KeysOf(m_page);
    if (m_store.IsComplete()) {
        std::erase_if(tiles, [level](const TileKey& tile) { return tile.level != level; });
    }
    std::stable_sort(tiles.begin(), tiles.end(), [level](const TileKey& one, const TileKey& other) {
        return std::abs(one.level - level) > std::abs(other.level - level);
    });
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const TileKey& tile : tiles) {
        const QRectF target =
            OnScreen(TileArea(tile, Sheet()), m_view, Pane(), devicePixelRatioF());
        if (target.intersects(rect())) {
            painter.drawImage(target, *m_store.Tiles().Find(tile));
        }
    }
}

void DrawingCanvas::PaintFlags(QPainter& painter) const {
    const auto paint = [&](int at) {
        const SheetFlag& flag = m_flags[size_t(at)];
        const QRectF place = FlagRect(flag, Sheet(), m_view, Pane());
        if (flag.page == m_page && place.intersects(rect())) {
            PaintSheetFlag(
                painter, place, flag,
                {at == m_hovered, at == m_chosen, m_blink->IsLit() && flag.pointId == m_blinking});
        }
    };
    for (int at = 0; at < int(m_flags.size()); ++at) {
        paint(at);
    }
    for (const int above : {m_chosen, m_hovered}) {
        if (above >= 0) {
            paint(above);
        }
    }
}

void DrawingCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), toolkit::Colors::Pane());
    const QString notice = Notice();
    if (!notice.isEmpty()) {
        painter.setPen(toolkit::Colors::HintText());
        painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap,
                         notice);
    } else {
        const QRectF sheet =
            OnScreen(QRectF(QPointF(), Sheet()), m_view, Pane(), devicePixelRatioF());
        painter.fillRect(sheet, Qt::white);
        PaintTiles(painter);
        painter.setPen(toolkit::Colors::Frame());
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(sheet);
        PaintFlags(painter);
    }
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(toolkit::Colors::Accent());
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void DrawingCanvas::resizeEvent(QResizeEvent*) {
    if (Sheet().isEmpty()) {
        return;
    }
    if (m_isFit) {
        Fit();
    } else {
        SetView(ClampSheet(m_view, Sheet(), Pane()));
    }
}

bool DrawingCanvas::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const int flag = FlagAt(help->pos());
    if (flag >= 0) {
        QToolTip::showText(help->globalPos(),
                           toolkit::PlainTip(SheetFlagTip(m_flags[size_t(flag)])), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

} // namespace host
