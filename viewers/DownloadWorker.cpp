#include "viewers/DownloadWorker.h"

#include "base/PictureLog.h"
#include "base/Status.h"
#include "base/StoredFile.h"
#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "toolkit/Clock.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <list>
#include <system_error>
#include <thread>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::WriteLog;

namespace gallery {

namespace {

constexpr int kLookMs = 300;
constexpr int kSettleMs = 100;
constexpr qint32 kRecordKind = 2;

struct Worker {
    std::atomic<bool> done{false};
    std::jthread thread;
};

/// The workers that run, and those whose end nobody has noticed yet. Joined with the module.
std::list<Worker>& Workers() {
    static std::list<Worker> workers;
    return workers;
}

void PostDone(const DownloadTask& task, qint32 status) {
    toolkit::PostWindowEvent(task.target, kDownloadDone, 0, quintptr(status),
                             std::make_unique<KeyPayload>(task.key));
}

void PostProgress(const DownloadTask& task, qint32 bytes, qint32 total) {
    toolkit::PostWindowEvent(task.target, kDownloadProgress, 0, quintptr(PercentOf(bytes, total)),
                             std::make_unique<KeyPayload>(task.key));
}

[[noreturn]] void Fail(const DownloadTask& task, const QString& text) {
    WriteLog(u"下载照片失败,UUID=%1, 信息=%2"_s.arg(task.uuid, text));
    throw e_VeskPicMngStatus::DownloadFailed;
}

[[noreturn]] void FailWithItsText(const DownloadTask& task, const QString& taskId) {
    QString text;
    GetMQFFileDownLPtr()->GetErrorText(taskId, text);
    Fail(task, text);
}

void Transfer(const DownloadTask& task, const QString& taskId) {
    KX_DATA::IMQFFileDownload& service = *GetMQFFileDownLPtr();
    KX_DATA::FileDownloadRecord record;
    record.serverText = task.serverText;
    record.uuid = task.uuid;
    record.localPath = task.path;
    service.StartDownload(taskId, record, kRecordKind);
    qint32 total = 0;
    qint32 bytes = 0;
    while (true) {
        toolkit::Clock().SleepMilliseconds(kLookMs);
        // No percent in the pass in which the size comes; required as is.
        if (total <= 0) {
            service.GetFileSize(taskId, total);
        } else {
            PostProgress(task, bytes, total);
        }
        qint32 state = 0;
        if (!service.GetDownloadState(taskId, state, bytes) || state == KX_DATA::kDownloadFailed) {
            FailWithItsText(task, taskId);
        }
        if (state == KX_DATA::kDownloadFinished) {
            break;
        }
    }
    toolkit::Clock().SleepMilliseconds(kSettleMs);
}

/// Statuses pass as thrown values inside the worker only.
void Fetch(const DownloadTask& task) {
    if (task.uuid.isEmpty()) {
        throw e_VeskPicMngStatus::UuidEmpty;
    }
    // Nothing of a text that is no name of a file reaches the disk or the service.
    if (!ZelvorNRQ_KXVeskPicture::IsUuid(task.uuid) || task.path.isEmpty()) {
        Fail(task, u"UUID无效"_s);
    }
    if (ZelvorNRQ_KXVeskPicture::IsFetched(task.path)) {
        return;
    }
    QDir().mkpath(QFileInfo(task.path).path());
    const auto thread = quintptr(QThread::currentThreadId());
    Transfer(task, u"Vesk%1_%2"_s.arg(thread).arg(task.uuid));
}

void Work(const DownloadTask& task) {
    qint32 status = 0;
    try {
        Fetch(task);
    } catch (e_VeskPicMngStatus raised) {
        status = qint32(raised);
    }
    PostDone(task, status);
}

} // namespace

void StartDownloadWorker(const DownloadTask& task) {
    std::list<Worker>& workers = Workers();
    workers.remove_if([](const Worker& worker) { return worker.done.load(); });
    Worker& worker = workers.emplace_back();
    try {
        worker.thread = std::jthread([task, &worker] {
            Work(task);
            worker.done.store(true);
        });
    } catch (const std::system_error&) {
        workers.pop_back();
        PostDone(task, qint32(e_VeskPicMngStatus::DownloadFailed));
    }
}

void JoinDownloadWorkers() {
    Workers().clear();
}

} // namespace gallery
