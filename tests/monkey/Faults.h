// What the monkey has done last, and what counts as a fault.
#pragma once

#include <QString>
#include <QtCore/qlogging.h>

namespace monkey {

/// Why a warning of the platform says nothing about the client; null: it counts.
[[nodiscard]] const char* ReasonToAllow(const QString& message);
/// True for the kinds of messages that are faults unless they are allowed.
[[nodiscard]] bool Counts(QtMsgType type, const QString& message);

/// Keeps the lines of what is done, for the report of a fault; of the last ones so many. The lines
/// also go to a file, if one is named, as they come.
void OpenHistory(quint64 seed, const QString& file);
/// Thread: user interface.
void Note(const QString& line);
/// Prints seed and last lines on the standard error. Thread: any, also of a process that dies.
void PrintHistory();

/// From now on warnings count, and a process that dies prints the history first. A fault is printed
/// with history and stack, the same one once.
void WatchMessages();
void TellFault(const QString& what);
/// Thread: any.
[[nodiscard]] int FaultCount();

} // namespace monkey
