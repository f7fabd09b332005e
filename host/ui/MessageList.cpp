#include "host/ui/MessageList.h"

namespace host {

using namespace Qt::StringLiterals;

void MessageList::Add(MessageKind kind, const QString& text) {
    if (!m_messages.empty() && m_messages.front().kind == kind && m_messages.front().text == text) {
        ++m_messages.front().times;
        return;
    }
    m_messages.insert(m_messages.begin(), HostMessage{kind, text, 1});
    if (int(m_messages.size()) > kMost) {
        m_messages.pop_back();
    }
}

void MessageList::Remove(int at) {
    if (at >= 0 && at < int(m_messages.size())) {
        m_messages.erase(m_messages.begin() + at);
    }
}

bool MessageList::RemoveBeginning(const QString& beginning) {
    return std::erase_if(m_messages, [&](const HostMessage& message) {
               return message.text.startsWith(beginning);
           }) > 0;
}

QString MessageLine(const HostMessage& message) {
    return message.times == 1
               ? message.text
               : u"%1（共 %2 次）"_s.arg(message.text, QString::number(message.times));
}

} // namespace host
