// The pane of rich texts below the viewers' pictures.
#pragma once

#include "richtext/RichEditorNotify.h"
#include "richtext/WritingWatch.h"
#include "services/IRichTextDrafts.h"
#include "services/RichTextRecords.h"
#include "toolkit/windows/WindowObject.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class CZelvorEditorImpl;
class QComboBox;
class QLabel;

/// Which document a pane shows, and how. Its opener writes it.
struct RichContext {
    QString objectId;
    qint32 subId = 0;
    qint32 ownerId = 0;
    qint32 objectType = 0; ///< 1: of a position, 2: of a drawing
    qint32 readOnly = 0;   ///< 1: nothing can be changed in this pane
    qint32 projectId = 0;
};

/// Shows one rich text and its rectification state, and saves them when its opener moves on.
/// Nothing is locked meanwhile: a version that another person saved is found at the save, and the
/// person is asked. Service calls block it behind a progress strip. Thread: user interface. A
/// member of its opener.
class CRichEditorDlg final : public toolkit::WindowObject {
public:
    CRichEditorDlg();
    ~CRichEditorDlg() override;

    /// Reads the document of the context and opens it. False: the person has been told why not, and
    /// the editor shows what it showed.
    bool LoadRichText();
    /// Saves what has changed. True: the caller may go on, also if the person keeps what somebody
    /// else saved and the own text is dropped; false: it must stay.
    bool SaveRichText();
    void ClosePane();
    /// Forgets context and record; the document stays on screen until the next is loaded.
    void ResetPane();
    /// Places the editor below its row of controls.
    void LayoutPane();
    /// Saves, and goes to another document if it may: loads it as soon as the editor can.
    void GoTo(const RichContext& next);

    /// Has the editor save its page, so that GetLastHtml has what was typed. The record stays as it
    /// is. Nothing without an editor.
    void SaveEditor();
    [[nodiscard]] QString GetEditorName() const { return msg.editorName; }
    /// Of the selected state; empty without one.
    [[nodiscard]] QString GetStateText() const;
    /// Empty without an editor.
    [[nodiscard]] QString GetLastHtml() const;

    /// From the editor: shows an attachment with the program that the system has for it.
    void OpenAttachment(const QString& folderKey, const QString& attachmentName,
                        const QString& storeName);

    [[nodiscard]] bool IsEditorReady() const { return editorReady; }
    [[nodiscard]] const RichContext& Context() const { return m_context; }
    [[nodiscard]] const KX_DATA::RichTextMsg& Message() const { return msg; }
    [[nodiscard]] CZelvorEditorImpl* Editor() const { return editor.get(); }

protected:
    QWidget* MakeWindow(QWidget* parent) override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { LayoutPane(); }
    qintptr OnEvent(const toolkit::WindowEvent& event) override;

private:
    class Frame;
    class Busy;
    /// The question of a save after somebody else's; true: the save goes on.
    bool CheckRichTextConflict();
    bool SaveChanges(const QString& state, const std::vector<NoteFile>& files);
    bool FetchAttachment(const QString& name, const QString& target, QString& error);
    /// What the editor has told of the open document.
    [[nodiscard]] std::vector<NoteFile> ListedFiles() const;
    /// A text that isn't saved is the host's to keep; nothing if it hasn't changed.
    void KeepDraft();
    /// The same for one that nobody asked to save, when the window ends.
    void KeepUnsaved();
    /// What is being written, should the program end badly; nobody is asked or told.
    void KeepOpen();
    void DropOpen();
    void DropLists();
    /// What is on the screen isn't the record of the context: nothing of it could be saved.
    void Lock();
    void FillStates();
    void Tell(const QString& sentence) const;
    [[nodiscard]] KX_DATA::RichTextKey Key() const;

    std::unique_ptr<CZelvorEditorImpl> editor; ///< null until the window exists, and after closing
    CRichEditorNotify notify;
    richtext::WritingWatch m_writing;
    /// What the host keeps of the open document, as it was called then; nothing: it keeps none.
    std::optional<KX_DATA::RichTextDraft> m_keptOpen;
    QString m_givenUp; ///< page and state of what was given up last and is still on the screen
    RichContext m_context;
    KX_DATA::RichTextMsg msg;
    bool editorReady = false;
    QPointer<QComboBox> stateCombo;
    QPointer<QLabel> m_editorText;
};
