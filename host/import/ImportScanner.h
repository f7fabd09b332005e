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
#include <vector>

namespace host {

/// Reads and examines files on a thread of its own, at most kAhead of them ahead of whoever takes
/// them. In between, who takes them is asked which ones the project has: those aren't decoded. The
/// destructor stops and joins; the file under examination is finished first.
class ImportScanner final {
public:
    /// Whether a photo of the project is made of a file of this MD5; asked on the thread that
    /// takes.
    using IsKnown = std::function<bool(const QString& md5)>;

    /// @param onNews  called on the worker whenever there is something to take, or the end; empty:
    ///                nobody needs to be told.
    explicit ImportScanner(const QStringList& roots, std::function<void()> onNews = {});
    ~ImportScanner();
    ImportScanner(const ImportScanner&) = delete;
    ImportScanner& operator=(const ImportScanner&) = delete;

    /// The next file, in the order of the walk; nothing at the end. Blocks. Thread: any.
    [[nodiscard]] std::optional<ExaminedFile> WaitForNext(const IsKnown& isKnown);
    /// The next file if one is ready; else only answers what was asked. Thread: any.
    [[nodiscard]] std::optional<ExaminedFile> TakeReady(const IsKnown& isKnown);
    /// True if TakeReady would give a file now. Thread: any.
    [[nodiscard]] bool HasReady() const;
    /// True once everything has been taken. Thread: any.
    [[nodiscard]] bool AtEnd() const;
    /// Number of files that the walk found, refused ones included; -1 while it still walks.
    [[nodiscard]] int Total() const { return m_total.load(); }

private:
    enum class Stage { Asked, Wanted, Done };
    struct Entry {
        ExaminedFile file;
        Stage stage = Stage::Asked;
    };

    void Work(const QStringList& roots, const std::stop_token& stop);
    /// One thing at a time: what is wanted before what isn't read. False at the end, or stopped.
    [[nodiscard]] bool WorkOn(const std::vector<QString>& paths, size_t& next,
                              const std::stop_token& stop);
    void Tell();
    void Answer(const IsKnown& isKnown);
    [[nodiscard]] Entry* FirstIn(Stage stage);
    [[nodiscard]] std::optional<ExaminedFile> TakeFront();

    static constexpr size_t kAhead = 3;

    std::function<void()> m_news;
    std::atomic<int> m_total{-1};
    mutable std::mutex m_lock; ///< guards the two below
    std::deque<Entry> m_files; ///< in the order of the walk; only who takes removes some
    bool m_finished = false;
    std::condition_variable_any m_changed;
    std::jthread m_worker; ///< last: it uses everything above
};

} // namespace host
