#include "toolkit/windows/WaitCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace toolkit {

WaitCursor::WaitCursor() {
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

WaitCursor::~WaitCursor() {
    QGuiApplication::restoreOverrideCursor();
}

} // namespace toolkit
