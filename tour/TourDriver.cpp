#include "tour/TourDriver.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWindow>

// The entrance that QtGui keeps for synthetic input; QtTest declares the same two.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers mods, const QString& text, bool autorep,
                                    ushort count);

namespace tour {

using namespace Qt::StringLiterals;

namespace {

/// Clicks lie further apart than a double click, whatever the real time between them.
int NextTimestamp(int step) {
    static int timestamp = 10'000;
    timestamp += step;
    return timestamp;
}

constexpr int kFarApart = 5'000;
constexpr int kCloseTogether = 20;

void SendMouse(QWidget* widget, const QPoint& place, Qt::MouseButtons state, Qt::MouseButton button,
               QEvent::Type type, int timestamp) {
    QWidget* top = widget->window();
    const QPoint local = widget->mapTo(top, place);
    qt_handleMouseEvent(top->windowHandle(), local, top->mapToGlobal(local), state, button, type,
                        Qt::NoModifier, timestamp);
}

void SendClick(QWidget* widget, const QPoint& place, Qt::MouseButton button, int timestamp) {
    // The widget may be gone after any of these.
    const QPointer<QWidget> guarded(widget);
    SendMouse(widget, place, Qt::NoButton, Qt::NoButton, QEvent::MouseMove, timestamp);
    if (!guarded.isNull()) {
        SendMouse(widget, place, button, button, QEvent::MouseButtonPress, timestamp);
    }
    if (!guarded.isNull() && guarded->isVisible()) {
        SendMouse(widget, place, Qt::NoButton, button, QEvent::MouseButtonRelease, timestamp + 1);
    }
}

bool IsPopup(const QWidget* widget) {
    return widget->window()->windowType() == Qt::Popup;
}

bool IsBlockedByDialog(const QWidget* widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && !IsPopup(widget) && widget->window() != modal &&
           !modal->isAncestorOf(widget->window());
}

/// What a click on a window does first of all. False: not active yet, to be tried again.
bool IsBroughtUp(QWidget* widget) {
    QWidget* top = widget->window();
    if (top->isActiveWindow() || IsPopup(widget)) {
        return true;
    }
    top->activateWindow();
    return false;
}

QString Plain(QString text) {
    const qsizetype shortcut = text.indexOf(u'\t');
    if (shortcut >= 0) {
        text.truncate(shortcut);
    }
    return text.remove(u'&');
}

QAction* FindEntry(const QWidget* menu, const QString& entry) {
    for (QAction* action : menu->actions()) {
        if (Plain(action->text()) == entry && action->isVisible() && action->isEnabled()) {
            return action;
        }
    }
    return nullptr;
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
    if (!CanReach(widget) || !widget->rect().contains(place) || !IsBroughtUp(widget)) {
        return false;
    }
    SendClick(widget, place, button, NextTimestamp(kFarApart));
    return true;
}

bool DoubleClickAt(QWidget* widget, const QPoint& place) {
    if (!ClickAt(widget, place)) {
        return false;
    }
    SendClick(widget, place, Qt::LeftButton, NextTimestamp(kCloseTogether));
    return true;
}

bool MoveTo(QWidget* widget, const QPoint& place) {
    if (!CanReach(widget)) {
        return false;
    }
    SendMouse(widget, place, Qt::NoButton, Qt::NoButton, QEvent::MouseMove,
              NextTimestamp(kFarApart));
    return true;
}

bool PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (!CanReach(widget) || !IsBroughtUp(widget)) {
        return false;
    }
    QWindow* window = widget->window()->windowHandle();
    const QPointer<QWindow> guarded(window);
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, QString(), false, 1);
    if (!guarded.isNull()) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, QString(), false, 1);
    }
    return true;
}

bool TypeOver(QWidget* widget, const QString& text) {
    if (!Click(widget) || !PressKey(widget, Qt::Key_A, Qt::ControlModifier)) {
        return false;
    }
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr) {
        return false;
    }
    if (text.isEmpty()) {
        return PressKey(widget, Qt::Key_Delete);
    }
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(target, &event);
    return true;
}

bool ChooseInCombo(QComboBox* combo, const QString& entry) {
    const QPointer<QComboBox> guarded(combo);
    if (!Click(combo) || guarded.isNull() || !combo->view()->isVisible()) {
        return false;
    }
    QAbstractItemView* list = combo->view();
    const int row = combo->findText(entry, Qt::MatchStartsWith);
    if (row < 0) {
        PressKey(list, Qt::Key_Escape);
        return false;
    }
    return ClickCell(list, row, combo->modelColumn());
}

bool ClickInMenuBar(QMenuBar* bar, const QString& menu, const QString& entry) {
    QAction* title = bar == nullptr ? nullptr : FindEntry(bar, menu);
    if (title == nullptr || title->menu() == nullptr) {
        return false;
    }
    if (!title->menu()->isVisible() && !ClickAt(bar, bar->actionGeometry(title).center())) {
        return false;
    }
    return ClickInMenu(title->menu(), entry);
}

bool ClickInMenu(QMenu* menu, const QString& entry) {
    QAction* action = menu == nullptr ? nullptr : FindEntry(menu, entry);
    return action != nullptr && ClickAt(menu, menu->actionGeometry(action).center());
}

bool ClickCell(QAbstractItemView* view, int row, int column, Qt::MouseButton button) {
    if (!CanReach(view) || view->model() == nullptr) {
        return false;
    }
    const QModelIndex cell = view->model()->index(row, column);
    if (!cell.isValid()) {
        return false;
    }
    view->scrollTo(cell);
    return ClickAt(view->viewport(), view->visualRect(cell).center(), button);
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

} // namespace tour
