#include "host/ui/MessageList.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Out of the list already: who is told may look at it.
void TellDropped(const std::vector<HostMessage>& gone) {
    for (const HostMessage& message : gone) {
        if (message.action.dropped) {
            message.action.dropped();
        }
    }
}

/// Those that `goes` picks, out of `messages`.
template <typename Goes>
std::vector<HostMessage> TakeOut(std::vector<HostMessage>& messages, Goes goes) {
    const auto from = std::stable_partition(messages.begin(), messages.end(),
                                            [&](const HostMessage& each) { return !goes(each); });
    std::vector<HostMessage> gone(std::make_move_iterator(from),
                                  std::make_move_iterator(messages.end()));
    messages.erase(from, messages.end());
    return gone;
}

/// What undoes one deed doesn't undo the one before it, however alike they read.
bool IsSaidAgain(const HostMessage& newest, MessageKind kind, const QString& text,
                 const MessageAction& action) {
    return action.caption.isEmpty() && newest.action.caption.isEmpty() && newest.kind == kind &&
           newest.text == text;
}

} // namespace

qint64 MessageList::Add(MessageKind kind, const QString& text, MessageAction action) {
    if (!m_messages.empty() && IsSaidAgain(m_messages.front(), kind, text, action)) {
        ++m_messages.front().times;
        return m_messages.front().id;
    }
    const qint64 id = ++m_lastId;
    m_messages.insert(m_messages.begin(), HostMessage{kind, text, 1, std::move(action), id});
    if (int(m_messages.size()) > kMost) {
        const qint64 oldest = m_messages.back().id;
        Remove(oldest);
    }
    return id;
}

std::function<void()> MessageList::TakeWork(qint64 id) {
    for (HostMessage& message : m_messages) {
        if (message.id == id) {
            return std::exchange(message.action, {}).work;
        }
    }
    return {};
}

void MessageList::Remove(qint64 id) {
    TellDropped(TakeOut(m_messages, [&](const HostMessage& each) { return each.id == id; }));
}

bool MessageList::RemoveBeginning(const QString& beginning) {
    const auto gone = TakeOut(
        m_messages, [&](const HostMessage& each) { return each.text.startsWith(beginning); });
    TellDropped(gone);
    return !gone.empty();
}

void MessageList::Clear() {
    TellDropped(std::exchange(m_messages, {}));
}

QString MessageLine(const HostMessage& message) {
    return message.times == 1
               ? message.text
               : u"%1（共 %2 次）"_s.arg(message.text, QString::number(message.times));
}

} // namespace host
