// The bar below the toolbar in which the host says what happened.
#pragma once

#include "host/ui/MessageList.h"

#include <QFrame>

#include <map>

class QVBoxLayout;

namespace host {

/// Shows the newest messages with their kind, lets the person copy and close each, and do what it
/// offers. Hidden while there is none. Knows nothing of where messages come from. Lives on the
/// interface thread, owned by its parent widget.
class MessageBar final : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent);
    /// Actions that still stand are dropped, as by closing.
    ~MessageBar() override;

    /// The action's work is called once, by click or key, after its button went; the message stays.
    /// @return  by which it can be withdrawn.
    qint64 Show(MessageKind kind, const QString& text, MessageAction action = {});
    void Clear();
    /// Takes back what begins so: it no longer holds.
    void Withdraw(const QString& beginning);
    /// One message; nothing if it is gone already.
    void Withdraw(qint64 id);
    [[nodiscard]] const std::vector<HostMessage>& Messages() const { return m_list.All(); }

protected:
    /// Enter presses a button as the blank does.
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Lines that stay are the same widgets: a click or the keyboard may be on one.
    void Rebuild();
    [[nodiscard]] QWidget* MakeLine(const HostMessage& message);
    void AddButtons(QWidget* line, const HostMessage& message);
    void PutInTabOrder();
    void Act(qint64 id);

    MessageList m_list;
    std::map<qint64, QWidget*> m_lineOf; ///< by the message's id
    QVBoxLayout* m_lines = nullptr;
};

} // namespace host
