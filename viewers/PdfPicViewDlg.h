// The pane of the drawing photo viewer: one checkpoint with its pictures, texts and comments.
#pragma once

#include "toolkit/controls/UnderLineButton.h"
#include "viewers/CheckpointComments.h"
#include "viewers/DrawingViewItem.h"
#include "viewers/NotePlayer.h"
#include "viewers/PdfPaneTexts.h"
#include "viewers/PicViewDlg.h"

#include <QPointer>
#include <QPushButton>

#include <functional>
#include <vector>

class CPdfPicViewWrap;

/// The pictures of a checkpoint, one at a time, with people, times and description; the
/// checkpoint's mark, labels, texts and voice note; its comments. Deletes pictures and comments,
/// writes comments, has the checkpoint edited.
///
/// Knows neither the console nor the drawing. Whatever the services or a question let happen
/// meanwhile, another checkpoint opened or the window closed, is found out afterwards. Thread: user
/// interface. A member of the window around it, as whose child it is created.
class CPdfPicViewDlg final : public CPicViewDlg {
public:
    /// @param wrap  the window around the pane, not owned; null: none.
    explicit CPdfPicViewDlg(CPdfPicViewWrap* wrap);

    /// Runs the checkpoint's editor over a window. `markName`: the present mark's.
    using EditorRun = std::function<DialogResult(
        const KX_DATA::CheckpointEdit& edit, const QString& markName, toolkit::WindowId parent)>;
    /// What "编辑" opens.
    EditorRun runEditor;

    /// Shows a checkpoint. False: it can't be read, or there is no window any more.
    /// @param wantedPicId  the picture shown first; the first one for -1 and for one not listed.
    bool LoadCheckpoint(qint32 checkpoint, qint32 wantedPicId);
    void DeletePicture();
    void EditCheckpoint();

    [[nodiscard]] const std::vector<DrawingViewItem>& Items() const { return items; }
    [[nodiscard]] const KX_DATA::DrawingRecord& Record() const { return record; }
    [[nodiscard]] gallery::NotePlayer& Note() { return m_note; }
    [[nodiscard]] const gallery::PdfPaneTexts& Texts() const { return m_texts; }
    [[nodiscard]] gallery::CheckpointComments& Comments() { return m_comments; }
    [[nodiscard]] UnderLineButton* DeleteButton() const { return deleteBtn; }
    [[nodiscard]] UnderLineButton* EditButton() const { return editBtn; }
    [[nodiscard]] QPushButton* ReportButton() const { return reportBtn; }

protected:
    void OnCurPicChanged(int index) override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { LayoutPicPane(); }
    void OnClose() override;
    qintptr OnEvent(const toolkit::WindowEvent& event) override;
    void OnTimer(int timerId) override;

private:
    void MakeControls();
    void LimitToRights();
    void LayoutPicPane();
    void BuildGallery(qint32 wantedPicId);
    void ShowCheckpoint();
    void ShowPicDetail(int index);
    void ShowItem(int index);
    void RemovePicture(qint32 picId);
    [[nodiscard]] gallery::NoteTerms TermsOfNote();
    /// Asked after a call in which anything may have happened: is the same load still shown?
    [[nodiscard]] std::function<bool()> SameLoad() const;

    CPdfPicViewWrap* wrap;
    QPointer<UnderLineButton> deleteBtn;
    QPointer<UnderLineButton> editBtn;
    QPointer<QPushButton> reportBtn;
    qint32 drawingId = 0;
    KX_DATA::DrawingRecord record;      ///< stays until the next load
    std::vector<DrawingViewItem> items; ///< one for each picture of the checkpoint
    int m_load = 0;                     ///< counts the checkpoints that were opened
    gallery::NotePlayer m_note;
    gallery::PdfPaneTexts m_texts;
    gallery::CheckpointComments m_comments{*this};
};
