#include "host/ui/WindowKeys.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMainWindow>

namespace host {

namespace {

bool IsBehindATab(const QWidget& widget) {
    for (const QWidget* above = &widget; above != nullptr; above = above->parentWidget()) {
        if (const auto* dock = qobject_cast<const QDockWidget*>(above)) {
            return dock->visibleRegion().isEmpty();
        }
    }
    return false;
}

bool TakesTab(const QWidget& widget, const QMainWindow& window) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
           widget.focusProxy() == nullptr && widget.window() == &window && widget.isVisible() &&
           widget.isEnabled() && !IsBehindATab(widget);
}

} // namespace

bool StepFocus(QMainWindow& window, bool next) {
    QWidget* const from = window.focusWidget() != nullptr ? window.focusWidget() : &window;
    const auto step = [next](QWidget* widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget* at = step(from); at != nullptr && at != from; at = step(at)) {
        if (TakesTab(*at, window)) {
            at->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

bool PressByEnter(const QWidget& area, const QKeyEvent& event) {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) {
        return false;
    }
    auto* button = qobject_cast<QAbstractButton*>(area.window()->focusWidget());
    if (button == nullptr || !area.isAncestorOf(button)) {
        return false;
    }
    button->click();
    return true;
}

} // namespace host
