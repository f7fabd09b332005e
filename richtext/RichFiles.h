// The files of a rich text: which are fetched, which go up, which go away.
#pragma once

#include "services/EnvRecords.h"
#include "services/RichTextRecords.h"
#include "toolkit/richtext/ZvEditorNotify.h"

#include <QString>

#include <map>
#include <vector>

namespace richtext {

/// What a file of a document is.
enum FileKind {
    kPageFile = 1,   ///< fetched before opening, listed by name
    kAttachment = 2, ///< fetched when the person opens it
    kEmbedded = 3,   ///< fetched before opening
};

/// The name under which the store keeps a file: MD5 and the ending of its name, with the dot.
[[nodiscard]] QString StoreNameOf(const KX_DATA::RichAttachment& attachment);

/// Uuids of what the record has and the document no longer.
[[nodiscard]] std::vector<QString>
ListRemoved(const std::vector<KX_DATA::RichAttachment>& attachments,
            const std::vector<NoteFile>& files);
/// What the document has and the record not yet. Content and name count together: a file that got
/// another name goes up again.
[[nodiscard]] std::vector<KX_DATA::UploadItem>
ListUploads(const std::vector<KX_DATA::RichAttachment>& attachments,
            const std::vector<NoteFile>& files);

/// Files that lie ready for the editor.
struct Prepared {
    std::map<QString, quint64> sizes; ///< of attached and embedded files, by store name
    std::vector<QString> names;       ///< of the files of the page
    bool isWhole = true;              ///< all of them are there
    QString error;                    ///< of the service, for one that couldn't be fetched
};
/// Fetches what isn't in the folder of rich texts yet; stops at the first that can't be fetched.
/// Blocks. Thread: user interface.
[[nodiscard]] Prepared PrepareFiles(const std::vector<KX_DATA::RichAttachment>& attachments);

/// Uploads one after the other; stops at the first that fails, and what went up before stays there.
/// Blocks. Thread: user interface.
struct Uploaded {
    std::vector<KX_DATA::RichAttachment> files;
    bool isWhole = true;
    QString error; ///< of the service
};
[[nodiscard]] Uploaded UploadAll(const std::vector<KX_DATA::UploadItem>& items);

/// Downloads one file of a rich text. False: `error` is the service's text.
[[nodiscard]] bool FetchRichFile(const QString& uuid, const QString& path, QString& error);

} // namespace richtext
