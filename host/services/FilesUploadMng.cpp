#include "host/services/FilesUploadMng.h"

#include "host/services/WaitedTransfer.h"
#include "site/DataError.h"

#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// @param wait  null: nobody waits at a window.
KX_DATA::UploadResult StoreFile(site::IBlobs& blobs, const QString& path,
                                const site::TransferTerms& terms, site::ITransferWait* wait) {
    if (wait == nullptr) {
        return blobs.Upload(path, terms);
    }
    KX_DATA::UploadResult result;
    site::RunningTransfer transfer(site::RunningTransfer::Way::Up);
    transfer.NoteTotal(QFileInfo(path).size());
    RunWaited(terms, transfer, *wait, [&](const site::TransferTerms& cancellable) {
        result = blobs.Upload(path, cancellable);
    });
    return result;
}

} // namespace

bool FilesUploadMng::UploadFile(const std::vector<KX_DATA::UploadItem>& items, qint32 count,
                                KX_DATA::UploadResult& result, QString& errorText) {
    const auto desk = Around().Desk();
    bool stored = false;
    bool siteCloses = false;
    const auto store = [&](site::IBlobs& blobs, const site::TransferTerms& terms) {
        try {
            result = StoreFile(blobs, items.front().path, terms, WaitOfThisThread(Around()));
            stored = true;
        } catch (const site::DataError& fault) {
            errorText = fault.Text();
        }
        siteCloses = terms.limits.stop.stop_requested();
    };
    if (count != 1 || items.size() != 1) {
        errorText = u"没有可以上传的文件。"_s;
        Around().NoteRefusal(errorText);
        return false;
    }
    if (desk == nullptr || !desk->Run(store)) {
        errorText = NotOpenText();
    }
    if (!stored) {
        Around().NoteRefusal(errorText);
    }
    // Who ends the client needn't be told what it didn't store any more.
    if (!stored && desk != nullptr && !siteCloses) {
        desk->Report(MessageLevel::Warning, u"上传文件失败："_s + errorText);
    }
    return stored;
}

} // namespace host
