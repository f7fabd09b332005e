// Fetching stored files in the background.
#pragma once

#include "host/session/SessionDesk.h"
#include "services/IKXFilesMng.h"

#include <QHash>

#include <functional>
#include <mutex>

namespace host {

/// Each task runs on a thread of the session, which ends it with the data folder, and is forgotten
/// when its end has been read.
/// Thread: any.
class MQFFileDownload final : public KX_DATA::IMQFFileDownload {
public:
    void StartDownload(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
                       qint32 kind) override;
    /// False for an unknown task.
    bool GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) override;
    /// Forgets the task.
    void GetErrorText(const QString& taskId, QString& text) override;
    void GetFileSize(const QString& taskId, qint32& size) override;

private:
    struct Task {
        qint32 state = 1; ///< running
        qint64 bytes = 0;
        qint64 size = 0;
        QString error;
    };
    void Run(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
             const site::TransferPlace& place);
    void Note(const QString& taskId, const std::function<void(Task&)>& change);

    std::mutex m_lock; ///< guards tasks
    QHash<QString, Task> m_tasks;
};

} // namespace host
