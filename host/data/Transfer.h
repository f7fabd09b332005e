// Fetching stored files into the clients' cache: a real transfer that can be slow and can fail.
#pragma once

#include <QString>

#include <functional>

namespace host {

/// How transfers behave; for tests and for trying slow networks.
struct TransferRules {
    int blockDelayMs = 0; ///< wait before each block of 256 KiB
    bool fail = false;    ///< every transfer fails before its first block
};

struct TransferOutcome {
    bool ok = false;
    QString text; ///< what went wrong, Chinese
};

/// Size of a stored file in bytes, -1 if it isn't there or `uuid` names none. Thread: any.
[[nodiscard]] qint64 StoredSize(const QString& dataFolder, const QString& uuid);

/// Copies a stored file to `localPath`: in blocks to a temporary name beside it, checked against
/// the MD5 that the database holds, then renamed over what was there. On failure what was there
/// stays. `onBytes` is told the bytes so far. Opens a connection of its own. Thread: any.
[[nodiscard]] TransferOutcome FetchFile(const QString& dataFolder, const QString& uuid,
                                        const QString& localPath, const TransferRules& rules,
                                        const std::function<void(qint64)>& onBytes = {});

} // namespace host
