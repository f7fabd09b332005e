// What happens between the blocks of a transfer: its rules, its limits, who is told.
#pragma once

#include "site/IBlobs.h"

namespace site {

/// Throws DataError: for the faults of the rules, TooSlow and Cancelled past the limits. Thread:
/// one.
class TransferSteps final {
public:
    /// Before the first block. @param total  bytes of the file.
    TransferSteps(const TransferTerms& terms, qint64 total);

    /// After a block; `bytes` so far.
    void Next(qint64 bytes);
    /// After the last one.
    void End();

private:
    void RequireTime();

    const TransferTerms& m_terms;
    const qint64 m_total;
    LimitedSteps m_steps;
};

} // namespace site
