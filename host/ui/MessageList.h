// Which of the host's own messages the bar shows.
#pragma once

#include <QString>

#include <vector>

namespace host {

enum class MessageKind { Info, Warning, Error };

struct HostMessage {
    MessageKind kind = MessageKind::Info;
    QString text;
    int times = 1; ///< how often in a row it came
};

/// The newest messages, newest first. Thread: any, one at a time.
class MessageList final {
public:
    static constexpr int kMost = 4;

    /// The newest message said again counts up; otherwise the oldest one beyond kMost goes.
    void Add(MessageKind kind, const QString& text);
    void Remove(int at);
    /// Those whose text begins so; false if there is none.
    bool RemoveBeginning(const QString& beginning);
    void Clear() { m_messages.clear(); }
    [[nodiscard]] const std::vector<HostMessage>& All() const { return m_messages; }

private:
    std::vector<HostMessage> m_messages;
};

/// A message as one line of text: with its number of times where it came more than once.
[[nodiscard]] QString MessageLine(const HostMessage& message);

} // namespace host
