// The downloads of a gallery: what is fetched next, what runs, what became of it.
#pragma once

#include "viewers/DownloadOrder.h"
#include "viewers/GalleryState.h"

#include <QString>

#include <optional>

namespace gallery {

/// A voice note that belongs to a list as a whole and to no item.
struct ExtraAudio {
    QString uuid;
    QString path;
    int progress = 0;
    qint32 state = kWaiting;
};

/// One file to be fetched.
struct Download {
    DownloadKey key;
    QString uuid;
    QString path;
};

/// What becomes of the timer that repaints the strip while a visible picture is missing.
enum class StripTick { Leave, Start, Stop };

/// Works on a gallery's items and counts, which the gallery owns and which outlive the queue;
/// starts nothing itself. A key that names no item any more changes nothing. Thread: user
/// interface.
class DownloadQueue final {
public:
    DownloadQueue(GalleryState& state, ExtraAudio& extra) : m_state(state), m_extra(extra) {}

    /// The next one in the order of NextDownload, from now on running; none while enough run, and
    /// if nothing waits.
    [[nodiscard]] std::optional<Download> TakeNext();
    /// One by name, whatever its state; none while enough run.
    [[nodiscard]] std::optional<Download> Take(const DownloadKey& key);

    /// One has ended: there is room for the next. Its state stays as it is until Finish.
    void MakeRoom() { --m_state.activeDownloads; }
    /// @param status  0, or why it failed.
    void Finish(const DownloadKey& key, qint32 status);
    /// Notes how far a picture or the extra note has come. False: the percent of an item's note,
    /// which isn't kept here.
    bool NoteProgress(const DownloadKey& key, int percent);

    /// @param running  whether the timer runs, for all galleries of the process; changed here.
    [[nodiscard]] StripTick Tick(bool& running) const;

private:
    /// An index that is not in the list changes nothing.
    void SetState(const DownloadKey& key, DownloadState state);

    GalleryState& m_state;
    ExtraAudio& m_extra;
};

} // namespace gallery
