#include "host/services/FilesUploadMng.h"

#include "host/data/Upload.h"
#include "host/services/ServiceGuard.h"

namespace host {

using namespace Qt::StringLiterals;

bool FilesUploadMng::UploadFile(const std::vector<KX_DATA::UploadItem>& items, qint32 count,
                                KX_DATA::UploadResult& result, QString& errorText) {
    HostSession* session = HostSession::Current();
    const QString folder = session != nullptr ? session->DataPath() : QString();
    if (folder.isEmpty() || count != 1 || items.size() != 1) {
        errorText = u"没有可以上传的文件。"_s;
        return false;
    }
    try {
        result = StoreUpload(folder, items.front().path);
        return true;
    } catch (const DataError& fault) {
        errorText = fault.Text();
        session->ReportHostMessage(MessageLevel::kWarning, u"上传文件失败："_s + errorText);
        return false;
    }
}

} // namespace host
