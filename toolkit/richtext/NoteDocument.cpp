#include "toolkit/richtext/NoteDocument.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NotePictures.h"
#include "toolkit/richtext/NoteStore.h"

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QPainter>
#include <QTextBlock>
#include <QTextImageFormat>
#include <QUrl>

#include <set>
#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// For what asks for a picture by its name; the sheet shows it by NotePictures.
QImage MissingPicture() {
    QImage image(kMissingPicture, QImage::Format_RGB32);
    QPainter painter(&image);
    NotePictures::PaintMissing(painter, image.rect());
    return image;
}

NoteFile FileOf(const QString& storeName, const QString& localPath) {
    NoteFile file;
    file.storeName = storeName;
    file.localPath = localPath;
    return file;
}

/// Every piece of text in one format, in the order of the text, also those in tables.
template <class Take> void ForEachFragment(const QTextDocument& document, Take take) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            take(piece.fragment().charFormat());
        }
    }
}

} // namespace

std::optional<NoteAttachment> AttachmentOf(const QString& address) {
    if (!address.startsWith(kAttachmentScheme)) {
        return std::nullopt;
    }
    const QString rest = address.mid(kAttachmentScheme.size());
    const qsizetype slash = rest.indexOf(u'/');
    NoteAttachment attachment;
    attachment.storeName = rest.left(slash);
    const QString name =
        slash < 0 ? QString() : QUrl::fromPercentEncoding(rest.mid(slash + 1).toUtf8());
    // Whatever a document says of folders isn't believed.
    attachment.fileName = name.section(u'/', -1).section(u'\\', -1);
    if (attachment.fileName.isEmpty()) {
        attachment.fileName = attachment.storeName;
    }
    return IsStoreName(attachment.storeName) ? std::optional(attachment) : std::nullopt;
}

QString AddressOf(const NoteAttachment& attachment) {
    return kAttachmentScheme + attachment.storeName + u'/' +
           QString::fromLatin1(QUrl::toPercentEncoding(attachment.fileName));
}

NoteDocument::NoteDocument(QString folder, QObject* parent)
    : QTextDocument(parent), m_folder(std::move(folder)),
      m_pictures(new NotePictures(m_folder, this)) {
    setDefaultFont(UiFont());
    documentLayout()->registerHandler(QTextFormat::ImageObject, m_pictures);
}

NoteFault NoteDocument::Load(const QString& html) {
    const CleanedNote note = CleanNoteHtml(html);
    if (note.fault != NoteFault::None) {
        return note.fault;
    }
    const bool keepsUndo = isUndoRedoEnabled();
    setUndoRedoEnabled(false);
    setHtml(note.html);
    setUndoRedoEnabled(keepsUndo);
    setModified(false);
    return NoteFault::None;
}

QString NoteDocument::Html() const {
    if (defaultFont() == UiFont()) {
        return CleanNoteHtml(toHtml()).html;
    }
    // A sheet that is zoomed has another font, and what is as large as that would go unsaid.
    const std::unique_ptr<QTextDocument> usual(clone());
    usual->setDefaultFont(UiFont());
    return CleanNoteHtml(usual->toHtml()).html;
}

std::vector<NoteFile> NoteDocument::Files() const {
    std::vector<NoteFile> pictures;
    std::vector<NoteFile> attachments;
    std::set<QString> known;
    ForEachFragment(*this, [&](const QTextCharFormat& format) {
        const QString name = format.isImageFormat() ? format.toImageFormat().name() : QString();
        if (IsStoreName(name) && known.insert(name).second) {
            pictures.push_back(FileOf(name, m_folder + name));
        }
        const auto attachment = AttachmentOf(format.anchorHref());
        if (attachment && known.insert(format.anchorHref()).second) {
            attachments.push_back(
                FileOf(attachment->storeName,
                       AttachedPath(m_folder, attachment->storeName, attachment->fileName)));
            attachments.back().isAttachment = 1;
        }
    });
    pictures.insert(pictures.end(), attachments.begin(), attachments.end());
    return pictures;
}

std::optional<QTextImageFormat> NoteDocument::ImageFormat(const QString& storeName,
                                                          int room) const {
    QSize size = m_pictures->FileSize(storeName);
    if (size.isEmpty()) {
        return std::nullopt;
    }
    if (size.width() > room) {
        size = QSize(room, std::max(1, qRound(double(size.height()) * room / size.width())));
    }
    QTextImageFormat format;
    format.setName(storeName);
    format.setWidth(size.width());
    format.setHeight(size.height());
    return format;
}

QVariant NoteDocument::loadResource(int type, const QUrl& name) {
    // Nothing else is ever read, from wherever it is.
    if (type != ImageResource) {
        return {};
    }
    const QString storeName = name.toString();
    const QImage image = m_pictures->Decoded(storeName, m_pictures->FileSize(storeName));
    return image.isNull() ? MissingPicture() : image;
}

} // namespace toolkit
