#include "tests/support/ModalVisit.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include <gtest/gtest.h>

namespace support {

namespace {

constexpr int kLookAgainMs = 2;

} // namespace

ModalVisit::ModalVisit(const QString& objectName, Action action)
    : m_name(objectName), m_action(std::move(action)) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Look(); });
    m_timer.start(kLookAgainMs);
}

ModalVisit::~ModalVisit() {
    if (!m_come) {
        ADD_FAILURE() << "never came: " << m_name.toStdString();
    }
}

void ModalVisit::Look() {
    const QPointer<QWidget> window = QApplication::activeModalWidget();
    const bool isHere = window && window->objectName() == m_name && window->isActiveWindow();
    if (!isHere && !m_patience.hasExpired()) {
        return;
    }
    m_timer.stop();
    if (isHere) {
        m_come = true;
        m_action(*window);
    }
    // Whatever holds the test must not hold it for ever.
    while (QWidget* open = QApplication::activeModalWidget()) {
        ADD_FAILURE() << "left open: " << open->objectName().toStdString();
        open->close();
        if (QApplication::activeModalWidget() == open) {
            break;
        }
    }
}

} // namespace support
