// The prompts that a person gets: message boxes and dialogs of the platform.
#pragma once

#include "toolkit/windows/Prompts.h"

namespace toolkit {

/// Texts are shown as plain text and can be copied. A prompt whose parent dies behind it ends as
/// cancelled, or with no.
class NativePrompts final : public IPrompts {
public:
    void ShowMessage(WindowId parent, const QString& text) override;
    bool AskOkCancel(WindowId parent, const QString& text) override;
    bool AskYesNo(WindowId parent, const QString& text) override;
    bool AskNoYes(WindowId parent, const QString& text) override;
    QString AskFolder(WindowId parent, const QString& title) override;
    QString AskSaveFile(const SaveFileRequest& request) override;
    QStringList AskOpenFiles(const OpenFilesRequest& request) override;
    void OpenFolder(const QString& folder) override;
    bool OpenFile(const QString& path) override;
    void RevealFile(const QString& path) override;
};

/// `path` with `.extension` appended where it lacks that extension (case ignored). An empty path or
/// extension leaves the path as it is.
[[nodiscard]] TOOLKIT_EXPORT QString WithExtension(const QString& path, const QString& extension);

} // namespace toolkit
