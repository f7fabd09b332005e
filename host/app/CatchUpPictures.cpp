#include "host/app/CatchUpPictures.h"

#include "host/session/HostSession.h"
#include "site/IClientFolders.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/media/PictureFile.h"

#include <QPointer>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAtOnce = 2;

QImage Small(const QString& path, const QSize& within) {
    const QSize whole = toolkit::ReadPictureSize(path);
    if (whole.isEmpty()) {
        return {};
    }
    const QSize size = whole.scaled(within, Qt::KeepAspectRatio).expandedTo({1, 1});
    return toolkit::DecodePicture({path, {}, size});
}

} // namespace

CatchUpPictures::~CatchUpPictures() {
    m_end.request_stop();
}

void CatchUpPictures::Ask(qint32 ppid, const QString& uuid) {
    m_wishes.push_back({ppid, uuid});
    if (m_wishes.size() > m_most) {
        const QString dropped = m_wishes.front().uuid;
        m_wishes.erase(m_wishes.begin());
        emit Dropped(dropped);
    }
    StartNext();
}

void CatchUpPictures::StartNext() {
    while (m_running < kAtOnce && !m_wishes.empty()) {
        const Wish wish = m_wishes.back();
        m_wishes.pop_back();
        m_running += Start(wish) ? 1 : 0;
    }
}

bool CatchUpPictures::Start(const Wish& wish) {
    const auto folder = m_session.Desk()->Folder([&wish](site::IClientFolders& folders) {
        return folders.CacheOf(wish.ppid, site::IClientFolders::Cache::Pictures);
    });
    if (!folder || folder->isEmpty()) {
        return false;
    }
    // Where the module looks for it too.
    const QString path = *folder + u'/' + wish.uuid + u".jpg"_s;
    const QPointer<CatchUpPictures> self(this);
    const auto work = [self, uuid = wish.uuid, path, size = m_size, end = m_end.get_token()](
                          site::IBlobs& blobs, const site::TransferTerms& terms) {
        QImage picture;
        if (!end.stop_requested() && blobs.Fetch(uuid, path, terms).ok) {
            picture = Small(path, size);
        }
        // Looked up on the interface thread: the list may be gone by then.
        toolkit::CallOnInterfaceThread([self, uuid, picture] {
            if (self) {
                self->Take(uuid, picture);
            }
        });
    };
    return m_session.Desk()->Start(work).stop_possible();
}

void CatchUpPictures::Take(const QString& uuid, const QImage& picture) {
    --m_running;
    emit Came(uuid, picture);
    StartNext();
}

} // namespace host
