#include "tests/viewers/site/GallerySite.h"

#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IVeskPicMng.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace support {

GallerySite::GallerySite(const QString& folder) {
    BeginSession();
    if (const auto fault = session->Open(folder)) {
        qFatal("%s", qUtf8Printable(fault->text));
    }
    site::SiteWriter writer(support::FolderOf(*session));
    m_ppid = writer.AddProject(u"一期工程"_s);
    writer.AddUser(u"张伟"_s, {});
    if (!session->SignIn(u"张伟"_s) || !session->OpenProject(m_ppid)) {
        qFatal("no user, no project");
    }
}

void GallerySite::BeginSession() {
    session = std::make_unique<host::HostSession>();
    m_serving = std::make_unique<host::Serving>(*session);
}

void GallerySite::EndSession() {
    m_serving.reset();
    session.reset();
}

int GallerySite::AddPhoto(const QByteArray& picture, const QByteArray& note) {
    site::NewBimPhoto photo;
    photo.ppid = m_ppid;
    photo.fileName = u"照片%1.jpg"_s.arg(m_photos.size());
    photo.uploader = u"张伟"_s;
    photo.uploadTime = 1'700'000'000;
    site::SiteWriter writer(support::FolderOf(*session));
    m_photos.push_back(writer.FilePhoto(photo, {QString(), picture}, {QString(), note}));
    return int(m_photos.size()) - 1;
}

QString GallerySite::CacheFolder() {
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, m_ppid, {});
    return folder;
}

std::vector<GalleryItem> GallerySite::Items() {
    std::vector<KX_DATA::PicFileEntry> files;
    GetVeskPicMng()->GetPicFiles(m_photos, files);
    const QString folder = CacheFolder();
    std::vector<GalleryItem> items;
    for (const KX_DATA::PicFileEntry& file : files) {
        GalleryItem item;
        item.picUuid = file.picUuid;
        item.picPath = u"%1%2.jpg"_s.arg(folder, file.picUuid);
        item.audioUuid = file.audioUuid;
        if (!file.audioUuid.isEmpty()) {
            item.audioPath = u"%1%2.amr"_s.arg(folder, file.audioUuid);
        }
        items.push_back(item);
    }
    return items;
}

QStringList GallerySite::Cached() {
    return QDir(CacheFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void GallerySite::Damage(const QString& uuid) {
    QFile file(support::FolderOf(*session).Store().PathOf(uuid));
    if (file.open(QIODevice::ReadWrite)) {
        file.write("damaged");
    }
}

} // namespace support
