// The originals of a site: files named by uuid, in two levels of folders.
#pragma once

#include "site/DataError.h"
#include "site/NewRecords.h"

#include <QLockFile>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace site {

class SetAside;

/// What a stored file is.
struct StoredFile {
    QString uuid;
    QString md5;
    qint64 size = 0;
};

/// Files enter in two steps: Put brings the file onto the disk and leaves a note that no row knows
/// it yet; Settle removes the note once the row is committed and on the disk, Discard removes the
/// file. Notes whose process is gone tell CleanUp what a crash left behind. Operations throw
/// DataError. No link below the store is followed when something is made, moved or removed.
/// Thread: any for PathOf, the folder's own for the others.
class FileStore final {
public:
    /// Makes no folder until something is put.
    FileStore(QString storeFolder, QString binFolder);
    ~FileStore();

    /// Told the bytes so far after each block; what it throws ends the putting.
    using OnBlock = std::function<void(qint64)>;
    /// Missing for a path at which nothing is, Refused for one that can't be read, with nothing
    /// put.
    [[nodiscard]] StoredFile Put(const FileSource& source, const OnBlock& onBlock = {});
    void Settle(const QString& uuid);
    void Discard(const QString& uuid);
    /// For good, a file that no record has.
    void Remove(const QString& uuid);

    /// Path of a stored file. BadName for a text that is no uuid, Missing for a file that isn't
    /// there.
    [[nodiscard]] QString PathOf(const QString& uuid) const;
    [[nodiscard]] bool Has(const QString& uuid) const;

    /// Each does nothing if the file is already there, or nowhere. What can't be moved stays, is
    /// told, and is tried again when the folder is opened; they throw nothing, for the rows are
    /// committed.
    void MoveToBin(const QString& uuid);
    void MoveFromBin(const QString& uuid);
    void RemoveFromBin(const QString& uuid);
    /// Everything in the bin's folder save hidden files, whoever put it there.
    [[nodiscard]] std::vector<QString> NamesInBin() const;

    /// Removes the files whose process died before their row was written; `hasRow` is asked for
    /// each. What is no note goes to `aside`.
    void CleanUp(const std::function<bool(const QString&)>& hasRow, SetAside& aside);

    /// Is told, in Chinese, of files that are not where their rows say. Thread: the folder's own.
    void SetTold(std::function<void(const QString&)> listener) { m_told = std::move(listener); }

private:
    void Move(const QString& uuid, const QString& from, const QString& to);
    void Tell(const QString& text) const;
    void RemoveStored(const QString& uuid);
    [[nodiscard]] QString PlaceOf(const QString& uuid) const;
    [[nodiscard]] QString BinPlaceOf(const QString& uuid) const;
    [[nodiscard]] QString NotePath(const QString& uuid) const;
    void TakeNotesFolder();
    void CleanNotes(const QString& name, const std::function<bool(const QString&)>& hasRow,
                    SetAside& aside);

    QString m_store;
    QString m_bin;
    QString m_notes; ///< of this process; empty until the first Put
    std::unique_ptr<QLockFile> m_notesLock;
    std::function<void(const QString&)> m_told;
};

} // namespace site
