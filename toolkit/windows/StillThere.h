// "Am I still there?" after a call in which anything may have happened.
#pragma once

#include "toolkit/windows/WindowRegistry.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <utility>

namespace toolkit {

/// Taken before a call that may run an event loop (a question, a message, a service that waits, an
/// event to the host), asked after it:
///
///     const toolkit::StillThere still(Id());
///     GetVeskPicMng()->...
///     if (!still) {
///         return;
///     }
///
/// Needs nothing of who asks, so it may be asked when that is gone. A window that was ended and
/// made again meanwhile is another one. Thread: user interface.
class StillThere final {
public:
    /// Of a window object. kNoWindow: never there.
    explicit StillThere(WindowId window)
        : m_isThere([window] { return WidgetOf(window) != nullptr; }) {}
    /// Of a widget or another object of Qt. Null: never there.
    explicit StillThere(const QObject* object)
        : m_isThere([pointer = QPointer<const QObject>(object)] { return !pointer.isNull(); }) {}
    /// Of what is neither: it owns a token.
    explicit StillThere(const std::shared_ptr<void>& token)
        : m_isThere([weak = std::weak_ptr<void>(token)] { return !weak.expired(); }) {}

    explicit operator bool() const { return m_isThere(); }

private:
    std::function<bool()> m_isThere;
};

} // namespace toolkit
