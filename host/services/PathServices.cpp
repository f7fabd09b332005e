#include "host/services/PathServices.h"

#include "host/services/ServiceGuard.h"
#include "site/IClientFolders.h"
#include "site/StoreName.h"

#include <QDir>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// Callers append file names directly.
QString WithSeparator(const QString& folder) {
    return folder.isEmpty() ? folder : QDir::toNativeSeparators(folder + u'/');
}

/// The folder that `ask` names.
template <typename Ask> QString MadeFolder(Ask ask) {
    return Guarded(u"读取缓存文件夹"_s, QString(), [&](HostSession& session) {
        const QString folder = ask(session.Site().Folders());
        if (folder.isEmpty()) {
            throw site::DataError(
                site::Fault::NotWritable,
                site::FaultText(site::Fault::NotWritable, session.Site().Place()));
        }
        return WithSeparator(folder);
    });
}

QString CacheFolder(qint32 ppid, site::IClientFolders::Cache what) {
    return MadeFolder([&](site::IClientFolders& folders) { return folders.CacheOf(ppid, what); });
}

QString RichFolder(const QString& key) {
    return MadeFolder([&](site::IClientFolders& folders) { return folders.RichText(key); });
}

} // namespace

const QString& PathMng::GetPicFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheFolder(ppid, site::IClientFolders::Cache::Pictures);
    return folder;
}

const QString& PathMng::GetThumbFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheFolder(ppid, site::IClientFolders::Cache::Thumbnails);
    return folder;
}

const QString& PathMng::GetAttachFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheFolder(ppid, site::IClientFolders::Cache::Attachments);
    return folder;
}

const QString& PathMng::GetWorkFolder(QString& folder) {
    const HostSession* session = HostSession::Current();
    folder = session != nullptr && !session->imageFolder.isEmpty()
                 ? WithSeparator(session->imageFolder)
                 : MadeFolder([](site::IClientFolders& folders) { return folders.Work(); });
    return folder;
}

const QString& CommonPathMng::GetLogFolder(QString& folder) {
    folder = MadeFolder([](site::IClientFolders& folders) { return folders.Logs(); });
    return folder;
}

void VeskPathTool::GetRichFolder(QString& folder) {
    folder = RichFolder({});
}

void VeskPathTool::GetAttachFolder(QString& folder, const QString& key) {
    folder = site::IsPlainFileName(key) ? RichFolder(key) : QString();
}

void VeskPathTool::GetOpenFolder(QString& folder) {
    folder = MadeFolder([](site::IClientFolders& folders) { return folders.Opened(); });
}

} // namespace host
