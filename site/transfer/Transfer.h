// Fetching stored files into the clients' cache: a real transfer that can be slow and can fail.
#pragma once

#include <QString>

#include <functional>
#include <stop_token>

namespace site {

enum class TransferFault {
    None,
    AtStart,     ///< before the first block
    InTheMiddle, ///< when half of the bytes have come
    NeverEnds,   ///< stands still when half of the bytes have come, until it is told to stop
};

/// How transfers behave; for tests, demonstrations and trying slow networks.
struct TransferRules {
    int blockDelayMs = 0; ///< wait before each block of 256 KiB
    TransferFault fault = TransferFault::None;
};

/// Where transfers run, and what ends them early.
struct TransferPlace {
    QString dataFolder;
    TransferRules rules;
    std::stop_token stop;
};

struct TransferOutcome {
    bool ok = false;
    QString text; ///< what went wrong, Chinese
};

/// Size of a stored file in bytes, -1 if it isn't there or `uuid` names none. Thread: any.
[[nodiscard]] qint64 StoredSize(const QString& dataFolder, const QString& uuid);

/// Copies a stored file to `localPath` unless it lies there whole: in blocks to a temporary name
/// beside it, checked against the MD5 that the database holds, then renamed over what was there. On
/// failure, and when told to stop, what was there stays and nothing is left behind. `onBytes` is
/// told the bytes so far. Opens a connection of its own. Thread: any.
[[nodiscard]] TransferOutcome FetchFile(const TransferPlace& place, const QString& uuid,
                                        const QString& localPath,
                                        const std::function<void(qint64)>& onBytes = {});

/// Removes what transfers of a killed process left behind in a folder and those in it, links
/// unfollowed; what was touched within the last day may belong to another process and stays.
void RemoveLeftovers(const QString& folder);

} // namespace site
