// The mark panel with its widgets on the big data folder: opening, and ranges of days.
#pragma once

class QString;

namespace host {
class HostSession;
}

namespace bench {

class Report;
class WatchedApplication;

/// Opens the session's first workset in the panel, cold and warm, and chooses days. Tracing of the
/// statements must be on, and a workset open. False if the folder can't be opened anew.
[[nodiscard]] bool MeasurePanel(WatchedApplication& application, host::HostSession& session,
                                Report& report);

} // namespace bench
