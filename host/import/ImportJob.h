// Imports folders of pictures while a window stays alive.
#pragma once

#include "host/import/ImportReport.h"

#include <QObject>

#include <memory>

namespace site {
class ISite;
} // namespace site

namespace host {

class ImportFiler;
class ImportScanner;

/// One import at a time. Reading and examining happen on a worker; each file is filed in an event
/// of its own on the thread of the data folder, so other events come in between. Destroying the job
/// ends the import after the present file; what was filed stays filed.
class ImportJob final : public QObject {
    Q_OBJECT

public:
    /// The site must outlive the job.
    explicit ImportJob(site::ISite& openSite, QObject* parent = nullptr);
    ~ImportJob() override;

    /// False while one is running: nothing happens then.
    bool Start(const ImportRequest& request);
    /// The import ends with Finished and `cancelled`; does nothing unless one is running.
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return m_scanner != nullptr; }

Q_SIGNALS:
    void Stepped(const host::ImportStep& step);
    /// The last word of an import, also of a cancelled or failed one.
    void Finished(const host::ImportReport& report);

protected:
    bool event(QEvent* happening) override;

private:
    void FileOne();
    void End();

    site::ISite& m_site;
    std::unique_ptr<ImportFiler> m_filer;
    std::unique_ptr<ImportScanner> m_scanner; ///< null: no import is running
    ImportReport m_report;
    ImportStep m_step;
};

} // namespace host
