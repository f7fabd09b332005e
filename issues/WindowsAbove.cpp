#include "issues/WindowsAbove.h"

#include <QVariant>
#include <QWidget>

#include <functional>

namespace issues {

namespace {

constexpr const char* kOpenedFrom = "openedFrom";

QWidget* Above(const QWidget* widget) {
    const QVariant from = widget->property(kOpenedFrom);
    QWidget* opener = from.isValid() ? toolkit::WidgetOf(from.toULongLong()) : nullptr;
    return opener != nullptr ? opener : widget->parentWidget();
}

void ForAllAbove(const QWidget* view, const std::function<void(QWidget&)>& deed) {
    const QWidget* main = toolkit::WidgetOf(toolkit::MainWindow());
    if (view == nullptr) {
        return;
    }
    for (QWidget* above = Above(view); above != nullptr && above != main; above = Above(above)) {
        // What lies inside a window goes and comes with it.
        if (above->isWindow()) {
            deed(*above);
        }
    }
}

} // namespace

void CreateFrom(toolkit::WindowObject& dialog, toolkit::WindowId openedFrom) {
    toolkit::WindowId owner = openedFrom;
    if (QWidget* widget = toolkit::WidgetOf(openedFrom)) {
        while (QWidget* above = Above(widget)) {
            widget = above;
        }
        owner = toolkit::WindowOf(widget);
    }
    if (dialog.Create(owner)) {
        dialog.Widget()->setProperty(kOpenedFrom, qulonglong(openedFrom));
    }
}

void HideAbove(QWidget* view) {
    ForAllAbove(view, [](QWidget& window) { window.hide(); });
}

void ShowAbove(QWidget* view) {
    ForAllAbove(view, [](QWidget& window) {
        if (!window.isMinimized()) {
            window.show();
        }
    });
}

} // namespace issues
