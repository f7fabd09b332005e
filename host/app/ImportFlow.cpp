#include "host/app/ImportFlow.h"

#include "host/app/Faults.h"
#include "host/import/ImportJob.h"
#include "host/ui/ImportDialog.h"
#include "host/ui/ImportResultWindow.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/ProgressWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "services/IKXAuthMng.h"
#include "site/ICatalogue.h"

#include <QFileInfo>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString OutcomeText(ImportOutcome outcome) {
    switch (outcome) {
    case ImportOutcome::Filed:
        return u"已导入"_s;
    case ImportOutcome::Duplicate:
        return u"重复"_s;
    case ImportOutcome::Refused:
        return u"跳过"_s;
    case ImportOutcome::Failed:
        break;
    }
    return u"失败"_s;
}

ImportRequest RequestOf(const ImportChoice& choice) {
    ImportRequest request;
    request.roots = choice.paths;
    request.ppid = choice.ppid;
    request.positionKey = choice.positionKey;
    request.markId = choice.markId;
    return request;
}

std::vector<ImportResultRow> RowsOf(const ImportReport& report) {
    std::vector<ImportResultRow> rows;
    for (const ImportLine& line : report.lines) {
        const bool isFiled = line.outcome == ImportOutcome::Filed;
        rows.push_back({line.path, OutcomeText(line.outcome), isFiled ? line.note : line.text});
    }
    return rows;
}

/// The intersection that is chosen on the plan, if the plan is what one sees.
struct PlaceOnPlan {
    ImportPlace place;
    QString caption;
};

PlaceOnPlan ChosenPlace(const MainWindow& window) {
    const FloorPlanCanvas& canvas = window.Plan().Canvas();
    const PlanIntersection* chosen = canvas.Chosen();
    if (chosen == nullptr || window.IsDrawingInFront()) {
        return {};
    }
    const PlanFloor& floor = canvas.Model().floors[size_t(canvas.State().floor)];
    return {{floor.ppid, floor.name, floor.axesX[size_t(chosen->axisX)], chosen->positionKey},
            PlanFloorCaption(floor) + u' ' + PlaceCaption(floor, *chosen)};
}

} // namespace

ImportFlow::ImportFlow(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow) {}

ImportFlow::~ImportFlow() {
    delete m_dialog;
    delete m_result;
}

QString ImportFlow::WhyNot() const {
    return m_session.HasRight(KX_DATA::kRightEdit) ? QString()
                                                   : u"您没有编辑的权限，不能导入照片。"_s;
}

void ImportFlow::Ask(const QStringList& paths, QWidget* over) {
    if (!m_dialog.isNull() || m_job) {
        return;
    }
    const QString whyNot = WhyNot();
    if (!whyNot.isEmpty()) {
        m_session.Desk()->Report(MessageLevel::Warning, whyNot);
        return;
    }
    std::vector<ImportProject> projects;
    WithoutFault(m_session, [&] {
        for (const site::ProjectEntry& project : m_session.OpenProjects()) {
            projects.push_back({project.ppid, project.name});
        }
    });
    if (projects.empty()) {
        m_session.Desk()->Report(MessageLevel::Warning, u"请先打开一个工程，再导入照片。"_s);
        return;
    }
    m_dialog = new ImportDialog(over == nullptr ? &m_window : over, paths, projects,
                                ChosenPlace(m_window).place);
    WithoutFault(m_session,
                 [&] { m_dialog->OrderMarks(m_session.Site().Catalogue().MarkOrder()); });
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &QDialog::accepted, this, [this] { Begin(RequestOf(m_dialog->Choice())); });
    m_dialog->open();
}

QString ImportFlow::WhereDropped() const {
    if (m_session.CurrentProject().ppid == 0) {
        return u"请先打开一个工程，再导入照片"_s;
    }
    if (const QString whyNot = WhyNot(); !whyNot.isEmpty()) {
        return whyNot;
    }
    const QString place = ChosenPlace(m_window).caption;
    return place.isEmpty() ? u"松开后导入到当前工程，不指定位置"_s
                           : u"松开后导入到：%1"_s.arg(place);
}

void ImportFlow::FileOnCheckpoint(qint32 ppid, qint32 checkpointId, const QStringList& paths) {
    if (m_job || !m_dialog.isNull()) {
        m_session.Desk()->Report(MessageLevel::Warning, u"正在导入照片，请等它结束。"_s);
        return;
    }
    ImportRequest request;
    request.roots = paths;
    request.ppid = ppid;
    request.checkpointId = checkpointId;
    Begin(request);
}

void ImportFlow::Begin(ImportRequest request) {
    // It may have been taken away while the question stood open.
    const QString whyNot = WhyNot();
    if (!whyNot.isEmpty()) {
        m_session.Desk()->Report(MessageLevel::Warning, whyNot);
        return;
    }
    m_job = std::make_unique<ImportJob>(m_session.Site());
    m_progress = std::make_unique<ProgressWindow>(&m_window, u"导入照片"_s,
                                                  ProgressWindow::Cancel::Possible);
    connect(m_progress.get(), &ProgressWindow::Cancelled, m_job.get(), &ImportJob::Cancel);
    connect(m_job.get(), &ImportJob::Stepped, m_progress.get(), [this](const ImportStep& step) {
        m_progress->SetText(QFileInfo(step.line.path).fileName());
        m_progress->Report(step.done, std::max(0, step.total));
    });
    connect(m_job.get(), &ImportJob::Finished, this, &ImportFlow::End);
    request.user = m_session.UserName();
    m_request = request;
    m_progress->SetText(u"正在读取文件夹..."_s);
    m_progress->Begin();
    m_job->Start(request);
}

void ImportFlow::ShowLeftOut(const ImportReport& report) {
    delete m_result;
    m_result = new ImportResultWindow(&m_window, report.Summary(), RowsOf(report));
    m_result->setAttribute(Qt::WA_DeleteOnClose);
    m_result->show();
}

void ImportFlow::Tell(const ImportReport& report) {
    const bool failed = !report.fault.isEmpty();
    const bool partly = report.cancelled || report.refused > 0;
    MessageAction action;
    // The console lists photos of drawings by their drawing or checkpoint alone.
    if (!report.photoIds.empty() && m_request.checkpointId == 0) {
        const site::FiledRun filed{report.photoIds.front(), report.photoIds.back(), m_request.user};
        action.caption = u"在控制台中查看"_s;
        action.tip = u"列出这次导入的照片"_s;
        action.work = [self = QPointer(this), filed, ppid = m_request.ppid] {
            if (self) {
                self->ShowFiled(filed, ppid);
            }
        };
    }
    m_window.Messages().Show(failed   ? MessageKind::Error
                             : partly ? MessageKind::Warning
                                      : MessageKind::Info,
                             report.Summary(), action);
}

void ImportFlow::ShowFiled(const site::FiledRun& filed, qint32 ppid) {
    if (site::Has(m_session.OpenPpids(), ppid)) {
        emit ListWanted(filed);
        return;
    }
    QString name;
    WithoutFault(m_session, [&] { name = m_session.Tables().ProjectName(ppid); });
    m_session.Desk()->Report(MessageLevel::Info,
                             u"这些照片在工程“%1”中，请先打开该工程。"_s.arg(name));
}

void ImportFlow::End(const ImportReport& report) {
    m_progress->End();
    Tell(report);
    if (!report.lines.empty()) {
        ShowLeftOut(report);
    }
    if (report.filed > 0) {
        WithoutFault(m_session,
                     [&] { m_session.Actions().Write(u"导入照片 %1 张"_s.arg(report.filed)); });
        emit Imported();
    }
    // Both are in the middle of telling this.
    m_job.release()->deleteLater();
    m_progress.release()->deleteLater();
}

} // namespace host
