#include "toolkit/windows/WindowRegistry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QObject>
#include <QWidget>

#include <deque>
#include <mutex>
#include <vector>

namespace toolkit {

namespace {

struct Slot {
    std::uint32_t generation = 0;
    QWidget* widget = nullptr;
    EventHandler handler;
    QMetaObject::Connection onDestroyed;
};

struct PostedEvent {
    WindowId target = kNoWindow;
    WindowEvent event;
    std::unique_ptr<EventPayload> payload;
};

/// The queue that any thread posts to. What crosses threads goes through the lock alone; the event
/// that wakes the interface thread is empty.
class Dispatcher final : public QObject {
public:
    void Push(PostedEvent posted) {
        bool wake = false;
        {
            const std::lock_guard lock(m_lock);
            wake = m_queue.empty();
            m_queue.push_back(std::move(posted));
        }
        if (wake) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
    }

    void Deliver() {
        std::deque<PostedEvent> batch;
        {
            const std::lock_guard lock(m_lock);
            batch.swap(m_queue);
        }
        for (PostedEvent& posted : batch) {
            DeliverOne(posted);
        }
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        Deliver();
        return true;
    }

private:
    static void DeliverOne(PostedEvent& posted);

    std::mutex m_lock;
    std::deque<PostedEvent> m_queue;
};

struct Registry {
    std::vector<Slot> entries;
    std::vector<std::uint32_t> freeEntries;
    QHash<const QWidget*, WindowId> ids;
    WindowId mainWindow = kNoWindow;
};

Registry& TheRegistry() {
    // Never destroyed: windows and workers may end after static objects do.
    static auto* registry = new Registry;
    return *registry;
}

Dispatcher& TheDispatcher() {
    static auto* dispatcher = [] {
        auto* made = new Dispatcher;
        if (QCoreApplication::instance() != nullptr) {
            made->moveToThread(QCoreApplication::instance()->thread());
        }
        return made;
    }();
    return *dispatcher;
}

std::uint32_t SlotIndex(WindowId id) {
    return std::uint32_t(id & 0xFFFFFFFFU);
}

Slot* FindSlot(WindowId id) {
    Registry& registry = TheRegistry();
    const std::uint32_t index = SlotIndex(id);
    if (id == kNoWindow || index >= registry.entries.size()) {
        return nullptr;
    }
    Slot& slot = registry.entries[index];
    if (slot.generation != std::uint32_t(id >> 32U) || slot.widget == nullptr) {
        return nullptr;
    }
    return &slot;
}

void Dispatcher::DeliverOne(PostedEvent& posted) {
    Slot* slot = FindSlot(posted.target);
    if (slot == nullptr) {
        return;
    }
    // A copy, since the handler may end its own window.
    const EventHandler handler = slot->handler;
    posted.event.payload = posted.payload.get();
    handler(posted.event);
}

} // namespace

WindowId RegisterWindow(QWidget* widget, EventHandler handler) {
    Registry& registry = TheRegistry();
    TheDispatcher();
    std::uint32_t index = 0;
    if (registry.freeEntries.empty()) {
        index = std::uint32_t(registry.entries.size());
        registry.entries.emplace_back();
    } else {
        index = registry.freeEntries.back();
        registry.freeEntries.pop_back();
    }
    Slot& slot = registry.entries[index];
    ++slot.generation;
    slot.widget = widget;
    slot.handler = std::move(handler);
    const WindowId id = (WindowId(slot.generation) << 32U) | index;
    slot.onDestroyed =
        QObject::connect(widget, &QObject::destroyed, [id] { UnregisterWindow(id); });
    registry.ids.insert(widget, id);
    return id;
}

void UnregisterWindow(WindowId id) {
    Slot* slot = FindSlot(id);
    if (slot == nullptr) {
        return;
    }
    Registry& registry = TheRegistry();
    QObject::disconnect(slot->onDestroyed);
    registry.ids.remove(slot->widget);
    slot->widget = nullptr;
    slot->handler = nullptr;
    registry.freeEntries.push_back(SlotIndex(id));
    if (registry.mainWindow == id) {
        registry.mainWindow = kNoWindow;
    }
}

QWidget* WidgetOf(WindowId id) {
    const Slot* slot = FindSlot(id);
    return slot == nullptr ? nullptr : slot->widget;
}

WindowId WindowOf(const QWidget* widget) {
    const Registry& registry = TheRegistry();
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const auto found = registry.ids.constFind(widget);
        if (found != registry.ids.constEnd()) {
            return *found;
        }
    }
    return kNoWindow;
}

qintptr SendWindowEvent(WindowId id, int number, quintptr first, quintptr second) {
    const Slot* slot = FindSlot(id);
    if (slot == nullptr) {
        return 0;
    }
    const EventHandler handler = slot->handler;
    return handler(WindowEvent{number, first, second, nullptr});
}

void PostWindowEvent(WindowId id, int number, quintptr first, quintptr second,
                     std::unique_ptr<EventPayload> payload) {
    PostedEvent posted;
    posted.target = id;
    posted.event = WindowEvent{number, first, second, nullptr};
    posted.payload = std::move(payload);
    TheDispatcher().Push(std::move(posted));
}

void DeliverPostedEvents() {
    TheDispatcher().Deliver();
}

void SetMainWindow(WindowId id) {
    TheRegistry().mainWindow = id;
}

WindowId MainWindow() {
    return TheRegistry().mainWindow;
}

} // namespace toolkit
