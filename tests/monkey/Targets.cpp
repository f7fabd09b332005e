#include "tests/monkey/Targets.h"

#include "hands/Hands.h"
#include "host/ui/MainWindow.h"

#include <QApplication>

#include <algorithm>
#include <tuple>

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostlyInFront = 75;  ///< of a hundred deeds
constexpr int kMostlyInMiddle = 35; ///< of a hundred places
constexpr int kSometimesAtEdge = 10;

auto OrderOf(const QWidget* window) {
    return std::tuple(QString::fromLatin1(window->metaObject()->className()), window->objectName(),
                      window->windowTitle(), window->x(), window->y(), window->width());
}

} // namespace

QList<QWidget*> Windows() {
    QList<QWidget*> windows;
    const QList<QWidget*> all = QApplication::topLevelWidgets();
    for (QWidget* window : all) {
        if (window->isVisible() && window->windowHandle() != nullptr &&
            window->windowType() != Qt::ToolTip) {
            windows << window;
        }
    }
    std::sort(windows.begin(), windows.end(), [](const QWidget* one, const QWidget* other) {
        return OrderOf(one) < OrderOf(other);
    });
    return windows;
}

QList<QWidget*> ReachableWindows() {
    QList<QWidget*> windows = Windows();
    windows.removeIf(
        [](const QWidget* window) { return !hands::CanReach(window) || window->isMinimized(); });
    return windows;
}

QWidget* WindowFor(const Deed& deed) {
    QWidget* front = QApplication::activePopupWidget();
    if (front == nullptr) {
        front = QApplication::activeModalWidget();
    }
    if (front == nullptr) {
        front = QApplication::activeWindow();
    }
    if (front != nullptr && hands::CanReach(front) && deed.Chance(0, kMostlyInFront)) {
        return front;
    }
    const QList<QWidget*> windows = ReachableWindows();
    return windows.isEmpty() ? nullptr : windows[deed.Of(1, windows.size())];
}

QWidget* WidgetFor(const Deed& deed, QWidget* window) {
    if (window == nullptr) {
        return nullptr;
    }
    QList<QWidget*> widgets = {window};
    const QList<QWidget*> below = window->findChildren<QWidget*>();
    for (QWidget* widget : below) {
        // What is scrolled or covered out of sight can't be hit.
        if (widget->window() == window && hands::CanReach(widget) &&
            !widget->visibleRegion().isEmpty() &&
            !widget->testAttribute(Qt::WA_TransparentForMouseEvents)) {
            widgets << widget;
        }
    }
    return widgets[deed.Of(2, widgets.size())];
}

QPoint PlaceFor(const Deed& deed, const QWidget& widget) {
    const QRect seen = widget.visibleRegion().boundingRect();
    const QRect area = seen.isEmpty() ? widget.rect() : seen;
    if (deed.Chance(3, kMostlyInMiddle)) {
        return area.center();
    }
    if (deed.Chance(3, kMostlyInMiddle + kSometimesAtEdge)) {
        return deed.Of(4, 2) == 0 ? area.topLeft() : area.bottomRight();
    }
    return area.topLeft() + QPoint(deed.Of(4, area.width()), deed.Of(5, area.height()));
}

QWidget* ClientWindow() {
    const QList<QWidget*> windows = Windows();
    for (QWidget* window : windows) {
        if (qobject_cast<host::MainWindow*>(window) != nullptr) {
            return window;
        }
    }
    return nullptr;
}

QString TextOf(const QWidget* widget) {
    if (widget == nullptr) {
        return u"nothing"_s;
    }
    const auto name = [](const QWidget* named) {
        const QString text =
            named->objectName().isEmpty() ? named->windowTitle() : named->objectName();
        return QString::fromLatin1(named->metaObject()->className()) + u" '"_s + text + u'\'';
    };
    return widget->isWindow() ? name(widget) : name(widget) + u" of "_s + name(widget->window());
}

} // namespace monkey
