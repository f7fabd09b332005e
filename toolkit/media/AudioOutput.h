// Where sound goes, behind a seam: a device, nowhere, or what a test puts there.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QtCore/qglobal.h>

#include <memory>
#include <span>
#include <stop_token>

namespace toolkit {

/// Takes the samples of one note. Ending it ends the sound at once.
/// Thread: made on the interface thread, then used and ended on the player's.
class TOOLKIT_EXPORT IAudioOutput {
public:
    virtual ~IAudioOutput() = default;

    /// @param rate  samples in a second; 16-bit, one channel.
    /// @return      false: nothing can be played here, or a stop is requested.
    virtual bool Open(int rate, const std::stop_token& stop) = 0;
    /// Takes the samples at the speed at which they sound, so it waits most of the time; returns
    /// early once a stop is requested. False if no more can be played.
    virtual bool Write(std::span<const qint16> samples, const std::stop_token& stop) = 0;
    /// Waits until everything has sounded or a stop is requested.
    virtual void Drain(const std::stop_token& stop) = 0;
};

/// Makes outputs.
class TOOLKIT_EXPORT IAudioOutputs {
public:
    virtual ~IAudioOutputs() = default;

    /// Null without a device. Thread: user interface.
    virtual std::unique_ptr<IAudioOutput> Make() = 0;
};

/// An output for one note on the default device; null if devices aren't known here. The first call
/// loads what knows of devices, so that a program that plays nothing doesn't. Thread: user
/// interface.
[[nodiscard]] TOOLKIT_EXPORT std::unique_ptr<IAudioOutput> MakeAudioOutput();
/// Replaces the devices, null for the machine's. Gives what was there before. It stays the
/// caller's. Thread: user interface.
TOOLKIT_EXPORT IAudioOutputs* SetAudioOutputs(IAudioOutputs* outputs);

/// Makes no sound but takes as long as if it did, by the clock of Clock.h.
class TOOLKIT_EXPORT SilentOutput final : public IAudioOutput {
public:
    bool Open(int rate, const std::stop_token& stop) override;
    bool Write(std::span<const qint16> samples, const std::stop_token& stop) override;
    void Drain(const std::stop_token& stop) override { Q_UNUSED(stop); }

private:
    int m_rate = 8000;
};

} // namespace toolkit
