#include "host/report/RecordDocument.h"

#include "host/report/PageText.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <cmath>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLeastScale = 0.3;
constexpr QSizeF kMissingSize(160, 60);

} // namespace

RecordDocument::RecordDocument(const RecordBlock& block, const QSizeF& room, double taken)
    : m_folder(block.folder), m_room(room.toSize()) {
    m_text.documentLayout()->registerHandler(QTextFormat::ImageObject, this);
    m_text.setUndoRedoEnabled(false);
    m_text.setUseDesignMetrics(true);
    m_text.setDocumentMargin(0);
    QFont face = FontOf(TextLook::Body);
    m_text.setDefaultFont(face);
    // Its owner has brought in what it names.
    const toolkit::CleanedNote note =
        toolkit::CleanNoteHtml(block.html, [](const QString& address) { return address; });
    if (note.fault == toolkit::NoteFault::None) {
        m_text.setHtml(note.html);
    } else {
        m_text.setPlainText(kRecordTooLarge);
    }
    m_text.setPageSize(m_room);
    ShrinkToFit();
    LeaveRoom(taken / m_scale);
}

void RecordDocument::LeaveRoom(double height) {
    if (height < 1) {
        return;
    }
    QTextCursor cursor(&m_text);
    cursor.insertBlock();
    cursor.movePosition(QTextCursor::Start);
    QTextBlockFormat room;
    room.setLineHeight(height, QTextBlockFormat::FixedHeight);
    cursor.setBlockFormat(room);
}

QSizeF RecordDocument::OwnSize(const QString& file) {
    auto known = m_sizes.find(file);
    if (known == m_sizes.end()) {
        known = m_sizes.insert(file,
                               file.isEmpty() ? QSizeF() : QSizeF(toolkit::ReadPictureSize(file)));
    }
    return *known;
}

void RecordDocument::ShrinkToFit() {
    // The first layout tells how wide it wants to be: a wide table, a long word.
    const double width = m_text.documentLayout()->documentSize().width();
    if (width > m_room.width() + 1) {
        m_scale = std::max(kLeastScale, m_room.width() / width);
        m_text.setPageSize(m_room / m_scale);
    }
}

int RecordDocument::PageCount() const {
    return m_text.pageCount();
}

void RecordDocument::Paint(QPainter& painter, int page, IPageInk& ink) {
    m_ink = &ink;
    const QSizeF size = m_text.pageSize();
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(QPointF(0, page * size.height()), size);
    // A line that begins where the page ends is the next one's.
    context.clip.adjust(0, 0, 0, -1);
    context.palette.setColor(QPalette::Text, kTextInk);
    painter.save();
    painter.scale(m_scale, m_scale);
    painter.translate(0, -context.clip.top());
    painter.setClipRect(context.clip.adjusted(0, 0, 0, 1));
    m_text.documentLayout()->draw(&painter, context);
    painter.restore();
    m_ink = nullptr;
}

QString RecordDocument::FileOf(const QTextFormat& format) const {
    const QString name = format.toImageFormat().name();
    const QString path = m_folder + name;
    return toolkit::IsStoreName(name) && QFileInfo(path).isFile() ? path : QString();
}

QSizeF RecordDocument::intrinsicSize(QTextDocument*, int, const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    QSizeF size(image.width(), image.height());
    const QSizeF own = OwnSize(FileOf(format));
    if (own.isEmpty()) {
        return kMissingSize;
    }
    if (size.width() <= 0 && size.height() <= 0) {
        size = own;
    } else if (size.width() <= 0) {
        size.setWidth(size.height() * own.width() / own.height());
    } else if (size.height() <= 0) {
        size.setHeight(size.width() * own.height() / own.width());
    }
    // A line has no room for more than a page.
    const QSizeF most = m_text.pageSize() - QSizeF(0, 12);
    if (size.width() > most.width() || size.height() > most.height()) {
        size = size.scaled(most, Qt::KeepAspectRatio);
    }
    return size;
}

void RecordDocument::drawObject(QPainter* painter, const QRectF& place, QTextDocument*, int,
                                const QTextFormat& format) {
    if (m_ink != nullptr) {
        m_ink->DrawPhoto(*painter, {place}, FileOf(format), {});
    }
}

std::vector<RecordDocument::Picture> RecordDocument::Pictures() const {
    std::vector<Picture> pictures;
    for (QTextBlock block = m_text.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFormat format = at.fragment().charFormat();
            const QString file = format.isImageFormat() ? FileOf(format) : QString();
            if (!file.isEmpty()) {
                auto* self = const_cast<RecordDocument*>(this);
                pictures.push_back({file, self->intrinsicSize(nullptr, 0, format)});
            }
        }
    }
    return pictures;
}

} // namespace host
