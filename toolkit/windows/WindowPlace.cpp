#include "toolkit/windows/WindowPlace.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>

namespace toolkit {

namespace {

// What window managers put around a window, as much as is usual: before it is shown, nobody knows.
constexpr QMargins kTitleAndFrame(4, 28, 4, 4);

QRect RoomPlace(const QWidget& window) {
    return window.screen()->availableGeometry() - kTitleAndFrame;
}

QSize Room(const QWidget& window) {
    return RoomPlace(window).size();
}

/// Where a window's contents lie on the screen, moved so that they and the frame lie on it wholly;
/// of what doesn't fit, the upper left corner does.
QRect Within(QRect place, const QRect& room) {
    place.moveLeft(std::clamp(place.left(), room.left(),
                              std::max(room.left(), room.right() - place.width() + 1)));
    place.moveTop(std::clamp(place.top(), room.top(),
                             std::max(room.top(), room.bottom() - place.height() + 1)));
    return place;
}

bool FillsScreen(const QWidget& window) {
    return window.isMaximized() || window.isFullScreen();
}

/// Sees every window as it is about to come up.
class WindowKeeper final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = event->type() == QEvent::Show ? qobject_cast<QWidget*>(watched) : nullptr;
        if (window != nullptr && !event->spontaneous() && IsPlaced(*window) &&
            !window->property(kSeen).toBool()) {
            window->setProperty(kSeen, true);
            // A dialog seeks its place after this event, and not if it has been moved before.
            if (window->windowType() == Qt::Dialog && !window->testAttribute(Qt::WA_Moved) &&
                !FillsScreen(*window)) {
                CentreWindow(*window);
            }
            KeepOnScreen(*window);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static constexpr const char* kSeen = "keptOnScreen";

    static bool IsPlaced(const QWidget& window) {
        const Qt::WindowType type = window.windowType();
        return window.isWindow() && (type == Qt::Window || type == Qt::Dialog);
    }
};

} // namespace

void SetLeastSize(QWidget& window, const QSize& least) {
    window.setMinimumSize(least.boundedTo(Room(window)));
}

void ResizeWithinScreen(QWidget& window, const QSize& wanted) {
    window.resize(wanted.boundedTo(Room(window)));
}

void ScrollIfTooLarge(QWidget& form) {
    const QSize needed = form.minimumSizeHint().expandedTo(form.minimumSize());
    const QSize room = Room(form);
    if (form.layout() == nullptr || needed == needed.boundedTo(room)) {
        return;
    }
    auto* area = new QScrollArea(&form);
    auto* page = new QWidget(area);
    page->setMinimumSize(form.minimumSize());
    page->setLayout(form.layout()); // its controls come along
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(page);
    auto* all = new QVBoxLayout(&form);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(area);
    const int bar = area->verticalScrollBar()->sizeHint().width();
    form.setMinimumSize(0, 0);
    form.resize((needed + QSize(bar, bar)).boundedTo(room));
}

void CentreWindow(QWidget& window) {
    const QWidget* parent = window.parentWidget();
    QRect place(QPoint(0, 0), window.size());
    place.moveCenter(parent != nullptr ? parent->window()->frameGeometry().center()
                                       : window.screen()->availableGeometry().center());
    window.setGeometry(Within(place, RoomPlace(window)));
}

void KeepOnScreen(QWidget& window) {
    if (FillsScreen(window)) {
        return;
    }
    const QRect before = window.geometry();
    QRect place(before.topLeft(), before.size().boundedTo(Room(window)));
    place = Within(place, RoomPlace(window));
    if (place != before) {
        window.setGeometry(place);
    }
}

void MinimiseWindow(QWidget& window) {
    if (window.parentWidget() == nullptr) {
        window.showMinimized();
        return;
    }
    window.hide();
    window.setWindowState(window.windowState() | Qt::WindowMinimized);
}

void KeepNewWindowsOnScreen(QApplication& app) {
    app.installEventFilter(new WindowKeeper(&app));
}

} // namespace toolkit
