// Lets something blink for a short while.
#pragma once

#include <QObject>
#include <QTimer>

namespace host {

/// Lit at once, dark and lit in turn, dark at the end. Thread: user interface.
class Blink final : public QObject {
    Q_OBJECT

public:
    static constexpr int kPeriodMs = 250; ///< of one phase
    static constexpr int kPhases = 8;

    explicit Blink(QObject* parent);

    /// From the beginning, also in the middle of it.
    void Start();
    void Stop();
    [[nodiscard]] bool IsOn() const { return m_timer.isActive(); }
    [[nodiscard]] bool IsLit() const { return IsOn() && m_phase % 2 == 0; }

signals:
    /// Of the light, also at the end.
    void Changed();

private:
    void Step();

    int m_phase = 0;
    QTimer m_timer;
};

} // namespace host
