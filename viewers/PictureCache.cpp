#include "viewers/PictureCache.h"

#include <QFileInfo>

#include <algorithm>

namespace gallery {

namespace {

/// The current picture, the one before and the next, with room for one that is being replaced.
constexpr size_t kMostPictures = 4;
constexpr size_t kLeastPictures = 2;
constexpr qint64 kMostBytes = 40'000'000;

qint64 BytesOf(const QSize& size) {
    return qint64(size.width()) * size.height() * 4;
}

} // namespace

PictureKey KeyOf(const QString& path, const QSize& size) {
    const QFileInfo info(path);
    return {path, size, info.lastModified(), info.size()};
}

PictureCache::Entry& PictureCache::Touch(const PictureKey& key,
                                         const std::function<void()>& whenDone) {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.key == key; });
    if (found != m_entries.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found);
        return m_entries.front();
    }
    toolkit::PictureRequest request;
    request.path = key.path;
    request.size = key.size;
    m_entries.push_front({key, std::make_shared<DecodeJob>(request, whenDone), std::nullopt});
    DropOldest();
    return m_entries.front();
}

void PictureCache::DropOldest() {
    qint64 bytes = 0;
    for (const Entry& entry : m_entries) {
        bytes += BytesOf(entry.key.size);
    }
    while (m_entries.size() > kMostPictures ||
           (m_entries.size() > kLeastPictures && bytes > kMostBytes)) {
        bytes -= BytesOf(m_entries.back().key.size);
        m_entries.back().job->GiveUp();
        m_entries.pop_back();
    }
}

QImage PictureCache::Await(const QString& path, const QSize& size) {
    const std::shared_ptr<DecodeJob> job = Touch(KeyOf(path, size)).job;
    return AwaitDecoded(job);
}

QImage PictureCache::Find(const QString& path) const {
    for (const Entry& entry : m_entries) {
        const QImage image = entry.key.path == path ? entry.job->GetIfDone() : QImage();
        if (!image.isNull() && KeyOf(path, entry.key.size) == entry.key) {
            return image;
        }
    }
    return {};
}

std::optional<QImage> PictureCache::Want(const QString& path, const QSize& size,
                                         const std::function<void()>& whenDone) {
    Entry& entry = Touch(KeyOf(path, size), whenDone);
    if (entry.job->IsDone()) {
        return entry.job->GetIfDone();
    }
    // One that waits as a look ahead is handed in again: whoever comes first does it.
    if (entry.handedIn != Urgency::Wanted) {
        entry.handedIn = Urgency::Wanted;
        DecodeInBackground(entry.job, Urgency::Wanted);
    }
    return std::nullopt;
}

void PictureCache::Prepare(const QString& path, const QSize& size,
                           const std::function<void()>& whenDone) {
    Entry& entry = Touch(KeyOf(path, size), whenDone);
    if (!entry.handedIn && !entry.job->IsDone()) {
        entry.handedIn = Urgency::Ahead;
        DecodeInBackground(entry.job, Urgency::Ahead);
    }
}

bool PictureCache::IsOnItsWay(const QString& path) const {
    return std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.key.path == path && entry.handedIn && !entry.job->IsDone();
    });
}

void PictureCache::GiveUpOthers(const QString& path) {
    m_entries.remove_if([&](const Entry& entry) {
        const bool given = entry.key.path != path && !entry.job->IsDone();
        if (given) {
            entry.job->GiveUp();
        }
        return given;
    });
}

void PictureCache::Clear() {
    for (const Entry& entry : m_entries) {
        entry.job->GiveUp();
    }
    m_entries.clear();
}

} // namespace gallery
