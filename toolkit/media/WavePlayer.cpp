#include "toolkit/media/WavePlayer.h"

#include "toolkit/media/AmrDecoder.h"
#include "toolkit/media/AmrReader.h"
#include "toolkit/media/AudioOutput.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <system_error>
#include <thread>
#include <vector>

using toolkit::AmrReader;
using toolkit::IAmrDecoder;
using toolkit::IAudioOutput;

namespace {

constexpr int kBlockFrames = 5;

/// Empties the block and decodes the next frames into it; it stays empty at the end of the note.
void DecodeBlock(AmrReader& file, IAmrDecoder& decoder, std::vector<qint16>& block) {
    block.clear();
    for (int i = 0; i < kBlockFrames; ++i) {
        const auto frame = file.Next();
        if (frame.empty()) {
            return;
        }
        const auto samples = decoder.Decode(frame);
        block.insert(block.end(), samples.begin(), samples.end());
    }
}

std::unique_ptr<IAudioOutput> Silence(int rate) {
    auto output = std::make_unique<toolkit::SilentOutput>();
    output->Open(rate, {});
    return output;
}

void PlayFile(const QString& path, std::unique_ptr<IAudioOutput> output,
              const std::stop_token& stop) {
    AmrReader file(path);
    const std::unique_ptr<IAmrDecoder> decoder = toolkit::MakeAmrDecoder(file.Band());
    if (!decoder) {
        return;
    }
    if (!output || !output->Open(decoder->Rate(), stop)) {
        output = Silence(decoder->Rate());
    }
    std::vector<qint16> block;
    for (DecodeBlock(file, *decoder, block); !block.empty() && !stop.stop_requested();
         DecodeBlock(file, *decoder, block)) {
        if (!output->Write(block, stop)) {
            output = Silence(decoder->Rate());
        }
    }
    output->Drain(stop);
}

} // namespace

struct WavePlayer::Playback {
    std::atomic<bool> ended{false};
    std::jthread thread; ///< last, so that it ends first
};

WavePlayer::WavePlayer() = default;

WavePlayer::~WavePlayer() = default;

void WavePlayer::Play(const QString& path, quint32& lengthMs) {
    Stop();
    constexpr quint64 kLongest = std::numeric_limits<quint32>::max();
    lengthMs =
        path.isEmpty()
            ? 0
            : quint32(std::min(AmrReader(path).CountRest() * toolkit::kAmrFrameMs, kLongest));
    if (lengthMs == 0) {
        return;
    }
    m_playback = std::make_unique<Playback>();
    Playback& playback = *m_playback;
    try {
        playback.thread = std::jthread([&playback, path, output = toolkit::MakeAudioOutput()](
                                           const std::stop_token& stop) mutable {
            PlayFile(path, std::move(output), stop);
            playback.ended.store(true);
        });
    } catch (const std::system_error&) {
        m_playback.reset();
    }
}

void WavePlayer::Stop() {
    m_playback.reset();
}

PlayState WavePlayer::GetPlayState() const {
    return m_playback && !m_playback->ended.load() ? PlayState::Playing : PlayState::Idle;
}
