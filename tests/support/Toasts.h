// The toasts that a person sees.
#pragma once

#include <QApplication>
#include <QLabel>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace support {

/// From the corner upwards, then by column: as they were made, while none has closed.
[[nodiscard]] inline std::vector<QWidget*> ToastsInSight() {
    std::vector<QWidget*> toasts;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QStringLiteral("popupWindow") && widget->isVisible()) {
            toasts.push_back(widget);
        }
    }
    std::sort(toasts.begin(), toasts.end(), [](const QWidget* one, const QWidget* other) {
        return one->x() != other->x() ? one->x() > other->x() : one->y() > other->y();
    });
    return toasts;
}

/// The first line of each: the name of the photo, the theme of the issue.
[[nodiscard]] inline QStringList ToastLines() {
    QStringList lines;
    for (const QWidget* toast : ToastsInSight()) {
        lines << toast->findChild<QLabel*>(QStringLiteral("line1"))->text();
    }
    return lines;
}

} // namespace support
