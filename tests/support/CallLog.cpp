#include "tests/support/CallLog.h"

#include <algorithm>

namespace support {

void CallLog::Add(std::string line) {
    const std::lock_guard lock(m_mutex);
    m_lines.push_back(std::move(line));
}

void CallLog::Clear() {
    const std::lock_guard lock(m_mutex);
    m_lines.clear();
}

std::vector<std::string> CallLog::Lines() const {
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

std::vector<std::string> CallLog::LinesOf(const std::vector<std::string>& operations) const {
    std::vector<std::string> found;
    for (const std::string& line : Lines()) {
        const std::string operation = line.substr(0, line.find('('));
        if (std::find(operations.begin(), operations.end(), operation) != operations.end()) {
            found.push_back(line);
        }
    }
    return found;
}

int CallLog::CountOf(const std::string& operation) const {
    return int(LinesOf({operation}).size());
}

} // namespace support
