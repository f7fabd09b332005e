// The folder in which a site lives: database, stored files, bin, and the clients' caches.
#pragma once

#include "site/OpenSite.h"

#include <QString>

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace site {

class Database;
class FileStore;

/// Knows where everything lies below its path, and owns database and store while it is open.
/// Thread: the one that opened it, except the path functions.
class DataFolder final {
public:
    using Options = OpenOptions;

    explicit DataFolder(const QString& path);
    ~DataFolder();
    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;

    /// Makes what is missing, brings the schema up to date, cleans up. Empty on success; on a fault
    /// nothing stays open. A second process may have the same folder open. A folder with other
    /// things in it and no site is refused and left as it is; what isn't ours in a site's is set
    /// aside and told, never removed. No link below the folder is followed.
    [[nodiscard]] std::optional<OpenFault> Open(const Options& options);
    [[nodiscard]] std::optional<OpenFault> Open() { return Open(Options{}); }
    void Close();
    [[nodiscard]] bool IsOpen() const { return m_database != nullptr; }

    using Told = std::function<void(const QString&)>;
    /// Is told, in Chinese, what a person should know of the folder; at once what was to tell
    /// before.
    void SetTold(Told listener);
    void Tell(const QString& text);

    [[nodiscard]] QString Path() const { return m_root; }
    [[nodiscard]] QString DatabasePath() const;
    [[nodiscard]] QString StorePath() const;
    [[nodiscard]] QString BinPath() const;
    [[nodiscard]] QString WorkPath() const;
    [[nodiscard]] QString LogPath() const;

    /// Seconds since 1970, by the clock of the last opening. Thread: any while open.
    [[nodiscard]] qint64 Now() const { return m_now(); }
    /// The same as a local date, "2024-05-31".
    [[nodiscard]] QString Today() const;

    /// Only while open.
    [[nodiscard]] Database& Db() const { return *m_database; }
    [[nodiscard]] FileStore& Store() const { return *m_store; }

private:
    void Look() const;
    void MakeFolders() const;
    void OpenDatabase(int busyTimeoutMs);
    void CleanUp();

    QString m_root;
    const qint64 m_opening; ///< differs from those of other programs
    std::function<qint64()> m_now = SystemSeconds;
    Told m_told;
    QStringList m_untold;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<FileStore> m_store;
};

} // namespace site
