#include "toolkit/media/AmrDecoder.h"

#include <opencore-amrnb/interf_dec.h>
#include <opencore-amrwb/dec_if.h>

#include <algorithm>
#include <array>

namespace toolkit {

namespace {

/// The libraries are told nothing of a frame's length: it is copied to where they may read on.
constexpr size_t kLongestFrame = 64;
using FrameCopy = std::array<unsigned char, kLongestFrame>;

struct AmrLibrary {
    void* (*make)();
    void (*end)(void*);
    void (*decode)(void*, const unsigned char*, short*, int);
    int rate;
};

constexpr AmrLibrary kNarrowLibrary{Decoder_Interface_init, Decoder_Interface_exit,
                                    Decoder_Interface_Decode, 8000};
constexpr AmrLibrary kWideLibrary{D_IF_init, D_IF_exit, D_IF_decode, 16000};

class AmrDecoder final : public IAmrDecoder {
public:
    explicit AmrDecoder(const AmrLibrary& library)
        : m_library(library), m_state(library.make(), library.end) {}

    [[nodiscard]] bool IsMade() const { return m_state != nullptr; }
    int Rate() const override { return m_library.rate; }

    std::span<const qint16> Decode(std::span<const unsigned char> frame) override {
        FrameCopy copy{};
        std::copy_n(frame.begin(), std::min(frame.size(), copy.size()), copy.begin());
        m_library.decode(m_state.get(), copy.data(), m_samples.data(), 0);
        return {m_samples.data(), size_t(m_library.rate * kAmrFrameMs / 1000)};
    }

private:
    const AmrLibrary& m_library;
    std::unique_ptr<void, void (*)(void*)> m_state;
    std::array<qint16, 320> m_samples{};
};

} // namespace

std::unique_ptr<IAmrDecoder> MakeAmrDecoder(AmrBand band) {
    if (band == AmrBand::None) {
        return nullptr;
    }
    auto decoder =
        std::make_unique<AmrDecoder>(band == AmrBand::Wide ? kWideLibrary : kNarrowLibrary);
    if (!decoder->IsMade()) {
        return nullptr;
    }
    return decoder;
}

} // namespace toolkit
