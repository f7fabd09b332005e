#include "host/import/ExifBlock.h"
#include "host/import/ForeignPicture.h"
#include "host/import/Upright.h"

#include <libheif/heif.h>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kMostMetadata = size_t{16} * 1024 * 1024;

struct HeifDeleter {
    void operator()(heif_context* context) const { heif_context_free(context); }
    void operator()(heif_image_handle* handle) const { heif_image_handle_release(handle); }
    void operator()(heif_decoding_options* options) const { heif_decoding_options_free(options); }
};
template <typename Thing> using HeifOwned = std::unique_ptr<Thing, HeifDeleter>;

[[nodiscard]] QByteArray HeifExif(const heif_image_handle* handle) {
    heif_item_id id = 0;
    if (heif_image_handle_get_list_of_metadata_block_IDs(handle, "Exif", &id, 1) != 1) {
        return {};
    }
    const size_t size = heif_image_handle_get_metadata_size(handle, id);
    if (size == 0 || size > kMostMetadata) {
        return {};
    }
    QByteArray bytes(static_cast<qsizetype>(size), '\0');
    if (heif_image_handle_get_metadata(handle, id, bytes.data()).code != heif_error_Ok) {
        return {};
    }
    return UprightExif(PlainExif(bytes));
}

[[nodiscard]] QByteArray HeifProfile(const heif_image_handle* handle) {
    const size_t size = heif_image_handle_get_raw_color_profile_size(handle);
    if (size == 0 || size > kMostMetadata) {
        return {};
    }
    QByteArray profile(static_cast<qsizetype>(size), '\0');
    const heif_error error = heif_image_handle_get_raw_color_profile(handle, profile.data());
    return error.code == heif_error_Ok ? RgbProfile(profile) : QByteArray();
}

/// Turned and mirrored by the library itself, as the file says; what its EXIF block says of that
/// counts no more then.
class HeicPicture final : public ForeignPicture {
public:
    HeicPicture(const QByteArray& bytes, const PictureLibraries& libraries) {
        m_head.refusal = OpenRefusal(bytes, libraries);
        if (m_head.refusal.isEmpty()) {
            m_head.size = QSize(heif_image_handle_get_width(m_handle.get()),
                                heif_image_handle_get_height(m_handle.get()));
            m_head.exif = HeifExif(m_handle.get());
            m_head.colourProfile = HeifProfile(m_handle.get());
            const int pictures = heif_context_get_number_of_top_level_images(m_context.get());
            if (pictures > 1) {
                m_head.note = u"共 %1 张，只取主图"_s.arg(pictures);
            }
        }
    }

    [[nodiscard]] QImage Decode() override {
        const HeifOwned<heif_decoding_options> options(heif_decoding_options_alloc());
        options->convert_hdr_to_8bit = 1;
        options->strict_decoding = 1; // half a picture is none
        const bool hasAlpha = heif_image_handle_has_alpha_channel(m_handle.get()) != 0;
        heif_image* decoded = nullptr;
        const heif_error error = heif_decode_image(
            m_handle.get(), &decoded, heif_colorspace_RGB,
            hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, options.get());
        if (error.code != heif_error_Ok || decoded == nullptr) {
            return {};
        }
        int stride = 0;
        const uchar* plane =
            heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
        const int width = heif_image_get_width(decoded, heif_channel_interleaved);
        const int height = heif_image_get_height(decoded, heif_channel_interleaved);
        if (plane == nullptr || width <= 0 || height <= 0) {
            heif_image_release(decoded);
            return {};
        }
        // The picture borrows the library's memory, and gives it back.
        const auto release = [](void* image) {
            heif_image_release(static_cast<const heif_image*>(image));
        };
        const QImage borrowed(plane, width, height, stride,
                              hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888, release,
                              decoded);
        return hasAlpha ? OnWhite(borrowed) : borrowed;
    }

private:
    [[nodiscard]] QString OpenRefusal(const QByteArray& bytes, const PictureLibraries& libraries) {
        if (!libraries.readHevc()) {
            return u"HEIC 格式无法读取：本机的 libheif 没有 HEVC 解码器，请安装 libde265-0"
                   "（新版系统为 libheif-plugin-libde265）后重新导入"_s;
        }
        m_context.reset(heif_context_alloc());
        const heif_error opened = heif_context_read_from_memory_without_copy(
            m_context.get(), bytes.constData(), static_cast<size_t>(bytes.size()), nullptr);
        heif_image_handle* primary = nullptr;
        if (opened.code != heif_error_Ok ||
            heif_context_get_primary_image_handle(m_context.get(), &primary).code !=
                heif_error_Ok) {
            return opened.code == heif_error_Unsupported_filetype ||
                           opened.code == heif_error_Unsupported_feature
                       ? u"这种 HEIF 图片无法读取，请先转换为 JPEG"_s
                       : u"HEIC 文件不完整或已损坏"_s;
        }
        m_handle.reset(primary);
        return {};
    }

    HeifOwned<heif_context> m_context;
    HeifOwned<heif_image_handle> m_handle; ///< before the context is gone
};

} // namespace

std::unique_ptr<ForeignPicture> OpenHeic(const QByteArray& bytes,
                                         const PictureLibraries& libraries) {
    return std::make_unique<HeicPicture>(bytes, libraries);
}

} // namespace host
