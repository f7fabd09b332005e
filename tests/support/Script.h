// How the doubles of a test behave: one log of their calls, which operations fail, what else
// happens during a call.
#pragma once

#include "tests/support/CallLog.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <mutex>
#include <set>
#include <string>

namespace support {

/// Shared by all doubles of a test; operations are named as in the contracts ("QueryBimPics").
/// Thread: any.
class Script {
public:
    CallLog log;

    /// The next calls of the operation fail, as often as this is said.
    void FailNext(const std::string& operation);
    /// All calls of the operation fail until Succeed.
    void FailAlways(const std::string& operation);
    void Succeed(const std::string& operation);
    /// Runs in every call of the operation, after it was logged; null ends that.
    void During(const std::string& operation, std::function<void()> action);

    /// For the doubles: logs the call, runs what happens during it. False: the call is to fail.
    bool Call(const std::string& operation, std::initializer_list<std::string> arguments = {});

private:
    std::mutex m_mutex;
    std::map<std::string, int> m_failures;
    std::set<std::string> m_failing;
    std::map<std::string, std::function<void()>> m_actions;
};

} // namespace support
