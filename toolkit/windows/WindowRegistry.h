// The registry of windows: ids, numbered events between windows, the host's main window.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/windows/WindowId.h"

#include <QtCore/qglobal.h>

#include <functional>
#include <memory>

class QWidget;

namespace toolkit {

/// What a posted event owns; freed with the event, also when its window is gone.
struct EventPayload {
    virtual ~EventPayload() = default;
};

/// A numbered event. What the two parameters mean belongs to the number.
struct WindowEvent {
    int number = 0;
    quintptr first = 0;
    quintptr second = 0;
    EventPayload* payload = nullptr; ///< posted events only; borrowed from the queue
};

using EventHandler = std::function<qintptr(const WindowEvent&)>;

/// Enters a window. The entry ends with UnregisterWindow or when Qt destroys the widget.
/// Thread: user interface, as everything here that doesn't say otherwise.
TOOLKIT_EXPORT WindowId RegisterWindow(QWidget* widget, EventHandler handler);
/// Ends an entry; an id that is unknown or gone changes nothing.
TOOLKIT_EXPORT void UnregisterWindow(WindowId id);
/// Null for a window that is gone.
[[nodiscard]] TOOLKIT_EXPORT QWidget* WidgetOf(WindowId id);
/// The registered window that a widget is or lies in; kNoWindow if there is none.
[[nodiscard]] TOOLKIT_EXPORT WindowId WindowOf(const QWidget* widget);

/// Calls the window's handler at once and gives its result; 0 for a window that is gone.
/// What the parameters point to is borrowed for the time of the call.
TOOLKIT_EXPORT qintptr SendWindowEvent(WindowId id, int number, quintptr first = 0,
                                       quintptr second = 0);
/// Queues an event; the window is looked up at delivery, and an event that finds none is dropped.
/// Events of one thread arrive in their order. Thread: any.
TOOLKIT_EXPORT void PostWindowEvent(WindowId id, int number, quintptr first = 0,
                                    quintptr second = 0,
                                    std::unique_ptr<EventPayload> payload = nullptr);
/// Delivers what is queued now; what handlers post meanwhile waits for the event loop.
TOOLKIT_EXPORT void DeliverPostedEvents();

/// The host names its main window once; kNoWindow again when it is gone.
TOOLKIT_EXPORT void SetMainWindow(WindowId id);
[[nodiscard]] TOOLKIT_EXPORT WindowId MainWindow();

} // namespace toolkit
