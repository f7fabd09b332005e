#include "site/sqlite/ChangeFeed.h"

#include "site/DataError.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <exception>

namespace site {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(feedLog, "site.changes")

namespace {

/// Before each look after the log file was written, milliseconds. Syncing may take so long.
constexpr std::array kWaits{0, 30, 150, 600, 2000};
/// Where no file can be watched, or the last look failed.
constexpr int kUnwatchedWait = 2000;

} // namespace

ChangeFeed::ChangeFeed(Database& owner) : m_database(owner) {
    m_database.Log().StartHere();
    m_told = m_database.Log().Seen();
    m_next.setSingleShot(true);
    m_database.Log().SetReader([this] { Tell(); });
    connect(&m_next, &QTimer::timeout, this, &ChangeFeed::LookAgain);
}

ChangeFeed::~ChangeFeed() {
    m_database.Log().SetReader({});
}

IChanges::Past ChangeFeed::Since(qint64 mark, int most) {
    return m_database.Log().Since(mark, most);
}

std::shared_ptr<void> ChangeFeed::Subscribe(Listener listener) {
    Watch();
    auto place = std::make_shared<Listener>(std::move(listener));
    m_listeners.push_back(place);
    return place;
}

void ChangeFeed::Watch() {
    if (m_watcher || QCoreApplication::instance() == nullptr) {
        return;
    }
    m_watcher = std::make_unique<QFileSystemWatcher>();
    connect(m_watcher.get(), &QFileSystemWatcher::fileChanged, this, &ChangeFeed::OnWritten);
    if (!m_watcher->addPath(m_database.LogFile())) {
        m_next.start(kUnwatchedWait);
    }
}

void ChangeFeed::OnWritten() {
    m_step = 0;
    if (m_next.remainingTime() < 0 || m_next.remainingTime() > kWaits[1]) {
        m_next.start(kWaits[0]);
    }
}

void ChangeFeed::LookAgain() {
    bool hasLooked = !m_database.IsBusy(); // else somebody is in the middle of something
    try {
        if (hasLooked) {
            Look();
        }
    } catch (const DataError&) {
        hasLooked = false; // whoever asks next is told the fault
    }
    ++m_step;
    if (m_step < kWaits.size()) {
        m_next.start(kWaits[m_step]);
    } else if (!hasLooked || m_watcher->files().isEmpty()) {
        m_next.start(kUnwatchedWait);
    }
}

void ChangeFeed::Look() {
    m_database.Log().CatchUp();
}

void ChangeFeed::Tell() {
    if (m_telling) {
        return; // a listener asks the site: it is told the rest when it is done
    }
    m_telling = true;
    for (Changes changes = m_database.Log().TakeUntold(); !changes.empty();
         changes = m_database.Log().TakeUntold()) {
        m_told = std::max(m_told, m_database.Log().Seen());
        std::erase_if(m_listeners, [](const auto& listener) { return listener.expired(); });
        const auto listeners = m_listeners;
        for (const auto& listener : listeners) {
            if (const Place place = listener.lock()) {
                TellOne(*place, changes);
            }
        }
    }
    m_telling = false;
}

void ChangeFeed::TellOne(const Listener& listener, const Changes& changes) {
    try {
        listener(changes);
    } catch (const std::exception& fault) {
        // The others are told all the same, and the change itself has succeeded.
        qCWarning(feedLog, "a listener failed: %s", fault.what());
    }
}

} // namespace site
