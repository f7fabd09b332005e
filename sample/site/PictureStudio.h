// Draws many pictures on two threads into files.
#pragma once

#include "sample/PictureArtist.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace sample {

/// Begins drawing when it is made. The destructor stops after the pictures in hand and joins.
class PictureStudio final {
public:
    /// @param orders  must outlive the studio.
    /// @param folder  exists; the picture of order n becomes the file FilePath(n).
    PictureStudio(const std::vector<PictureOrder>& orders, QString folder);
    ~PictureStudio();
    PictureStudio(const PictureStudio&) = delete;
    PictureStudio& operator=(const PictureStudio&) = delete;

    /// Waits until all are drawn, one could not be written, or the time is over; says how many are
    /// drawn. Thread: any, as the two below.
    int WaitForNews(std::chrono::milliseconds time);
    /// True once a picture could not be drawn or written; the studio has stopped then.
    [[nodiscard]] bool HasFailed() const { return m_failed.load(); }
    [[nodiscard]] QString FilePath(size_t order) const;
    /// True for the name of a file as FilePath gives it. Thread: any.
    [[nodiscard]] static bool IsDrawnName(const QString& name);

private:
    void Work(const std::stop_token& stop);
    [[nodiscard]] bool DrawOne(PictureArtist& artist, size_t index) const;

    const std::vector<PictureOrder>& m_orders;
    QString m_folder;
    std::atomic<size_t> m_next{0};
    std::atomic<bool> m_failed{false};
    std::mutex m_lock; ///< guards drawn
    std::condition_variable m_changed;
    size_t m_drawn = 0;
    std::vector<std::jthread> m_workers; ///< last: they use everything above
};

} // namespace sample
