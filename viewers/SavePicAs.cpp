#include "viewers/SavePicAs.h"

#include "base/PicNames.h"
#include "base/PictureLog.h"
#include "services/Factories.h"
#include "services/IKXSysMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/media/FileCopy.h"
#include "toolkit/windows/Prompts.h"
#include "viewers/StoredFetch.h"

using namespace Qt::StringLiterals;

namespace ZelvorNRQ_KXVeskPicture {

namespace {

QString AskTarget(const QString& name) {
    toolkit::SaveFileRequest request;
    SplitPicName(name, request.proposedName, request.defaultExtension, false);
    request.filter = u"KX文档(*.%1)"_s.arg(request.defaultExtension);
    return toolkit::Prompts().AskSaveFile(request);
}

} // namespace

bool SavePicAs(const QString& uuid, const QString& name, const QString& localPath) {
    const QString target = AskTarget(name);
    if (target.isEmpty()) {
        return true;
    }
    WriteLog(u"[开始]下载图片,UUID=%1, Path=%2"_s.arg(uuid, target));
    const KX_DATA::TransferResult result = FetchStoredFile(uuid, localPath, true);
    if (result.success == 0) {
        KXTools::ShowMsgBox(toolkit::kNoWindow, result.message);
        WriteLog(result.message);
        return false;
    }
    // What becomes of the copy isn't looked at; required as is.
    toolkit::CopyFileWhole(localPath, target, toolkit::IfExists::Replace);
    if (KXTools::ShowQuestionBox(toolkit::kNoWindow, u"下载成功，是否打开下载照片的所在目录？"_s) ==
        KXTools::kYes) {
        toolkit::Prompts().RevealFile(target);
    }
    GetKXSysMng()->WriteActionLog(u"下载Vesk照片"_s);
    return true;
}

} // namespace ZelvorNRQ_KXVeskPicture
