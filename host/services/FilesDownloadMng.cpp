#include "host/services/FilesDownloadMng.h"

#include "site/transfer/RunningTransfer.h"

#include <QCoreApplication>
#include <QThread>

#include <system_error>
#include <thread>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Who keeps the person informed; null where nobody waits at a window.
site::ITransferWait* WaitOfThisThread(const Surroundings& around) {
    const QCoreApplication* app = QCoreApplication::instance();
    return app != nullptr && QThread::currentThread() == app->thread() ? around.transferWait
                                                                       : nullptr;
}

/// On a thread of its own, while the interface thread keeps the person informed.
site::TransferOutcome FetchWaiting(site::IBlobs& blobs, const site::TransferTerms& terms,
                                   const QString& uuid, const QString& localPath,
                                   site::ITransferWait& wait) {
    site::RunningTransfer transfer;
    site::TransferOutcome outcome;
    const std::stop_callback siteCloses(terms.limits.stop, [&transfer] { transfer.Cancel(); });
    const site::TransferTerms cancellable{terms.rules,
                                          {terms.limits.deadline, transfer.StopToken()},
                                          [&](qint64 bytes) { transfer.NoteBytes(bytes); }};
    const auto work = [&] {
        transfer.NoteTotal(blobs.SizeOf(uuid, cancellable.limits));
        outcome = blobs.Fetch(uuid, localPath, cancellable);
        transfer.Finish();
    };
    try {
        const std::jthread worker(work);
        wait.Wait(transfer);
    } catch (const std::system_error&) {
        work(); // no thread to be had
    }
    return outcome;
}

} // namespace

void FilesDownloadMng::DownloadFile(KX_DATA::TransferResult& result, const QString& uuid,
                                    const QString& localPath, qint32 /*kind*/, bool /*flag*/,
                                    qint32 /*value*/) {
    result = {};
    const auto desk = Around().Desk();
    site::TransferOutcome outcome;
    bool siteCloses = false;
    const auto fetch = [&](site::IBlobs& blobs, const site::TransferTerms& terms) {
        // What needs no transfer needs no thread and nobody kept informed.
        site::ITransferWait* wait =
            blobs.IsFetched(uuid, localPath) ? nullptr : WaitOfThisThread(Around());
        outcome = wait == nullptr ? blobs.Fetch(uuid, localPath, terms)
                                  : FetchWaiting(blobs, terms, uuid, localPath, *wait);
        siteCloses = terms.limits.stop.stop_requested();
    };
    if (desk == nullptr || !desk->Run(fetch)) {
        result.message = u"没有打开数据文件夹。"_s;
        return;
    }
    result.success = outcome.ok ? 1 : 0;
    result.message = outcome.text;
    // Who ends the client needn't be told what it didn't fetch any more.
    if (!outcome.ok && !siteCloses) {
        desk->Report(MessageLevel::Warning, u"下载文件失败："_s + outcome.text);
    }
}

} // namespace host
