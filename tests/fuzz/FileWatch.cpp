#include "tests/fuzz/FileWatch.h"

#include <array>
#include <cstdarg>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::string watchedFolder; // empty: nobody watches
std::string strangePath;

void Note(const char* path) {
    constexpr std::array<std::string_view, 4> kPlatform = {
        "/usr/share/fonts/", "/usr/lib/", "/usr/share/fontconfig/", "/var/cache/fontconfig/"};
    if (watchedFolder.empty() || !strangePath.empty() || path == nullptr) {
        return;
    }
    const std::string_view seen(path);
    bool isKnown = seen.starts_with(watchedFolder) && seen.find("..") == std::string_view::npos;
    for (const std::string_view platform : kPlatform) {
        isKnown = isKnown || seen.starts_with(platform);
    }
    if (!isKnown) {
        strangePath = seen;
    }
}

int OpenAnyway(int folder, const char* path, int flags, mode_t mode) {
    Note(path);
    return int(syscall(SYS_openat, folder, path, flags, mode));
}

} // namespace

// In the place of the C library's, for all libraries of the program.
extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return OpenAnyway(AT_FDCWD, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return OpenAnyway(AT_FDCWD, path, flags, mode);
}

int connect(int socket, const sockaddr* address, socklen_t length) {
    if (address != nullptr && address->sa_family != AF_UNIX && !watchedFolder.empty()) {
        strangePath = "net";
    }
    return int(syscall(SYS_connect, socket, address, length));
}
}

namespace fuzz {

FileWatch::FileWatch(std::string folder) {
    strangePath.clear();
    watchedFolder = std::move(folder);
}

FileWatch::~FileWatch() {
    watchedFolder.clear();
}

const std::string& FileWatch::Strange() const {
    return strangePath;
}

} // namespace fuzz
