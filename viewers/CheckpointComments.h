// The comments on a checkpoint: the list, and the box in which one is written.
#pragma once

#include "services/DrawingRecords.h"
#include "toolkit/controls/DiscussListCtrl.h"
#include "toolkit/windows/PopTipDlg.h"
#include "viewers/PdfPaneLayout.h"

#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

#include <optional>
#include <vector>

namespace gallery {

/// Reads, writes and deletes comments by the services and shows what is there, and says what
/// failed. Services may let the window be closed or another checkpoint be opened meanwhile: then
/// nothing more is shown.
///
/// Knows nothing of pictures. Its controls are children of the viewer's pane, made anew with each
/// window. Thread: user interface. A member of the viewer.
class CheckpointComments final {
public:
    static constexpr int kListId = 24064;
    static constexpr int kMostCharacters = 500;

    /// @param window  the viewer's; it gets toolkit::kDiscussDelete and calls Delete. Outlives
    /// this.
    explicit CheckpointComments(CPopTipDlg& window) : m_window(window) {}

    void MakeControls(QWidget& pane);
    void LayOut(const PdfPaneLayout& layout);
    /// For a client that may only read.
    void Disable();
    /// Null without a window, as the two below.
    [[nodiscard]] DiscussListCtrl* List() const { return m_list; }
    [[nodiscard]] QPlainTextEdit* Box() const { return m_box; }
    [[nodiscard]] QPushButton* SendButton() const { return m_send; }

    /// Shows those of a checkpoint; one page that fails leaves the list as it was.
    void Load(qint32 drawingId);
    /// What stands in the box becomes a comment of who is signed in.
    void Post();
    /// Asks, then deletes the selected one.
    void Delete();

private:
    [[nodiscard]] std::optional<std::vector<KX_DATA::CheckpointComment>> Fetch();

    CPopTipDlg& m_window;
    qint32 m_drawingId = 0;
    bool m_isPosting = false; ///< a second press while the service is asked does nothing
    QPointer<DiscussListCtrl> m_list;
    QPointer<QPlainTextEdit> m_box;
    QPointer<QPushButton> m_send;
};

} // namespace gallery
