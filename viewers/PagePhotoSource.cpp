#include "viewers/PagePhotoSource.h"

#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"

#include <algorithm>
#include <utility>

namespace gallery {

PagePhotoSource::PagePhotoSource(std::vector<KX_DATA::PicViewItem> page, qint32 kind)
    : m_page(std::move(page)), m_kind(kind) {}

std::optional<std::vector<PhotoEntry>> PagePhotoSource::List() {
    std::vector<PhotoEntry> photos;
    for (const KX_DATA::PicViewItem& item : m_page) {
        photos.push_back({item.picId, m_kind, item.uuid, item.fileText});
    }
    return photos;
}

std::optional<PhotoDetail> PagePhotoSource::Detail(const PhotoEntry& photo) {
    const auto item = std::ranges::find(m_page, photo.picId, &KX_DATA::PicViewItem::picId);
    if (item == m_page.end()) {
        return std::nullopt;
    }
    PhotoDetail detail;
    detail.name = item->picName;
    detail.posText = item->positionText;
    detail.uploader = item->uploader;
    detail.uploadTime = item->uploadTime;
    // As they come, also of a photo that was never changed.
    detail.updater = item->updater;
    detail.updateTime = item->updateTime;
    detail.description = item->description;
    if (!item->labelText.isEmpty()) {
        detail.labels.emplace_back().labelName =
            item->labelText; // all of them, as the row shows them
    }
    return detail;
}

std::vector<GalleryItem> PagePhotoSource::Files(const std::vector<PhotoEntry>& photos) {
    std::vector<GalleryItem> items;
    QString folder;
    for (std::size_t i = 0; i < photos.size() && i < m_page.size(); ++i) {
        const qint32 ppid = m_page[i].ppid;
        QString project;
        GetKXGlobalData()->GetProjectName(project, ppid);
        if (m_kind == kBimPage) {
            GetKXPathMng()->GetPicFolder(folder, ppid, project);
        } else if (m_kind == kDrawingPage) {
            GetKXPathMng()->GetThumbFolder(folder, ppid, project);
        }
        items.push_back(FilesOf(photos[i], folder));
    }
    return items;
}

} // namespace gallery
