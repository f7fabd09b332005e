// The records of places in the database, their files in the store.
#pragma once

#include "site/IRichTexts.h"

namespace site {

class Database;
class FileStore;
class Statement;

class RichTexts final : public IRichTexts {
public:
    RichTexts(Database& owner, FileStore& files) : m_database(owner), m_store(files) {}

    [[nodiscard]] std::optional<RichVersion> Newest(const Projects& projects,
                                                    const RichPlace& place) override;
    [[nodiscard]] std::optional<RichVersion> Save(const Projects& projects, const RichPlace& place,
                                                  const NewRichVersion& version,
                                                  const Signature& by) override;
    [[nodiscard]] std::optional<QString> Where(const Projects& projects,
                                               const RichPlace& place) override;
    [[nodiscard]] std::vector<RichEntry> List(const Projects& projects) override;
    [[nodiscard]] std::optional<std::vector<RichVersion>> Versions(const Projects& projects,
                                                                   const RichPlace& place) override;
    [[nodiscard]] std::optional<RichVersion> Version(const Projects& projects,
                                                     const RichPlace& place, int number) override;

private:
    /// A place with the project that it is of, and no more than what tells it from others; nothing
    /// for one of none of the projects.
    [[nodiscard]] std::optional<RichPlace> Known(const Projects& projects, const RichPlace& place);
    /// 0: it has no record.
    [[nodiscard]] qint64 RecordAt(const RichPlace& known);
    /// The record, made if it may be; 0: the place isn't there.
    [[nodiscard]] qint64 RecordFor(const RichPlace& known);
    [[nodiscard]] bool IsThere(const RichPlace& known);
    [[nodiscard]] RichVersion Unsaved(const RichPlace& known);
    [[nodiscard]] std::vector<RichFile> FilesOf(qint64 versionId);
    [[nodiscard]] std::vector<RichFile> NextFiles(qint64 recordId, const RichPlace& known,
                                                  const NewRichVersion& version);
    /// The file as the store has it, the record's from now on.
    [[nodiscard]] RichFile Taken(qint64 recordId, const RichPlace& known, const RichFile& added);
    [[nodiscard]] RichVersion Insert(qint64 recordId, const NewRichVersion& version,
                                     std::vector<RichFile> files, const Signature& by);
    void SetStates(const RichPlace& known, qint32 state, const QString& person);
    /// @param axes  empty where the model doesn't know the position.
    [[nodiscard]] QString WordsOf(const RichPlace& place, const QString& floor, const QString& axes,
                                  const QString& mark);

    Database& m_database;
    FileStore& m_store;
};

/// Inside of a transaction: ends the record of a checkpoint that won't come back, and gives its
/// files to the next sweep of uploads.
void EndRichText(Database& database, qint32 ppid, qint64 checkpointId);

} // namespace site
