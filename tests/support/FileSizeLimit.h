// A disk that is full, for any user: root too.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace support {

/// While it lives, files of this process end at a size, as they do on a full disk. Holds for all
/// threads, and for files that other code writes meanwhile.
class FileSizeLimit final {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_handlerBefore)(int);
    rlimit m_before{};
};

/// A folder in which nobody can make a file, root neither.
inline constexpr auto kUnwritableFolder = "/proc/self";

} // namespace support
