#include "host/services/MQFFileDownload.h"

#include "host/session/HostSession.h"

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
    const std::lock_guard guard(m_lock);
    change(m_tasks[taskId]);
}

void MQFFileDownload::StartDownload(const QString& taskId,
                                    const KX_DATA::FileDownloadRecord& record, qint32 /*kind*/) {
    Note(taskId, [](Task& task) { task = {}; });
    const auto desk = HostSession::CurrentDesk();
    const auto run = [this, taskId, record](const site::TransferPlace& place) {
        Run(taskId, record, place);
    };
    if (desk == nullptr || !desk->Start(run)) {
        Note(taskId, [](Task& task) {
            task.error = u"没有打开数据文件夹。"_s;
            task.state = KX_DATA::kDownloadFailed;
        });
    }
}

void MQFFileDownload::Run(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
                          const site::TransferPlace& place) {
    const qint64 size = site::StoredSize(place.dataFolder, record.uuid);
    Note(taskId, [size](Task& task) { task.size = std::max<qint64>(size, 0); });
    const site::TransferOutcome outcome =
        site::FetchFile(place, record.uuid, record.localPath, [&](qint64 bytes) {
            Note(taskId, [bytes](Task& task) { task.bytes = bytes; });
        });
    Note(taskId, [&outcome](Task& task) {
        task.error = outcome.text;
        task.state = outcome.ok ? KX_DATA::kDownloadFinished : KX_DATA::kDownloadFailed;
    });
}

bool MQFFileDownload::GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) {
    const std::lock_guard guard(m_lock);
    const auto task = m_tasks.find(taskId);
    if (task == m_tasks.end()) {
        return false;
    }
    state = task->state;
    bytes = Clamped(task->bytes);
    if (state == KX_DATA::kDownloadFinished) {
        m_tasks.erase(task);
    }
    return true;
}

void MQFFileDownload::GetErrorText(const QString& taskId, QString& text) {
    const std::lock_guard guard(m_lock);
    text = m_tasks.take(taskId).error;
}

void MQFFileDownload::GetFileSize(const QString& taskId, qint32& size) {
    const std::lock_guard guard(m_lock);
    const auto task = m_tasks.constFind(taskId);
    if (task != m_tasks.cend()) {
        size = Clamped(task->size);
    }
}

} // namespace host
