#include "viewers/BimPhotoSource.h"

#include "base/OpenProject.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IProjCacheMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/GbkText.h"
#include "toolkit/KXTools.h"
#include "toolkit/windows/WaitCursor.h"
#include "viewers/BimViewItem.h"

#include <utility>

namespace gallery {

namespace {

void KeepShownInModel(std::vector<KX_DATA::PicFileEntry>& files, const BimPlace& place) {
    KX_DATA::IProjModelHandle* model = GetProjCacheMng()->GetCurrentModel();
    if (model == nullptr) {
        return;
    }
    const KX_DATA::ShownPicMarks shown = model->GetShownPicMarks();
    KeepShown(files, shown, toolkit::ToGbk(FloorGroup(place.floor)), place.markId);
}

QString PicFolder(qint32 ppid) {
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, ppid, project ? project->name : QString());
    return folder;
}

} // namespace

BimPhotoSource::BimPhotoSource(BimPlace place) : m_place(std::move(place)) {}

std::optional<std::vector<PhotoEntry>> BimPhotoSource::List() {
    const toolkit::WaitCursor wait;
    std::vector<KX_DATA::PicFileEntry> files;
    if (GetVeskPicMng()->GetPicFilesByPosition(m_place.ppid, m_place.positionKey, m_place.markId,
                                               files) != KX_DATA::kServiceOk) {
        return std::nullopt;
    }
    KeepShownInModel(files, m_place);
    std::vector<PhotoEntry> photos;
    for (const KX_DATA::PicFileEntry& file : files) {
        photos.push_back({file.picId, file.kind, file.picUuid, file.audioUuid});
    }
    return photos;
}

std::optional<PhotoDetail> BimPhotoSource::Detail(const PhotoEntry& photo) {
    const toolkit::WaitCursor wait;
    KX_DATA::BimPicDetail record;
    if (GetVeskPicMng()->GetBimPicDetail(m_place.ppid, photo.picId, record) !=
        KX_DATA::kServiceOk) {
        return std::nullopt;
    }
    PhotoDetail detail;
    detail.name = record.fileName;
    detail.markName = record.markName;
    detail.posText = PositionOf(record);
    detail.markColor = record.markColor;
    detail.uploader = record.uploaderName;
    detail.uploadTime = KXTools::timeToCString(record.uploadTime);
    detail.updater = record.updaterName;
    detail.updateTime = KXTools::timeToCString(record.updateTime);
    detail.description = record.description;
    detail.labels = record.labels;
    if (detail.updateTime == detail.uploadTime) {
        detail.updater.clear();
        detail.updateTime.clear();
    }
    return detail;
}

std::vector<GalleryItem> BimPhotoSource::Files(const std::vector<PhotoEntry>& photos) {
    const QString folder = PicFolder(m_place.ppid);
    std::vector<GalleryItem> items;
    for (const PhotoEntry& photo : photos) {
        items.push_back(FilesOf(photo, folder));
    }
    return items;
}

} // namespace gallery
