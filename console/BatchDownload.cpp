#include "console/BatchDownload.h"

#include "base/PicNames.h"
#include "base/PictureLog.h"
#include "services/Factories.h"
#include "services/IExProgress.h"
#include "services/IKXSysMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/media/FileCopy.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/StoredFetch.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

KX_DATA::IExProgress& OpenProgress(qint32 rows) {
    KX_DATA::IExProgress& progress = *GetExProgress();
    progress.Create(toolkit::MainWindow(), u"ZVKX"_s);
    progress.SetTitle(u"正在下载Vesk照片..."_s);
    progress.Show();
    progress.SetRange(rows);
    return progress;
}

/// Failures other than a taken name, and running out of numbers, pass without a message.
void CopyUnderOwnName(const DownloadSource& source, const QString& folder) {
    using namespace ZelvorNRQ_KXVeskPicture;
    QString base;
    QString extension;
    SplitPicName(source.name, base, extension, false);
    for (int number = 0; number <= kMostCopyNumbers; ++number) {
        const QString target = CopyTarget(folder, base, number, extension);
        if (toolkit::CopyFileWhole(source.localPath, target, toolkit::IfExists::Keep) !=
            toolkit::CopyOutcome::TargetExists) {
            return;
        }
    }
}

/// The progress window was the main window's, which comes to the front as that closes.
void BringToFront(toolkit::WindowId id) {
    QWidget* window = toolkit::WidgetOf(id);
    if (window == nullptr) {
        return;
    }
    window->raise();
    window->activateWindow();
}

} // namespace

void DownloadRows(const std::vector<BatchRow>& rows, const QString& folder,
                  toolkit::WindowId console) {
    KX_DATA::IExProgress& progress = OpenProgress(qint32(rows.size()));
    bool anyDone = false;
    qint32 done = 0;
    for (const BatchRow& row : rows) {
        if (row.checked) {
            const KX_DATA::TransferResult result = ZelvorNRQ_KXVeskPicture::FetchStoredFile(
                row.source.uuid, row.source.localPath, false);
            if (result.success == 0) {
                // The progress window stays open, nobody is told; required as is.
                ZelvorNRQ_KXVeskPicture::WriteLog(result.message);
                return;
            }
            anyDone = true;
            CopyUnderOwnName(row.source, folder);
        }
        progress.SetPos(++done);
    }
    if (anyDone && KXTools::ShowQuestionBox(console, u"下载成功，是否打开下载照片的所在目录？"_s) ==
                       KXTools::kYes) {
        toolkit::Prompts().OpenFolder(folder);
    }
    progress.Close();
    BringToFront(console);
    GetKXSysMng()->WriteActionLog(u"下载Vesk照片"_s);
}
