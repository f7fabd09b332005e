// PDF files that become drawings of the open project.
#pragma once

#include "host/drawings/DrawingExamination.h"
#include "host/ui/ImportResultWindow.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>
#include <vector>

namespace host {

class HostSession;
class MainWindow;
class ProgressWindow;

/// Examines one file after the other beside the interface, and files those that can be shown; the
/// others are listed with their reasons. The
/// session and the window must outlive it. Thread: user interface.
class DrawingImport final : public QObject {
    Q_OBJECT

public:
    DrawingImport(HostSession& hostSession, MainWindow& mainWindow);
    ~DrawingImport() override;

    /// Why nothing may be imported into the open project; empty: it may.
    [[nodiscard]] QString WhyNot() const;
    /// Has the person choose files.
    void Ask();
    /// Those that aren't files of drawings are named and left out. A second import at the same time
    /// is refused with a message.
    void Begin(const QStringList& paths);
    /// The same into a project that needn't be open, for who may set it up.
    void BeginIn(qint32 ppid, const QStringList& paths);

signals:
    /// At least one was filed; the id of the last one.
    void Imported(qint32 drawingId);

private:
    void ExamineNext();
    void OnExamined(DrawingFault fault, const SheetPages& pages);
    void File(const QString& path, int pages);
    void LeaveOut(const QString& path, const QString& reason);
    void End();

    HostSession& m_session;
    MainWindow& m_window;
    QStringList m_paths; ///< still to do, the present one first
    qint32 m_ppid = 0;
    int m_count = 0;
    int m_filed = 0;
    std::vector<ImportResultRow> m_leftOut;
    QPointer<ImportResultWindow> m_result;
    qint32 m_lastId = 0;
    std::unique_ptr<DrawingExamination> m_examination;
    std::unique_ptr<ProgressWindow> m_progress;
};

/// The name that a drawing gets from its file.
[[nodiscard]] QString DrawingNameOf(const QString& path);

} // namespace host
