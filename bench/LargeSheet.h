// A drawing as large as they come, and what rendering it costs at least.
#pragma once

#include <QSize>
#include <QString>

class QCommandLineParser;

namespace bench {

/// An A0 sheet of 2,000 polylines of 100 segments each, spread over it; the same one every time.
/// False if it can't be written.
[[nodiscard]] bool WriteLargeSheet(const QString& path);

/// Milliseconds and MB of a process that does nothing but render a page once by the PDF library.
struct BareSheetCost {
    double process = -1; ///< from its start to its end; negative: it failed
    double load = 0;     ///< of the document
    double render = 0;   ///< of the page, all of it
    double peak = 0;     ///< memory
};
[[nodiscard]] BareSheetCost RenderBareSheet(const QString& path, const QSize& pixels);

/// Options of such a process, and what it does. Exit code.
void AddBareSheetOptions(QCommandLineParser& options);
[[nodiscard]] int RunBareSheet(const QCommandLineParser& options);

} // namespace bench
