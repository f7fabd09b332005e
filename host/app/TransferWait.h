// What a person sees while a file goes down or up on which everything waits.
#pragma once

#include "site/transfer/RunningTransfer.h"

namespace host {

class ExProgress;
class InputBlock;

/// Nothing for a transfer of a tenth of a second; then the wait cursor, and from half a second on a
/// window with the bytes done: the client's progress window if one is open, else one of its own.
/// All windows go on painting; no input gets through but to that window, in which the transfer can
/// be cancelled. What follows in a batch whose window was cancelled is cancelled at once.
/// Thread: user interface.
class TransferWait final : public site::ITransferWait {
public:
    struct Times {
        int cursorMs = 100;
        int windowMs = 500;
    };

    /// The progress service must outlive it.
    explicit TransferWait(ExProgress& progressService) : m_progress(progressService) {}
    TransferWait(ExProgress& progressService, const Times& other)
        : m_progress(progressService), m_times(other) {}

    void Wait(site::RunningTransfer& transfer) override;

private:
    void RunLoop(site::RunningTransfer& transfer, InputBlock& block);

    ExProgress& m_progress;
    const Times m_times;
};

} // namespace host
