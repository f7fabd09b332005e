// The reminder feed beside a bare parse of the same messages.
#pragma once

namespace bench {

class Report;

/// From the first message that the host hands over to the last record that it takes out, the
/// thread's work included, with a download that returns at once. Beside it, in turn with it: the
/// conversion from code page 936 and the tree of the same texts, nothing else. False: the bare
/// parse read nothing. Needs the application object.
[[nodiscard]] bool MeasureFeed(int messages, int runs, Report& report);

} // namespace bench
