// What the editor tells the pane of rich texts.
#pragma once

#include "toolkit/richtext/ZvEditorNotify.h"

#include <map>

class CRichEditorDlg;

/// Thread: user interface. A member of its pane.
class CRichEditorNotify final : public IZvEditorNotify {
public:
    int OnFilesChanged(const QString& name, const std::vector<NoteFile>& files,
                       const QString& text) override;
    void OnOpenAttachment(const QString& folderKey, const QString& attachmentName,
                          const QString& storeName) override;

    std::map<QString, std::vector<NoteFile>> fileLists; ///< by the document's name
    CRichEditorDlg* pane = nullptr;
};
