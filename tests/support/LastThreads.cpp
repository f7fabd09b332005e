// The leak check waits for threads that have been told to end. The toolkit's own pool of painting
// threads counts one as ended when its work is over; the system ends it a little later, and a
// check in between, which no longer sees that thread's storage, takes what it holds for lost.
#include <chrono>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <thread>

namespace support {
namespace {

constexpr auto kPatience = std::chrono::seconds(2);

/// 0 where the system doesn't list them.
auto CountThreads() {
    std::error_code unlisted;
    const std::filesystem::directory_iterator threads("/proc/self/task", unlisted);
    return unlisted ? 0 : std::distance(begin(threads), end(threads));
}

/// Its end comes after `main`'s and before the check, which registered itself first.
struct LastThreads final {
    LastThreads() = default;
    LastThreads(const LastThreads&) = delete;
    LastThreads& operator=(const LastThreads&) = delete;
    ~LastThreads() {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (CountThreads() > 1 && std::chrono::steady_clock::now() < end) {
            std::this_thread::yield();
        }
    }
};

const LastThreads lastThreads;

} // namespace
} // namespace support
