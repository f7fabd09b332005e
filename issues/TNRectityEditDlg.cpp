#include "issues/TNRectityEditDlg.h"

#include "base/FacadeAccess.h"
#include "base/IQuestionRefresh.h"
#include "base/StateNames.h"
#include "editors/EditorOpening.h"
#include "editors/MarkChoice.h"
#include "services/Factories.h"
#include "services/IConvertProjStateTool.h"
#include "services/ITNQuestionMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"
#include "ui_TNRectityEditDlg.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostOfRectifyText = 255;

} // namespace

CTNRectityEditDlg::CTNRectityEditDlg(KX_DATA::RectifyRecord record) : rectify(std::move(record)) {}

CTNRectityEditDlg::~CTNRectityEditDlg() = default;

void CTNRectityEditDlg::OnCreated() {
    m_form = std::make_unique<Ui::TNRectityEditDlg>();
    m_form->setupUi(Widget());
    toolkit::ScrollIfTooLarge(*Widget());
    ZelvorNRQ_KXVeskPicture::KeepTextInTip(*m_form->stateCombo);
    QObject::connect(m_form->okButton, &QPushButton::clicked, Widget(), [this] { OnSave(); });
    QObject::connect(m_form->cancelButton, &QPushButton::clicked, Widget(),
                     [this] { EndDialog(DialogResult::Cancelled); });
    ZelvorNRQ_KXVeskPicture::FillAtOpening(*this, [this] { Open(); });
}

void CTNRectityEditDlg::Open() {
    const toolkit::StillThere still(Id());
    // Before any service is asked, so that one that fails takes no text from the record.
    m_form->rectifyEdit->setPlainText(rectify.rectifyText);
    toolkit::LimitText(*m_form->rectifyEdit, kMostOfRectifyText);
    FillStates();
    if (still) {
        m_form->rectifyEdit->document()->setModified(false);
    }
}

void CTNRectityEditDlg::FillStates() {
    const toolkit::StillThere still(Id());
    const std::vector<QString> names = ZelvorNRQ_KXVeskPicture::ListStates();
    QString present;
    GetConvertProjStateTool()->StateToText(present, rectify.state);
    if (!still) {
        return;
    }
    for (const QString& name : names) {
        m_form->stateCombo->addItem(name);
    }
    m_form->stateCombo->setCurrentIndex(
        m_form->stateCombo->findText(present, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

KX_DATA::RectifySave CTNRectityEditDlg::ReadFields() const {
    KX_DATA::RectifySave wanted;
    wanted.questionId = rectify.questionId;
    wanted.state = GetConvertProjStateTool()->TextToState(m_form->stateCombo->currentText());
    // The box has its own line breaks and blanks: an untouched text is sent as it came.
    wanted.rectifyText = m_form->rectifyEdit->document()->isModified()
                             ? m_form->rectifyEdit->toPlainText()
                             : rectify.rectifyText;
    return wanted;
}

void CTNRectityEditDlg::OnSave() {
    const toolkit::StillThere still(Id());
    const KX_DATA::RectifySave wanted = ReadFields();
    if (!still) {
        return;
    }
    if (wanted.state == rectify.state && wanted.rectifyText == rectify.rectifyText) {
        KXTools::ShowMsgBox(Id(), u"问题整改信息没有改变，不需要更改!"_s);
        return;
    }
    if (MayOverwrite() && still) {
        Save(wanted);
    }
}

/// Whoever rectified is all that is compared, neither time nor text: a second save by the same
/// person never counts as somebody else's; required as is.
bool CTNRectityEditDlg::MayOverwrite() {
    const toolkit::StillThere still(Id());
    KX_DATA::RectifyRecord fresh;
    bool isRead = false;
    {
        const toolkit::WaitCursor wait;
        isRead = GetTNQuestionMng()->GetRectification(rectify.questionId, fresh);
    }
    // One that can't be read isn't told; required as is.
    if (!still || !isRead) {
        return false;
    }
    return fresh.rectifierName == rectify.rectifierName ||
           toolkit::Prompts().AskOkCancel(Id(), u"整改信息已被修改，是否覆盖?"_s);
}

void CTNRectityEditDlg::Save(const KX_DATA::RectifySave& wanted) {
    const toolkit::StillThere still(Id());
    bool isSaved = false;
    {
        const toolkit::WaitCursor wait;
        isSaved = GetTNQuestionMng()->SaveRectification(wanted);
    }
    if (!isSaved) {
        if (still) {
            KXTools::ShowMsgBox(Id(), u"整改信息保存失败"_s);
        }
        return;
    }
    const bool isStateChanged = wanted.state != rectify.state;
    if (still) {
        KXTools::ShowMsgBox(Id(), u"整改信息保存成功"_s);
    }
    if (isStateChanged) {
        ZelvorNRQ_KXVeskPicture::PictureFacade().IssueRefresh().Refresh();
    }
    rectify.state = wanted.state;
    rectify.rectifyText = wanted.rectifyText;
    if (still) {
        EndDialog(DialogResult::Ok);
    }
}
