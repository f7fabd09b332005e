// The originals of a site: files named by uuid, in two levels of folders.
#pragma once

#include "host/data/DataError.h"
#include "host/data/SiteWriter.h"

#include <QLockFile>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace host {

/// What a stored file is.
struct StoredFile {
    QString uuid;
    QString md5;
    qint64 size = 0;
};

/// Files enter in two steps: Put brings the file onto the disk and leaves a note that no row knows
/// it yet; Settle removes the note once the row is committed, Discard removes the file. Notes whose
/// process is gone tell CleanUp what a crash left behind. Operations throw DataError.
/// Thread: any for PathOf, the folder's own for the others.
class FileStore final {
public:
    /// Makes no folder until something is put.
    FileStore(QString storeFolder, QString binFolder);
    ~FileStore();

    [[nodiscard]] StoredFile Put(const FileSource& source);
    void Settle(const QString& uuid);
    void Discard(const QString& uuid);

    /// Path of a stored file. kBadName for a text that is no uuid, kMissing for a file that isn't
    /// there.
    [[nodiscard]] QString PathOf(const QString& uuid) const;
    [[nodiscard]] bool Has(const QString& uuid) const;

    /// Each does nothing if the file is already there, or nowhere.
    void MoveToBin(const QString& uuid);
    void MoveFromBin(const QString& uuid);
    void RemoveFromBin(const QString& uuid);
    [[nodiscard]] std::vector<QString> NamesInBin() const;

    /// Removes the files whose process died before their row was written; `hasRow` is asked for
    /// each.
    void CleanUp(const std::function<bool(const QString&)>& hasRow);

private:
    [[nodiscard]] QString PlaceOf(const QString& uuid) const;
    [[nodiscard]] QString BinPlaceOf(const QString& uuid) const;
    [[nodiscard]] QString NotePath(const QString& uuid) const;
    void TakeNotesFolder();
    void CleanNotes(const QString& folder, const std::function<bool(const QString&)>& hasRow);

    QString store;
    QString bin;
    QString notes; ///< of this process; empty until the first Put
    std::unique_ptr<QLockFile> notesLock;
};

} // namespace host
