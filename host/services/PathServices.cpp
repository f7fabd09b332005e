#include "host/services/PathServices.h"

#include "host/services/ServiceGuard.h"
#include "site/StoreName.h"

#include <QDir>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// Callers append file names directly.
QString WithSeparator(const QString& folder) {
    return folder.isEmpty() ? folder : QDir::toNativeSeparators(folder + u'/');
}

QString CacheFolder(qint32 ppid, const QString& leaf) {
    return Guarded(u"读取缓存文件夹"_s, QString(), [&](HostSession& session) {
        const QString folder = session.Folder()->CachePath(ppid, leaf);
        if (folder.isEmpty()) {
            throw site::DataError(site::Fault::kNotWritable,
                                  site::FaultText(site::Fault::kNotWritable, leaf));
        }
        return WithSeparator(folder);
    });
}

QString MadeFolder(const QString& below) {
    return Guarded(u"读取缓存文件夹"_s, QString(), [&](HostSession& session) {
        const QString folder = session.Folder()->Path() + u'/' + below;
        if (!QDir().mkpath(folder)) {
            throw site::DataError(site::Fault::kNotWritable,
                                  site::FaultText(site::Fault::kNotWritable, folder));
        }
        return WithSeparator(folder);
    });
}

} // namespace

const QString& PathMng::GetPicFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheFolder(ppid, u"pics"_s);
    return folder;
}

const QString& PathMng::GetThumbFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheFolder(ppid, u"thumbs"_s);
    return folder;
}

const QString& PathMng::GetAttachFolder(QString& folder, qint32 ppid, const QString& /*name*/) {
    folder = CacheFolder(ppid, u"attach"_s);
    return folder;
}

const QString& PathMng::GetWorkFolder(QString& folder) {
    const HostSession* session = HostSession::Current();
    folder = session != nullptr && !session->imageFolder.isEmpty()
                 ? WithSeparator(session->imageFolder)
                 : MadeFolder(u"work"_s);
    return folder;
}

const QString& CommonPathMng::GetLogFolder(QString& folder) {
    folder = MadeFolder(u"logs"_s);
    return folder;
}

void VeskPathTool::GetRichFolder(QString& folder) {
    folder = MadeFolder(u"cache/rich"_s);
}

void VeskPathTool::GetAttachFolder(QString& folder, const QString& key) {
    folder = site::IsPlainFileName(key) ? MadeFolder(u"cache/rich/"_s + key) : QString();
}

void VeskPathTool::GetOpenFolder(QString& folder) {
    folder = MadeFolder(u"cache/open"_s);
}

} // namespace host
