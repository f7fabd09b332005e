#include "toolkit/controls/DiscussListCtrl.h"

#include "toolkit/Look.h"
#include "toolkit/controls/DiscussModel.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Between two portions of measuring, for whatever else is to be done.
constexpr int kPauseMs = 10;

constexpr std::array kMoves{Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                            Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

bool IsMove(int key) {
    return std::find(kMoves.begin(), kMoves.end(), key) != kMoves.end();
}

} // namespace

DiscussListCtrl::DiscussListCtrl(QWidget* parent, int id)
    : QListView(parent), m_rows(std::make_unique<toolkit::DiscussModel>()), m_id(id) {
    setModel(m_rows.get());
    setItemDelegate(new toolkit::DiscussDelegate(*m_rows, this));
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    m_portions.setInterval(kPauseMs);
    connect(&m_portions, &QTimer::timeout, this, [this] { MeasureSome(); });
    Measure();
}

DiscussListCtrl::~DiscussListCtrl() {
    // The rows go first.
    setModel(nullptr);
}

void DiscussListCtrl::Measure() {
    // As if the scroll bar were always there: its coming and going breaks no line anew.
    const int width = this->width() - 2 * frameWidth() - verticalScrollBar()->sizeHint().width();
    m_rows->SetShape(std::max(1, width), font());
    scheduleDelayedItemsLayout();
    if (!m_rows->IsMeasured()) {
        m_portions.start();
    }
}

void DiscussListCtrl::MeasureSome() {
    if (!m_rows->MeasureSome()) {
        m_portions.stop();
        LayOutAnew();
    }
}

/// With other heights; what is in sight stays where it is.
void DiscussListCtrl::LayOutAnew() {
    const bool atEnd = IsAtEnd();
    const QModelIndex first = indexAt(QPoint(viewport()->width() / 2, 0));
    const int place = visualRect(first).top();
    doItemsLayout();
    if (atEnd) {
        scrollToBottom();
    } else if (first.isValid()) {
        QScrollBar& bar = *verticalScrollBar();
        bar.setValue(bar.value() + visualRect(first).top() - place);
    }
}

bool DiscussListCtrl::IsAtEnd() const {
    return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

int DiscussListCtrl::InsertRow(const QString& text, const QString& time, qint64 rowData) {
    InsertRows({{text, time, rowData}});
    return GetRowCount() - 1;
}

void DiscussListCtrl::InsertRows(std::vector<toolkit::DiscussRow> rows) {
    m_rows->Append(std::move(rows));
    scrollToBottom();
    if (!m_rows->IsMeasured()) {
        m_portions.start();
    }
}

void DiscussListCtrl::RemoveAll() {
    m_rows->Clear();
}

void DiscussListCtrl::RemoveRow(int row) {
    if (row < 0 || row >= GetRowCount()) {
        return;
    }
    m_rows->Remove(row);
    clearSelection();
}

int DiscussListCtrl::GetRowCount() const {
    return m_rows->rowCount();
}

int DiscussListCtrl::GetCurSel() const {
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
}

qint64 DiscussListCtrl::GetRowData(int row) const {
    return row < 0 || row >= GetRowCount() ? 0 : m_rows->Rows()[size_t(row)].data;
}

int DiscussListCtrl::FindRow(qint64 rowData) const {
    const auto& rows = m_rows->Rows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const toolkit::DiscussRow& row) {
        return row.data == rowData;
    });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

void DiscussListCtrl::SetEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

/// The owner may end the list in its answer: whoever calls this is done.
void DiscussListCtrl::AskToDelete() {
    toolkit::SendWindowEvent(toolkit::WindowOf(parentWidget()), toolkit::kDiscussDelete,
                             quintptr(m_id));
}

void DiscussListCtrl::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier) {
        event->accept();
        AskToDelete();
        return;
    }
    if (IsMove(event->key()) && event->modifiers() == Qt::ControlModifier) {
        QKeyEvent plain(event->type(), event->key(), Qt::NoModifier);
        QListView::keyPressEvent(&plain);
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}

void DiscussListCtrl::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex row = byKey ? currentIndex() : indexAt(event->pos());
    if (row.isValid()) {
        setCurrentIndex(row);
    } else {
        clearSelection();
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* remove = menu->addAction(u"删除"_s);
    remove->setEnabled(row.isValid());
    connect(remove, &QAction::triggered, this, [this] { AskToDelete(); });
    menu->popup(byKey && row.isValid() ? viewport()->mapToGlobal(visualRect(row).center())
                                       : event->globalPos());
}

void DiscussListCtrl::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Measure();
    }
}

void DiscussListCtrl::resizeEvent(QResizeEvent* event) {
    const bool atEnd = IsAtEnd();
    QListView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        Measure();
    }
    if (atEnd) {
        scrollToBottom();
    }
}

void DiscussListCtrl::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (GetRowCount() == 0 && !m_emptyText.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(toolkit::Colors::HintText());
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    }
}
