#include "host/ui/MessageList.h"

namespace host {

using namespace Qt::StringLiterals;

void MessageList::Add(MessageKind kind, const QString& text) {
    if (!messages.empty() && messages.front().kind == kind && messages.front().text == text) {
        ++messages.front().times;
        return;
    }
    messages.insert(messages.begin(), HostMessage{kind, text, 1});
    if (int(messages.size()) > kMost)
        messages.pop_back();
}

void MessageList::Remove(int at) {
    if (at >= 0 && at < int(messages.size()))
        messages.erase(messages.begin() + at);
}

bool MessageList::RemoveBeginning(const QString& beginning) {
    return std::erase_if(messages, [&](const HostMessage& message) {
               return message.text.startsWith(beginning);
           }) > 0;
}

QString MessageLine(const HostMessage& message) {
    return message.times == 1
               ? message.text
               : u"%1（共 %2 次）"_s.arg(message.text, QString::number(message.times));
}

} // namespace host
