#include "host/import/ImportScanner.h"

#include "host/import/FolderWalk.h"

#include <vector>

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
    for (const QString& path : paths) {
        if (stop.stop_requested() || !HandOver(ExamineFile(path), stop)) {
            break;
        }
    }
    {
        const std::scoped_lock guard(m_lock);
        m_finished = true;
    }
    m_changed.notify_all();
    if (m_news && !stop.stop_requested()) {
        m_news();
    }
}

bool ImportScanner::HandOver(ExaminedFile file, const std::stop_token& stop) {
    {
        std::unique_lock guard(m_lock);
        if (!m_changed.wait(guard, stop, [this] { return m_ready.size() < kAhead; })) {
            return false;
        }
        m_ready.push_back(std::move(file));
    }
    m_changed.notify_all();
    if (m_news) {
        m_news();
    }
    return true;
}

std::optional<ExaminedFile> ImportScanner::TakeFront() {
    if (m_ready.empty()) {
        return std::nullopt;
    }
    std::optional<ExaminedFile> file(std::move(m_ready.front()));
    m_ready.pop_front();
    m_changed.notify_all();
    return file;
}

std::optional<ExaminedFile> ImportScanner::WaitForNext() {
    std::unique_lock guard(m_lock);
    m_changed.wait(guard, [this] { return !m_ready.empty() || m_finished; });
    return TakeFront();
}

std::optional<ExaminedFile> ImportScanner::TakeReady() {
    const std::scoped_lock guard(m_lock);
    return TakeFront();
}

bool ImportScanner::AtEnd() const {
    const std::scoped_lock guard(m_lock);
    return m_finished && m_ready.empty();
}

} // namespace host
