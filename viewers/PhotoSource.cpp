#include "viewers/PhotoSource.h"

#include "base/StoredFile.h"
#include "viewers/NoteRules.h"

#include <algorithm>

namespace gallery {

int IndexOfPhoto(const std::vector<PhotoEntry>& photos, qint32 wantedPicId) {
    const auto found = std::find_if(photos.rbegin(), photos.rend(), [&](const PhotoEntry& photo) {
        return photo.picId == wantedPicId;
    });
    return wantedPicId == -1 || found == photos.rend() ? 0 : int(photos.rend() - found) - 1;
}

GalleryItem FilesOf(const PhotoEntry& photo, const QString& folder) {
    GalleryItem item;
    item.picUuid = photo.picUuid;
    item.picPath = ZelvorNRQ_KXVeskPicture::StoredFilePath(folder, photo.picUuid,
                                                           ZelvorNRQ_KXVeskPicture::kPictureEnding);
    item.audioUuid = photo.audioUuid;
    item.audioPath = NotePath(folder, photo.audioUuid);
    return item;
}

} // namespace gallery
