#include "host/import/ForeignPicture.h"

#include <libheif/heif.h>

namespace host {

const PictureLibraries& SystemPictureLibraries() {
    static const PictureLibraries system{
        [] { return heif_have_decoder_for_format(heif_compression_HEVC) != 0; }};
    return system;
}

bool IsForeign(ImageKind kind) {
    return kind == ImageKind::Heic || kind == ImageKind::Tiff || kind == ImageKind::WebP;
}

std::unique_ptr<ForeignPicture> OpenForeignPicture(ImageKind kind, const QByteArray& bytes,
                                                   const PictureLibraries& libraries) {
    switch (kind) {
    case ImageKind::Heic:
        return OpenHeic(bytes, libraries);
    case ImageKind::Tiff:
        return OpenTiff(bytes);
    case ImageKind::WebP:
        return OpenWebp(bytes);
    default:
        return nullptr;
    }
}

} // namespace host
