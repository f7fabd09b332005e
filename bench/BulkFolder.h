// The data folder of a million photos that the benchmarks share.
#pragma once

class QCommandLineParser;

namespace host {
class HostSession;
}

namespace bench {

/// Options --data, --photos, --drawing-photos, --issues, --fill.
void AddFolderOptions(QCommandLineParser& options);
/// What --fill asks for: fills an empty folder. Exit code.
[[nodiscard]] int FillFolder(const QCommandLineParser& options);
/// Opens the folder, filling it first if it is empty (in a process of its own, so that its memory
/// doesn't count), signs in and opens the project with most rows. False after a line that says why.
[[nodiscard]] bool OpenFolder(host::HostSession& session, const QCommandLineParser& options);

} // namespace bench
