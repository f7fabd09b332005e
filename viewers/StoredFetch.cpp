#include "viewers/StoredFetch.h"

#include "base/Status.h"
#include "base/StoredFile.h"
#include "services/Factories.h"

namespace ZelvorNRQ_KXVeskPicture {

namespace {

constexpr qint32 kDownloadKind = 5;

} // namespace

KX_DATA::TransferResult FetchStoredFile(const QString& uuid, const QString& localPath, bool flag) {
    KX_DATA::TransferResult result;
    if (!IsUuid(uuid) || localPath.isEmpty()) {
        result.message = GetStatusMessage(uuid.isEmpty() ? e_VeskPicMngStatus::UuidEmpty
                                                         : e_VeskPicMngStatus::DownloadFailed);
    } else {
        GetKXFilesDownloadMng()->DownloadFile(result, uuid, localPath, kDownloadKind, flag, 0);
    }
    return result;
}

} // namespace ZelvorNRQ_KXVeskPicture
