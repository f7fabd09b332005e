#include "toolkit/richtext/NoteDocument.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NoteCommands.h"
#include "toolkit/richtext/NotePictures.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/richtext/NoteZoom.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextImageFormat>
#include <QUrl>

#include <algorithm>
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

/// Names of devices on some systems are names too: a file that is called so was attached so.
bool IsFileName(const QString& name) {
    return !name.isEmpty() && name != u"."_s && name != u".."_s &&
           std::none_of(name.begin(), name.end(),
                        [](QChar letter) { return letter.category() == QChar::Other_Control; });
}

/// Every piece of text in one format, in the order of the text, also those in tables.
template <class Take> void ForEachFragment(const QTextDocument& document, Take take) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            take(piece.fragment().charFormat());
        }
    }
}

bool IsRuleWithText(const QTextBlock& block) {
    return block.length() > 1 &&
           block.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
}

bool HasTextOnRule(const QTextDocument& document) {
    QTextBlock block = document.begin();
    while (block.isValid() && !IsRuleWithText(block)) {
        block = block.next();
    }
    return block.isValid();
}

/// HTML knows no rule with a text on it, and Qt's writes the rule alone.
void PutTextsBeforeTheirRules(QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (!IsRuleWithText(block)) {
            continue;
        }
        const QTextBlockFormat rule = block.blockFormat();
        QTextBlockFormat text = rule;
        text.clearProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
        QTextCursor cursor(block);
        cursor.setBlockFormat(text);
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertBlock(rule);
        block = cursor.block();
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
    if (!IsFileName(attachment.fileName)) {
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
      m_pictures(new NotePictures(m_folder, this)), m_zoom(new NoteZoom(*this)) {
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
    LetLinesBreak(*this, 0, characterCount() - 1);
    setUndoRedoEnabled(keepsUndo);
    setModified(false);
    return NoteFault::None;
}

QString NoteDocument::Html() const {
    const bool isZoomed = defaultFont() != UiFont();
    // An empty document has no text that is as large as something. A copy by Qt of one that stands
    // in a list would look for that list where there is none, and end the program.
    if (isEmpty() || (!isZoomed && !HasTextOnRule(*this))) {
        return CleanNoteHtml(toHtml()).html;
    }
    const std::unique_ptr<QTextDocument> saved(clone());
    // What is as large as the sheet's own font goes unsaid, and a zoomed sheet has another one.
    saved->setDefaultFont(UiFont());
    PutTextsBeforeTheirRules(*saved);
    return CleanNoteHtml(saved->toHtml()).html;
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

bool NoteDocument::HasFileOf(const QString& attachmentAddress) const {
    const auto wanted = AttachmentOf(attachmentAddress);
    if (!wanted) {
        return false;
    }
    bool isHere = QFile::exists(AttachedPath(m_folder, wanted->storeName, wanted->fileName));
    ForEachFragment(*this, [&](const QTextCharFormat& format) {
        const auto had = AttachmentOf(format.anchorHref());
        isHere = isHere ||
                 (had && had->storeName == wanted->storeName && had->fileName == wanted->fileName);
    });
    return isHere;
}

std::optional<QTextImageFormat> NoteDocument::ImageFormat(const QString& storeName,
                                                          const QSize& room) const {
    QSize size = m_pictures->FileSize(storeName);
    if (size.isEmpty()) {
        return std::nullopt;
    }
    if (size.width() > room.width() || size.height() > room.height()) {
        size = size.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
    }
    QTextImageFormat format;
    format.setName(storeName);
    format.setWidth(size.width());
    format.setHeight(size.height());
    return format;
}

void NoteDocument::ShowAt(int face) {
    m_pictures->ShowAt(double(std::clamp(face, kLeastFace, kMostFace)) / kUsualFace);
    m_zoom->SetFace(face);
}

double NoteDocument::ShownFactor() const {
    return m_zoom->Factor();
}

std::optional<quint64> NoteDocument::SizeOf(const NoteAttachment& attachment) const {
    const QFileInfo file(AttachedPath(m_folder, attachment.storeName, attachment.fileName));
    const auto told = m_sizes.find(attachment.storeName);
    if (told != m_sizes.end()) {
        return told->second;
    }
    return file.isFile() ? std::optional(quint64(file.size())) : std::nullopt;
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
