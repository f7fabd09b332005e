// Which of the host's own messages the bar shows.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace host {

enum class MessageKind { Info, Warning, Error };

/// What a person can do about a message, once and for as long as it stands.
struct MessageAction {
    QString caption{}; ///< of its button; empty: there is nothing to do
    QString tip{};
    std::function<void()> work{};
    /// Told when the message goes without it having been done; may be empty. Adds no messages.
    std::function<void()> dropped{};
};

struct HostMessage {
    MessageKind kind = MessageKind::Info;
    QString text{};
    int times = 1; ///< how often in a row it came
    MessageAction action{};
    qint64 id = 0; ///< none other of the list ever has it
};

/// The newest messages, newest first. Thread: any, one at a time.
class MessageList final {
public:
    static constexpr int kMost = 4;

    /// The newest message said again counts up, unless one of them has an action; otherwise the
    /// oldest one beyond kMost goes. Returns its id.
    qint64 Add(MessageKind kind, const QString& text, MessageAction action = {});
    /// Hands its work over: the message stays and has no action from then on. An empty function for
    /// a message without one, and for an unknown id.
    [[nodiscard]] std::function<void()> TakeWork(qint64 id);
    /// An unknown id is passed over.
    void Remove(qint64 id);
    /// Those whose text begins so; false if there is none.
    bool RemoveBeginning(const QString& beginning);
    void Clear();
    [[nodiscard]] const std::vector<HostMessage>& All() const { return m_messages; }

private:
    std::vector<HostMessage> m_messages;
    qint64 m_lastId = 0;
};

/// A message as one line of text: with its number of times where it came more than once.
[[nodiscard]] QString MessageLine(const HostMessage& message);

} // namespace host
