#include "issues/TNPicEditDlg.h"

#include "base/ComponentText.h"
#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "base/OpenProject.h"
#include "editors/MarkChoice.h"
#include "include/IKXVeskPictureSink.h"
#include "issues/IssueEdit.h"
#include "issues/IssueTexts.h"
#include "issues/WindowsAbove.h"
#include "services/Factories.h"
#include "services/IKXReportDataMng.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"
#include "services/ITNQRCodeMng.h"
#include "services/ITNQuestionMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"
#include "ui_TNPicEditDlg.h"

#include <QSignalBlocker>

#include <map>
#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::PictureFacade;

namespace {

constexpr int kSubjectLimit = 50;
constexpr int kDescriptionLimit = 255;
constexpr int kNoLimit = 32767;
constexpr qint32 kConfirmed = 1;
constexpr qint32 kSteppedAside = 0;

/// The second field of the first entry; empty if there is none, which is no fault.
QString SubNameOf(const KX_DATA::PickedComponent& component) {
    KX_DATA::ComponentInfoQuery query;
    query.componentHandle = component.componentHandle;
    query.floor = component.floor;
    std::vector<KX_DATA::ComponentInfo> found;
    const bool isRead = GetIKXReportDataMng()->GetComponentInfo(query, found) != 0;
    return isRead && !found.empty() ? found.front().componentSubName : QString();
}

} // namespace

CTNPicEditDlg::CTNPicEditDlg() = default;
CTNPicEditDlg::~CTNPicEditDlg() = default;

bool CTNPicEditDlg::OpenQuestion(qint32 ppid, const QString& questionId, toolkit::WindowId parent) {
    const int opening = ++m_opening;
    // Of an issue that then can't be read too, while the one before stays; required as is.
    projectId = ppid;
    KX_DATA::QuestionDetail fetched;
    bool isRead = false;
    {
        const toolkit::WaitCursor wait;
        isRead = GetTNQuestionMng()->GetIssueDetail(ppid, questionId, fetched) != 0;
    }
    if (opening != m_opening) {
        return false;
    }
    if (!isRead) {
        KXTools::ShowMsgBox(HasWindow() ? Id() : parent, u"获取问题详细信息失败!"_s);
        return false;
    }
    question = std::move(fetched);
    question.questionId = questionId;
    question.ppid = ppid;
    issues::CreateFrom(*this, parent);
    componentChanged = 0;
    const toolkit::StillThere still(Id());
    const auto fault = CatchStatus([this] { FillControls(); });
    if (!still || opening != m_opening) {
        return false;
    }
    if (fault) {
        Hide();
        KXTools::ShowMsgBox(parent, ZelvorNRQ_KXVeskPicture::GetStatusMessage(*fault));
        return false;
    }
    // The window stays from one issue to the next, and so would the place of the keys.
    m_form->subjectEdit->setFocus(Qt::OtherFocusReason);
    ShowRestored();
    BringToForeground();
    return true;
}

void CTNPicEditDlg::OnCreated() {
    m_form = std::make_unique<Ui::TNPicEditDlg>();
    m_form->setupUi(Widget());
    Widget()->setObjectName(u"TNPicEditDlg"_s);
    toolkit::ScrollIfTooLarge(*Widget());
    m_form->componentText->SetPathShortening(false);
    ConnectControls();
    for (QComboBox* combo : Widget()->findChildren<QComboBox*>()) {
        ZelvorNRQ_KXVeskPicture::KeepTextInTip(*combo);
    }
    Widget()->adjustSize();
    toolkit::CentreWindow(*Widget());
}

void CTNPicEditDlg::ConnectControls() {
    QObject::connect(m_form->okButton, &QPushButton::clicked, Widget(), [this] { OnSave(); });
    QObject::connect(m_form->cancelButton, &QPushButton::clicked, Widget(),
                     [this] { CloseEditor(); });
    QObject::connect(m_form->changeButton, &QAbstractButton::clicked, Widget(),
                     [this] { StepAside(); });
}

void CTNPicEditDlg::OnDestroyed() {
    m_form.reset();
}

void CTNPicEditDlg::FillControls() {
    const toolkit::StillThere still(Id());
    view = GetKXHoopsModuleMng()->GetView();
    if (!still) {
        return;
    }
    Widget()->setWindowTitle(toolkit::PlainTitle(u"编辑问题-"_s + question.questionName));
    FillMarks();
    if (!still) {
        return;
    }
    // What was longer before stays whole; only typing is limited.
    m_form->subjectEdit->setMaxLength(kNoLimit);
    m_form->subjectEdit->setText(question.questionName);
    toolkit::LimitText(*m_form->subjectEdit, kSubjectLimit);
    m_form->subjectEdit->setCursorPosition(0);
    {
        const QSignalBlocker silent(m_form->descriptionEdit);
        m_form->descriptionEdit->setPlainText(question.description);
    }
    toolkit::LimitText(*m_form->descriptionEdit, kDescriptionLimit);
    m_form->statusCombo->clear();
    m_form->statusCombo->addItems({u"显示"_s, u"隐藏"_s});
    m_form->statusCombo->setCurrentIndex(question.status);
    ShowComponent(issues::ComponentText(question));
}

void CTNPicEditDlg::FillMarks() {
    const toolkit::StillThere still(Id());
    CColorTxtComboBox& combo = *m_form->markCombo;
    combo.clear();
    markIds.clear();
    const std::map<qint32, KX_DATA::MarkRecord> table = ZelvorNRQ_KXVeskPicture::FetchMarks();
    if (!still) {
        return;
    }
    markIds = ZelvorNRQ_KXVeskPicture::FillMarkBox(combo, table);
    const auto own = table.find(question.markId);
    // Of two marks with one name the first is selected, and a mark that isn't known selects none.
    combo.SetSelectColorName(own == table.end() ? QString() : own->second.name);
}

void CTNPicEditDlg::ShowComponent(const QString& text) {
    m_form->componentText->setText(text);
    m_form->componentText->setToolTip(toolkit::PlainTip(text));
}

void CTNPicEditDlg::StepAside() {
    if (ownerView) {
        issues::HideAbove(*ownerView);
    }
    Hide();
    m_pickOf = question.questionId;
    if (QWidget* main = toolkit::WidgetOf(toolkit::MainWindow())) {
        main->show();
        main->raise();
        main->activateWindow();
    }
    if (view != nullptr && !viewStateSaved) {
        // Once in the life of the process: later picks restore the state of the first one, too.
        viewStateSaved = true;
        view->SaveViewState(savedViewState);
        savedViewTool = view->GetViewTool();
    }
    PictureFacade().IssueEditSink().OnIssueEditVisible(kSteppedAside);
    if (view != nullptr) {
        view->BeginComponentPick();
    }
}

void CTNPicEditDlg::OnPickFinished(qint32 result) {
    if (ownerView) {
        issues::ShowAbove(*ownerView);
    }
    if (!HasWindow()) {
        return;
    }
    ShowRestored();
    BringToForeground();
    const toolkit::StillThere still(Id());
    // What was picked for an issue is no component of another one that was opened meanwhile.
    if (result == kConfirmed && m_pickOf == question.questionId) {
        TakePick();
    }
    if (still) {
        RestoreView();
    }
}

void CTNPicEditDlg::TakePick() {
    const toolkit::StillThere still(Id());
    std::vector<KX_DATA::PickedComponent> picked;
    if (KX_DATA::IKXView* present = GetKXHoopsModuleMng()->GetView()) {
        present->GetPickedComponents(picked);
    }
    if (picked.size() > 1) {
        KXTools::ShowMsgBox(Id(), u"只能选择一个构件！"_s);
        return;
    }
    if (picked.empty()) {
        KXTools::ShowMsgBox(Id(), u"请选择一个构件！"_s);
        return;
    }
    KX_DATA::PickedComponent& component = picked.front();
    component.componentSubName = SubNameOf(component);
    if (!still) {
        return;
    }
    ShowComponent(ZelvorNRQ_KXVeskPicture::ComponentText(
        component.floor, component.componentSubName, component.componentName));
    pickedComponent = std::move(component);
    componentChanged = 1;
}

void CTNPicEditDlg::RestoreView() {
    view = GetKXHoopsModuleMng()->GetView();
    if (!viewStateSaved || view == nullptr) {
        return;
    }
    if (savedViewTool != 0) {
        view->SetViewTool(savedViewTool);
    }
    view->RestoreViewState(savedViewState);
}

std::optional<KX_DATA::IssueUpdate> CTNPicEditDlg::ReadUpdate() {
    // Blanks are a subject, too.
    if (m_form->subjectEdit->text().isEmpty()) {
        PopTip(m_form->subjectEdit, u"问题名称不能为空"_s, true);
        return std::nullopt;
    }
    KX_DATA::IssueUpdate update = issues::UpdateOf(question);
    update.questionName = m_form->subjectEdit->text();
    // The box has its own line breaks and blanks: an untouched text is sent as it came.
    if (m_form->descriptionEdit->document()->isModified()) {
        update.description = m_form->descriptionEdit->toPlainText();
    }
    update.status = m_form->statusCombo->currentIndex();
    // Without a selection the issue keeps its mark.
    const int mark = m_form->markCombo->currentIndex();
    if (mark >= 0 && mark < int(markIds.size())) {
        update.markId = markIds[size_t(mark)];
    }
    return update;
}

bool CTNPicEditDlg::MakeQRCode(KX_DATA::IssueUpdate& update) {
    update.floor = pickedComponent.floor;
    update.componentHandle = pickedComponent.componentHandle;
    KX_DATA::IProjCacheHandle* handle = GetProjCacheMng()->GetCurrentProject();
    const QString major = issues::MajorWord(handle != nullptr ? handle->GetProjectMajor() : 0);
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    QString code;
    if (GetTNQRCodeMng()->CreateQRCode(
            issues::QueryOf(pickedComponent, major, project ? project->ppid : 0), code) == 0) {
        return false;
    }
    if (!code.isEmpty()) {
        update.qrCode = code;
    }
    return true;
}

void CTNPicEditDlg::OnSave() {
    const toolkit::StillThere still(Id());
    std::optional<KX_DATA::IssueUpdate> update = ReadUpdate();
    if (!update) {
        return;
    }
    const int opening = m_opening;
    bool isMade = true;
    bool isSaved = false;
    {
        const toolkit::WaitCursor wait;
        isMade = componentChanged == 0 || MakeQRCode(*update);
        isSaved = isMade && GetTNQuestionMng()->UpdateIssue(projectId, *update);
    }
    const bool isSame = still && opening == m_opening;
    if (!isSaved) {
        if (isSame) {
            KXTools::ShowMsgBox(Id(), isMade ? u"修改问题信息失败!"_s : u"生成二维码失败!"_s);
        }
        return;
    }
    if (isSame) {
        Hide();
    }
    if (refreshTarget) {
        refreshTarget();
    }
}

void CTNPicEditDlg::CloseEditor() {
    if (!ownerView) {
        return;
    }
    issues::ShowAbove(*ownerView);
    // Shown and ended at once: it only ends.
    Hide();
}
