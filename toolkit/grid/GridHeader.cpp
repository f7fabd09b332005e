#include "toolkit/grid/GridHeader.h"

#include "toolkit/Look.h"
#include "toolkit/grid/GridPainter.h"
#include "toolkit/grid/MultiPageGrid.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

using namespace Qt::StringLiterals;

namespace toolkit {

GridHeader::GridHeader(CMultiPageGrid& grid, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_grid(&grid) {
    setObjectName(u"gridHeader"_s);
    setSectionsClickable(true);
    setHighlightSections(false);
    setMinimumSectionSize(20);
    setStretchLastSection(false);
    setMouseTracking(true);
    connect(this, &QHeaderView::sectionClicked, this, [this](int column) { m_clicked = column; });
    connect(this, &QHeaderView::sectionDoubleClicked, this, [this] { m_doubleClicked = true; });
}

void GridHeader::Detach() {
    m_grid = nullptr;
}

QSize GridHeader::sizeHint() const {
    constexpr int kPadding = 12;
    return {QHeaderView::sizeHint().width(), fontMetrics().height() + kPadding};
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    const QColor background = column == m_hover ? Colors::Hover() : Colors::Header();
    painter->fillRect(rect, background);
    painter->setPen(Colors::Frame());
    painter->drawLine(rect.topRight(), rect.bottomRight());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    if (m_grid == nullptr) {
        return;
    }
    const QRect inner = rect.adjusted(0, 0, -1, -1);
    const QIcon image = m_grid->GetHeaderImageList().At(m_grid->GetHeaderImage(column));
    if (!image.isNull()) {
        QRect place(QPoint(), m_grid->GetHeaderImageList().ImageSize());
        place.moveCenter(inner.center());
        image.paint(painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        return;
    }
    painter->setPen(Colors::TextAccent());
    const QString caption = m_grid->GetColumnCaption(column);
    const QRect text = inner.adjusted(2, 0, -2, 0);
    painter->drawText(text, int(m_grid->GetHeaderAlign(column) | Qt::AlignVCenter),
                      fontMetrics().elidedText(caption, Qt::ElideRight, text.width()));
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
    m_mouseDown = event->button() == Qt::LeftButton;
    QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    m_doubleClicked = false;
    QHeaderView::mouseDoubleClickEvent(event);
    // Between the handles the second of two quick clicks is a click like the first.
    if (std::exchange(m_doubleClicked, false)) {
        mousePressEvent(event);
    }
}

void GridHeader::mouseMoveEvent(QMouseEvent* event) {
    QHeaderView::mouseMoveEvent(event);
    SetHover(m_mouseDown ? -1 : logicalIndexAt(event->position().toPoint()));
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
    m_mouseDown = false;
    QHeaderView::mouseReleaseEvent(event);
    // Told only now: the base still works with its members after its own signal.
    const int column = std::exchange(m_clicked, -1);
    if (column >= 0) {
        emit clicked(column);
    }
}

bool GridHeader::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        SetHover(-1);
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString tip = TipAt(logicalIndexAt(help->pos()));
        if (tip.isEmpty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), PlainTip(tip), viewport());
        }
        return true;
    }
    return QHeaderView::viewportEvent(event);
}

void GridHeader::SetHover(int column) {
    // Only where a click does something.
    if (m_grid != nullptr && column > 0) {
        const auto found = m_grid->sortable.find(column);
        if (found == m_grid->sortable.end() || !found->second) {
            column = -1;
        }
    }
    if (column == m_hover) {
        return;
    }
    m_hover = column;
    viewport()->update();
}

QString GridHeader::TipAt(int column) const {
    if (m_grid == nullptr || column < 0) {
        return {};
    }
    const QString tip = m_grid->GetColumnTip(column);
    const QString caption = m_grid->GetColumnCaption(column);
    if (!tip.isEmpty() || fontMetrics().horizontalAdvance(caption) <= sectionSize(column) - 5) {
        return tip;
    }
    return caption;
}

} // namespace toolkit
