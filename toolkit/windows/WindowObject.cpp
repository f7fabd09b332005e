#include "toolkit/windows/WindowObject.h"

#include "toolkit/windows/SystemCommand.h"
#include "toolkit/windows/WindowEnd.h"
#include "toolkit/windows/WindowPlace.h"

#include <QEvent>
#include <QTimer>

namespace toolkit {

/// Sees what happens to the widget and hands it to the object.
class WindowObject::Watcher final : public QObject {
public:
    Watcher(WindowObject& owner, QWidget* widget) : m_owner(owner) {
        widget->installEventFilter(this);
        connect(widget, &QObject::destroyed, this, [this] { m_owner.EndByQt(); });
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == WindowDiesEvent()) {
            SilenceControls(*static_cast<QWidget*>(watched));
            m_owner.EndByQt();
            return false;
        }
        switch (event->type()) {
        case QEvent::Close:
            // The object decides what a close means; Qt must not hide or delete by itself.
            event->ignore();
            m_owner.OnClose();
            return true;
        case QEvent::Resize:
            m_owner.OnResized();
            break;
        case QEvent::Show:
        case QEvent::Hide:
            // Spontaneous ones are the window manager's.
            if (!event->spontaneous()) {
                event->type() == QEvent::Show ? m_owner.OnWindowShown() : m_owner.OnWindowHidden();
            }
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    WindowObject& m_owner;
};

WindowObject::WindowObject() = default;

WindowObject::~WindowObject() {
    if (!HasWindow()) {
        return;
    }
    // The subclass is gone already, so OnDestroyed stays uncalled.
    SilenceControls(*m_widget);
    LetGo();
}

bool WindowObject::Create(WindowId parent) {
    if (HasWindow()) {
        return false;
    }
    m_widget = MakeWindow(WidgetOf(parent));
    m_id = RegisterWindow(m_widget, [this](const WindowEvent& event) { return Receive(event); });
    m_watcher = std::make_unique<Watcher>(*this, m_widget);
    OnCreated();
    return true;
}

void WindowObject::Destroy() {
    if (!HasWindow() || m_ending) {
        return;
    }
    m_ending = true;
    // Hiding takes the keyboard from a control, which then commits what was typed: its handlers
    // would find the subclass without what OnDestroyed has ended.
    SilenceControls(*m_widget);
    OnDestroyed();
    m_ending = false;
    LetGo();
}

void WindowObject::EndByQt() {
    // Whoever destroys the window in OnDestroyed ends it once all the same.
    if (m_ending) {
        return;
    }
    Release();
    OnDestroyed();
}

void WindowObject::LetGo() {
    const QPointer<QWidget> widget = m_widget;
    Release();
    if (!widget) {
        return;
    }
    widget->hide();
    widget->deleteLater();
}

void WindowObject::Release() {
    // Timers and watcher may be what is running now, so they end with the events in progress.
    for (auto& entry : m_timers) {
        entry.second->stop();
        entry.second.release()->deleteLater();
    }
    m_timers.clear();
    UnregisterWindow(m_id);
    m_id = kNoWindow;
    if (m_watcher) {
        m_watcher->disconnect();
        if (HasWindow()) {
            m_widget->removeEventFilter(m_watcher.get());
            QObject::disconnect(m_widget, nullptr, m_watcher.get(), nullptr);
        }
        m_watcher.release()->deleteLater();
    }
    m_widget.clear();
}

void WindowObject::ShowRestored() {
    if (!HasWindow()) {
        return;
    }
    const Qt::WindowStates state = m_widget->windowState();
    // One step back, as a window manager's restore: minimised first.
    const Qt::WindowState undone =
        state.testFlag(Qt::WindowMinimized) ? Qt::WindowMinimized : Qt::WindowMaximized;
    m_widget->setWindowState(state & ~Qt::WindowStates(undone));
    m_widget->show();
}

void WindowObject::BringToForeground() {
    if (!HasWindow()) {
        return;
    }
    m_widget->raise();
    m_widget->activateWindow();
}

void WindowObject::Minimise() {
    if (HasWindow()) {
        MinimiseWindow(*m_widget);
    }
}

void WindowObject::Maximise() {
    if (!HasWindow()) {
        return;
    }
    const Qt::WindowStates state = m_widget->windowState();
    m_widget->setWindowState((state & ~Qt::WindowStates(Qt::WindowMinimized)) |
                             Qt::WindowMaximized);
    m_widget->show();
}

void WindowObject::Hide() {
    if (HasWindow()) {
        m_widget->hide();
    }
}

void WindowObject::SetTimer(int timerId, int milliseconds) {
    if (!HasWindow()) {
        return;
    }
    std::unique_ptr<QTimer>& timer = m_timers[timerId];
    if (!timer) {
        timer = std::make_unique<QTimer>();
        timer->setTimerType(Qt::PreciseTimer); // a coarse one comes up to a twentieth early
        QObject::connect(timer.get(), &QTimer::timeout, m_widget,
                         [this, timerId] { OnTimer(timerId); });
    }
    timer->start(milliseconds);
}

void WindowObject::KillTimer(int timerId) {
    const auto found = m_timers.find(timerId);
    if (found == m_timers.end()) {
        return;
    }
    found->second->stop();
}

qintptr WindowObject::OnEvent(const WindowEvent& event) {
    Q_UNUSED(event);
    return 0;
}

qintptr WindowObject::Receive(const WindowEvent& event) {
    if (event.number != kSystemCommand) {
        return OnEvent(event);
    }
    // The lowest four bits are the platform's own.
    OnSystemCommand(event.first & ~quintptr(0xF));
    return 0;
}

void WindowObject::OnSystemCommand(quintptr command) {
    switch (command) {
    case kCommandRestore:
        ShowRestored();
        break;
    case kCommandMinimise:
        Minimise();
        break;
    case kCommandMaximise:
        Maximise();
        break;
    case kCommandClose:
        if (HasWindow()) {
            m_widget->close();
        }
        break;
    default:
        break;
    }
}

void WindowObject::OnTimer(int timerId) {
    Q_UNUSED(timerId);
}

} // namespace toolkit
