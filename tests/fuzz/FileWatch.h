// Which files and nets a program reaches for.
#pragma once

#include <string>

namespace fuzz {

/// While it lives, notes what is opened outside a folder, by whichever library, and every
/// connection that leaves the machine. What the platform loads by itself, faces and plug-ins, isn't
/// noted. One at a time.
class FileWatch final {
public:
    explicit FileWatch(std::string folder);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    /// The first strange path or "net"; empty: none.
    [[nodiscard]] const std::string& Strange() const;
};

} // namespace fuzz
