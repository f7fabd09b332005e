#include "host/session/SessionDesk.h"

#include "site/DataError.h"
#include "site/IClientFolders.h"
#include <QDebug>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kMostWaiting = 20;

} // namespace

SessionDesk::~SessionDesk() {
    Close();
}

void SessionDesk::Open(site::IBlobs& blobs, site::IClientFolders* folders, const QString& place,
                       site::IPicFiling* filing) {
    const std::lock_guard lock(m_lock);
    m_blobs = &blobs;
    m_folders = folders;
    m_place = place;
    m_filing = filing;
    m_pool.Begin();
}

void SessionDesk::Close() {
    m_pool.End();
}

site::TransferRules SessionDesk::Rules() const {
    const std::lock_guard lock(m_lock);
    return m_rules;
}

void SessionDesk::SetLongestSilence(std::chrono::milliseconds time) {
    const std::lock_guard lock(m_lock);
    m_longestSilence = time;
}

void SessionDesk::SetRules(const site::TransferRules& rules) {
    const std::lock_guard lock(m_lock);
    m_rules = rules;
}

site::TransferPool::Work SessionDesk::OnTheSite(const Work& work) {
    return [this, work](const std::stop_token& stop) {
        std::unique_lock lock(m_lock);
        site::IBlobs& blobs = *m_blobs;
        const site::TransferTerms terms{m_rules, {m_longestSilence, stop}, {}};
        lock.unlock();
        work(blobs, terms);
    };
}

bool SessionDesk::Run(const Work& work) {
    return m_pool.Run(OnTheSite(work));
}

std::stop_source SessionDesk::Start(const Work& work) {
    return m_pool.Start(OnTheSite(work));
}

std::optional<QString> SessionDesk::Folder(const Ask& ask) {
    std::optional<QString> folder;
    m_pool.Run([&](const std::stop_token&) {
        std::unique_lock lock(m_lock);
        site::IClientFolders* folders = m_folders;
        const QString place = m_place;
        lock.unlock();
        if (folders != nullptr) {
            folder = ask(*folders);
        }
        if (folder && folder->isEmpty()) {
            Report(MessageLevel::Error,
                   u"读取缓存文件夹失败："_s + site::FaultText(site::Fault::NotWritable, place));
        }
    });
    return folder;
}

bool SessionDesk::RunFiling(const FilingWork& work) {
    bool isDone = false;
    m_pool.Run([&](const std::stop_token& stop) {
        std::unique_lock lock(m_lock);
        site::IPicFiling* filing = m_filing;
        const site::Limits limits{m_longestSilence, stop};
        lock.unlock();
        if (filing != nullptr) {
            work(*filing, limits);
            isDone = true;
        }
    });
    return isDone;
}

SessionDesk::Acting SessionDesk::WhoActs() const {
    const std::lock_guard lock(m_lock);
    return m_acting;
}

void SessionDesk::SetActing(const QString& person, const site::Projects& ppids) {
    const std::lock_guard lock(m_lock);
    if (person != m_acting.person) {
        m_acting.everOpen.clear();
    }
    m_acting.person = person;
    m_acting.ppids = ppids;
    for (const qint32 ppid : ppids) {
        if (std::ranges::find(m_acting.everOpen, ppid) == m_acting.everOpen.end()) {
            m_acting.everOpen.push_back(ppid);
        }
    }
}

std::optional<KX_DATA::ProjectRecord> SessionDesk::Project() const {
    const std::lock_guard lock(m_lock);
    return m_project;
}

void SessionDesk::SetProject(std::optional<KX_DATA::ProjectRecord> project) {
    const std::lock_guard lock(m_lock);
    m_project = std::move(project);
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
