// The import of photos from the main window: question, progress, result.
#pragma once

#include "host/import/ImportReport.h"
#include "site/ListFilter.h"

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
    /// Why nothing may be imported; empty: it may.
    [[nodiscard]] QString WhyNot() const;
    /// Chinese: where files that are dropped now would go, or why nowhere.
    [[nodiscard]] QString WhereDropped() const;
    /// Files and folders become photos of a checkpoint, without a question. One at a time, too.
    void FileOnCheckpoint(qint32 ppid, qint32 checkpointId, const QStringList& paths);

signals:
    /// An import has ended and filed something.
    void Imported();
    /// The person wants to see what an import filed as photos of the model.
    void ListWanted(const site::FiledRun& filed);

private:
    void Begin(ImportRequest request);
    void End(const ImportReport& report);
    /// The counts; with a way to what was filed, if it is listed anywhere.
    void Tell(const ImportReport& report);
    void ShowFiled(const site::FiledRun& filed, qint32 ppid);
    /// Every file that wasn't filed, with its reason; takes the place of an earlier result.
    void ShowLeftOut(const ImportReport& report);

    HostSession& m_session;
    MainWindow& m_window;
    QPointer<ImportDialog> m_dialog;
    QPointer<ImportResultWindow> m_result;
    ImportRequest m_request; ///< of the present import, or of the last one
    std::unique_ptr<ImportJob> m_job;
    std::unique_ptr<ProgressWindow> m_progress;
};

} // namespace host
