#include "hands/Hands.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWidget>

namespace hands {

namespace {

bool IsBlockedByDialog(const QWidget* widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    const QWidget* top = widget->window();
    return modal != nullptr && top->windowType() != Qt::Popup && top != modal &&
           !modal->isAncestorOf(top);
}

bool IsCovered(const QWidget* widget, const QPoint& place) {
    const QWidget* top = widget->window();
    const QWidget* hit = top->childAt(widget->mapTo(top, place));
    return hit == nullptr ? widget != top : hit != widget && !widget->isAncestorOf(hit);
}

bool IsAtHand(QWidget* widget, const QPoint& place) {
    return CanReach(widget) && widget->rect().contains(place) && !IsCovered(widget, place) &&
           BringUp(widget);
}

} // namespace

bool CanReach(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->isEnabled() &&
           widget->window()->windowHandle() != nullptr && !IsBlockedByDialog(widget);
}

bool Click(QWidget* widget, Qt::MouseButton button) {
    return widget != nullptr && ClickAt(widget, widget->rect().center(), button);
}

bool ClickAt(QWidget* widget, const QPoint& place, Qt::MouseButton button) {
    if (!IsAtHand(widget, place)) {
        return false;
    }
    SendClick(widget, place, {button, Qt::NoModifier});
    return true;
}

bool DoubleClickAt(QWidget* widget, const QPoint& place) {
    if (!IsAtHand(widget, place)) {
        return false;
    }
    SendDoubleClick(widget, place);
    return true;
}

bool MoveTo(QWidget* widget, const QPoint& place) {
    if (!CanReach(widget)) {
        return false;
    }
    SendHover(widget, place);
    return true;
}

bool PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (!CanReach(widget) || !BringUp(widget)) {
        return false;
    }
    SendKey(widget, key, modifiers);
    return true;
}

bool TypeOver(QWidget* widget, const QString& text) {
    const QPointer<QWidget> guarded(widget);
    if (!Click(widget) || !PressKey(guarded, Qt::Key_A, Qt::ControlModifier)) {
        return false;
    }
    return text.isEmpty() ? PressKey(guarded, Qt::Key_Delete) : CommitText(text);
}

bool DropPaths(QWidget* widget, const QStringList& paths) {
    if (!CanReach(widget)) {
        return false;
    }
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) {
        urls << QUrl::fromLocalFile(path);
    }
    data.setUrls(urls);
    const QPoint centre = widget->rect().center();
    QDragEnterEvent enter(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    if (!enter.isAccepted()) {
        return false;
    }
    QDropEvent drop(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &drop);
    return drop.isAccepted();
}

bool CloseWindow(QWidget* window) {
    if (!CanReach(window)) {
        return false;
    }
    // The window object behind it may end the window by itself and refuse the event.
    window->close();
    return true;
}

} // namespace hands
