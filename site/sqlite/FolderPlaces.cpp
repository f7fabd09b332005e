#include "site/sqlite/FolderPlaces.h"

#include "site/blobs/FolderLook.h"
#include "site/blobs/OwnedLock.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/DataFolder.h"

#include <QDir>
#include <QFile>
#include <QLockFile>

#include <utility>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// A lock tells what a crash left from what somebody works on.
class FolderWorkshop final : public IWorkshop {
public:
    FolderWorkshop(DataFolder& dataFolder, std::function<bool(const QString&)> isOurs)
        : m_folder(dataFolder), m_isOurs(std::move(isOurs)),
          m_part(dataFolder.Path() + u'/' + place::kSamplePart),
          m_lock(dataFolder.Path() + u'/' + place::kSampleLock) {
        m_lock.setStaleLockTime(0);
    }
    ~FolderWorkshop() override {
        if (m_lock.isLocked()) {
            Clear();
        }
    }

    [[nodiscard]] bool Enter() override {
        if (!TakeLock(m_lock)) {
            return false;
        }
        Clear();
        return QDir().mkdir(m_part);
    }
    [[nodiscard]] QString Place() const override { return m_part; }

private:
    void Clear() {
        for (const QString& name : EntriesOf(m_part)) {
            const QString path = m_part + u'/' + name;
            if (m_isOurs(name) && IsRealFile(path)) {
                QFile::remove(path);
            }
        }
        if (IsThere(m_part) && !QDir().rmdir(m_part)) {
            SetAside aside(m_folder.Path(), m_folder.Today());
            aside.Take(place::kSamplePart);
            m_folder.Tell(aside.Story());
        }
    }

    DataFolder& m_folder;
    std::function<bool(const QString&)> m_isOurs;
    QString m_part;
    QLockFile m_lock;
};

QString LeafOf(IClientFolders::Cache what) {
    switch (what) {
    case IClientFolders::Cache::Pictures:
        return u"pics"_s;
    case IClientFolders::Cache::Thumbnails:
        return u"thumbs"_s;
    case IClientFolders::Cache::Drawings:
        return u"drawings"_s;
    case IClientFolders::Cache::Attachments:
        break;
    }
    return u"attach"_s;
}

} // namespace

QString FolderPlaces::Made(const QString& below) const {
    const QString path = m_folder.Path() + u'/' + below;
    return QDir().mkpath(path) ? path : QString();
}

QString FolderPlaces::CacheOf(qint32 ppid, Cache what) const {
    return Made(place::kCache + u'/' + QString::number(ppid) + u'/' + LeafOf(what));
}

QString FolderPlaces::RichText(const QString& key) const {
    return Made(place::kCache + (key.isEmpty() ? u"/rich"_s : u"/rich/"_s + key));
}

QString FolderPlaces::Opened() const {
    return Made(place::kCache + u"/open"_s);
}

QString FolderPlaces::Work() const {
    return Made(place::kWork);
}

QString FolderPlaces::Logs() const {
    return Made(place::kLogs);
}

std::unique_ptr<IWorkshop> FolderPlaces::Workshop(std::function<bool(const QString&)> isOurs) {
    return std::make_unique<FolderWorkshop>(m_folder, std::move(isOurs));
}

} // namespace site
