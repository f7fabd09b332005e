// The bin in the database, with its files in the store.
#pragma once

#include "site/IBin.h"

#include <functional>

namespace site {

class Database;
class FileStore;
class SetAside;

/// What went into the bin in one transaction.
struct BinTaken {
    std::vector<BinEntry> entries;
    std::vector<QString> files;
};

/// Rows move within one transaction and their files after it; what a crash in between leaves is
/// put right by Reconcile.
class Bin final : public IBin {
public:
    Bin(Database& owner, FileStore& files) : m_database(owner), m_store(files) {}

    int DeleteBimPhotos(const Projects& projects, const std::vector<qint32>& picIds,
                        const Signature& by, std::vector<BinEntry>* made = nullptr) override;
    int DeletePdfPhotos(qint32 ppid, const std::vector<qint32>& picIds, const Signature& by,
                        std::vector<BinEntry>* made = nullptr) override;
    int DeleteIssues(const Projects& projects, const std::vector<QString>& questionIds,
                     const Signature& by, std::vector<BinEntry>* made = nullptr) override;
    bool DeleteCheckpoint(const Projects& projects, qint32 checkpointId, const Signature& by,
                          std::vector<BinEntry>* made = nullptr) override;
    bool DeleteDrawing(const Projects& projects, qint32 drawingId, const Signature& by,
                       std::vector<BinEntry>* made = nullptr) override;
    [[nodiscard]] std::vector<BinEntry> List() override;
    int Restore(const std::vector<qint64>& binIds,
                std::vector<qint64>* restored = nullptr) override;
    void Purge(const std::vector<qint64>& binIds) override;

    /// Inside of a transaction of the caller's, who calls Finish with what was added to `taken`
    /// once that is committed. False for what is in none of the projects.
    bool Take(BinKind kind, qint64 objectId, const Projects& projects, const Signature& by,
              BinTaken& taken);
    /// Tells `made`, see IBin.h, and moves the files.
    void Finish(const BinTaken& taken, std::vector<BinEntry>* made);

    /// What has been in it for kBinSeconds.
    void PurgeOld(qint64 now);
    /// Moves files to where their rows say that they are, and what no row knows to `aside`.
    void Reconcile(SetAside& aside);

private:
    /// Moves those whose row is one of the projects'; their ids are asked for in the transaction.
    int Delete(BinKind kind, const std::function<std::vector<qint64>()>& ids,
               const Projects& projects, const Signature& by, std::vector<BinEntry>* made);
    void RestoreEntry(qint64 binId, std::vector<QString>& files);
    /// Drawings first, then what lies on them; those that the bin has.
    [[nodiscard]] std::vector<qint64> InOrderOfRestoring(const std::vector<qint64>& binIds);
    /// Throws Refused for a checkpoint with photos and a drawing with checkpoints.
    void RequireNothingOn(BinKind kind, qint64 objectId, const QString& title);
    /// Inside of a transaction: what hangs on a checkpoint by its id alone ends too. False for an
    /// entry of another kind.
    bool EndWithCheckpoint(qint64 binId);
    void SweepEnded();
    [[nodiscard]] std::vector<QString> BinnedInStore();
    [[nodiscard]] std::vector<QString> UnbinnedInBin();

    Database& m_database;
    FileStore& m_store;
};

} // namespace site
