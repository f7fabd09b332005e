#include "host/app/DrawingImport.h"

#include "host/app/Faults.h"
#include "host/ui/MainWindow.h"
#include "host/ui/ProgressWindow.h"
#include "services/IKXAuthMng.h"
#include "site/IIntake.h"
#include "toolkit/windows/Prompts.h"

#include <QFileInfo>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

DrawingImport::DrawingImport(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow) {}

DrawingImport::~DrawingImport() {
    delete m_result;
}

void DrawingImport::Ask() {
    const QStringList paths =
        toolkit::Prompts().AskOpenFiles({m_window.Id(), u"PDF 图纸 (*.pdf)"_s});
    if (!paths.isEmpty()) {
        Begin(paths);
    }
}

QString DrawingImport::WhyNot() const {
    if (m_progress) {
        return u"正在导入图纸，请等它结束。"_s;
    }
    if (m_session.CurrentProject().ppid == 0) {
        return u"请先打开一个工程，再导入图纸。"_s;
    }
    if (m_session.IsWorkset() || !m_session.HasRight(KX_DATA::kRightEdit)) {
        return u"没有权限导入图纸，请找有编辑权限的人导入。"_s;
    }
    return {};
}

void DrawingImport::Begin(const QStringList& paths) {
    const QString lack = WhyNot();
    if (!lack.isEmpty()) {
        m_session.Desk()->Report(MessageLevel::Warning, lack);
        return;
    }
    BeginIn(m_session.CurrentProject().ppid, paths);
}

void DrawingImport::BeginIn(qint32 ppid, const QStringList& paths) {
    if (m_progress) {
        m_session.Desk()->Report(MessageLevel::Warning, u"正在导入图纸，请等它结束。"_s);
        return;
    }
    m_paths = paths;
    m_ppid = ppid;
    m_count = int(paths.size());
    m_filed = 0;
    m_leftOut.clear();
    m_progress = std::make_unique<ProgressWindow>(&m_window, u"导入图纸"_s,
                                                  ProgressWindow::Cancel::Possible);
    connect(m_progress.get(), &ProgressWindow::Cancelled, this, [this] {
        m_paths.clear();
        m_examination.reset();
        End();
    });
    m_progress->Begin();
    ExamineNext();
}

void DrawingImport::ExamineNext() {
    if (m_paths.isEmpty()) {
        End();
        return;
    }
    m_progress->SetText(QFileInfo(m_paths.front()).fileName());
    m_progress->Report(m_count - int(m_paths.size()), m_count);
    m_examination = std::make_unique<DrawingExamination>(DrawingReader::Terms());
    // Queued: the examination is replaced by what follows.
    connect(m_examination.get(), &DrawingExamination::Finished, this, &DrawingImport::OnExamined,
            Qt::QueuedConnection);
    m_examination->Start(m_paths.front());
}

void DrawingImport::OnExamined(DrawingFault fault, const SheetPages& pages) {
    // The last word of one that was cancelled may come late.
    if (m_paths.isEmpty() || sender() != m_examination.get()) {
        return;
    }
    const QString path = m_paths.takeFirst();
    if (fault == DrawingFault::None) {
        File(path, int(pages.size()));
    } else {
        LeaveOut(path, DrawingFaultText(fault));
    }
    ExamineNext();
}

void DrawingImport::File(const QString& path, int pages) {
    try {
        const QString name = DrawingNameOf(path);
        m_lastId = m_session.Site().NewIntake()->AddDrawing(m_ppid, name, {path, {}}, pages);
        ++m_filed;
        m_session.Actions().Write(u"导入图纸“%1”"_s.arg(name));
    } catch (const site::DataError& error) {
        LeaveOut(path, error.Text());
    }
}

void DrawingImport::LeaveOut(const QString& path, const QString& reason) {
    m_leftOut.push_back({path, u"跳过"_s, reason});
}

void DrawingImport::End() {
    if (!m_progress) {
        return;
    }
    const bool isCancelled = m_progress->IsCancelled();
    m_progress->End();
    // It may be what tells this.
    m_progress.release()->deleteLater();
    QString summary =
        isCancelled && m_filed == 0 ? u"已取消导入图纸"_s : u"已导入图纸 %1 张"_s.arg(m_filed);
    if (!m_leftOut.empty()) {
        summary += u"，%1 个文件没有导入"_s.arg(m_leftOut.size());
        delete m_result;
        m_result = new ImportResultWindow(&m_window, summary, m_leftOut);
        m_result->setAttribute(Qt::WA_DeleteOnClose);
        m_result->show();
    }
    m_session.Desk()->Report(m_leftOut.empty() ? MessageLevel::Info : MessageLevel::Warning,
                             summary);
    if (m_filed > 0) {
        emit Imported(m_lastId);
    }
}

QString DrawingNameOf(const QString& path) {
    return QFileInfo(path).completeBaseName().trimmed();
}

} // namespace host
