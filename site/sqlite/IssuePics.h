// Pictures of issues and rectifications, in the database and the bin.
#pragma once

#include "site/FileKinds.h"
#include "site/IIssues.h"

#include <functional>
#include <optional>

namespace site {

class Bin;
class Database;
class FileStore;
struct BinTaken;
struct IssueKey;

/// See IIssues.h.
class IssuePics final {
public:
    IssuePics(Database& owner, FileStore& files, Bin& taker)
        : m_database(owner), m_store(files), m_bin(taker) {}

    [[nodiscard]] bool DeletePics(const Projects& projects, const std::vector<QString>& picIds,
                                  const Signature& by, std::vector<BinEntry>* made);
    [[nodiscard]] bool AddRectifyPics(const Projects& projects, const QString& questionId,
                                      const std::vector<KX_DATA::QuestionPicRecord>& pics,
                                      const Signature& by);
    [[nodiscard]] bool DeleteRectifyPics(const Projects& projects, const QString& questionId,
                                         const std::vector<QString>& picIds, const Signature& by,
                                         std::vector<BinEntry>* made);

private:
    struct Pic {
        qint64 id = 0;
        qint64 issueId = 0;
        qint32 ppid = 0;
        bool rectification = false;
        QString name;
    };
    [[nodiscard]] std::optional<Pic> Find(const QString& picId);
    /// All or none of those that `mayGo` says yes to, inside of a transaction of the caller's, who
    /// ends it without a commit after "none".
    [[nodiscard]] bool Remove(const Projects& projects, const std::vector<QString>& picIds,
                              const Signature& by, BinTaken& taken,
                              const std::function<bool(const Pic&)>& mayGo);
    void NoteRemoved(const std::vector<Pic>& pics, const Signature& by);
    void AddOne(const IssueKey& issue, const KX_DATA::QuestionPicRecord& pic, const Signature& by);
    /// False for what isn't there, isn't that, or belongs to a record.
    [[nodiscard]] bool TakeUpload(const IssueKey& issue, const QString& uuid, const QString& md5,
                                  FileKind kind);

    Database& m_database;
    FileStore& m_store;
    Bin& m_bin;
};

} // namespace site
