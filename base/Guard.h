// One guard for all handlers: a status raised inside is shown, and the dialog stays as it was.
#pragma once

#include "base/Status.h"
#include "toolkit/windows/WindowId.h"

#include <optional>
#include <utility>

namespace ZelvorNRQ_KXVeskPicture {

/// Runs `body` and gives the status that it raised, if any.
template <class Body> [[nodiscard]] std::optional<e_VeskPicMngStatus> CatchStatus(Body&& body) {
    try {
        std::forward<Body>(body)();
    } catch (e_VeskPicMngStatus status) {
        return status;
    }
    return std::nullopt;
}

/// Shows a status in a message box. Thread: user interface.
void ShowStatus(toolkit::WindowId parent, e_VeskPicMngStatus status);

/// Runs `body`; a status that it raises is shown at `parent`. False if one was raised.
template <class Body> bool Guarded(toolkit::WindowId parent, Body&& body) {
    const auto status = CatchStatus(std::forward<Body>(body));
    if (status) {
        ShowStatus(parent, *status);
    }
    return !status;
}

} // namespace ZelvorNRQ_KXVeskPicture
