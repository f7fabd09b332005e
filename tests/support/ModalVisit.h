// What a person does in a dialog that holds the call that opened it.
#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

namespace support {

/// Waits for the modal window of a name, made before the call that opens it, and acts in it once it
/// has the keyboard. A window that never comes, or that the action leaves open, fails the test and
/// is closed. Thread: user interface.
class ModalVisit final {
public:
    using Action = std::function<void(QWidget& window)>;

    ModalVisit(const QString& objectName, Action action);
    ~ModalVisit();
    ModalVisit(const ModalVisit&) = delete;
    ModalVisit& operator=(const ModalVisit&) = delete;

    [[nodiscard]] bool HasCome() const { return m_come; }

private:
    void Look();

    QString m_name;
    Action m_action;
    QTimer m_timer;
    QDeadlineTimer m_patience{20000};
    bool m_come = false;
};

} // namespace support
