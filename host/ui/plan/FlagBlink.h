// Lets one flag blink for a short while.
#pragma once

#include "host/ui/marks/MarkFlag.h"

#include <QObject>
#include <QTimer>

#include <optional>

namespace host {

/// Lit at once, dark and lit in turn, dark at the end. Thread: user interface.
class FlagBlink final : public QObject {
    Q_OBJECT

public:
    static constexpr int kPeriodMs = 250; ///< of one phase
    static constexpr int kPhases = 8;

    explicit FlagBlink(QObject* parent);

    /// Another flag that blinks stops.
    void Start(const MarkFlag& newFlag);
    void Stop();
    /// Nothing while nothing blinks.
    [[nodiscard]] const std::optional<MarkFlag>& Flag() const { return m_flag; }
    [[nodiscard]] bool IsLit() const { return m_flag.has_value() && m_phase % 2 == 0; }

signals:
    /// Of the light, also at the end.
    void Changed();

private:
    void Step();

    std::optional<MarkFlag> m_flag;
    int m_phase = 0;
    QTimer m_timer;
};

} // namespace host
