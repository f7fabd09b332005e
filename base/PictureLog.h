// The module's own log file: one line a record, code page 936, lines end in "\r\n".
#pragma once

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// Set once, by the project observer; before that lines are lost. Thread: user interface.
void SetLogFilePath(const QString& path);
[[nodiscard]] const QString& LogFilePath();

/// Appends "[yyyy-MM-dd HH:mm:ss] text". A file that can't be opened loses the line; the log never
/// stops the program. Thread: any.
void WriteLog(const QString& text);
/// Empties the file. Thread: any.
void ClearLog();

/// A project change: empties the file at the first and at every third after it, then writes the
/// project's banner. `projectName` null: no project is open, no banner. Thread: user interface.
void LogProjectChange(const QString* projectName, qint32 ppid);
/// Starts the count of project changes anew, as in a new process.
void ResetLogCycle();

} // namespace ZelvorNRQ_KXVeskPicture
