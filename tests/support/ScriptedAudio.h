// Audio devices that make no sound and do what a test wants.
#pragma once

#include "toolkit/media/AudioOutput.h"

#include <memory>
#include <vector>

namespace support {

/// What a scripted device does with sound.
enum class Device {
    Holds,       ///< takes the first samples and then nothing: a note plays until it is stopped
    Swallows,    ///< takes everything at once: a note ends at once
    None,        ///< there is no device
    FailsToOpen, ///< there is one that can't be used
    FailsLater,  ///< takes the first samples, then fails
};

/// The devices in use while it lives. Test programs start with one that holds. Thread: user
/// interface; its outputs belong to their players and may outlive it.
class ScriptedAudio final : public toolkit::IAudioOutputs {
public:
    explicit ScriptedAudio(Device device = Device::Holds);
    ~ScriptedAudio() override;
    ScriptedAudio(const ScriptedAudio&) = delete;
    ScriptedAudio& operator=(const ScriptedAudio&) = delete;

    std::unique_ptr<toolkit::IAudioOutput> Make() override;

    /// Outputs that were made, and how many of them are there still.
    [[nodiscard]] int Made() const;
    [[nodiscard]] int Alive() const;
    /// Of the output opened last.
    [[nodiscard]] int Rate() const;
    /// What was taken, of all notes, in order.
    [[nodiscard]] std::vector<qint16> Samples() const;

private:
    struct Record;
    class Output;

    const Device m_device;
    const std::shared_ptr<Record> m_record;
    toolkit::IAudioOutputs* m_before;
};

} // namespace support
