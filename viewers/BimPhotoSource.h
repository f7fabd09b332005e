// The photos of one place in the model.
#pragma once

#include "viewers/PhotoSource.h"

/// Where photos hang in the model.
struct BimPlace {
    qint32 ppid = 0;
    QString floor; ///< empty: no position
    QString positionKey;
    qint32 markId = 0;
};

namespace gallery {

/// Photos of the project at a floor, a grid intersection and a mark, as far as the model's marks
/// show them. A wait cursor shows while the services are asked.
class BimPhotoSource final : public IPhotoSource {
public:
    explicit BimPhotoSource(BimPlace place);

    [[nodiscard]] std::optional<std::vector<PhotoEntry>> List() override;
    [[nodiscard]] std::optional<PhotoDetail> Detail(const PhotoEntry& photo) override;
    [[nodiscard]] std::vector<GalleryItem> Files(const std::vector<PhotoEntry>& photos) override;

private:
    const BimPlace m_place;
};

} // namespace gallery
