#include "host/session/SessionDesk.h"

#include <QDebug>

#include <system_error>

namespace host {

namespace {

constexpr size_t kMostWaiting = 20;

} // namespace

SessionDesk::~SessionDesk() {
    Close();
}

void SessionDesk::Open(const QString& dataFolder) {
    const std::lock_guard lock(m_lock);
    m_folder = dataFolder;
    m_stop = std::stop_source();
}

void SessionDesk::Close() {
    std::list<Worker> ending;
    std::unique_lock lock(m_lock);
    m_folder.clear();
    m_stop.request_stop();
    ending.swap(m_workers);
    m_left.wait(lock, [this] { return m_running == 0; });
    lock.unlock();
    ending.clear(); // joins them
}

QString SessionDesk::DataFolder() const {
    const std::lock_guard lock(m_lock);
    return m_folder;
}

site::TransferRules SessionDesk::Rules() const {
    const std::lock_guard lock(m_lock);
    return m_rules;
}

void SessionDesk::SetRules(const site::TransferRules& rules) {
    const std::lock_guard lock(m_lock);
    m_rules = rules;
}

bool SessionDesk::Run(const Work& work) {
    site::TransferPlace place;
    {
        const std::lock_guard lock(m_lock);
        if (m_folder.isEmpty()) {
            return false;
        }
        ++m_running;
        place = {m_folder, m_rules, m_stop.get_token()};
    }
    work(place);
    const std::lock_guard lock(m_lock);
    --m_running;
    m_left.notify_all();
    return true;
}

bool SessionDesk::Start(const Work& work) {
    const std::lock_guard lock(m_lock);
    if (m_folder.isEmpty()) {
        return false;
    }
    m_workers.remove_if([](const Worker& worker) { return worker.done; });
    Worker& worker = m_workers.emplace_back();
    const site::TransferPlace place{m_folder, m_rules, m_stop.get_token()};
    try {
        worker.thread = std::jthread([this, work, place, &worker] {
            work(place);
            const std::lock_guard ended(m_lock);
            worker.done = true;
        });
    } catch (const std::system_error&) {
        m_workers.pop_back();
        return false;
    }
    return true;
}

void SessionDesk::SetMessageSink(MessageSink sink) {
    const std::lock_guard lock(m_sinkLock);
    m_sink = std::move(sink);
    if (m_sink) {
        for (const auto& [level, text] : std::exchange(m_waiting, {})) {
            m_sink(level, text);
        }
    }
}

void SessionDesk::Report(MessageLevel level, const QString& text) {
    const std::lock_guard lock(m_sinkLock);
    if (m_sink) {
        m_sink(level, text);
    } else {
        qWarning().noquote() << text;
        m_waiting.emplace_back(level, text);
        if (m_waiting.size() > kMostWaiting) {
            m_waiting.pop_front();
        }
    }
}

} // namespace host
