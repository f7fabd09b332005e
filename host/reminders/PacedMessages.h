// Messages on their way to the module, no more of them at a time than it shows without a stall.
#pragma once

#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <string>

namespace host {

struct ReminderMessage {
    bool isIssue = false;
    std::string json; ///< 8-bit text in code page 936
};

/// Hands on a portion, and the next one when the module's reminders were shown, or after a while
/// without any: it may have none to show. The module shows all that is ready at once, so what it is
/// handed at once bounds how long the window stands still. Thread: user interface.
class PacedMessages final : public QObject {
    Q_OBJECT

public:
    using Hand = std::function<void(const ReminderMessage&)>;
    explicit PacedMessages(Hand handOn);

    /// Comes later than this call, after those that were added before.
    void Add(ReminderMessage message);
    /// Reminders that were ready are in sight.
    void Shown();

    static constexpr int kPortion = 20;

private:
    void HandOn();

    Hand m_hand;
    std::deque<ReminderMessage> m_waiting;
    QTimer m_next;
    bool m_isHandedOut = false; ///< nothing was shown since the last portion
};

} // namespace host
