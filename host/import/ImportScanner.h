// The worker of an import: walks, reads and examines ahead of the filing.
#pragma once

#include "host/import/FileExamination.h"

#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace host {

/// Examines files on a thread of its own, at most two ahead of whoever takes them. The destructor
/// stops and joins it; the file under examination is finished first.
class ImportScanner final {
public:
    /// @param onNews  called on the worker whenever there is something to take, or the end; empty:
    ///                nobody needs to be told.
    explicit ImportScanner(const QStringList& roots, std::function<void()> onNews = {});
    ~ImportScanner();
    ImportScanner(const ImportScanner&) = delete;
    ImportScanner& operator=(const ImportScanner&) = delete;

    /// The next file, in the order of the walk; nothing at the end. Blocks. Thread: any.
    [[nodiscard]] std::optional<ExaminedFile> WaitForNext();
    /// The next file if one is ready. Thread: any.
    [[nodiscard]] std::optional<ExaminedFile> TakeReady();
    /// True once everything has been taken. Thread: any.
    [[nodiscard]] bool AtEnd() const;
    /// Number of files that the walk found, refused ones included; -1 while it still walks.
    [[nodiscard]] int Total() const { return m_total.load(); }

private:
    void Work(const QStringList& roots, const std::stop_token& stop);
    /// False: stopped.
    bool HandOver(ExaminedFile file, const std::stop_token& stop);
    [[nodiscard]] std::optional<ExaminedFile> TakeFront();

    static constexpr size_t kAhead = 2;

    std::function<void()> m_news;
    std::atomic<int> m_total{-1};
    mutable std::mutex m_lock; ///< guards the two below
    std::deque<ExaminedFile> m_ready;
    bool m_finished = false;
    std::condition_variable_any m_changed;
    std::jthread m_worker; ///< last: it uses everything above
};

} // namespace host
