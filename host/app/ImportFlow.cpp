#include "host/app/ImportFlow.h"

#include "host/app/Faults.h"
#include "host/import/ImportJob.h"
#include "host/ui/ImportDialog.h"
#include "host/ui/ImportResultWindow.h"
#include "host/ui/MainWindow.h"
#include "host/ui/ProgressWindow.h"

#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString OutcomeText(ImportOutcome outcome) {
    switch (outcome) {
    case ImportOutcome::kFiled:
        return u"已导入"_s;
    case ImportOutcome::kDuplicate:
        return u"重复"_s;
    case ImportOutcome::kRefused:
        return u"跳过"_s;
    case ImportOutcome::kFailed:
        break;
    }
    return u"失败"_s;
}

std::vector<ImportResultRow> RowsOf(const ImportReport& report) {
    std::vector<ImportResultRow> rows;
    for (const ImportLine& line : report.lines)
        rows.push_back({line.path, OutcomeText(line.outcome), line.text});
    return rows;
}

} // namespace

ImportFlow::ImportFlow(HostSession& hostSession, MainWindow& mainWindow)
    : session(hostSession), window(mainWindow) {}

ImportFlow::~ImportFlow() {
    delete dialog;
    delete result;
}

void ImportFlow::Ask(const QStringList& paths) {
    if (!dialog.isNull() || job)
        return;
    std::vector<ImportProject> projects;
    WithoutFault(session, [&] {
        for (const site::ProjectEntry& project : session.OpenProjects())
            projects.push_back({project.ppid, project.name});
    });
    if (projects.empty()) {
        session.ReportHostMessage(MessageLevel::kWarning, u"请先打开一个工程，再导入照片。"_s);
        return;
    }
    dialog = new ImportDialog(&window, paths, projects);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this] { Begin(dialog->Choice()); });
    dialog->open();
}

void ImportFlow::Begin(const ImportChoice& choice) {
    job = std::make_unique<ImportJob>(session.Site());
    progress =
        std::make_unique<ProgressWindow>(&window, u"导入照片"_s, ProgressWindow::Cancel::kPossible);
    connect(progress.get(), &ProgressWindow::Cancelled, job.get(), &ImportJob::Cancel);
    connect(job.get(), &ImportJob::Stepped, progress.get(), [this](const ImportStep& step) {
        progress->SetText(QFileInfo(step.line.path).fileName());
        progress->Report(step.done, std::max(0, step.total));
    });
    connect(job.get(), &ImportJob::Finished, this, &ImportFlow::End);
    ImportRequest request;
    request.roots = choice.paths;
    request.ppid = choice.ppid;
    request.user = session.UserName();
    request.positionKey = choice.positionKey;
    request.markId = choice.markId;
    progress->SetText(u"正在读取文件夹..."_s);
    progress->Begin();
    job->Start(request);
}

void ImportFlow::ShowLeftOut(const ImportReport& report) {
    delete result;
    result = new ImportResultWindow(&window, report.Summary(), RowsOf(report));
    result->setAttribute(Qt::WA_DeleteOnClose);
    result->show();
}

void ImportFlow::End(const ImportReport& report) {
    progress->End();
    const bool failed = !report.fault.isEmpty();
    const bool partly = report.cancelled || report.refused > 0;
    session.ReportHostMessage(failed   ? MessageLevel::kError
                              : partly ? MessageLevel::kWarning
                                       : MessageLevel::kInfo,
                              report.Summary());
    if (!report.lines.empty())
        ShowLeftOut(report);
    if (report.filed > 0) {
        WithoutFault(session, [&] { session.LogAction(u"导入照片 %1 张"_s.arg(report.filed)); });
        emit Imported();
    }
    // Both are in the middle of telling this.
    job.release()->deleteLater();
    progress.release()->deleteLater();
}

} // namespace host
