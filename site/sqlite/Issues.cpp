#include "site/sqlite/Issues.h"

#include "site/IssueCode.h"
#include "site/RectifyStates.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/IdChunks.h"
#include "site/sqlite/IssueLog.h"
#include "site/sqlite/ListQuery.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kVoiceStored = 1; ///< state of a voice note that has a file

const QString& IssueRowSql() {
    static const QString sql =
        u"SELECT id, question_id, theme, description, floor, pos_info, component_name, mark_id,"
        " state, status, creator, created, updater, modified, ppid FROM issue WHERE id IN ("_s +
        IdMarks() + u")"_s;
    return sql;
}

KX_DATA::IssueRow IssueRowOf(const Statement& read) {
    KX_DATA::IssueRow row;
    row.questionId = read.Text(1);
    row.theme = read.Text(2);
    row.description = read.Text(3);
    row.floor = read.Text(4);
    row.posInfo = read.Text(5);
    row.compName = read.Text(6);
    row.markId = read.Int(7);
    row.rectifyText = StateName(read.Int(8));
    row.status = read.Int(9);
    row.creatorName = read.Text(10);
    row.createTime = read.Int64(11);
    row.updaterName = read.Text(12);
    row.updateTime = read.Int64(13);
    row.ppid = read.Int(14);
    return row;
}

void ReadVoice(const QString& uuid, Database& database, QString& voiceUuid, QString& voiceMd5,
               qint32& voiceState) {
    voiceUuid = uuid;
    voiceMd5 = database.Value(u"SELECT md5 FROM file WHERE uuid = ?"_s, {uuid}).toString();
    voiceState = uuid.isEmpty() ? 0 : kVoiceStored;
}

} // namespace

Page<KX_DATA::IssueRow> Issues::PageOf(const ListFilter& filter, const PageAsked& asked) {
    const ReadScope snapshot(m_database);
    const ListPage page = m_lists.Fetch(ListKind::Issues, filter, asked);
    return {page.total, Rows(page.ids)};
}

std::vector<KX_DATA::IssueRow> Issues::Rows(const std::vector<qint64>& ids) {
    return RowsInOrder(m_database, IssueRowSql(), ids, IssueRowOf);
}

std::optional<Revision> Issues::Detail(qint32 ppid, const QString& questionId,
                                       KX_DATA::QuestionDetail& detail) {
    const ReadScope snapshot(m_database);
    std::optional<Revision> found;
    QString voice;
    m_database.ForEach(u"SELECT component_name, created, creator, description, floor,"
                       " component_handle, mark_id, modified, updater, qr_code, theme, status,"
                       " component_sub_name, voice_uuid, revision FROM issue WHERE question_id = ?"
                       " AND ppid = ?"_s,
                       {questionId, ppid}, [&](const Statement& read) {
                           found = Revision{read.Int64(14)};
                           detail.componentName = read.Text(0);
                           detail.createTime = read.Int64(1);
                           detail.creatorName = read.Text(2);
                           detail.description = read.Text(3);
                           detail.floor = read.Text(4);
                           detail.componentHandle = read.Text(5);
                           detail.markId = read.Int(6);
                           detail.updateTime = read.Int64(7);
                           detail.updaterName = read.Text(8);
                           detail.qrCode = read.Text(9);
                           detail.questionName = read.Text(10);
                           detail.status = read.Int(11);
                           detail.componentSubName = read.Text(12);
                           voice = read.Text(13);
                       });
    if (found) {
        ReadVoice(voice, m_database, detail.voiceUuid, detail.voiceMd5, detail.voiceState);
    }
    return found;
}

bool Issues::Pics(qint32 ppid, const QString& questionId,
                  std::vector<KX_DATA::QuestionPicRecord>& pics) {
    const ReadScope snapshot(m_database);
    const QVariant issueId = m_database.Value(
        u"SELECT id FROM issue WHERE question_id = ? AND ppid = ?"_s, {questionId, ppid});
    if (!issueId.isValid()) {
        return false;
    }
    AddPics(issueId.toLongLong(), false, pics);
    return true;
}

void Issues::AddPics(qint64 issueId, bool rectification,
                     std::vector<KX_DATA::QuestionPicRecord>& pics) {
    pics.clear();
    m_database.ForEach(
        u"SELECT p.pic_id, p.name, p.uploader, p.uploaded, p.file_uuid, f.md5, f.size,"
        " p.thumb_uuid, t.md5, t.size FROM issue_pic p LEFT JOIN file f ON f.uuid = p.file_uuid"
        " LEFT JOIN file t ON t.uuid = p.thumb_uuid WHERE p.issue_id = ?"
        " AND p.rectification = ? ORDER BY p.id"_s,
        {issueId, rectification ? 1 : 0}, [&](const Statement& read) {
            KX_DATA::QuestionPicRecord pic;
            pic.picId = read.Text(0);
            pic.fileName = read.Text(1);
            pic.uploaderName = read.Text(2);
            pic.uploadTime = read.Int64(3);
            pic.fileUuid = read.Text(4);
            pic.fileMd5 = read.Text(5);
            pic.fileSize = read.Int64(6);
            pic.thumbUuid = read.Text(7);
            pic.thumbMd5 = read.Text(8);
            pic.thumbSize = read.Int64(9);
            pics.push_back(pic);
        });
}

bool Issues::Rectification(const Projects& projects, const QString& questionId,
                           KX_DATA::RectifyRecord& record) {
    const ReadScope snapshot(m_database);
    bool found = false;
    qint64 issueId = 0;
    QString voice;
    m_database.ForEach(
        u"SELECT i.id, i.state, r.text, r.rectifier, r.voice_uuid, i.ppid FROM issue i"
        " LEFT JOIN rectification r ON r.issue_id = i.id WHERE i.question_id = ?"_s,
        {questionId}, [&](const Statement& read) {
            if (!Has(projects, read.Int(5))) {
                return;
            }
            found = true;
            issueId = read.Int64(0);
            record = {};
            record.questionId = questionId;
            record.state = read.Int(1);
            record.rectifyText = read.Text(2);
            record.rectifierName = read.Text(3);
            voice = read.Text(4);
        });
    if (found) {
        AddPics(issueId, true, record.pics);
        ReadVoice(voice, m_database, record.voiceUuid, record.voiceMd5, record.voiceState);
    }
    return found;
}

std::vector<IssueChange> Issues::History(qint32 ppid, const QString& questionId) {
    const ReadScope snapshot(m_database);
    const std::optional<IssueKey> key = KeyOf(m_database, {ppid}, questionId);
    if (!key) {
        return {};
    }
    std::vector<IssueChange> lines = DeedsOf(m_database, key->id);
    m_database.ForEach(
        u"SELECT created, creator FROM issue WHERE id = ?"_s, {key->id},
        [&](const Statement& read) {
            lines.push_back({read.Int64(0), read.Text(1), IssueDeed::Raised, {}, {}, 0});
        });
    return lines;
}

std::optional<IssueRef> Issues::FindByQrCode(const Projects& projects, const QString& text) {
    const ReadScope snapshot(m_database);
    std::optional<IssueRef> found;
    // The second condition leads to the index, which has no empty codes.
    m_database.ForEach(u"SELECT ppid, question_id FROM issue WHERE qr_code = ? AND qr_code <> ''"
                       " ORDER BY id DESC"_s,
                       {text}, [&](const Statement& read) {
                           if (Has(projects, read.Int(0))) {
                               found = IssueRef{read.Int(0), read.Text(1)};
                           }
                       });
    if (found) {
        return found;
    }
    const std::optional<IssueRef> own = ReadIssueCode(text);
    return own && Has(projects, own->ppid) && KeyOf(m_database, {own->ppid}, own->questionId)
               ? own
               : std::nullopt;
}

std::vector<qint32> Issues::UsedMarks() {
    std::vector<qint32> marks;
    m_database.ForEach(u"SELECT DISTINCT t.mark_id FROM issue_tally t JOIN mark m"
                       " ON m.id = t.mark_id WHERE t.n > 0 ORDER BY t.mark_id"_s,
                       {}, [&](const Statement& read) { marks.push_back(read.Int(0)); });
    return marks;
}

} // namespace site
