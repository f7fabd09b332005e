#include "host/import/ImportScanner.h"

#include "host/import/FolderWalk.h"

#include <algorithm>

namespace host {

ImportScanner::ImportScanner(const QStringList& roots, std::function<void()> onNews)
    : m_news(std::move(onNews)),
      m_worker([this, roots](const std::stop_token& stop) { Work(roots, stop); }) {}

ImportScanner::~ImportScanner() = default;

void ImportScanner::Work(const QStringList& roots, const std::stop_token& stop) {
    std::vector<QString> paths;
    WalkFolder(roots, [&](const QString& path) {
        paths.push_back(path);
        return !stop.stop_requested();
    });
    m_total = static_cast<int>(paths.size());
    size_t next = 0;
    while (WorkOn(paths, next, stop)) {
    }
    {
        const std::scoped_lock guard(m_lock);
        m_finished = true;
    }
    if (!stop.stop_requested()) {
        Tell();
    }
}

bool ImportScanner::WorkOn(const std::vector<QString>& paths, size_t& next,
                           const std::stop_token& stop) {
    std::unique_lock guard(m_lock);
    const auto canRead = [&] { return next < paths.size() && m_files.size() < kAhead; };
    const bool goesOn = m_changed.wait(guard, stop, [&] {
        return canRead() || FirstIn(Stage::Wanted) != nullptr ||
               (next == paths.size() && FirstIn(Stage::Asked) == nullptr);
    });
    if (!goesOn || stop.stop_requested()) {
        return false;
    }
    if (Entry* entry = FirstIn(Stage::Wanted)) {
        guard.unlock();
        // Nobody else touches a wanted one, and the others of a deque stay where they are.
        Examine(entry->file);
        guard.lock();
        entry->stage = Stage::Done;
    } else if (canRead()) {
        guard.unlock();
        ExaminedFile file = ReadFile(paths[next++]);
        const Stage stage = file.refusal.isEmpty() ? Stage::Asked : Stage::Done;
        guard.lock();
        m_files.push_back({std::move(file), stage});
    } else {
        return false;
    }
    guard.unlock();
    Tell();
    return true;
}

void ImportScanner::Tell() {
    m_changed.notify_all();
    if (m_news) {
        m_news();
    }
}

ImportScanner::Entry* ImportScanner::FirstIn(Stage stage) {
    const auto found = std::find_if(m_files.begin(), m_files.end(),
                                    [&](const Entry& entry) { return entry.stage == stage; });
    return found == m_files.end() ? nullptr : &*found;
}

void ImportScanner::Answer(const IsKnown& isKnown) {
    std::unique_lock guard(m_lock);
    while (Entry* entry = FirstIn(Stage::Asked)) {
        const QString md5 = entry->file.md5;
        guard.unlock();
        const bool known = isKnown(md5);
        guard.lock();
        entry->file.isKnown = known;
        entry->stage = known ? Stage::Done : Stage::Wanted;
        if (known) {
            entry->file.bytes.clear();
        }
        m_changed.notify_all();
    }
}

std::optional<ExaminedFile> ImportScanner::TakeFront() {
    if (m_files.empty() || m_files.front().stage != Stage::Done) {
        return std::nullopt;
    }
    std::optional<ExaminedFile> file(std::move(m_files.front().file));
    m_files.pop_front();
    m_changed.notify_all();
    return file;
}

std::optional<ExaminedFile> ImportScanner::WaitForNext(const IsKnown& isKnown) {
    while (true) {
        Answer(isKnown);
        std::unique_lock guard(m_lock);
        m_changed.wait(guard, [this] {
            return m_finished || FirstIn(Stage::Asked) != nullptr ||
                   (!m_files.empty() && m_files.front().stage == Stage::Done);
        });
        if (std::optional<ExaminedFile> file = TakeFront()) {
            return file;
        }
        if (m_finished && m_files.empty()) {
            return std::nullopt;
        }
    }
}

std::optional<ExaminedFile> ImportScanner::TakeReady(const IsKnown& isKnown) {
    Answer(isKnown);
    const std::scoped_lock guard(m_lock);
    return TakeFront();
}

bool ImportScanner::HasReady() const {
    const std::scoped_lock guard(m_lock);
    return !m_files.empty() && m_files.front().stage == Stage::Done;
}

bool ImportScanner::AtEnd() const {
    const std::scoped_lock guard(m_lock);
    return m_finished && m_files.empty();
}

} // namespace host
