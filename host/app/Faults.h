// Failures of the data folder on their way to the person.
#pragma once

#include "host/session/HostSession.h"

#include <utility>

namespace host {

/// Does something with the data; a fault becomes a message of the host and the answer false.
template <typename Work> bool WithoutFault(const HostSession& session, Work&& work) {
    try {
        std::forward<Work>(work)();
        return true;
    } catch (const site::DataError& error) {
        session.Desk()->Report(MessageLevel::Error, error.Text());
        return false;
    }
}

/// Does something with the data; gives the fault as a sentence, empty without one.
template <typename Work> QString FaultOfWork(Work&& work) {
    try {
        std::forward<Work>(work)();
        return {};
    } catch (const site::DataError& error) {
        return error.Text();
    }
}

} // namespace host
