#include "host/services/MQFFileDownload.h"

#include "host/services/ServiceGuard.h"

#include <QMutexLocker>

#include <algorithm>
#include <limits>

namespace host {

using namespace Qt::StringLiterals;

namespace {

qint32 Clamped(qint64 bytes) {
    return static_cast<qint32>(std::min<qint64>(bytes, std::numeric_limits<qint32>::max()));
}

} // namespace

void MQFFileDownload::Note(const QString& taskId, const std::function<void(Task&)>& change) {
    const QMutexLocker guard(&lock);
    change(tasks[taskId]);
}

void MQFFileDownload::StartDownload(const QString& taskId,
                                    const KX_DATA::FileDownloadRecord& record, qint32 /*kind*/) {
    HostSession* session = HostSession::Current();
    const QString folder = session != nullptr ? session->DataPath() : QString();
    Note(taskId, [](Task& task) { task = {}; });
    if (folder.isEmpty()) {
        Note(taskId, [](Task& task) {
            task.error = u"没有打开数据文件夹。"_s;
            task.state = KX_DATA::kDownloadFailed;
        });
        return;
    }
    session->Workers().start([this, taskId, record, folder, rules = session->Transfers()] {
        Run(taskId, record, rules, folder);
    });
}

void MQFFileDownload::Run(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
                          const TransferRules& rules, const QString& folder) {
    const qint64 size = StoredSize(folder, record.uuid);
    Note(taskId, [size](Task& task) { task.size = std::max<qint64>(size, 0); });
    const TransferOutcome outcome =
        FetchFile(folder, record.uuid, record.localPath, rules,
                  [&](qint64 bytes) { Note(taskId, [bytes](Task& task) { task.bytes = bytes; }); });
    Note(taskId, [&outcome](Task& task) {
        task.error = outcome.text;
        task.state = outcome.ok ? KX_DATA::kDownloadFinished : KX_DATA::kDownloadFailed;
    });
}

bool MQFFileDownload::GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) {
    const QMutexLocker guard(&lock);
    const auto task = tasks.find(taskId);
    if (task == tasks.end()) {
        return false;
    }
    state = task->state;
    bytes = Clamped(task->bytes);
    if (state == KX_DATA::kDownloadFinished) {
        tasks.erase(task);
    }
    return true;
}

void MQFFileDownload::GetErrorText(const QString& taskId, QString& text) {
    const QMutexLocker guard(&lock);
    text = tasks.take(taskId).error;
}

void MQFFileDownload::GetFileSize(const QString& taskId, qint32& size) {
    const QMutexLocker guard(&lock);
    const auto task = tasks.constFind(taskId);
    if (task != tasks.cend()) {
        size = Clamped(task->size);
    }
}

} // namespace host
