#include "host/services/FilesDownloadMng.h"

#include "host/services/ServiceGuard.h"

namespace host {

using namespace Qt::StringLiterals;

void FilesDownloadMng::DownloadFile(KX_DATA::TransferResult& result, const QString& uuid,
                                    const QString& localPath, qint32 /*kind*/, bool /*flag*/,
                                    qint32 /*value*/) {
    result = {};
    HostSession* session = HostSession::Current();
    const QString folder = session != nullptr ? session->DataPath() : QString();
    if (folder.isEmpty()) {
        result.message = u"没有打开数据文件夹。"_s;
        return;
    }
    const TransferOutcome outcome = FetchFile(folder, uuid, localPath, session->Transfers());
    result.success = outcome.ok ? 1 : 0;
    result.message = outcome.text;
    if (!outcome.ok) {
        session->ReportHostMessage(MessageLevel::kWarning, u"下载文件失败："_s + outcome.text);
    }
}

} // namespace host
