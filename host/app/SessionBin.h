// The bin window's way to the bin of the open data folder.
#pragma once

#include "host/ui/BinWindow.h"

#include <functional>

namespace host {

class HostSession;

/// Faults become messages of the host. Thread: user interface.
class SessionBin final : public IBinSource {
public:
    explicit SessionBin(HostSession& hostSession) : m_session(hostSession) {}

    [[nodiscard]] std::vector<BinRow> ReadBin() override;
    int RestoreFromBin(const std::vector<qint64>& binIds) override;
    /// Is told which came back.
    void SetRestored(std::function<void(const std::vector<qint64>& binIds)> told) {
        m_restored = std::move(told);
    }

private:
    HostSession& m_session;
    std::function<void(const std::vector<qint64>&)> m_restored;
};

} // namespace host
