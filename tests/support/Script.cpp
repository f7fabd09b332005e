#include "tests/support/Script.h"

namespace support {

void Script::FailNext(const std::string& operation) {
    const std::lock_guard lock(m_mutex);
    ++m_failures[operation];
}

void Script::FailAlways(const std::string& operation) {
    const std::lock_guard lock(m_mutex);
    m_failing.insert(operation);
}

void Script::Succeed(const std::string& operation) {
    const std::lock_guard lock(m_mutex);
    m_failing.erase(operation);
    m_failures.erase(operation);
}

void Script::During(const std::string& operation, std::function<void()> action) {
    const std::lock_guard lock(m_mutex);
    if (action) {
        m_actions[operation] = std::move(action);
    } else {
        m_actions.erase(operation);
    }
}

bool Script::Call(const std::string& operation, std::initializer_list<std::string> arguments) {
    std::string line = operation + "(";
    for (const std::string& argument : arguments) {
        if (line.back() != '(') {
            line += ',';
        }
        line += argument;
    }
    log.Add(line + ")");

    bool fails = false;
    std::function<void()> action;
    {
        const std::lock_guard lock(m_mutex);
        fails = m_failing.contains(operation);
        const auto left = m_failures.find(operation);
        if (!fails && left != m_failures.end() && left->second > 0) {
            --left->second;
            fails = true;
        }
        if (const auto found = m_actions.find(operation); found != m_actions.end()) {
            action = found->second;
        }
    }
    if (action) {
        action();
    }
    return !fails;
}

} // namespace support
