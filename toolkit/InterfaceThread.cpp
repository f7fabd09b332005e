#include "toolkit/InterfaceThread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>

#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace toolkit {

namespace {

/// What waits for the interface thread. The posted event carries nothing: whatever one thread
/// writes and the other reads goes through the lock, where a checker of threads sees it too.
class Mailbox final : public QObject {
public:
    /// Wherever it is made.
    Mailbox() { moveToThread(QCoreApplication::instance()->thread()); }

    void Put(std::function<void()> what) {
        {
            const std::lock_guard lock(m_lock);
            m_waiting.push_back(std::move(what));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        if (const auto next = Take()) {
            next();
        }
        return true;
    }

private:
    std::function<void()> Take() {
        const std::lock_guard lock(m_lock);
        if (m_waiting.empty()) {
            return {};
        }
        std::function<void()> next = std::move(m_waiting.front());
        m_waiting.pop_front();
        return next;
    }

    std::mutex m_lock; ///< guards what follows
    std::deque<std::function<void()>> m_waiting;
};

/// Guards the one below.
std::mutex& BoxLock() {
    static std::mutex lock;
    return lock;
}

std::unique_ptr<Mailbox>& TheBox() {
    static std::unique_ptr<Mailbox> box;
    return box;
}

/// What still waits is forgotten while all that it names can still live.
void Forget() {
    std::unique_ptr<Mailbox> box;
    const std::lock_guard lock(BoxLock());
    box.swap(TheBox());
}

} // namespace

void CallOnInterfaceThread(std::function<void()> what) {
    const std::lock_guard lock(BoxLock());
    if (QCoreApplication::instance() == nullptr || QCoreApplication::closingDown()) {
        return;
    }
    if (!TheBox()) {
        TheBox() = std::make_unique<Mailbox>();
        qAddPostRoutine(Forget);
    }
    TheBox()->Put(std::move(what));
}

bool IsInterfaceThread() {
    const QCoreApplication* application = QCoreApplication::instance();
    return application != nullptr && QThread::currentThread() == application->thread();
}

} // namespace toolkit
