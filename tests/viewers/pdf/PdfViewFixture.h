// The drawing photo viewer on scripted services.
#pragma once

#include "tests/console/ModuleFixture.h"
#include "tests/support/ScriptedAudio.h"
#include "viewers/PdfPicViewWrap.h"

/// Checkpoint 101 has number 7, mark "质量", two labels, two comments and the pictures 1 to 3, of
/// which 2 was never changed; checkpoint 102 has number 8 and picture 9, 103 has no picture. None
/// has a voice note. All files are in the project's folder.
class PdfViewFixture : public ModuleFixture {
protected:
    PdfViewFixture();

    static CPdfPicViewWrap& Wrap() { return CPdfPicViewWrap::Instance(); }
    static CPdfPicViewDlg& Pane() { return Wrap().Pane(); }
    static const gallery::PdfPaneTexts& Texts() { return Pane().Texts(); }
    static DiscussListCtrl& List() { return *Pane().Comments().List(); }
    static QPlainTextEdit& Box() { return *Pane().Comments().Box(); }
    static QPushButton& SendButton() { return *Pane().Comments().SendButton(); }

    /// Opens the viewer on a checkpoint through the facade.
    bool Open(qint32 drawingId = 101, qint32 wantedPicId = -1);
    /// The checkpoint as the service has it.
    [[nodiscard]] KX_DATA::DrawingRecord& Stored(qint32 drawingId = 101);
    /// Files a picture on a checkpoint, with its file in the folder.
    void AddPicture(qint32 drawingId, qint32 picId);
    /// The service has so many comments, numbered from 1.
    void SetComments(int count);
    /// Gives a checkpoint a voice note of ten seconds, its file in the folder.
    void GiveNote(qint32 drawingId = 101);

    [[nodiscard]] int Current() const { return Pane().State().currentIndex; }
    [[nodiscard]] QString Title() const { return Wrap().Widget()->windowTitle(); }
    [[nodiscard]] QString PlayerText() const { return Pane().Note().Status()->text(); }
    /// Texts of the comments, from above.
    [[nodiscard]] std::vector<std::string> Shown() const;
    static void Press(int key);
    static void Click(QWidget* control);
    /// A click on a comment.
    static void ClickComment(int row);
    /// Writes into the box as a person does, and presses "发表".
    static void Send(const QString& text);

    support::ScriptedAudio audio;
};
