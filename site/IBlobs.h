// The files of a site: fetching them to a path, taking new ones in.
#pragma once

#include "services/EnvRecords.h"
#include "site/Limits.h"

#include <QString>

#include <functional>

namespace site {

enum class TransferFault {
    None,
    AtStart,     ///< before the first block
    InTheMiddle, ///< when half of the bytes have come
    NeverEnds,   ///< stands still when half of the bytes have come, until its limits end it
};

/// How transfers behave; for tests, demonstrations and trying slow networks.
struct TransferRules {
    int blockDelayMs = 0; ///< wait before each block of 256 KiB
    TransferFault fault = TransferFault::None;
};

/// What goes with one transfer.
struct TransferTerms {
    TransferRules rules{};
    Limits limits{};
    std::function<void(qint64)> onBytes{}; ///< told the bytes so far, on the transferring thread
};

struct TransferOutcome {
    bool ok = false;
    QString text; ///< what went wrong, Chinese
};

/// Files have no path of their own here: they are copied to one. Operations may take long, save
/// IsFetched; each has limits of its own, since any thread may ask, whatever limits the site has.
/// A file belongs to the site and is named by its uuid alone: what a checkpoint, an issue or a text
/// refers to it by says no project, and a new file is taken in before anything refers to it. Who
/// may see it is decided where its uuid is handed out, by operations that know the project. Thread:
/// any.
class IBlobs {
public:
    virtual ~IBlobs() = default;

    /// Copies a stored file to `localPath` unless it lies there whole. Checked against the MD5 that
    /// the site holds, and put in place as a whole: on failure, and past its limits, what was there
    /// stays and nothing is left behind.
    [[nodiscard]] virtual TransferOutcome Fetch(const QString& uuid, const QString& localPath,
                                                const TransferTerms& terms) = 0;
    /// True if Fetch would have nothing to do; asks nobody.
    [[nodiscard]] virtual bool IsFetched(const QString& uuid, const QString& localPath) const = 0;
    /// Bytes, -1 if the site has no such file or the limits are passed.
    [[nodiscard]] virtual qint64 SizeOf(const QString& uuid, const Limits& limits) = 0;
    /// Takes a file in before anything refers to it; what nothing refers to a day later goes.
    /// Throws DataError, with nothing taken in: for the faults of the rules, TooSlow, Cancelled,
    /// and for a file that isn't there or can't be read.
    [[nodiscard]] virtual KX_DATA::UploadResult Upload(const QString& path,
                                                       const TransferTerms& terms) = 0;
};

} // namespace site
