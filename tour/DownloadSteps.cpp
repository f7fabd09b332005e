#include "hands/Hands.h"
#include "host/services/ServiceSet.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QPushButton>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstRow = 13; ///< below what the walk imported
constexpr int kPhotos = 10;
constexpr int kSlowMs = 400;
const QString kFolderQuestion = u"请选择文件存放的路径"_s;

/// What the transfers of the walk are like from now on.
bool SetSlow(bool slow) {
    const auto desk = host::TheServices().around.Desk();
    if (desk != nullptr) {
        desk->SetRules({slow ? kSlowMs : 0});
    }
    return desk != nullptr;
}

QString ReadProgress(const QString& label) {
    return ReadText(FindIn(FindWindow(kProgress), label));
}

/// Of the page, as the progress window counts them.
int RowsDone() {
    return ReadProgress(u"progressCount"_s).section(u' ', 0, 0).toInt();
}

int FilesIn(const QString& folder) {
    return int(QDir(folder).entryList(QDir::Files).size());
}

/// One more row with each call. True once enough of them are ticked.
bool TickRows() {
    if (ConsoleCheckedRows() < kPhotos) {
        ClickConsoleCheck(kFirstRow + ConsoleCheckedRows());
    }
    return ConsoleCheckedRows() >= kPhotos;
}

/// True once the dialog is gone: the first click may only shut its list of proposals.
bool AcceptFolder() {
    const auto* buttons = Find<QDialogButtonBox>(kFolderQuestion, u"buttonBox"_s);
    if (buttons == nullptr) {
        return FindWindow(kFolderQuestion) == nullptr;
    }
    hands::Click(buttons->button(QDialogButtonBox::Open));
    return false;
}

void WriteBatch(TourScript& script, const QString& folder) {
    script.Do(
        u"主窗口 Ctrl+1：控制台列出BIM照片"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_1, Qt::ControlModifier); },
        [] { return ConsoleRows() >= kFirstRow + kPhotos; });
    script.Do(u"勾选 %1 张较早的照片"_s.arg(kPhotos), TickRows,
              [] { return ConsoleCheckedRows() == kPhotos; });
    script.Do(
        u"单击“下载”，选择文件夹"_s,
        [] { return SetSlow(true) && hands::Click(ConsoleControl(u"downloadButton"_s)); },
        [] { return FindIn(FindWindow(kFolderQuestion), u"fileNameEdit"_s) != nullptr; });
    script.Do(
        u"输入文件夹"_s,
        [folder] {
            return QDir().mkpath(folder) &&
                   hands::TypeOver(FindIn(FindWindow(kFolderQuestion), u"fileNameEdit"_s), folder);
        },
        nullptr);
    script.Do(u"确定：慢速传输时出现进度窗口"_s, AcceptFolder,
              [] { return RowsDone() >= 3 && !ReadProgress(u"progressDetail"_s).isEmpty(); });
    script.Picture(kProgress, u"batch-progress"_s);
    script.Do(u"全部下载后询问是否打开文件夹"_s, nullptr,
              [] { return MessageBoxText() == u"下载成功，是否打开下载照片的所在目录？"_s; });
    script.Picture(OpenMessageBox, u"batch-question"_s);
    script.Do(
        u"回答“否”：文件夹里有勾选的照片，进度窗口关闭"_s, [] { return AnswerMessageBox(u"否"_s); },
        [folder] {
            return FilesIn(folder) == kPhotos && FindWindow(kProgress) == nullptr && SetSlow(false);
        });
    script.Do(
        u"关闭控制台"_s, [] { return hands::CloseWindow(Console()); },
        [] { return Console() == nullptr; });
}

/// The gallery has a program of its own, which saves its pictures by itself: photos that wait, that
/// are on their way, that failed and that have come.
void WriteGallery(TourScript& script, const QString& photos, const QString& pictures) {
    static QProcess* program = nullptr;
    const QString path = QDir(QCoreApplication::applicationDirPath()).filePath(u"gallery_site"_s);
    if (!QFileInfo::exists(path)) {
        return;
    }
    script.Do(
        u"照片浏览：等待、下载中、失败、完成（gallery-*.png）"_s,
        [=] {
            program = new QProcess(QCoreApplication::instance());
            program->setProcessChannelMode(QProcess::ForwardedChannels);
            program->start(path, {photos, u"--shots"_s, pictures});
            return true;
        },
        [=] {
            return program->state() == QProcess::NotRunning && program->exitCode() == 0 &&
                   QFileInfo::exists(QDir(pictures).filePath(u"gallery-arriving.png"_s)) &&
                   QFileInfo::exists(QDir(pictures).filePath(u"gallery-arrived.png"_s));
        });
}

} // namespace

void WriteDownloads(TourScript& script, const TourPlaces& places) {
    WriteBatch(script, places.downloadFolder);
    WriteGallery(script, places.downloadFolder, places.pictures);
}

} // namespace tour
