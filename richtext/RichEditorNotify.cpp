#include "richtext/RichEditorNotify.h"

#include "richtext/RichEditorDlg.h"

int CRichEditorNotify::OnFilesChanged(const QString& name, const std::vector<NoteFile>& files,
                                      const QString& text) {
    constexpr int kTaken = 1;
    if (!files.empty() || !text.isEmpty()) {
        fileLists[name] = files;
    }
    return kTaken;
}

void CRichEditorNotify::OnOpenAttachment(const QString& folderKey, const QString& attachmentName,
                                         const QString& storeName) {
    if (!attachmentName.isEmpty() && pane != nullptr) {
        pane->OpenAttachment(folderKey, attachmentName, storeName);
    }
}
