#include "editors/CheckPtEditDlg.h"

#include "base/Guard.h"
#include "editors/EditorOpening.h"
#include "editors/LabelTreeEdit.h"
#include "editors/MarkChoice.h"
#include "services/Factories.h"
#include "services/IPDFDrawingMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"
#include "ui_CheckPtEditDlg.h"

#include <utility>

using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;

namespace {

constexpr int kMostOfNewLabel = 127;
/// One more than of the remark; required as is.
constexpr int kMostOfDescription = 256;
constexpr int kMostOfRemark = 255;

/// A box has its own line breaks and blanks: an untouched text is sent as it came.
void ReadIfTouched(const QPlainTextEdit& box, QString& text) {
    if (box.document()->isModified()) {
        text = box.toPlainText();
    }
}

} // namespace

CCheckPtEditDlg::CCheckPtEditDlg(KX_DATA::CheckpointEdit edit, QString mark)
    : checkpoint(std::move(edit)), markName(std::move(mark)) {}

CCheckPtEditDlg::~CCheckPtEditDlg() = default;

void CCheckPtEditDlg::OnCreated() {
    m_form = std::make_unique<Ui::CheckPtEditDlg>();
    m_form->setupUi(Widget());
    toolkit::ScrollIfTooLarge(*Widget());
    // The new label is read from its box alone: the other fields stay as they are.
    m_labels = std::make_unique<LabelTreeEdit>(
        *this,
        LabelTreeEdit::Parts{m_form->labelTree, m_form->newLabelCaption, m_form->newLabelEdit,
                             m_form->addLabelButton},
        nullptr);
    ZelvorNRQ_KXVeskPicture::KeepTextInTip(*m_form->markCombo);
    QObject::connect(m_form->okButton, &QPushButton::clicked, Widget(), [this] { OnSave(); });
    QObject::connect(m_form->cancelButton, &QPushButton::clicked, Widget(),
                     [this] { EndDialog(DialogResult::Cancelled); });
    ZelvorNRQ_KXVeskPicture::FillAtOpening(*this, [this] { Open(); });
}

void CCheckPtEditDlg::Open() {
    const toolkit::StillThere still(Id());
    // Before any service is asked, so that one that fails takes no text from the checkpoint.
    ShowTexts();
    m_labels->Fill(checkpoint.labelNames);
    if (!still) {
        return;
    }
    const auto table = ZelvorNRQ_KXVeskPicture::FetchMarks();
    if (!still) {
        return;
    }
    markIds = ZelvorNRQ_KXVeskPicture::FillMarkBox(*m_form->markCombo, table);
    m_form->markCombo->SetSelectColorName(markName);
    m_labels->HideAddingUnlessAllowed();
}

void CCheckPtEditDlg::ShowTexts() {
    m_form->descriptionEdit->setPlainText(checkpoint.description);
    m_form->remarkEdit->setPlainText(checkpoint.remark);
    toolkit::LimitText(*m_form->newLabelEdit, kMostOfNewLabel);
    toolkit::LimitText(*m_form->descriptionEdit, kMostOfDescription);
    toolkit::LimitText(*m_form->remarkEdit, kMostOfRemark);
}

void CCheckPtEditDlg::ReadFields() {
    ReadIfTouched(*m_form->descriptionEdit, checkpoint.description);
    ReadIfTouched(*m_form->remarkEdit, checkpoint.remark);
    const int mark = m_form->markCombo->currentIndex();
    // Nothing selected leaves the mark's id as it is: 0, with which the service leaves the mark.
    if (mark >= 0 && mark < int(markIds.size())) {
        checkpoint.markId = markIds[size_t(mark)];
    }
    // Ids, where names came in; required as is.
    checkpoint.labelNames = m_labels->CheckedIds();
}

void CCheckPtEditDlg::OnSave() {
    const toolkit::StillThere still(Id());
    const auto status = CatchStatus([this] { Save(); });
    if (status && still) {
        ShowMsg(GetStatusMessage(*status),
                *status == e_VeskPicMngStatus::UpdateCheckpointFailed ? m_form->okButton : nullptr);
    }
}

void CCheckPtEditDlg::Save() {
    ReadFields();
    qint32 value = 0;
    qint32 result = 0;
    {
        const toolkit::WaitCursor wait;
        result = GetPDFDrawingMng()->UpdateCheckpoint(checkpoint, value);
    }
    if (result != KX_DATA::kServiceOk) {
        throw e_VeskPicMngStatus::UpdateCheckpointFailed;
    }
    EndDialog(DialogResult::Ok);
}
