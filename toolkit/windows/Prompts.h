// Message boxes, questions, file dialogs and the shell, behind one seam: a person gets the native
// ones, a test answers them.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/windows/WindowId.h"

#include <QString>
#include <QStringList>

namespace toolkit {

/// What a save dialog is opened with.
struct SaveFileRequest {
    WindowId parent = kNoWindow;
    QString proposedName;     ///< may hold a folder
    QString defaultExtension; ///< without dot; appended where the typed name lacks it
    QString filter;           ///< Qt's form: "name (*.jpg)"
};

struct OpenFilesRequest {
    WindowId parent = kNoWindow;
    QString filter;
};

/// Everything that asks the person something. Texts are plain text. Thread: user interface.
class TOOLKIT_EXPORT IPrompts {
public:
    virtual ~IPrompts() = default;

    virtual void ShowMessage(WindowId parent, const QString& text) = 0;
    /// OK and Cancel, topmost. True: OK.
    virtual bool AskOkCancel(WindowId parent, const QString& text) = 0;
    /// Yes and No. True: yes.
    virtual bool AskYesNo(WindowId parent, const QString& text) = 0;
    /// The same before something that can't be taken back: "no" is what Enter and Escape answer.
    virtual bool AskNoYes(WindowId parent, const QString& text) { return AskYesNo(parent, text); }
    /// Empty: cancelled.
    virtual QString AskFolder(WindowId parent, const QString& title) = 0;
    /// Final path, overwriting already confirmed. Empty: cancelled.
    virtual QString AskSaveFile(const SaveFileRequest& request) = 0;
    /// Empty: cancelled.
    virtual QStringList AskOpenFiles(const OpenFilesRequest& request) = 0;
    /// Shows a folder in the file manager.
    virtual void OpenFolder(const QString& folder) = 0;
    /// Opens a file with the program that the system has for it. False: it has none, as far as it
    /// tells.
    virtual bool OpenFile(const QString& path) {
        OpenFolder(path);
        return true;
    }
    /// Shows a file in the file manager, selected where the platform can.
    virtual void RevealFile(const QString& path) = 0;
};

/// The prompts in use; the native ones unless replaced.
[[nodiscard]] TOOLKIT_EXPORT IPrompts& Prompts();
/// Replaces the prompts, null for the native ones. Gives the ones before.
TOOLKIT_EXPORT IPrompts* SetPrompts(IPrompts* prompts);

} // namespace toolkit
