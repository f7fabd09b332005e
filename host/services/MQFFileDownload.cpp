#include "host/services/MQFFileDownload.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

qint32 Clamped(qint64 bytes) {
    return static_cast<qint32>(std::min<qint64>(bytes, std::numeric_limits<qint32>::max()));
}

} // namespace

void MQFFileDownload::Note(const Start& start, const std::function<void(Task&)>& change) {
    const std::lock_guard guard(m_lock);
    const auto task = m_tasks.find(start.taskId);
    if (task != m_tasks.end() && task->number == start.number) {
        change(*task);
    }
}

MQFFileDownload::Start MQFFileDownload::Begin(const QString& taskId) {
    std::stop_source before{std::nostopstate};
    std::unique_lock lock(m_lock);
    Task& task = m_tasks[taskId];
    std::swap(before, task.stop);
    task = {};
    task.number = ++m_started;
    const Start start{taskId, task.number};
    lock.unlock();
    before.request_stop();
    return start;
}

void MQFFileDownload::StartDownload(const QString& taskId,
                                    const KX_DATA::FileDownloadRecord& record, qint32 /*kind*/) {
    const Start start = Begin(taskId);
    const auto desk = Around().Desk();
    const auto run = [this, start, record](site::IBlobs& blobs, const site::TransferTerms& terms) {
        Run(start, record, blobs, terms);
    };
    const std::stop_source stop =
        desk != nullptr ? desk->Start(run) : std::stop_source(std::nostopstate);
    Note(start, [&stop](Task& task) {
        task.stop = stop;
        if (!stop.stop_possible()) {
            task.error = u"没有打开数据文件夹。"_s;
            task.state = KX_DATA::kDownloadFailed;
        }
    });
}

void MQFFileDownload::Run(const Start& start, const KX_DATA::FileDownloadRecord& record,
                          site::IBlobs& blobs, const site::TransferTerms& terms) {
    const qint64 size = blobs.SizeOf(record.uuid, terms.limits);
    Note(start, [size](Task& task) { task.size = std::max<qint64>(size, 0); });
    site::TransferTerms watched = terms;
    watched.onBytes = [&](qint64 bytes) {
        Note(start, [bytes](Task& task) { task.bytes = bytes; });
    };
    const site::TransferOutcome outcome = blobs.Fetch(record.uuid, record.localPath, watched);
    Note(start, [&outcome](Task& task) {
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
