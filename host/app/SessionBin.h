// The bin window's way to the bin of the open data folder.
#pragma once

#include "host/ui/BinWindow.h"

namespace host {

class HostSession;

/// Faults become messages of the host. Thread: user interface.
class SessionBin final : public IBinSource {
public:
    explicit SessionBin(HostSession& hostSession) : m_session(hostSession) {}

    [[nodiscard]] std::vector<BinRow> ReadBin() override;
    int RestoreFromBin(const std::vector<qint64>& binIds) override;

private:
    HostSession& m_session;
};

} // namespace host
