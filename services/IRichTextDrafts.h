// Rich texts that a person wrote and that weren't saved.
#pragma once

#include "services/EnvRecords.h"
#include "services/RichTextRecords.h"

#include <QByteArray>

namespace KX_DATA {

/// What a pane of rich texts gives up.
struct RichTextDraft {
    RichTextKey key;
    QString docName;
    QString versionText;           ///< of the saved version that it is built on; empty: of none
    QString stateText;             ///< what was selected; empty: nothing
    std::vector<UploadItem> files; ///< all of the document; they lie in the editor's folders
    QByteArray page;               ///< HTML of one that lies in no file yet; else empty
};

class IRichTextDrafts {
public:
    virtual ~IRichTextDrafts() = default;

    /// Keeps a text for the person who wrote it. Says nothing and asks nothing: it may come from a
    /// window that ends. The files are copied before it returns.
    virtual void Keep(const RichTextDraft& draft) = 0;
    /// The same for a text that is still being written, without a word and at no cost worth it:
    /// should the program end badly, it is a draft at the next start. Replaces what was kept open
    /// of the same document.
    virtual void KeepOpen(const RichTextDraft& draft) = 0;
    /// What was kept open of a document is saved or as it was; nothing if nothing was.
    virtual void DropOpen(const RichTextKey& key, const QString& docName) = 0;
};

} // namespace KX_DATA
