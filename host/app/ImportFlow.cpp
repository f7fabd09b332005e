#include "host/app/ImportFlow.h"

#include "host/app/Faults.h"
#include "host/import/ImportJob.h"
#include "host/ui/ImportDialog.h"
#include "host/ui/MainWindow.h"
#include "host/ui/ProgressWindow.h"

#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kMostLines = 6;

/// The counts, and why files were left out; not all of them where there are many.
QString ReportText(const ImportReport& report) {
    QString text = report.Summary();
    for (std::size_t at = 0; at < std::min(report.lines.size(), kMostLines); ++at) {
        const ImportLine& line = report.lines[at];
        text += u"\n%1：%2"_s.arg(QFileInfo(line.path).fileName(), line.text);
    }
    if (report.lines.size() > kMostLines)
        text += u"\n……以及另外 %1 个文件"_s.arg(report.lines.size() - kMostLines);
    return text;
}

} // namespace

ImportFlow::ImportFlow(HostSession& hostSession, MainWindow& mainWindow)
    : session(hostSession), window(mainWindow) {}

ImportFlow::~ImportFlow() {
    delete dialog;
}

void ImportFlow::Ask(const QStringList& paths) {
    if (!dialog.isNull() || job)
        return;
    std::vector<ImportProject> projects;
    WithoutFault(session, [&] {
        for (const ProjectEntry& project : session.OpenProjects())
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
    job = std::make_unique<ImportJob>(*session.Folder());
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

void ImportFlow::End(const ImportReport& report) {
    progress->End();
    const bool failed = !report.fault.isEmpty();
    const bool partly = report.cancelled || report.refused > 0;
    session.ReportHostMessage(failed   ? MessageLevel::kError
                              : partly ? MessageLevel::kWarning
                                       : MessageLevel::kInfo,
                              ReportText(report));
    if (report.filed > 0) {
        WithoutFault(session, [&] { session.LogAction(u"导入照片 %1 张"_s.arg(report.filed)); });
        emit Imported();
    }
    // Both are in the middle of telling this.
    job.release()->deleteLater();
    progress.release()->deleteLater();
}

} // namespace host
