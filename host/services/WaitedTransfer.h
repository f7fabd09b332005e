// A transfer on which the interface thread waits.
#pragma once

#include "host/services/Surroundings.h"
#include "site/IBlobs.h"
#include "site/transfer/RunningTransfer.h"

#include <functional>

namespace host {

/// Who keeps the person informed; null on every other thread, where nobody waits at a window.
[[nodiscard]] site::ITransferWait* WaitOfThisThread(const Surroundings& around);

/// Does the work on a thread of its own, with terms that the person can cancel by, while the
/// interface thread keeps the person informed. Returns when it has ended; what it throws is thrown
/// here.
void RunWaited(const site::TransferTerms& terms, site::RunningTransfer& transfer,
               site::ITransferWait& wait,
               const std::function<void(const site::TransferTerms&)>& work);

} // namespace host
