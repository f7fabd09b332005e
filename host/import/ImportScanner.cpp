#include "host/import/ImportScanner.h"

#include "host/import/FolderWalk.h"

#include <vector>

namespace host {

ImportScanner::ImportScanner(const QStringList& roots, std::function<void()> onNews)
    : news(std::move(onNews)),
      worker([this, roots](const std::stop_token& stop) { Work(roots, stop); }) {}

ImportScanner::~ImportScanner() = default;

void ImportScanner::Work(const QStringList& roots, const std::stop_token& stop) {
    std::vector<QString> paths;
    WalkFolder(roots, [&](const QString& path) {
        paths.push_back(path);
        return !stop.stop_requested();
    });
    total = static_cast<int>(paths.size());
    for (const QString& path : paths) {
        if (stop.stop_requested() || !HandOver(ExamineFile(path), stop)) {
            break;
        }
    }
    {
        const std::scoped_lock guard(lock);
        finished = true;
    }
    changed.notify_all();
    if (news && !stop.stop_requested()) {
        news();
    }
}

bool ImportScanner::HandOver(ExaminedFile file, const std::stop_token& stop) {
    {
        std::unique_lock guard(lock);
        if (!changed.wait(guard, stop, [this] { return ready.size() < kAhead; })) {
            return false;
        }
        ready.push_back(std::move(file));
    }
    changed.notify_all();
    if (news) {
        news();
    }
    return true;
}

std::optional<ExaminedFile> ImportScanner::TakeFront() {
    if (ready.empty()) {
        return std::nullopt;
    }
    std::optional<ExaminedFile> file(std::move(ready.front()));
    ready.pop_front();
    changed.notify_all();
    return file;
}

std::optional<ExaminedFile> ImportScanner::WaitForNext() {
    std::unique_lock guard(lock);
    changed.wait(guard, [this] { return !ready.empty() || finished; });
    return TakeFront();
}

std::optional<ExaminedFile> ImportScanner::TakeReady() {
    const std::scoped_lock guard(lock);
    return TakeFront();
}

bool ImportScanner::AtEnd() const {
    const std::scoped_lock guard(lock);
    return finished && ready.empty();
}

} // namespace host
