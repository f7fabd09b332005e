// A window object outlives its window: the object stays, its Qt window comes and goes.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QPointer>
#include <QWidget>

#include <map>
#include <memory>

class QTimer;

namespace toolkit {

/// Owns at most one Qt window at a time.
///
/// Shows nothing itself: a subclass makes the widget in MakeWindow and fills it in OnCreated.
/// Without a window the object holds no Qt widget, so it may die at process exit in any order.
/// Thread: user interface. Owned by whoever made it; mostly a process-wide singleton.
class TOOLKIT_EXPORT WindowObject {
public:
    WindowObject();
    virtual ~WindowObject();
    WindowObject(const WindowObject&) = delete;
    WindowObject& operator=(const WindowObject&) = delete;

    [[nodiscard]] bool HasWindow() const { return !m_widget.isNull(); }
    /// kNoWindow without a window.
    [[nodiscard]] WindowId Id() const { return m_id; }
    /// Null without a window.
    [[nodiscard]] QWidget* Widget() const { return m_widget; }

    /// Makes the window. Does nothing and answers false if there is one already.
    bool Create(WindowId parent);
    /// Ends the window: first its controls fall silent, whatever was typed and not committed, then
    /// OnDestroyed, then the widget is hidden, and freed once the events in progress have unwound.
    /// Does nothing without a window.
    void Destroy();

    /// Shows the window; out of minimised it comes back as it was before, maximised or not. One
    /// that is maximised and in sight goes back to the size that it had before: a restore takes one
    /// step.
    void ShowRestored();
    /// Asks the window manager; it may refuse.
    void BringToForeground();
    void Minimise();
    /// Shows the window as large as the window manager lets it be, out of minimised too.
    void Maximise();
    void Hide();

    /// Starts a timer; setting one that runs starts it again. All end with the window.
    void SetTimer(int timerId, int milliseconds);
    void KillTimer(int timerId);

protected:
    /// Makes the window's widget, with `parent` (possibly null) as Qt parent. Its destructor should
    /// begin with TellWindowDies.
    virtual QWidget* MakeWindow(QWidget* parent) = 0;
    /// The window exists and has its id.
    virtual void OnCreated() {}
    /// The window is about to end, or is being ended by Qt (then HasWindow() is already false). Its
    /// controls are still there and tell nobody anything any more.
    virtual void OnDestroyed() {}
    /// The window manager or the host asks the window to close. Default: Destroy().
    virtual void OnClose() { Destroy(); }
    virtual void OnResized() {}
    /// The window was shown or hidden by the program. Minimising is neither, nor is ending, which
    /// OnDestroyed tells.
    virtual void OnWindowShown() {}
    virtual void OnWindowHidden() {}
    virtual qintptr OnEvent(const WindowEvent& event);
    /// A command of the window's own menu, sent as kSystemCommand. Default: restores, minimises,
    /// maximises, or closes by way of the close event; does nothing for any other.
    virtual void OnSystemCommand(quintptr command);
    virtual void OnTimer(int timerId);

private:
    class Watcher;
    /// Forgets the window; the widget itself is the caller's affair.
    void Release();
    qintptr Receive(const WindowEvent& event);
    /// The widget is in its destructor.
    void EndByQt();
    /// Forgets the window and frees it.
    void LetGo();

    QPointer<QWidget> m_widget;
    WindowId m_id = kNoWindow;
    bool m_ending = false; ///< in OnDestroyed, with the window still there
    std::unique_ptr<Watcher> m_watcher;
    std::map<int, std::unique_ptr<QTimer>> m_timers;
};

} // namespace toolkit
