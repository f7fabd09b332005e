// Nothing that a person does gets through.
#pragma once

#include <QObject>

namespace host {

/// While it lives, the wait cursor shows and all input is dropped: mouse, keys, shortcuts, drops,
/// close buttons. What the program itself sends goes through. Thread: user interface.
class InputBlock final : public QObject {
public:
    InputBlock();
    ~InputBlock() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace host
