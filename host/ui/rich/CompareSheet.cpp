#include "host/ui/rich/CompareSheet.h"

#include "toolkit/Look.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QUrl>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBarLeft = 4;
constexpr int kBarWidth = 3;

QColor BarColor(toolkit::LineChange change) {
    switch (change) {
    case toolkit::LineChange::Added:
        return {0x2E, 0x9E, 0x4F};
    case toolkit::LineChange::Removed:
        return toolkit::Colors::ErrorText();
    case toolkit::LineChange::Changed:
        return {0xD9, 0x82, 0x0A};
    default:
        return toolkit::Colors::TextAccent();
    }
}

} // namespace

CompareSheet::CompareSheet(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard |
                            Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    ShowHint({});
    connect(this, &QTextBrowser::anchorClicked, this, &CompareSheet::OpenFold);
}

void CompareSheet::ShowLines(std::vector<toolkit::ComparedLine> lines,
                             const CompareFolders& folders) {
    m_lines = std::move(lines);
    m_open.clear();
    m_hint.clear();
    m_place = -1;
    auto* page = new CompareDocument(folders, devicePixelRatioF(), this);
    page->Write(m_lines, m_open);
    setDocument(page);
    delete m_page;
    m_page = page;
    setCursorWidth(m_lines.empty() ? 0 : 1);
    emit PlaceChanged();
}

void CompareSheet::ShowHint(const QString& hint) {
    ShowLines({}, {});
    m_hint = hint;
    viewport()->update();
}

int CompareSheet::PlaceCount() const {
    return int(m_page->Places().size());
}

void CompareSheet::GoTo(int place) {
    if (place < 0 || place >= PlaceCount()) {
        return;
    }
    m_place = place;
    const QTextBlock block =
        document()->findBlockByNumber(m_page->Places()[std::size_t(place)].firstBlock);
    setTextCursor(QTextCursor(block));
    // Some lines above it are read along.
    const QRectF where = document()->documentLayout()->blockBoundingRect(block);
    verticalScrollBar()->setValue(int(where.top()) - viewport()->height() / 4);
    viewport()->update();
    emit PlaceChanged();
}

void CompareSheet::OpenFold(const QUrl& address) {
    const int fold = FoldAt(address.toString());
    if (fold < 0) {
        return;
    }
    m_open.insert(fold);
    const int block = textCursor().blockNumber();
    const int scrolled = verticalScrollBar()->value();
    m_page->Write(m_lines, m_open);
    // The first line that came out of it stands where it was.
    setTextCursor(QTextCursor(document()->findBlockByNumber(block)));
    verticalScrollBar()->setValue(scrolled);
}

void CompareSheet::paintEvent(QPaintEvent* event) {
    QTextBrowser::paintEvent(event);
    if (m_lines.empty()) {
        QPainter painter(viewport());
        painter.setPen(toolkit::Colors::HintText());
        painter.drawText(viewport()->rect().adjusted(12, 8, -12, -8),
                         Qt::AlignCenter | Qt::TextWordWrap, m_hint);
        return;
    }
    PaintBars(event->rect());
}

void CompareSheet::PaintBars(const QRect& clip) {
    QPainter painter(viewport());
    const QPointF shift(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    const ChangedPlace current =
        m_place < 0 ? ChangedPlace{-1, -1} : m_page->Places()[std::size_t(m_place)];
    QTextBlock block = cursorForPosition(QPoint(0, clip.top())).block();
    for (; block.isValid(); block = block.next()) {
        const QRectF where =
            document()->documentLayout()->blockBoundingRect(block).translated(shift);
        if (where.top() > clip.bottom()) {
            break;
        }
        const int number = block.blockNumber();
        const toolkit::LineChange change = m_page->ChangeOf(number);
        if (change == toolkit::LineChange::Same) {
            continue;
        }
        const bool isCurrent = number >= current.firstBlock && number <= current.lastBlock;
        const int width = isCurrent ? 2 * kBarWidth : kBarWidth;
        painter.fillRect(
            QRectF(shift.x() + kBarLeft - (isCurrent ? 2 : 0), where.top(), width, where.height()),
            BarColor(change));
    }
}

QMimeData* CompareSheet::createMimeDataFromSelection() const {
    // What was added and removed would be one text elsewhere, and its pictures are of this sheet.
    auto* given = new QMimeData;
    given->setText(textCursor().selection().toPlainText());
    return given;
}

} // namespace host
