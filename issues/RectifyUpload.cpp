#include "issues/RectifyUpload.h"

#include "base/PictureLog.h"
#include "base/StoredFile.h"
#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "toolkit/Clock.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/media/FileCopy.h"

#include <QCoreApplication>
#include <QDir>
#include <QUuid>

#include <atomic>
#include <list>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::PickedFile;
using ZelvorNRQ_KXVeskPicture::WriteLog;

namespace issues {

namespace {

struct Upload {
    std::atomic<bool> done{false};
    std::jthread thread;
};

/// Those that run, and those whose end nobody has noticed yet.
std::list<Upload>& Uploads() {
    static std::list<Upload> uploads;
    return uploads;
}

/// They end before the application does, when all that they need still lives. The host has ended
/// its transfers by then.
void EndWithApplication() {
    static const bool once = [] {
        qAddPostRoutine(JoinUploads);
        return true;
    }();
    Q_UNUSED(once);
}

bool Fail(const PickedFile& file, const QString& reason) {
    WriteLog(u"上传照片失败,文件=%1, 信息=%2"_s.arg(file.fileName, reason));
    return false;
}

bool Store(const PickedFile& file, const QString& path, KX_DATA::UploadResult& result) {
    QString fault;
    return GetKXFilesUploadMng()->UploadFile({{path}}, 1, result, fault) || Fail(file, fault);
}

/// What stands behind the last dot may be the rest of a path.
QString EndingOf(const PickedFile& file) {
    const bool isPath = file.extension.contains(u'/') || file.extension.contains(u'\\');
    return isPath ? QString() : file.extension;
}

/// At its end nothing of the report is left here: it goes where the last word of it is read.
void Run(const std::stop_token& stop, const UploadOrder& order,
         std::shared_ptr<const UploadReport> report) {
    std::vector<KX_DATA::QuestionPicRecord> stored;
    for (size_t at = 0; at < order.files.size(); ++at) {
        if (stop.stop_requested()) {
            return;
        }
        toolkit::CallOnInterfaceThread([report, number = int(at) + 1] { report->onFile(number); });
        KX_DATA::QuestionPicRecord record;
        if (UploadPicture(order.files[at], order.folder, order.uploader, record)) {
            stored.push_back(record);
        }
    }
    toolkit::CallOnInterfaceThread(
        [ended = std::move(report), taken = std::move(stored)] { ended->onEnd(taken); });
}

} // namespace

void StartUpload(UploadOrder order, UploadReport report) {
    EndWithApplication();
    std::list<Upload>& uploads = Uploads();
    uploads.remove_if([](const Upload& upload) { return upload.done.load(); });
    Upload& upload = uploads.emplace_back();
    const auto shared = std::make_shared<const UploadReport>(std::move(report));
    try {
        upload.thread = std::jthread(
            [&upload, mine = shared, work = std::move(order)](const std::stop_token& stop) mutable {
                Run(stop, work, std::move(mine));
                upload.done.store(true);
            });
    } catch (const std::system_error&) {
        uploads.pop_back();
        toolkit::CallOnInterfaceThread([shared] { shared->onEnd({}); });
    }
}

void JoinUploads() {
    Uploads().clear();
}

bool UploadPicture(const PickedFile& file, const QString& folder, const QString& uploader,
                   KX_DATA::QuestionPicRecord& record) {
    using namespace ZelvorNRQ_KXVeskPicture;
    record.picId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    record.uploaderName = uploader;
    record.uploadTime = toolkit::Clock().NowSeconds();
    record.fileName = file.fileName;
    QDir().mkpath(folder);
    const QString reduced = StoredFilePath(folder, record.picId, kPictureEnding);
    if (!SaveReducedJpeg(file.filePath, reduced)) {
        return Fail(file, u"不是图片或无法读取"_s);
    }
    KX_DATA::UploadResult whole;
    if (!Store(file, file.filePath, whole)) {
        return false;
    }
    record.fileSize = whole.size;
    record.fileMd5 = whole.md5;
    record.fileUuid = whole.uuid;
    // Under its own ending, where the gallery doesn't look for it unless that is ".jpg"; required
    // as is. A copy that fails costs one download.
    const QString local = StoredFilePath(folder, whole.uuid, EndingOf(file));
    if (!local.isEmpty()) {
        static_cast<void>(toolkit::CopyFileWhole(file.filePath, local, toolkit::IfExists::Replace));
    }
    KX_DATA::UploadResult small;
    if (!Store(file, reduced, small)) {
        return false;
    }
    record.thumbSize = small.size;
    record.thumbMd5 = small.md5;
    record.thumbUuid = small.uuid;
    const bool isWhole = !record.fileUuid.isEmpty() && !record.fileMd5.isEmpty() &&
                         !record.thumbUuid.isEmpty() && !record.thumbMd5.isEmpty();
    return isWhole || Fail(file, u"服务没有返回文件标识"_s);
}

} // namespace issues
