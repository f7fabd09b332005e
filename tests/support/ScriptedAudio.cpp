#include "tests/support/ScriptedAudio.h"

#include <condition_variable>
#include <mutex>

namespace support {

struct ScriptedAudio::Record {
    std::mutex lock; ///< guards what follows
    std::condition_variable_any never;
    int made = 0;
    int alive = 0;
    int rate = 0;
    std::vector<qint16> samples;
};

class ScriptedAudio::Output final : public toolkit::IAudioOutput {
public:
    Output(Device device, std::shared_ptr<Record> record)
        : m_device(device), m_record(std::move(record)) {
        const std::lock_guard lock(m_record->lock);
        ++m_record->made;
        ++m_record->alive;
    }
    ~Output() override {
        const std::lock_guard lock(m_record->lock);
        --m_record->alive;
    }

    bool Open(int rate, const std::stop_token& stop) override {
        Q_UNUSED(stop);
        const std::lock_guard lock(m_record->lock);
        m_record->rate = rate;
        return m_device != Device::FailsToOpen;
    }

    bool Write(std::span<const qint16> samples, const std::stop_token& stop) override {
        std::unique_lock lock(m_record->lock);
        m_record->samples.insert(m_record->samples.end(), samples.begin(), samples.end());
        if (m_device == Device::Holds) {
            m_record->never.wait(lock, stop, [] { return false; });
        }
        return m_device != Device::FailsLater;
    }

    void Drain(const std::stop_token& stop) override { Q_UNUSED(stop); }

private:
    const Device m_device;
    const std::shared_ptr<Record> m_record;
};

ScriptedAudio::ScriptedAudio(Device device)
    : m_device(device), m_record(std::make_shared<Record>()),
      m_before(toolkit::SetAudioOutputs(this)) {}

ScriptedAudio::~ScriptedAudio() {
    toolkit::SetAudioOutputs(m_before);
}

std::unique_ptr<toolkit::IAudioOutput> ScriptedAudio::Make() {
    if (m_device == Device::None) {
        return nullptr;
    }
    return std::make_unique<Output>(m_device, m_record);
}

int ScriptedAudio::Made() const {
    const std::lock_guard lock(m_record->lock);
    return m_record->made;
}

int ScriptedAudio::Alive() const {
    const std::lock_guard lock(m_record->lock);
    return m_record->alive;
}

int ScriptedAudio::Rate() const {
    const std::lock_guard lock(m_record->lock);
    return m_record->rate;
}

std::vector<qint16> ScriptedAudio::Samples() const {
    const std::lock_guard lock(m_record->lock);
    return m_record->samples;
}

} // namespace support
