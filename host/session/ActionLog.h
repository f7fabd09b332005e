// The record of what people did at this client.
#pragma once

#include "site/Records.h"

#include <QString>

#include <functional>

namespace host {

class HostSession;

/// Thread: user interface.
class ActionLog final {
public:
    /// The session must outlive the log.
    explicit ActionLog(const HostSession& hostSession) : m_session(hostSession) {}

    /// Writes what the session's person did now in its project, and tells the sink. Throws
    /// DataError.
    void Write(const QString& action);

    using Sink = std::function<void(const site::LoggedAction&)>;
    void SetSink(Sink sink) { m_sink = std::move(sink); }

private:
    const HostSession& m_session;
    Sink m_sink;
};

} // namespace host
