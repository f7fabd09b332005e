// What users have deleted: rows and files, for 30 days.
#pragma once

#include <QJsonObject>
#include <QString>

#include <vector>

namespace site {

class Database;
class FileStore;
class SetAside;

inline constexpr qint64 kBinSeconds = 30LL * 24 * 60 * 60;

/// What an entry of the bin was; the numbers are those of the console's kinds.
enum class BinKind { kBimPhoto = 1, kPdfPhoto = 2, kIssue = 3 };

struct BinEntry {
    qint64 id = 0;
    /// May be a number that this client doesn't know.
    BinKind kind = BinKind::kBimPhoto;
    qint32 ppid = 0;
    QString title; ///< file name of a photo, theme of an issue
    QString deletedBy;
    qint64 deletedAt = 0; ///< seconds since 1970
};

/// Rows move within one transaction and their files after it; what a crash in between leaves is
/// put right by Reconcile. Operations throw DataError. Thread: the folder's own.
class Bin final {
public:
    Bin(Database& owner, FileStore& files) : database(owner), store(files) {}

    /// Unknown ids are passed over; returns how many went.
    int DeleteBimPhotos(const std::vector<qint32>& picIds, const QString& person);
    /// Only photos of the project.
    int DeletePdfPhotos(qint32 ppid, const std::vector<qint32>& picIds, const QString& person);
    int DeleteIssues(const std::vector<QString>& questionIds, const QString& person);

    /// Latest first.
    [[nodiscard]] std::vector<BinEntry> List();
    /// Brings rows, labels and files back under their old ids; ids that the bin doesn't have are
    /// passed over. All or none: an entry that can't come back is named in the fault, and stays.
    int Restore(const std::vector<qint64>& binIds);
    /// Ends them for good.
    void Purge(const std::vector<qint64>& binIds);
    void PurgeOld();
    /// Moves files to where their rows say that they are, and what no row knows to `aside`.
    void Reconcile(SetAside& aside);

private:
    bool MoveToBin(BinKind kind, qint64 objectId, const QString& person,
                   std::vector<QString>& files);
    void RestoreEntry(qint64 binId, std::vector<QString>& files);
    [[nodiscard]] std::vector<QString> BinnedInStore();
    [[nodiscard]] std::vector<QString> UnbinnedInBin();

    Database& database;
    FileStore& store;
};

} // namespace site
