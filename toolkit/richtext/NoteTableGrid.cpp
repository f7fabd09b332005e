#include "toolkit/richtext/NoteTableGrid.h"

#include "toolkit/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSquare = 16;
constexpr int kPitch = kSquare + 4;
constexpr int kEdge = 8;
constexpr int kWordsHeight = 20;
constexpr int kField = kTableGridSide * kPitch - (kPitch - kSquare);

QString WordsOf(const NoteTableSize& size) {
    return u"%1 × %2"_s.arg(size.rows).arg(size.columns);
}

/// What an arrow key makes of a size; the same size for any other key and at the ends.
NoteTableSize Stepped(NoteTableSize size, int key) {
    size.rows += int(key == Qt::Key_Down) - int(key == Qt::Key_Up);
    size.columns += int(key == Qt::Key_Right) - int(key == Qt::Key_Left);
    return {std::clamp(size.rows, 1, kTableGridSide), std::clamp(size.columns, 1, kTableGridSide)};
}

} // namespace

QRect TableSquare(int row, int column) {
    return {kEdge + column * kPitch, kEdge + row * kPitch, kSquare, kSquare};
}

NoteTableSize TableSizeAt(const QPoint& place) {
    const auto count = [](int pixel) {
        return std::clamp((pixel - kEdge) / kPitch + 1, 1, kTableGridSide);
    };
    return {count(place.y()), count(place.x())};
}

NoteTableGrid::NoteTableGrid(QWidget* parent) : QWidget(parent) {
    setObjectName(u"tableGrid"_s);
    setAccessibleName(u"表格大小（行 × 列）"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setFixedSize(NoteTableGrid::sizeHint());
    Light({});
}

QSize NoteTableGrid::sizeHint() const {
    return {kField + 2 * kEdge, kField + 2 * kEdge + kWordsHeight};
}

void NoteTableGrid::Light(const NoteTableSize& size) {
    m_lit = size;
    setAccessibleDescription(WordsOf(size));
    update();
}

void NoteTableGrid::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    for (int row = 0; row < kTableGridSide; ++row) {
        for (int column = 0; column < kTableGridSide; ++column) {
            const bool isLit = row < m_lit.rows && column < m_lit.columns;
            const QRect square = TableSquare(row, column);
            painter.fillRect(square, isLit ? Colors::Hover() : Qt::white);
            painter.setPen(isLit ? Colors::TextAccent() : Colors::Frame());
            painter.drawRect(square.adjusted(0, 0, -1, -1));
        }
    }
    painter.setPen(Colors::Text());
    painter.drawText(QRect(0, kEdge + kField, width(), kWordsHeight + kEdge), Qt::AlignCenter,
                     WordsOf(m_lit));
}

void NoteTableGrid::mouseMoveEvent(QMouseEvent* event) {
    Light(TableSizeAt(event->pos()));
}

void NoteTableGrid::mouseReleaseEvent(QMouseEvent* event) {
    const int below = TableSquare(kTableGridSide - 1, 0).bottom() + kEdge;
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()) &&
        event->pos().y() <= below) {
        Light(TableSizeAt(event->pos()));
        emit Chosen(m_lit.rows, m_lit.columns);
    }
}

void NoteTableGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        emit Chosen(m_lit.rows, m_lit.columns);
        return;
    default:
        break;
    }
    const NoteTableSize next = Stepped(m_lit, event->key());
    if (next == m_lit) {
        event->ignore();
        return;
    }
    Light(next);
}

void NoteTableGrid::showEvent(QShowEvent* event) {
    Light({});
    QWidget::showEvent(event);
}

} // namespace toolkit
