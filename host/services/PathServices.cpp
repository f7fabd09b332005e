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

QString FolderService::Made(const SessionDesk::Ask& ask) const {
    const auto desk = Around().Desk();
    const auto folder = desk != nullptr ? desk->Folder(ask) : std::nullopt;
    if (!folder) {
        qCWarning(serviceLog, "no site is open: folder");
        return {};
    }
    return WithSeparator(*folder);
}

QString FolderService::CacheOf(qint32 ppid, site::IClientFolders::Cache what) const {
    return Made([&](site::IClientFolders& folders) { return folders.CacheOf(ppid, what); });
}

QString FolderService::RichText(const QString& key) const {
    return Made([&](site::IClientFolders& folders) { return folders.RichText(key); });
}

const QString& PathMng::GetPicFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheOf(ppid, site::IClientFolders::Cache::Pictures);
    return folder;
}

const QString& PathMng::GetThumbFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheOf(ppid, site::IClientFolders::Cache::Thumbnails);
    return folder;
}

const QString& PathMng::GetAttachFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheOf(ppid, site::IClientFolders::Cache::Attachments);
    return folder;
}

const QString& PathMng::GetWorkFolder(QString& folder) {
    folder = Around().Session() != nullptr && !Around().imageFolder.isEmpty()
                 ? WithSeparator(Around().imageFolder)
                 : Made([](site::IClientFolders& folders) { return folders.Work(); });
    return folder;
}

const QString& CommonPathMng::GetLogFolder(QString& folder) {
    folder = Made([](site::IClientFolders& folders) { return folders.Logs(); });
    return folder;
}

void VeskPathTool::GetRichFolder(QString& folder) {
    folder = RichText({});
}

void VeskPathTool::GetAttachFolder(QString& folder, const QString& key) {
    folder = site::IsPlainFileName(key) ? RichText(key) : QString();
}

void VeskPathTool::GetOpenFolder(QString& folder) {
    folder = Made([](site::IClientFolders& folders) { return folders.Opened(); });
}

} // namespace host
