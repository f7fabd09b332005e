#include "toolkit/WindowPlace.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace toolkit {

namespace {

constexpr QSize kTitleAndFrame(8, 32);

QSize Room(const QWidget& window) {
    return window.screen()->availableSize() - kTitleAndFrame;
}

} // namespace

void SetLeastSize(QWidget& window, const QSize& least) {
    window.setMinimumSize(least.boundedTo(Room(window)));
}

void ResizeWithinScreen(QWidget& window, const QSize& wanted) {
    window.resize(wanted.boundedTo(Room(window)));
}

void CentreWindow(QWidget& window) {
    const QWidget* parent = window.parentWidget();
    const QRect screen = window.screen()->availableGeometry();
    QRect place(QPoint(0, 0), window.size());
    place.moveCenter(parent != nullptr ? parent->window()->frameGeometry().center()
                                       : screen.center());
    place.moveLeft(std::clamp(place.left(), screen.left(),
                              std::max(screen.left(), screen.right() - place.width() + 1)));
    place.moveTop(std::clamp(place.top(), screen.top(),
                             std::max(screen.top(), screen.bottom() - place.height() + 1)));
    window.move(place.topLeft());
}

} // namespace toolkit
