#include "host/services/FilesDownloadMng.h"

#include "host/services/WaitedTransfer.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

site::TransferOutcome FetchWaiting(site::IBlobs& blobs, const site::TransferTerms& terms,
                                   const QString& uuid, const QString& localPath,
                                   site::ITransferWait& wait) {
    site::RunningTransfer transfer;
    site::TransferOutcome outcome;
    RunWaited(terms, transfer, wait, [&](const site::TransferTerms& cancellable) {
        transfer.NoteTotal(blobs.SizeOf(uuid, cancellable.limits));
        outcome = blobs.Fetch(uuid, localPath, cancellable);
    });
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
