// What users have deleted: rows and files, for 30 days.
#pragma once

#include "site/Records.h"

namespace site {

inline constexpr qint64 kBinSeconds = 30LL * 24 * 60 * 60;

/// What an entry of the bin was; the numbers of the first three are those of the console's kinds.
enum class BinKind {
    BimPhoto = 1,
    PdfPhoto = 2,
    Issue = 3,
    Checkpoint = 4,
    Drawing = 5,
    IssuePic = 6, ///< a picture of an issue or of its rectification
};

struct BinEntry {
    qint64 id = 0;
    /// May be a number that this client doesn't know.
    BinKind kind = BinKind::BimPhoto;
    qint32 ppid = 0;
    QString title; ///< file name of a photo or picture, theme of an issue, name of a drawing
    QString deletedBy;
    qint64 deletedAt = 0; ///< seconds since 1970
};

/// Operations throw DataError; changes are one transaction each. `made` and `restored` get the
/// entries of the bin that this very operation made or brought back, behind what they hold; null:
/// nobody asks, and as they were where it failed. Thread: the site's.
class IBin {
public:
    virtual ~IBin() = default;

    /// Ids that none of the projects has are passed over; returns how many went, here and below.
    virtual int DeleteBimPhotos(const Projects& projects, const std::vector<qint32>& picIds,
                                const Signature& by, std::vector<BinEntry>* made = nullptr) = 0;
    virtual int DeletePdfPhotos(qint32 ppid, const std::vector<qint32>& picIds, const Signature& by,
                                std::vector<BinEntry>* made = nullptr) = 0;
    virtual int DeleteIssues(const Projects& projects, const std::vector<QString>& questionIds,
                             const Signature& by, std::vector<BinEntry>* made = nullptr) = 0;

    /// With its labels, comments, note and record. Refused, with a sentence, while photos hang on
    /// it, hidden ones too. False for one of none of the projects, as below.
    virtual bool DeleteCheckpoint(const Projects& projects, qint32 checkpointId,
                                  const Signature& by, std::vector<BinEntry>* made = nullptr) = 0;
    /// Refused, with a sentence, while checkpoints lie on it.
    virtual bool DeleteDrawing(const Projects& projects, qint32 drawingId, const Signature& by,
                               std::vector<BinEntry>* made = nullptr) = 0;

    /// Of the whole site, as the two below: what was deleted comes back in whatever project it was.
    /// Latest first.
    [[nodiscard]] virtual std::vector<BinEntry> List() = 0;
    /// Brings rows, labels and files back under their old ids; ids that the bin doesn't have are
    /// passed over. What lies on another entry comes back with it, in any order. All or none: an
    /// entry that can't come back is named in the fault, and stays.
    virtual int Restore(const std::vector<qint64>& binIds,
                        std::vector<qint64>* restored = nullptr) = 0;
    /// Ends them for good.
    virtual void Purge(const std::vector<qint64>& binIds) = 0;
};

} // namespace site
