// Where this client keeps what it may lose: copies of files, work in progress, logs.
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace site {

/// A folder in which something large is prepared before it is filed; one process at a time.
class IWorkshop {
public:
    /// Clears it again.
    virtual ~IWorkshop() = default;
    /// False while another process has it. What a crash left is removed, what isn't ours set aside.
    [[nodiscard]] virtual bool Enter() = 0;
    [[nodiscard]] virtual QString Place() const = 0;
};

/// Folders are made when they are asked for; "" comes back if one can't be. No separator at the
/// end. Thread: any, save for the workshop.
class IClientFolders {
public:
    virtual ~IClientFolders() = default;

    enum class Cache { Pictures, Thumbnails, Attachments, Drawings };
    [[nodiscard]] virtual QString CacheOf(qint32 ppid, Cache what) const = 0;
    /// Of the rich text editor; `key` is a plain name, empty: the one that holds all of them.
    [[nodiscard]] virtual QString RichText(const QString& key) const = 0;
    /// Copies that are handed to other programs.
    [[nodiscard]] virtual QString Opened() const = 0;
    [[nodiscard]] virtual QString Work() const = 0;
    [[nodiscard]] virtual QString Logs() const = 0;

    /// @param isOurs  which names may be removed from it.
    [[nodiscard]] virtual std::unique_ptr<IWorkshop>
    Workshop(std::function<bool(const QString&)> isOurs) = 0;
};

} // namespace site
