#include "toolkit/richtext/NoteEdit.h"

#include "toolkit/Look.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteCommands.h"
#include "toolkit/richtext/NoteLinkTip.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/richtext/NoteZoom.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHandle = 8; ///< side of a handle, pixels
constexpr double kLeastWidth = 16;
constexpr double kMostPictureWidth = 4000;
constexpr int kLeastRoom = 120;
/// Of the sheet's height, for a new picture: something of the text stays in sight.
constexpr double kPictureShare = 0.6;
/// Of a picture within pasted text, Base64.
constexpr qsizetype kMostDataAddress = qsizetype(48) * 1024 * 1024;

QRectF HandleOf(const QRectF& place) {
    return {place.right() - kHandle, place.bottom() - kHandle, kHandle, kHandle};
}

bool IsPicture(const QString& path) {
    return !ReadPictureSize(path).isEmpty();
}

QStringList LocalFiles(const QMimeData& source) {
    QStringList paths;
    for (const QUrl& url : source.urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile()) {
            paths << url.toLocalFile();
        }
    }
    return paths;
}

/// The bytes of "data:image/...;base64,..." (RFC 2397); nothing for any other address.
QByteArray DataOf(const QString& address) {
    const qsizetype comma = address.indexOf(u',');
    const QString head = address.left(comma).toLower();
    if (comma < 0 || address.size() > kMostDataAddress || !head.startsWith(u"data:image/"_s) ||
        !head.endsWith(u";base64"_s)) {
        return {};
    }
    return QByteArray::fromBase64(address.mid(comma + 1).toLatin1());
}

} // namespace

NoteEdit::NoteEdit(QWidget* parent) : QTextEdit(parent), m_face(kUsualFace) {
    setAcceptRichText(true);
    setTabChangesFocus(false);
    viewport()->setMouseTracking(true);
}

void NoteEdit::SetNote(std::unique_ptr<NoteDocument> document) {
    m_resized.reset();
    NoteDocument* before = std::exchange(m_note, document.release());
    m_note->setParent(this);
    m_note->ShowAt(m_face);
    setDocument(m_note);
    // Qt's goes on with the look of the text before.
    setTextCursor(QTextCursor(m_note));
    delete before;
}

QSize NoteEdit::RoomForPictures() const {
    // A tall picture brings the bar, which takes of the width.
    const QScrollBar& bar = *verticalScrollBar();
    const int forBar = bar.isVisible() ? 0 : bar.sizeHint().width();
    const double zoom = m_note->ShownFactor();
    const QSize room(int((viewport()->width() - forBar) / zoom - 2 * document()->documentMargin()),
                     int(viewport()->height() * kPictureShare / zoom));
    return room.expandedTo({kLeastRoom, kLeastRoom});
}

bool NoteEdit::InsertStored(const QString& storeName) {
    const auto format = m_note->ImageFormat(storeName, RoomForPictures());
    if (format) {
        InsertPicture(textCursor(), *format);
        ensureCursorVisible();
    }
    return format.has_value();
}

void NoteEdit::InsertFiles(const QStringList& paths) {
    QStringList others;
    for (const QString& path : paths) {
        if (!IsPicture(path)) {
            others << path;
            continue;
        }
        const auto name = StoreCopy(path, m_note->Folder());
        if (!name || !InsertStored(*name)) {
            emit Refused(u"无法插入图片“%1”，请检查磁盘空间和文件夹权限。"_s.arg(
                QFileInfo(path).fileName()));
        }
    }
    InsertAsAttachments(others);
}

void NoteEdit::InsertAsAttachments(const QStringList& paths) {
    for (const QString& path : paths) {
        const QString fileName = QFileInfo(path).fileName();
        const auto name = StoreAttached(path, m_note->Folder());
        if (!name) {
            emit Refused(u"无法添加附件“%1”，请检查文件、磁盘空间和文件夹权限。"_s.arg(fileName));
            continue;
        }
        InsertAttachment(textCursor(), {*name, fileName});
    }
}

bool NoteEdit::canInsertFromMimeData(const QMimeData* source) const {
    return !isReadOnly() && m_note != nullptr &&
           (source->hasImage() || source->hasHtml() || source->hasText() ||
            !LocalFiles(*source).isEmpty());
}

void NoteEdit::PasteImage(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const bool isWritten = !image.isNull() && image.save(&buffer, "PNG");
    const auto name = isWritten ? StoreBytes(bytes, m_note->Folder(), u".png"_s) : std::nullopt;
    if (!name || !InsertStored(*name)) {
        emit Refused(u"无法粘贴图片，请检查磁盘空间和文件夹权限。"_s);
    }
}

QString NoteEdit::KeepPasted(const QString& address) const {
    // A name alone brings no file along: what was copied elsewhere may not lie here.
    if (IsStoreName(address)) {
        return QFile::exists(m_note->Folder() + address) ? address : QString();
    }
    if (AttachmentOf(address)) {
        return m_note->HasFileOf(address) ? address : QString();
    }
    const QByteArray bytes = DataOf(address);
    if (bytes.isEmpty()) {
        return {};
    }
    const auto name = StoreBytes(bytes, m_note->Folder(), {});
    const bool isPicture = name && IsPicture(m_note->Folder() + *name);
    return isPicture ? *name : QString();
}

void NoteEdit::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source)) {
        return;
    }
    const QStringList files = LocalFiles(*source);
    if (!files.isEmpty()) {
        InsertFiles(files);
    } else if (source->hasHtml()) {
        const CleanedNote note = CleanNoteHtml(
            source->html(), [this](const QString& address) { return KeepPasted(address); });
        if (note.fault == NoteFault::None && !note.html.trimmed().isEmpty()) {
            QTextCursor cursor = textCursor();
            cursor.beginEditBlock();
            const int from = cursor.selectionStart();
            cursor.insertHtml(note.html);
            LetLinesBreak(*document(), from, cursor.position());
            cursor.endEditBlock();
        } else {
            textCursor().insertText(source->text());
        }
    } else if (source->hasImage()) {
        PasteImage(qvariant_cast<QImage>(source->imageData()));
    } else {
        textCursor().insertText(source->text());
    }
    ensureCursorVisible();
}

QRectF NoteEdit::PlaceOf(int position) const {
    const QTextBlock block = document()->findBlock(position);
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    if (!line.isValid()) {
        return {};
    }
    const QRectF area = document()->documentLayout()->blockBoundingRect(block);
    const double left = line.cursorToX(position - block.position());
    const double right = line.cursorToX(position - block.position() + 1);
    QTextCursor cursor(document());
    cursor.setPosition(position + 1);
    const double height = cursor.charFormat().toImageFormat().height() * m_note->ShownFactor();
    const double bottom = area.top() + line.y() + line.ascent();
    return QRectF(area.left() + left, bottom - height, right - left, height)
        .translated(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
}

std::optional<NoteEdit::Picked> NoteEdit::PictureUnder(const QPoint& pixel) const {
    const int at = cursorForPosition(pixel).position();
    for (const int position : {at - 1, at}) {
        if (position >= 0 &&
            document()->characterAt(position) == QChar::ObjectReplacementCharacter) {
            const QRectF place = PlaceOf(position);
            if (place.contains(pixel)) {
                return Picked{position, place};
            }
        }
    }
    return std::nullopt;
}

std::optional<NoteEdit::Picked> NoteEdit::PickedPicture() const {
    const QTextCursor cursor = textCursor();
    const int start = cursor.selectionStart();
    const bool isOne = cursor.selectionEnd() - start == 1 &&
                       document()->characterAt(start) == QChar::ObjectReplacementCharacter;
    return isOne ? std::optional(Picked{start, PlaceOf(start)}) : std::nullopt;
}

void NoteEdit::ResizePicture(int position, double width) {
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
    QTextImageFormat format = cursor.charFormat().toImageFormat();
    if (!format.isValid() || format.width() <= 0) {
        return;
    }
    const double wanted = std::clamp(width, kLeastWidth, kMostPictureWidth);
    format.setHeight(std::max(1.0, format.height() * wanted / format.width()));
    format.setWidth(wanted);
    cursor.setCharFormat(format);
}

void NoteEdit::Zoom(int pixels) {
    m_face = std::clamp(m_face + pixels, kLeastFace, kMostFace);
    if (m_note != nullptr) {
        m_note->ShowAt(m_face);
    }
}

void NoteEdit::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        // Qt's own zooming knows no faces whose size is in pixels.
        const int turned = event->angleDelta().y();
        Zoom(int(turned > 0) - int(turned < 0));
        event->accept();
        return;
    }
    QTextEdit::wheelEvent(event);
}

void NoteEdit::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_note != nullptr) {
        // Qt has given the document the face of the window.
        m_note->ShowAt(m_face);
    }
}

bool NoteEdit::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_note != nullptr) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString address = anchorAt(help->pos());
        if (!address.isEmpty()) {
            QToolTip::showText(help->globalPos(), PlainTip(LinkTip(*m_note, address, isReadOnly())),
                               viewport());
            return true;
        }
    }
    return QTextEdit::viewportEvent(event);
}

void NoteEdit::keyPressEvent(QKeyEvent* event) {
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    const bool backwards =
        event->key() == Qt::Key_Backtab || event->modifiers().testFlag(Qt::ShiftModifier);
    if (isTab && event->modifiers().testFlag(Qt::ControlModifier)) {
        // QTextEdit's own stays in a sheet that takes Tab as text.
        QWidget::focusNextPrevChild(!backwards);
        return;
    }
    QTextCursor cursor = textCursor();
    if (isTab && !isReadOnly() && StepCell(cursor, backwards)) {
        setTextCursor(cursor);
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void NoteEdit::mousePressEvent(QMouseEvent* event) {
    const auto picked = isReadOnly() ? std::nullopt : PickedPicture();
    if (picked && HandleOf(picked->place).contains(event->position())) {
        m_resized = picked;
        m_width = picked->place.width();
        return;
    }
    const QString address = anchorAt(event->pos());
    if (!address.isEmpty() && event->button() == Qt::LeftButton &&
        (isReadOnly() || event->modifiers() == Qt::ControlModifier)) {
        emit LinkOpened(address);
        return;
    }
    QTextEdit::mousePressEvent(event);
    const auto under = isReadOnly() ? std::nullopt : PictureUnder(event->pos());
    if (under && event->button() == Qt::LeftButton) {
        QTextCursor cursor(document());
        cursor.setPosition(under->position);
        cursor.setPosition(under->position + 1, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
}

void NoteEdit::mouseMoveEvent(QMouseEvent* event) {
    if (m_resized) {
        m_width = std::clamp(event->position().x() - m_resized->place.left(), kLeastWidth,
                             kMostPictureWidth);
        viewport()->update();
        return;
    }
    const auto picked = isReadOnly() ? std::nullopt : PickedPicture();
    const bool isOnHandle = picked && HandleOf(picked->place).contains(event->position());
    const bool isOnLink = !anchorAt(event->pos()).isEmpty() &&
                          (isReadOnly() || event->modifiers().testFlag(Qt::ControlModifier));
    viewport()->setCursor(isOnHandle ? Qt::SizeFDiagCursor
                          : isOnLink ? Qt::PointingHandCursor
                                     : Qt::IBeamCursor);
    QTextEdit::mouseMoveEvent(event);
}

void NoteEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (const auto resized = std::exchange(m_resized, std::nullopt)) {
        ResizePicture(resized->position, m_width / m_note->ShownFactor());
        return;
    }
    QTextEdit::mouseReleaseEvent(event);
}

void NoteEdit::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    const auto picked = isReadOnly() ? std::nullopt : PickedPicture();
    if (!picked) {
        return;
    }
    QRectF place = picked->place;
    if (m_resized && place.width() > 0) {
        place.setSize(place.size() * (m_width / place.width()));
    }
    QPainter painter(viewport());
    painter.setPen(QPen(Colors::Accent(), 1));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    painter.fillRect(HandleOf(place), Colors::Accent());
}

} // namespace toolkit
