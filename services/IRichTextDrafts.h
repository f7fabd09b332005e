// Rich texts that a person wrote and that weren't saved.
#pragma once

#include "services/EnvRecords.h"
#include "services/RichTextRecords.h"

namespace KX_DATA {

/// What a pane of rich texts gives up.
struct RichTextDraft {
    RichTextKey key;
    QString docName;
    QString versionText;           ///< of the saved version that it is built on; empty: of none
    QString stateText;             ///< what was selected; empty: nothing
    std::vector<UploadItem> files; ///< all of the document; they lie in the editor's folders
};

class IRichTextDrafts {
public:
    virtual ~IRichTextDrafts() = default;

    /// Keeps a text for the person who wrote it. Says nothing and asks nothing: it may come from a
    /// window that ends. The files are copied before it returns.
    virtual void Keep(const RichTextDraft& draft) = 0;
};

} // namespace KX_DATA
