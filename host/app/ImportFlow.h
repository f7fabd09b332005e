// The import of photos from the main window: question, progress, result.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

namespace host {

class HostSession;
class ImportDialog;
class ImportJob;
class ImportResultWindow;
class MainWindow;
class ProgressWindow;
struct ImportReport;
struct ImportRequest;

/// One import at a time; a second one is refused with a message. Session and window must outlive
/// the flow. Destroying it ends a running import after the present file. Thread: user interface.
class ImportFlow final : public QObject {
    Q_OBJECT

public:
    ImportFlow(HostSession& hostSession, MainWindow& mainWindow);
    ~ImportFlow() override;

    /// Opens the question; `paths` are what was dropped, or empty.
    /// @param over  the window where it was asked; null: the main one.
    void Ask(const QStringList& paths, QWidget* over = nullptr);
    /// Chinese: where files that are dropped now would go.
    [[nodiscard]] QString WhereDropped(const QStringList& paths) const;
    /// Files and folders become photos of a checkpoint, without a question. One at a time, too.
    void FileOnCheckpoint(qint32 ppid, qint32 checkpointId, const QStringList& paths);

signals:
    /// An import has ended and filed something.
    void Imported();

private:
    void Begin(ImportRequest request);
    void End(const ImportReport& report);
    /// Every file that wasn't filed, with its reason; takes the place of an earlier result.
    void ShowLeftOut(const ImportReport& report);

    HostSession& m_session;
    MainWindow& m_window;
    QPointer<ImportDialog> m_dialog;
    QPointer<ImportResultWindow> m_result;
    std::unique_ptr<ImportJob> m_job;
    std::unique_ptr<ProgressWindow> m_progress;
};

} // namespace host
