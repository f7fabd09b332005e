#include "host/services/FilesUploadMng.h"

#include "site/DataError.h"

namespace host {

using namespace Qt::StringLiterals;

bool FilesUploadMng::UploadFile(const std::vector<KX_DATA::UploadItem>& items, qint32 count,
                                KX_DATA::UploadResult& result, QString& errorText) {
    const auto desk = Around().Desk();
    bool stored = false;
    bool siteCloses = false;
    const auto store = [&](site::IBlobs& blobs, const site::TransferTerms& terms) {
        try {
            result = blobs.Upload(items.front().path, terms);
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
