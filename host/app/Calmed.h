// What comes in bursts, done no oftener than is of use.
#pragma once

#include <QTimer>

#include <functional>

namespace host {

/// Does it at once the first time, and of what is asked for within the pause after it the last one,
/// at the pause's end. Thread: user interface.
class Calmed final {
public:
    Calmed(int pauseMs, std::function<void()> work);

    void Ask();

private:
    void Do();

    std::function<void()> m_work;
    QTimer m_pause;
    bool m_isAsked = false;
};

} // namespace host
