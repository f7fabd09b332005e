#include "toolkit/windows/WindowEnd.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QItemSelectionModel>
#include <QWidget>

namespace toolkit {

namespace {

/// A dialog or a window of its own, not the list of a combo or a calendar.
bool IsOwnWindow(const QObject& object) {
    if (!object.isWidgetType()) {
        return false;
    }
    const auto& widget = static_cast<const QWidget&>(object);
    return widget.isWindow() &&
           (widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog);
}

/// Views must go on hearing of their models: what they hold of them would dangle.
bool IsModel(const QObject& object) {
    return qobject_cast<const QAbstractItemModel*>(&object) != nullptr ||
           qobject_cast<const QItemSelectionModel*>(&object) != nullptr;
}

void SilenceAll(QObject& object, const QObject& window) {
    // Who waits for the end of the window itself is told of it even so.
    if (&object != &window) {
        QObject::disconnect(&object, nullptr, &window, nullptr);
    }
    if (!IsModel(object)) {
        object.blockSignals(true);
    }
    // Queued calls: a context that is about to go doesn't keep them back.
    QCoreApplication::removePostedEvents(&object, QEvent::MetaCall);
    for (QObject* child : object.children()) {
        if (!IsOwnWindow(*child)) {
            SilenceAll(*child, window);
        }
    }
}

} // namespace

void SilenceControls(QWidget& window) {
    SilenceAll(window, window);
}

QEvent::Type WindowDiesEvent() {
    static const int type = QEvent::registerEventType();
    return QEvent::Type(type);
}

void TellWindowDies(QWidget& window) {
    QEvent event(WindowDiesEvent());
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace toolkit
