// The editor of rich texts as its owners know it.
#pragma once

#include "toolkit/richtext/ZvEditorNotify.h"
#include "toolkit/windows/WindowObject.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace toolkit {
class NoteEdit;
} // namespace toolkit

/// Sent to the window that an editor is made in, once, when documents can be loaded.
inline constexpr int kEditorReady = 8005;

/// A child window that shows one document. Its page is an HTML file in the document form, its
/// pictures lie beside it in the folder of pages (NoteStore.h); both are called by their content,
/// so a document's name is no file's name. Thread: user interface. Owned by whoever made it.
class TOOLKIT_EXPORT CZelvorEditorImpl final : public toolkit::WindowObject {
public:
    CZelvorEditorImpl();
    ~CZelvorEditorImpl() override;

    /// Null: nobody is told. Must outlive its use here.
    void SetZvEditorNotify(IZvEditorNotify* notify) { m_notify = notify; }
    /// An empty document. @param name  gets a name that no other document has.
    void NewEditor(QString& name, qint32 readOnly);
    /// A document whose files lie in the folder. One whose page is missing or can't be read is
    /// shown as a sentence that says so, and never changes.
    /// @param files        those of the page by name; the one that ends in ".html" is the page.
    /// @param attachments  sizes in bytes by store name.
    void LoadEditor(const QString& name, const std::vector<QString>& files,
                    const std::map<QString, quint64>& attachments, qint32 readOnly);
    /// Writes the page into the folder and tells all files of the document, if it has changed since
    /// it was loaded; nothing at all otherwise. False: it couldn't be written, which the editor
    /// says.
    bool SaveEditor();
    /// What a save would write and tell now; writes and tells nothing. Nothing if it would neither.
    struct Unsaved {
        QString html;
        std::vector<NoteFile> files; ///< without the page
    };
    [[nodiscard]] std::optional<Unsaved> LookAtUnsaved() const;
    /// As the document was at the last load or save.
    void GetLastHtml(QString& html) const;
    void SetReadOnly(qint32 readOnly);

    [[nodiscard]] const QString& DocumentName() const { return m_name; }
    /// Null without a window.
    [[nodiscard]] toolkit::NoteEdit* Sheet() const;

protected:
    QWidget* MakeWindow(QWidget* parent) override;
    void OnCreated() override;

private:
    class Frame;
    void Show(const QString& html, const QString& name, qint32 readOnly);
    void ShowLack(const QString& sentence);
    void OpenLink(const QString& address);

    IZvEditorNotify* m_notify = nullptr;
    toolkit::WindowId m_parent = toolkit::kNoWindow;
    QString m_name;
    QString m_loaded;                          ///< the page as it lay in the store
    mutable std::optional<QString> m_lastHtml; ///< none before somebody asked since the load
    bool m_isBroken = false;                   ///< what is shown isn't the document
    bool m_isTold = false;                     ///< a change since the load
};
