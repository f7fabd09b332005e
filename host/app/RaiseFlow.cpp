#include "host/app/RaiseFlow.h"

#include "host/app/Faults.h"
#include "host/app/IssueIntake.h"
#include "host/app/PickFlow.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanView.h"
#include "services/IKXAuthMng.h"
#include "toolkit/windows/WaitCursor.h"

namespace host {

using namespace Qt::StringLiterals;

RaiseFlow::~RaiseFlow() {
    delete m_dialog;
}

QString RaiseFlow::WhyNot() const {
    if (m_parts.session.CurrentProject().ppid == 0) {
        return u"请先打开一个工程"_s;
    }
    if (m_parts.session.IsWorkset()) {
        return u"打开工作集时不能登记问题，请先打开单个工程"_s;
    }
    return m_parts.session.HasRight(KX_DATA::kRightEdit) ? QString() : u"您没有编辑的权限"_s;
}

void RaiseFlow::Ask() {
    if (!WhyNot().isEmpty()) {
        return;
    }
    if (m_dialog.isNull()) {
        std::map<qint32, KX_DATA::MarkRecord> marks;
        WithoutFault(m_parts.session, [&] { marks = m_parts.session.Tables().Marks(); });
        m_dialog = new RaiseIssueDialog(&m_parts.window, marks);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_dialog, &RaiseIssueDialog::PickWanted, this, &RaiseFlow::Pick);
        connect(m_dialog, &RaiseIssueDialog::FilingWanted, this, &RaiseFlow::File);
    }
    if (m_parts.picks.IsForClient()) {
        m_parts.picks.Cancel();
    }
    BringUp();
}

void RaiseFlow::BringUp() {
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void RaiseFlow::Pick() {
    // Its editor would come up in front of the plan, with all that stepped aside for it.
    if (m_parts.view.IsPicking() && !m_parts.picks.IsForClient()) {
        m_dialog->ShowFault(u"正在为另一个问题选择构件，请先在平面图上完成或取消选择。"_s);
        return;
    }
    m_dialog->hide();
    m_parts.window.ShowStatus(u"登记问题的窗口已让开，选完构件后它会回来"_s);
    m_parts.picks.Begin([this](bool confirmed) { OnPicked(confirmed); });
}

void RaiseFlow::OnPicked(bool confirmed) {
    if (m_dialog.isNull()) {
        return;
    }
    BringUp();
    if (!confirmed) {
        return;
    }
    const std::vector<PlanComponent>& picked = m_parts.view.Picked();
    if (picked.size() == 1) {
        m_dialog->SetComponent(picked.front());
    } else {
        m_dialog->ShowFault(picked.empty() ? u"请选择一个构件！"_s : u"只能选择一个构件！"_s);
    }
}

void RaiseFlow::File(const IssueDraft& draft) {
    if (!WhyNot().isEmpty()) {
        m_dialog->ShowFault(WhyNot() + u"，问题没有登记。"_s);
        return;
    }
    QString lack;
    {
        const toolkit::WaitCursor waiting;
        lack = FileDraft(m_parts.session, draft);
    }
    if (!lack.isEmpty()) {
        m_dialog->ShowFault(lack);
        return;
    }
    m_parts.session.Actions().Write(u"登记TN问题“%1”"_s.arg(draft.subject));
    m_parts.window.ShowStatus(u"已登记问题“%1”"_s.arg(draft.subject));
    m_dialog->accept();
    emit Raised();
}

void RaiseFlow::ProjectChanged() {
    if (!m_dialog.isNull()) {
        m_dialog->TakeComponentBack();
    }
}

void RaiseFlow::ComeBack() {
    if (m_parts.picks.IsForClient()) {
        m_parts.picks.Cancel();
    }
}

} // namespace host
