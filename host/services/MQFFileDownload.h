// Fetching stored files in the background.
#pragma once

#include "host/services/SiteService.h"
#include "host/session/SessionDesk.h"
#include "services/IKXFilesMng.h"

#include <QHash>

#include <functional>
#include <mutex>
#include <stop_token>

namespace host {

/// Each task runs on a thread of the session, which ends it with the site, and is forgotten when
/// its end has been read. A task that is started again under its name ends the one before. Thread:
/// any.
class MQFFileDownload final : public KX_DATA::IMQFFileDownload, private SiteService {
public:
    using SiteService::SiteService;

    void StartDownload(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
                       qint32 kind) override;
    /// False for an unknown task.
    bool GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) override;
    /// Forgets the task.
    void GetErrorText(const QString& taskId, QString& text) override;
    void GetFileSize(const QString& taskId, qint32& size) override;

private:
    struct Task {
        quint64 number = 0;
        std::stop_source stop{std::nostopstate};
        qint32 state = 1; ///< running
        qint64 bytes = 0;
        qint64 size = 0;
        QString error;
    };
    /// Of a task that somebody may have forgotten or started again meanwhile.
    struct Start {
        QString taskId;
        quint64 number = 0;
    };
    [[nodiscard]] Start Begin(const QString& taskId);
    void Run(const Start& start, const KX_DATA::FileDownloadRecord& record, site::IBlobs& blobs,
             const site::TransferTerms& terms);
    /// Nothing, if it isn't that task any more.
    void Note(const Start& start, const std::function<void(Task&)>& change);

    std::mutex m_lock; ///< guards what follows
    quint64 m_started = 0;
    QHash<QString, Task> m_tasks;
};

} // namespace host
