// The photos of one page of the console's grid.
#pragma once

#include "services/PicRecords.h"
#include "viewers/PhotoSource.h"

namespace gallery {

enum PageKind : qint32 {
    kBimPage = 1,
    kDrawingPage = 2,
};

/// All that is said of them is in the list: only the folders are asked for. The mark of a photo is
/// not told, but by its number. Thread: user interface.
class PagePhotoSource final : public IPhotoSource {
public:
    PagePhotoSource(std::vector<KX_DATA::PicViewItem> page, qint32 kind);

    [[nodiscard]] std::optional<std::vector<PhotoEntry>> List() override;
    [[nodiscard]] std::optional<PhotoDetail> Detail(const PhotoEntry& photo) override;
    /// A kind that is neither gives each photo the folder of the one before.
    [[nodiscard]] std::vector<GalleryItem> Files(const std::vector<PhotoEntry>& photos) override;

private:
    const std::vector<KX_DATA::PicViewItem> m_page;
    const qint32 m_kind;
};

} // namespace gallery
