// What the code under test called, in order, over all doubles of a test.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace support {

/// Lines like "QueryBimPics(page=1,size=30,sort=last_modifytime desc)", UTF-8. Thread: any.
class CallLog {
public:
    void Add(std::string line);
    void Clear();

    [[nodiscard]] std::vector<std::string> Lines() const;
    /// Those calls whose operation is one of `operations`, in their order.
    [[nodiscard]] std::vector<std::string>
    LinesOf(const std::vector<std::string>& operations) const;
    [[nodiscard]] int CountOf(const std::string& operation) const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

} // namespace support
