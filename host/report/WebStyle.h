// How a report looks as a web page.
#pragma once

#include <QString>

namespace host {

struct ReportSheet;

/// From the first line to the beginning of the body, which is open then. Allows nothing to be
/// fetched or run (Content Security Policy, W3C).
[[nodiscard]] QString WebHead(const ReportSheet& sheet);

} // namespace host
