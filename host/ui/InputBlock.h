// Nothing that a person does gets through.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace host {

/// While it lives, the wait cursor shows and all input is dropped: mouse, keys, shortcuts, drops,
/// close buttons. What the program itself sends goes through, and what goes to one window that may
/// be let out. Thread: user interface.
class InputBlock final : public QObject {
public:
    InputBlock();
    ~InputBlock() override;

    /// Input to this window and its controls is not dropped; null: to none.
    void LetOut(const QWidget* window) { m_free = window; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsOfFreeWindow(const QObject* watched) const;

    QPointer<const QWidget> m_free;
};

} // namespace host
