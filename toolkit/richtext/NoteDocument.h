// One rich text while it is shown and edited.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/richtext/NoteHtml.h"
#include "toolkit/richtext/ZvEditorNotify.h"

#include <QSize>
#include <QTextDocument>

#include <map>
#include <optional>
#include <utility>

class QTextImageFormat;

namespace toolkit {

class NotePictures;
class NoteZoom;

/// An attachment as a link names it.
struct NoteAttachment {
    QString storeName;
    QString fileName; ///< as it was attached, without folder
};
/// Nothing for what is no link to an attachment.
[[nodiscard]] TOOLKIT_EXPORT std::optional<NoteAttachment> AttachmentOf(const QString& address);
[[nodiscard]] TOOLKIT_EXPORT QString AddressOf(const NoteAttachment& attachment);

/// Pictures come from the folder alone, by their store names, and are decoded when they come into
/// sight (NotePictures.h). Thread: user interface.
class TOOLKIT_EXPORT NoteDocument final : public QTextDocument {
    Q_OBJECT

public:
    /// @param folder  of pages and pictures, with "/" at its end.
    NoteDocument(QString folder, QObject* parent);

    /// Replaces the content by what of the HTML is allowed; nothing is changed by one that can't be
    /// read. Afterwards the document is unmodified and has nothing to undo.
    NoteFault Load(const QString& html);
    /// In the document form; the same at whatever size it is shown.
    [[nodiscard]] QString Html() const;
    /// The files that it consists of, the page excepted: each picture once, in the order of the
    /// text, then each attachment once.
    [[nodiscard]] std::vector<NoteFile> Files() const;
    /// True for an attachment that lies here, or that the document has already: its owner may have
    /// it, unfetched.
    [[nodiscard]] bool HasFileOf(const QString& attachmentAddress) const;
    [[nodiscard]] const QString& Folder() const { return m_folder; }

    /// How a picture of the folder stands in a text: as large as it is, or in its proportion as
    /// large as there is room (pixels of the document). Nothing for a file that is no picture.
    [[nodiscard]] std::optional<QTextImageFormat> ImageFormat(const QString& storeName,
                                                              const QSize& room) const;

    /// Everything is shown so large that running text has this face, pixels; what the document says
    /// stays as it is.
    void ShowAt(int face);
    /// 1 at the usual size.
    [[nodiscard]] double ShownFactor() const;

    /// @param sizes  bytes by store name, of attachments that needn't lie here.
    void SetAttachmentSizes(std::map<QString, quint64> sizes) { m_sizes = std::move(sizes); }
    /// Bytes; nothing if nobody knows.
    [[nodiscard]] std::optional<quint64> SizeOf(const NoteAttachment& attachment) const;

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    const QString m_folder;
    NotePictures* m_pictures; ///< a child
    NoteZoom* m_zoom;         ///< a child
    std::map<QString, quint64> m_sizes;
};

} // namespace toolkit
