// What is kept of the mark panel for a person and a project.
#pragma once

#include "host/ui/marks/MarkTicks.h"

#include <QDate>

namespace host {

/// Days of the panel, both inclusive; without a limit the days are remembered all the same.
struct MarkDays {
    bool limited = false;
    QDate from;
    QDate to;

    bool operator==(const MarkDays&) const = default;
};
/// Seconds since 1970 of the first and of the last moment of the days, local time.
[[nodiscard]] std::pair<qint64, qint64> SecondsOf(const MarkDays& days);

struct MarkPageState {
    bool shown = true; ///< the kind is displayed
    MarkDays days;
    MarkTicks ticks;

    bool operator==(const MarkPageState&) const = default;
};

struct MarkState {
    MarkPageState photos;
    MarkPageState issues;

    bool operator==(const MarkState&) const = default;
};

[[nodiscard]] QString ToText(const MarkState& state);
/// A text that isn't understood gives the state of a new project: everything shown.
[[nodiscard]] MarkState MarkStateFrom(const QString& text);

} // namespace host
