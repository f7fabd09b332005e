#include "host/services/PathServices.h"

#include "host/services/SiteService.h"
#include "site/StoreName.h"

#include <QDir>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// Callers append file names directly.
QString WithSeparator(const QString& folder) {
    return folder.isEmpty() ? folder : QDir::toNativeSeparators(folder + u'/');
}

} // namespace

QString FolderService::Made(const QString& what, const SessionDesk::Ask& ask) const {
    const auto desk = Around().Desk();
    const auto folder = desk != nullptr ? desk->Folder(ask) : std::nullopt;
    if (!folder) {
        qCWarning(serviceLog, "no site is open: %s", qUtf8Printable(what));
        return {};
    }
    return WithSeparator(*folder);
}

QString FolderService::CacheOf(const QString& what, qint32 ppid,
                               site::IClientFolders::Cache cache) const {
    return Made(what, [&](site::IClientFolders& folders) { return folders.CacheOf(ppid, cache); });
}

QString FolderService::RichText(const QString& what, const QString& key) const {
    return Made(what, [&](site::IClientFolders& folders) { return folders.RichText(key); });
}

const QString& PathMng::GetPicFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheOf(u"读取照片文件夹"_s, ppid, site::IClientFolders::Cache::Pictures);
    return folder;
}

const QString& PathMng::GetThumbFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheOf(u"读取缩略图文件夹"_s, ppid, site::IClientFolders::Cache::Thumbnails);
    return folder;
}

const QString& PathMng::GetAttachFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheOf(u"读取附件文件夹"_s, ppid, site::IClientFolders::Cache::Attachments);
    return folder;
}

const QString& PathMng::GetWorkFolder(QString& folder) {
    folder = Around().Session() != nullptr && !Around().imageFolder.isEmpty()
                 ? WithSeparator(Around().imageFolder)
                 : Made(u"读取工作文件夹"_s,
                        [](site::IClientFolders& folders) { return folders.Work(); });
    return folder;
}

const QString& CommonPathMng::GetLogFolder(QString& folder) {
    folder =
        Made(u"读取日志文件夹"_s, [](site::IClientFolders& folders) { return folders.Logs(); });
    return folder;
}

void VeskPathTool::GetRichFolder(QString& folder) {
    folder = RichText(u"读取富文本文件夹"_s, {});
}

void VeskPathTool::GetAttachFolder(QString& folder, const QString& key) {
    folder = site::IsPlainFileName(key) ? RichText(u"读取富文本附件文件夹"_s, key) : QString();
}

void VeskPathTool::GetOpenFolder(QString& folder) {
    folder = Made(u"读取打开文件所用的文件夹"_s,
                  [](site::IClientFolders& folders) { return folders.Opened(); });
}

} // namespace host
