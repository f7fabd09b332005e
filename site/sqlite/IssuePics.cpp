#include "site/sqlite/IssuePics.h"

#include "site/DataError.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/Drawings.h"
#include "site/sqlite/IssueEdits.h"
#include "site/sqlite/IssueLog.h"

#include <map>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString& NamesBetween() {
    static const QString mark = u"、"_s;
    return mark;
}

} // namespace

std::optional<IssuePics::Pic> IssuePics::Find(const QString& picId) {
    std::optional<Pic> found;
    m_database.ForEach(
        u"SELECT p.id, p.issue_id, i.ppid, p.rectification, p.name FROM issue_pic p"
        " JOIN issue i ON i.id = p.issue_id WHERE p.pic_id = ?"_s,
        {picId}, [&](const Statement& read) {
            found = Pic{read.Int64(0), read.Int64(1), read.Int(2), read.Int(3) != 0, read.Text(4)};
        });
    return found;
}

bool IssuePics::DeletePics(const Projects& projects, const std::vector<QString>& picIds,
                           const Signature& by, std::vector<BinEntry>* made) {
    BinTaken taken;
    Transaction transaction(m_database);
    const bool good =
        Remove(projects, picIds, by, taken, [](const Pic& pic) { return !pic.rectification; });
    if (good) {
        transaction.Commit();
        m_bin.Finish(taken, made);
    }
    return good;
}

bool IssuePics::DeleteRectifyPics(const Projects& projects, const QString& questionId,
                                  const std::vector<QString>& picIds, const Signature& by,
                                  std::vector<BinEntry>* made) {
    BinTaken taken;
    Transaction transaction(m_database);
    const std::optional<IssueKey> key = KeyOf(m_database, projects, questionId);
    const bool good = key && Remove(projects, picIds, by, taken, [&](const Pic& pic) {
                          return pic.rectification && pic.issueId == key->id;
                      });
    if (good) {
        SignRectification(m_database, key->id, by);
        transaction.Commit();
        m_bin.Finish(taken, made);
    }
    return good;
}

bool IssuePics::Remove(const Projects& projects, const std::vector<QString>& picIds,
                       const Signature& by, BinTaken& taken,
                       const std::function<bool(const Pic&)>& mayGo) {
    std::vector<Pic> gone;
    for (const QString& picId : picIds) {
        const std::optional<Pic> pic = Find(picId);
        if (!pic || !mayGo(*pic) || !m_bin.Take(BinKind::IssuePic, pic->id, projects, by, taken)) {
            return false;
        }
        gone.push_back(*pic);
    }
    NoteRemoved(gone, by);
    return true;
}

void IssuePics::NoteRemoved(const std::vector<Pic>& pics, const Signature& by) {
    std::map<qint64, IssueChange> lines;
    std::map<qint64, qint32> ppids;
    for (const Pic& pic : pics) {
        IssueChange& line = lines[pic.issueId];
        line.deed = pic.rectification ? IssueDeed::RectifyPicsRemoved : IssueDeed::PicsRemoved;
        line.oldText += (line.count++ == 0 ? QString() : NamesBetween()) + pic.name;
        ppids[pic.issueId] = pic.ppid;
    }
    for (const auto& [issueId, line] : lines) {
        const IssueKey key{issueId, ppids[issueId]};
        BeginIssueEdit(m_database, key);
        NoteDeed(m_database, issueId, by, line);
        EndIssueEdit(m_database, key, by);
    }
}

bool IssuePics::AddRectifyPics(const Projects& projects, const QString& questionId,
                               const std::vector<KX_DATA::QuestionPicRecord>& pics,
                               const Signature& by) {
    Transaction transaction(m_database);
    const std::optional<IssueKey> key = KeyOf(m_database, projects, questionId);
    if (!key) {
        return false;
    }
    IssueChange line;
    line.deed = IssueDeed::RectifyPicsAdded;
    for (const KX_DATA::QuestionPicRecord& pic : pics) {
        AddOne(*key, pic, by);
        line.newText += (line.count++ == 0 ? QString() : NamesBetween()) + pic.fileName;
    }
    if (line.count > 0) {
        BeginIssueEdit(m_database, *key);
        SignRectification(m_database, key->id, by);
        NoteDeed(m_database, key->id, by, line);
        EndIssueEdit(m_database, *key, by);
    }
    transaction.Commit();
    return true;
}

void IssuePics::AddOne(const IssueKey& issue, const KX_DATA::QuestionPicRecord& pic,
                       const Signature& by) {
    const bool isKnown =
        m_database.Value(u"SELECT 1 FROM issue_pic WHERE pic_id = ?"_s, {pic.picId}).isValid();
    if (pic.picId.isEmpty() || isKnown) {
        throw DataError(Fault::Refused, u"图片“%1”没有自己的编号，没有添加图片；请重新上传。"_s.arg(
                                            pic.fileName.left(80)));
    }
    m_database.Insert(u"INSERT INTO issue_pic (id, pic_id, issue_id, rectification, name, uploader,"
                      " uploaded, file_uuid, thumb_uuid) VALUES (?, ?, ?, 1, ?, ?, ?, ?, ?)"_s,
                      {NextIdOf(m_database, u"issue_pic"_s), pic.picId, issue.id, pic.fileName,
                       pic.uploaderName.isEmpty() ? by.person : pic.uploaderName,
                       pic.uploadTime > 0 ? pic.uploadTime : by.at, pic.fileUuid, pic.thumbUuid});
    const bool isOneFile = pic.thumbUuid == pic.fileUuid && pic.thumbMd5 == pic.fileMd5;
    if (!TakeUpload(issue, pic.fileUuid, pic.fileMd5, FileKind::IssuePic) ||
        (!isOneFile && !TakeUpload(issue, pic.thumbUuid, pic.thumbMd5, FileKind::Thumb))) {
        throw DataError(
            Fault::Missing,
            u"图片“%1”的文件不在站点中，没有添加图片；请重新上传。"_s.arg(pic.fileName.left(80)));
    }
}

bool IssuePics::TakeUpload(const IssueKey& issue, const QString& uuid, const QString& md5,
                           FileKind kind) {
    const int taken = m_database.Exec(
        u"UPDATE file SET kind = ?, ppid = ?, owner = ? WHERE uuid = ? AND md5 = ? AND kind = ?"_s,
        {static_cast<int>(kind), issue.ppid, issue.id, uuid, md5.toLower(),
         static_cast<int>(FileKind::Uploaded)});
    m_database.Exec(u"DELETE FROM upload WHERE uuid = ?"_s, {uuid});
    return taken == 1 && m_store.Has(uuid);
}

} // namespace site
