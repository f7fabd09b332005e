// A sheet of rich text in a window, and when it has been painted.
#pragma once

#include "bench/RichPages.h"
#include "bench/Stopwatch.h"
#include "bench/WatchedApplication.h"

#include <QTextEdit>

namespace bench {

/// Milliseconds from the call on.
struct LoadTimes {
    double call = 0;    ///< until it came back
    double painted = 0; ///< until the sheet was painted, with what stands at its beginning
    double whole = 0;   ///< until all of it had its place
    double longest = 0; ///< event afterwards, until the sheet had nothing left to do
};

/// A document's place in shares of its length.
enum class SheetPlace { Beginning, Middle, End };

/// One sheet, ours or bare. Ends the program when nothing is painted.
class RichSheet {
public:
    explicit RichSheet(WatchedApplication& application) : m_application(application) {}
    virtual ~RichSheet() = default;
    RichSheet(const RichSheet&) = delete;
    RichSheet& operator=(const RichSheet&) = delete;

    [[nodiscard]] virtual QTextEdit& Sheet() = 0;
    virtual void Load(const RichPages& pages) = 0;

    /// A load until its first page is painted.
    double MeasureFirstPage(const RichPages& pages);
    LoadTimes MeasureLoad(const RichPages& pages);
    void Go(SheetPlace place);
    /// A letter typed there, until the paint that shows it has ended.
    double PressKey(QChar letter);

private:
    double UntilPainted(const Stopwatch& timer);

    WatchedApplication& m_application;
};

} // namespace bench
