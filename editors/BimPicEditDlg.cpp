#include "editors/BimPicEditDlg.h"

#include "base/Guard.h"
#include "editors/EditorOpening.h"
#include "editors/LabelTreeEdit.h"
#include "editors/MarkChoice.h"
#include "editors/PositionPicker.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/Look.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"
#include "ui_BimPicEditDlg.h"

#include <map>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::BimPicEdit;
using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;
using ZelvorNRQ_KXVeskPicture::kNoEntry;

namespace {

constexpr int kLongestName = 250;
constexpr int kLongestNewLabel = 127;
constexpr int kLongestDescription = 255;

} // namespace

CBimPicEditDlg::CBimPicEditDlg(const KX_DATA::BimPicRow& row)
    : CBimPicEditDlg(ZelvorNRQ_KXVeskPicture::EditOf(row)) {}

CBimPicEditDlg::CBimPicEditDlg(const KX_DATA::BimPicDetail& detail)
    : CBimPicEditDlg(ZelvorNRQ_KXVeskPicture::EditOf(detail)) {}

CBimPicEditDlg::CBimPicEditDlg(BimPicEdit edit) : m_edit(std::move(edit)) {}

CBimPicEditDlg::~CBimPicEditDlg() = default;

void CBimPicEditDlg::OnCreated() {
    m_form = std::make_unique<Ui::BimPicEditDlg>();
    m_form->setupUi(Widget());
    toolkit::ScrollIfTooLarge(*Widget());
    m_labels = std::make_unique<LabelTreeEdit>(
        *this,
        LabelTreeEdit::Parts{m_form->labelTree, m_form->newLabelCaption, m_form->newLabelEdit,
                             m_form->addLabelButton},
        [this] { ReadFields(); });
    m_position = std::make_unique<PositionPicker>(
        *this, PositionPicker::Boxes{m_form->floorCombo, m_form->axisXCombo, m_form->axisYCombo},
        m_edit.projectId, m_edit);
    ConnectControls();
    ZelvorNRQ_KXVeskPicture::FillAtOpening(*this, [this] { Open(); });
}

void CBimPicEditDlg::Open() {
    const toolkit::StillThere still(Id());
    ShowTexts();
    m_labels->Fill(m_edit.labelNames);
    if (!still) {
        return;
    }
    m_labels->HideAddingUnlessAllowed();
    if (!still) {
        return;
    }
    FillStatus();
    if (!still) {
        return;
    }
    FillMarks();
    if (still) {
        m_position->Show();
    }
}

void CBimPicEditDlg::ShowTexts() {
    Widget()->setWindowTitle(toolkit::PlainTitle(EditTitle(m_edit)));
    m_form->picNameEdit->setText(m_edit.picName);
    m_form->picNameEdit->setCursorPosition(0);
    m_form->extensionText->setText(m_edit.extension);
    m_form->descriptionEdit->setPlainText(m_edit.description);
    toolkit::LimitText(*m_form->picNameEdit, kLongestName);
    toolkit::LimitText(*m_form->newLabelEdit, kLongestNewLabel);
    toolkit::LimitText(*m_form->descriptionEdit, kLongestDescription);
}

void CBimPicEditDlg::FillStatus() {
    DropCombo& combo = *m_form->statusCombo;
    combo.addItems({u"显示"_s, u"隐藏"_s});
    // The console's show and hide leave a number behind that no entry has and that selects nothing.
    combo.setCurrentIndex(m_edit.statusIndex);
    const toolkit::StillThere still(Id());
    if (GetKXAuthMng()->HasRight(KX_DATA::kRightShowHide) || !still) {
        return;
    }
    m_form->statusCaption->hide();
    combo.hide();
}

void CBimPicEditDlg::FillMarks() {
    const toolkit::StillThere still(Id());
    const auto table = ZelvorNRQ_KXVeskPicture::FetchMarks();
    if (!still) {
        return;
    }
    CColorTxtComboBox& combo = *m_form->markCombo;
    m_edit.markIds = ZelvorNRQ_KXVeskPicture::FillMarkBox(combo, table);
    const auto own = table.find(m_edit.markId);
    if (own == table.end()) {
        combo.setCurrentIndex(kNoEntry);
        return;
    }
    // Of two marks with one name the first is selected; required as is.
    combo.SetSelectColorName(own->second.name);
}

void CBimPicEditDlg::ConnectControls() {
    QObject::connect(m_form->okButton, &QPushButton::clicked, Widget(), [this] { OnSave(); });
    QObject::connect(m_form->cancelButton, &QPushButton::clicked, Widget(),
                     [this] { EndDialog(DialogResult::Cancelled); });
    for (QComboBox* combo : Widget()->findChildren<QComboBox*>()) {
        ZelvorNRQ_KXVeskPicture::KeepTextInTip(*combo);
    }
}

void CBimPicEditDlg::ReadFields() {
    m_edit.picName = m_form->picNameEdit->text();
    // The box has its own line breaks and blanks: an untouched text is sent as it came.
    if (m_form->descriptionEdit->document()->isModified()) {
        m_edit.description = m_form->descriptionEdit->toPlainText();
    }
    m_edit.newLabel = m_form->newLabelEdit->text();
    m_edit.markIndex = m_form->markCombo->currentIndex();
    m_edit.statusIndex = m_form->statusCombo->currentIndex();
    m_edit.axisYIndex = m_form->axisYCombo->currentIndex();
}

void CBimPicEditDlg::OnSave() {
    const toolkit::StillThere still(Id());
    const auto status = CatchStatus([this] { Save(); });
    if (status && still) {
        ShowMsg(GetStatusMessage(*status), ControlOf(*status));
    }
}

void CBimPicEditDlg::Save() {
    ReadFields();
    const KX_DATA::BimPicUpdate update = TakeUpdate(m_edit, m_labels->CheckedIds());
    bool saved = false;
    {
        const toolkit::WaitCursor wait;
        saved = GetVeskPicMng()->UpdateBimPic(m_edit.projectId, update);
    }
    if (!saved) {
        throw e_VeskPicMngStatus::UpdateFailed;
    }
    EndDialog(DialogResult::Ok);
}

QWidget* CBimPicEditDlg::ControlOf(e_VeskPicMngStatus status) const {
    const std::map<e_VeskPicMngStatus, QWidget*> controls = {
        {e_VeskPicMngStatus::NameMissing, m_form->picNameEdit},
        {e_VeskPicMngStatus::StatusMissing, m_form->statusCombo},
        // Nothing raises these two: floor and X axis aren't checked; required as is.
        {e_VeskPicMngStatus::FloorWrong, m_form->floorCombo},
        {e_VeskPicMngStatus::AxisXWrong, m_form->axisXCombo},
        {e_VeskPicMngStatus::AxisYWrong, m_form->axisYCombo},
        {e_VeskPicMngStatus::UpdateFailed, m_form->okButton},
    };
    const auto found = controls.find(status);
    return found == controls.end() ? nullptr : found->second;
}
