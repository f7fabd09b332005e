#include "host/import/ExifBlock.h"
#include "host/import/ForeignPicture.h"
#include "host/import/Upright.h"

#include <webp/decode.h>
#include <webp/demux.h>

namespace host {

using namespace Qt::StringLiterals;

namespace {

struct DemuxDeleter {
    void operator()(WebPDemuxer* demuxer) const { WebPDemuxDelete(demuxer); }
};

[[nodiscard]] QByteArray ChunkOf(const WebPDemuxer* demuxer, const char* name) {
    WebPChunkIterator chunk{};
    QByteArray bytes;
    if (WebPDemuxGetChunk(demuxer, name, 1, &chunk) != 0) {
        bytes = QByteArray(reinterpret_cast<const char*>(chunk.chunk.bytes),
                           static_cast<qsizetype>(chunk.chunk.size));
    }
    WebPDemuxReleaseChunkIterator(&chunk);
    return bytes;
}

class WebpPicture final : public ForeignPicture {
public:
    explicit WebpPicture(const QByteArray& bytes) {
        const WebPData data{reinterpret_cast<const uint8_t*>(bytes.constData()),
                            static_cast<size_t>(bytes.size())};
        m_demuxer.reset(WebPDemux(&data)); // null for a file that ends before its last frame
        WebPIterator frame{};
        if (!m_demuxer || WebPDemuxGetFrame(m_demuxer.get(), 1, &frame) == 0 ||
            WebPGetFeatures(frame.fragment.bytes, frame.fragment.size, &m_features) !=
                VP8_STATUS_OK) {
            m_head.refusal = u"WebP 文件不完整或已损坏"_s;
            WebPDemuxReleaseIterator(&frame);
            return;
        }
        m_frame = frame.fragment;
        WebPDemuxReleaseIterator(&frame);
        const QByteArray exif = ChunkOf(m_demuxer.get(), "EXIF");
        const QByteArrayView block = PlainExif(exif);
        m_orientation = ExifOrientation(block);
        m_head.exif = UprightExif(block);
        m_head.colourProfile = RgbProfile(ChunkOf(m_demuxer.get(), "ICCP"));
        m_head.size = QSize(m_features.width, m_features.height);
        const uint32_t frames = WebPDemuxGetI(m_demuxer.get(), WEBP_FF_FRAME_COUNT);
        if (frames > 1) {
            m_head.note = u"动画共 %1 帧，只取第一帧"_s.arg(frames);
        }
    }

    [[nodiscard]] QImage Decode() override {
        const bool hasAlpha = m_features.has_alpha != 0;
        QImage picture(m_head.size, hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
        if (picture.isNull()) {
            return {};
        }
        const auto decode = hasAlpha ? WebPDecodeRGBAInto : WebPDecodeRGBInto;
        const bool isWhole = decode(m_frame.bytes, m_frame.size, picture.bits(),
                                    static_cast<size_t>(picture.sizeInBytes()),
                                    static_cast<int>(picture.bytesPerLine())) != nullptr;
        if (!isWhole) {
            return {};
        }
        return Upright(hasAlpha ? OnWhite(picture) : std::move(picture), m_orientation);
    }

private:
    std::unique_ptr<WebPDemuxer, DemuxDeleter> m_demuxer;
    WebPBitstreamFeatures m_features{};
    WebPData m_frame{}; ///< within the bytes of the file
    int m_orientation = 1;
};

} // namespace

std::unique_ptr<ForeignPicture> OpenWebp(const QByteArray& bytes) {
    return std::make_unique<WebpPicture>(bytes);
}

} // namespace host
