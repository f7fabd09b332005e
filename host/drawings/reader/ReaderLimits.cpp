#include "host/drawings/reader/ReaderLimits.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif
#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#endif

namespace host {

#ifdef Q_OS_UNIX

namespace {

void Limit(int resource, rlim_t most) {
    const rlimit limit{most, most};
    setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
}

} // namespace

#endif

void LimitReader() {
#ifdef Q_OS_UNIX
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, 0);
    // A sanitizer maps far more than it uses.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    constexpr rlim_t kMemory = rlim_t(768) * 1024 * 1024;
    Limit(RLIMIT_DATA, kMemory);
#endif
#endif
#ifdef Q_OS_LINUX
    // A document that stalls it would keep it from noticing the end of its pipe.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

} // namespace host
