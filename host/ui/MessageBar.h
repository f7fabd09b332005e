// The bar below the toolbar in which the host says what happened.
#pragma once

#include "host/ui/MessageList.h"

#include <QFrame>

class QVBoxLayout;

namespace host {

/// Shows the newest messages with their kind, lets the person copy and close each. Hidden while
/// there is none. Knows nothing of where messages come from. Lives on the interface thread, owned
/// by its parent widget.
class MessageBar final : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent);

    void Show(MessageKind kind, const QString& text);
    void Clear();
    /// Takes back what begins so: it no longer holds.
    void Withdraw(const QString& beginning);
    [[nodiscard]] const std::vector<HostMessage>& Messages() const { return m_list.All(); }

private:
    void Rebuild();
    [[nodiscard]] QWidget* MakeLine(int at);

    MessageList m_list;
    QVBoxLayout* m_lines = nullptr;
};

} // namespace host
