// Fetches one file of a gallery in the background.
#pragma once

#include "toolkit/windows/WindowId.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/DownloadOrder.h"

#include <QString>

namespace gallery {

/// Events that workers post; the payload is a KeyPayload.
enum DownloadEvent {
    kDownloadDone = 1030,     ///< second parameter: 0 or an e_VeskPicMngStatus
    kDownloadProgress = 1031, ///< second parameter: percent
};

struct KeyPayload final : toolkit::EventPayload {
    explicit KeyPayload(const DownloadKey& named) : key(named) {}
    DownloadKey key;
};

/// All that a worker knows: its own copy.
struct DownloadTask {
    toolkit::WindowId target = toolkit::kNoWindow;
    QString serverText;
    QString uuid;
    QString path;
    DownloadKey key;
};

/// Starts a worker. It ends by posting kDownloadDone, also when it can't be started; nothing
/// cancels it, and what it posts to a window that is gone is dropped. Thread: user interface.
void StartDownloadWorker(const DownloadTask& task);

/// Waits for all workers to end. Done when the module is unloaded; the host has ended its transfers
/// by then. Thread: user interface.
void JoinDownloadWorkers();

} // namespace gallery
