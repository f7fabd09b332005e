#include "site/sqlite/RichTexts.h"

#include "site/DataError.h"
#include "site/FileKinds.h"
#include "site/FloorOrder.h"
#include "site/RectifyStates.h"
#include "site/StoreName.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/RichTextSql.h"
#include "site/sqlite/UploadSweep.h"

#include <QStringList>

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kPageFile = 1;
constexpr qsizetype kToldCharacters = 80; ///< of a name in a sentence

/// Columns id, number, text, doc_name, state, person, at from `first` on.
RichVersion RichVersionOf(const Statement& row, int first = 0) {
    RichVersion version;
    version.number = row.Int(first + 1);
    version.text = row.Text(first + 2);
    version.docName = row.Text(first + 3);
    version.state = row.Int(first + 4);
    version.person = row.Text(first + 5);
    version.at = row.Int64(first + 6);
    return version;
}

QString VersionSql(const QString& condition) {
    return u"SELECT v.id, v.number, v.text, v.doc_name, v.state, v.person, v.at"
           " FROM rich_version v WHERE "_s +
           condition;
}

void RequirePlainName(const QString& name, const QString& what) {
    if (!IsPlainFileName(name)) {
        throw DataError(
            Fault::BadName,
            u"%1“%2”不能用作文件名（最多 255 个字符，不含 / \\ : 和控制字符），没有保存富文本。"_s
                .arg(what, name.left(kToldCharacters)));
    }
}

void RequireFewFiles(size_t count) {
    if (count > size_t(kMostRichFiles)) {
        throw DataError(
            Fault::Refused,
            u"富文本有 %1 个文件，最多 %2 个，没有保存；请先删除一些图片或附件。"_s.arg(count).arg(
                kMostRichFiles));
    }
}

/// What needs no look at the database.
void RequireGood(const NewRichVersion& version) {
    if (StateName(version.state).isEmpty()) {
        throw DataError(Fault::Refused, u"整改情况不是已有的状态，没有保存富文本。"_s,
                        QString::number(version.state));
    }
    RequireFewFiles(version.added.size());
    if (!version.docName.isEmpty()) {
        RequirePlainName(version.docName, u"文档名"_s);
    }
    for (const RichFile& file : version.added) {
        RequirePlainName(file.name, u"文件名"_s);
    }
}

QString FloorWords(const QString& floor) {
    bool isNumber = false;
    floor.toInt(&isNumber);
    if (floor.isEmpty()) {
        return u"无楼层"_s;
    }
    return isNumber ? floor + u"层"_s : floor;
}

QString CheckpointWords(const QString& drawing, int number) {
    return u"%1 检查点%2"_s.arg(drawing, QString::number(number));
}

} // namespace

std::optional<RichPlace> RichTexts::Known(const Projects& projects, const RichPlace& place) {
    RichPlace known = place;
    if (place.checkpointId != 0) {
        known = AtCheckpoint(place.checkpointId);
        known.ppid = m_database
                         .Value(u"SELECT d.ppid FROM checkpoint c JOIN drawing d"
                                " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                                {place.checkpointId})
                         .toInt();
    }
    return Has(projects, known.ppid) ? std::optional(known) : std::nullopt;
}

qint64 RichTexts::RecordAt(const RichPlace& known) {
    return m_database
        .Value(u"SELECT id FROM rich_text WHERE ppid = ? AND checkpoint_id = ? AND position_key = ?"
               " AND mark_id = ?"_s,
               {known.ppid, known.checkpointId, known.positionKey, known.markId})
        .toLongLong();
}

bool RichTexts::IsThere(const RichPlace& known) {
    const RichPhotos photos = RichPhotosOf(known);
    if (known.checkpointId != 0 ||
        m_database.Value(NewestStateSql(photos), photos.values).isValid()) {
        return true;
    }
    const bool isMark =
        known.markId == 0 ||
        m_database.Value(u"SELECT 1 FROM mark WHERE id = ?"_s, {known.markId}).isValid();
    return isMark && m_database
                         .Value(u"SELECT 1 FROM position WHERE position_key = ? AND ppid = ?"_s,
                                {known.positionKey, known.ppid})
                         .isValid();
}

qint64 RichTexts::RecordFor(const RichPlace& known) {
    const qint64 id = RecordAt(known);
    if (id != 0 || !IsThere(known)) {
        return id;
    }
    return m_database.Insert(
        u"INSERT INTO rich_text (ppid, checkpoint_id, position_key, mark_id, state, newest)"
        " VALUES (?, ?, ?, ?, ?, 0)"_s,
        {known.ppid, known.checkpointId, known.positionKey, known.markId, kStateOpen});
}

RichVersion RichTexts::Unsaved(const RichPlace& known) {
    RichVersion version;
    const RichPhotos photos = RichPhotosOf(known);
    const QVariant state = m_database.Value(NewestStateSql(photos), photos.values);
    version.state = state.isValid() ? state.toInt() : kStateOpen;
    return version;
}

std::vector<RichFile> RichTexts::FilesOf(qint64 versionId) {
    std::vector<RichFile> files;
    m_database.ForEach(
        u"SELECT name, md5, uuid, size, kind FROM rich_file WHERE version_id = ?"
        " ORDER BY place"_s,
        {versionId}, [&](const Statement& row) {
            files.push_back({row.Text(0), row.Text(1), row.Text(2), row.Int64(3), row.Int(4)});
        });
    return files;
}

std::optional<RichVersion> RichTexts::Newest(const Projects& projects, const RichPlace& place) {
    const ReadScope snapshot(m_database);
    const std::optional<RichPlace> known = Known(projects, place);
    if (!known) {
        return std::nullopt;
    }
    std::optional<RichVersion> newest;
    qint64 id = 0;
    m_database.ForEach(VersionSql(u"v.id = (SELECT newest FROM rich_text WHERE id = ?)"_s),
                       {RecordAt(*known)}, [&](const Statement& row) {
                           id = row.Int64(0);
                           newest = RichVersionOf(row);
                       });
    if (!newest) {
        return Unsaved(*known);
    }
    newest->files = FilesOf(id);
    return newest;
}

RichFile RichTexts::Taken(qint64 recordId, const RichPlace& known, const RichFile& added) {
    RichFile file = added;
    FileKind kind = FileKind::Uploaded;
    qint64 owner = 0;
    m_database.ForEach(u"SELECT md5, size, kind, owner FROM file WHERE uuid = ?"_s, {added.uuid},
                       [&](const Statement& row) {
                           file.md5 = row.Text(0);
                           file.size = row.Int64(1);
                           kind = static_cast<FileKind>(row.Int(2));
                           owner = row.Int64(3);
                       });
    const bool isOwn = kind == FileKind::RichText && owner == recordId;
    if ((!isOwn && kind != FileKind::Uploaded) || !m_store.Has(added.uuid)) {
        throw DataError(Fault::Missing, u"文件“%1”不在站点中，没有保存富文本；请重新上传。"_s.arg(
                                            added.name.left(kToldCharacters)));
    }
    if (file.size > kMostRichBytes) {
        throw DataError(Fault::Refused,
                        u"文件“%1”超过 2 GB，没有保存富文本；请换一个较小的文件。"_s.arg(
                            added.name.left(kToldCharacters)));
    }
    if (!isOwn) {
        m_database.Exec(u"UPDATE file SET kind = ?, ppid = ?, owner = ? WHERE uuid = ?"_s,
                        {static_cast<int>(FileKind::RichText), known.ppid, recordId, added.uuid});
        m_database.Exec(u"DELETE FROM upload WHERE uuid = ?"_s, {added.uuid});
    }
    return file;
}

std::vector<RichFile> RichTexts::NextFiles(qint64 recordId, const RichPlace& known,
                                           const NewRichVersion& version) {
    std::vector<RichFile> files;
    if (!version.base.isEmpty()) {
        const QVariant base =
            m_database.Value(u"SELECT id FROM rich_version WHERE text = ? AND rich_id = ?"_s,
                             {version.base, recordId});
        if (!base.isValid()) {
            throw DataError(Fault::Refused, u"富文本所依据的版本不属于这个位置，没有保存；"
                                            "请重新打开后再编辑。"_s);
        }
        files = FilesOf(base.toLongLong());
    }
    const auto remove = [&](const QString& uuid) {
        std::erase_if(files, [&](const RichFile& file) { return file.uuid == uuid; });
    };
    std::for_each(version.removed.begin(), version.removed.end(), remove);
    for (const RichFile& added : version.added) {
        remove(added.uuid);
        files.push_back(Taken(recordId, known, added));
    }
    RequireFewFiles(files.size());
    return files;
}

RichVersion RichTexts::Insert(qint64 recordId, const NewRichVersion& version,
                              std::vector<RichFile> files, const Signature& by) {
    RichVersion made;
    made.number = 1 + m_database
                          .Value(u"SELECT coalesce(max(number), 0) FROM rich_version"
                                 " WHERE rich_id = ?"_s,
                                 {recordId})
                          .toInt();
    // Not the row's number: a data folder that came back from a backup would give it again.
    made.text = NewStoreName();
    // Who sets a state alone sends the name of a document that was never written. An editor would
    // look for its page.
    const bool hasPage = std::any_of(files.begin(), files.end(),
                                     [](const RichFile& file) { return file.kind == kPageFile; });
    made.docName = hasPage ? version.docName : QString();
    if (hasPage && version.docName.isEmpty()) {
        throw DataError(Fault::Refused, u"富文本没有文档名，没有保存；请重新打开后再编辑。"_s);
    }
    made.state = version.state;
    made.person = by.person;
    made.at = by.at;
    made.files = std::move(files);
    const qint64 id = m_database.Insert(
        u"INSERT INTO rich_version (rich_id, number, text, doc_name, state, person, at)"
        " VALUES (?, ?, ?, ?, ?, ?, ?)"_s,
        {recordId, made.number, made.text, made.docName, made.state, made.person, made.at});
    int place = 0;
    for (const RichFile& file : made.files) {
        m_database.Exec(u"INSERT INTO rich_file (version_id, place, name, md5, uuid, size, kind)"
                        " VALUES (?, ?, ?, ?, ?, ?, ?)"_s,
                        {id, place++, file.name, file.md5, file.uuid, file.size, file.kind});
    }
    m_database.Exec(u"UPDATE rich_text SET newest = ?, state = ? WHERE id = ?"_s,
                    {id, made.state, recordId});
    return made;
}

void RichTexts::SetStates(const RichPlace& known, qint32 state, const QString& person) {
    const RichPhotos photos = RichPhotosOf(known);
    m_database.ForEach(OtherStatesSql(photos), photos.values + QVariantList{state},
                       [&](const Statement& row) {
                           m_database.Log().Note(photos.kind, known.ppid, row.Int64(0), person);
                       });
    m_database.Exec(SetStatesSql(photos),
                    QVariantList{state} + photos.values + QVariantList{state});
}

std::optional<RichVersion> RichTexts::Save(const Projects& projects, const RichPlace& place,
                                           const NewRichVersion& version, const Signature& by) {
    RequireGood(version);
    Transaction transaction(m_database);
    const std::optional<RichPlace> known = Known(projects, place);
    const qint64 recordId = known ? RecordFor(*known) : 0;
    if (recordId == 0) {
        return std::nullopt;
    }
    const RichVersion made = Insert(recordId, version, NextFiles(recordId, *known, version), by);
    SetStates(*known, version.state, by.person);
    m_database.Log().Note(ChangeKind::RichText, known->ppid, recordId, by.person);
    transaction.Commit();
    return made;
}

QString RichTexts::WordsOf(const RichPlace& place, const QString& modelFloor,
                           const QString& modelAxes, const QString& mark) {
    QString floor = modelFloor;
    QString axes = modelAxes;
    if (floor.isEmpty() && !place.positionKey.isEmpty()) {
        // The model has the position no longer; its photos still say where they are.
        m_database.ForEach(
            u"SELECT floor, pos_text FROM bim_photo WHERE position_key = ? LIMIT 1"_s,
            {place.positionKey}, [&](const Statement& photo) {
                floor = photo.Text(0);
                axes = photo.Text(1);
            });
    }
    QStringList words{FloorWords(floor)};
    for (const QString& word : {axes, mark}) {
        if (!word.isEmpty()) {
            words << word;
        }
    }
    return words.join(u' ');
}

std::optional<QString> RichTexts::Where(const Projects& projects, const RichPlace& place) {
    const ReadScope snapshot(m_database);
    const std::optional<RichPlace> known = Known(projects, place);
    if (!known) {
        return std::nullopt;
    }
    QString floor;
    QString axes;
    QString point;
    m_database.ForEach(u"SELECT d.name, c.number FROM checkpoint c JOIN drawing d"
                       " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                       {known->checkpointId}, [&](const Statement& row) {
                           point = CheckpointWords(row.Text(0), row.Int(1));
                       });
    if (!point.isEmpty()) {
        return point;
    }
    m_database.ForEach(
        u"SELECT floor, axis_x, axis_y FROM position WHERE position_key = ? AND ppid = ?"_s,
        {known->positionKey, known->ppid}, [&](const Statement& row) {
            floor = row.Text(0);
            axes = PositionText(row.Text(1), row.Text(2));
        });
    const QString mark =
        m_database.Value(u"SELECT name FROM mark WHERE id = ?"_s, {known->markId}).toString();
    return WordsOf(*known, floor, axes, mark);
}

std::vector<RichEntry> RichTexts::List(const Projects& projects) {
    std::vector<RichEntry> entries;
    const ReadScope snapshot(m_database);
    const QVariantList ppids(projects.begin(), projects.end());
    m_database.ForEach(RichListSql(ppids.size()), ppids, [&](const Statement& row) {
        const RichPlace place{row.Int(1), row.Text(2), row.Int(3), row.Int(4)};
        const QString where = place.checkpointId != 0
                                  ? CheckpointWords(row.Text(16), row.Int(17))
                                  : WordsOf(place, row.Text(12),
                                            PositionText(row.Text(13), row.Text(14)), row.Text(15));
        entries.push_back({row.Int64(0), place, where, RichVersionOf(row, 5)});
    });
    return entries;
}

std::optional<std::vector<RichVersion>> RichTexts::Versions(const Projects& projects,
                                                            const RichPlace& place) {
    const ReadScope snapshot(m_database);
    const std::optional<RichPlace> known = Known(projects, place);
    if (!known) {
        return std::nullopt;
    }
    std::vector<RichVersion> versions;
    m_database.ForEach(VersionSql(u"v.rich_id = ? ORDER BY v.number DESC"_s), {RecordAt(*known)},
                       [&](const Statement& row) { versions.push_back(RichVersionOf(row)); });
    return versions;
}

std::optional<RichVersion> RichTexts::Version(const Projects& projects, const RichPlace& place,
                                              int number) {
    const ReadScope snapshot(m_database);
    const std::optional<RichPlace> known = Known(projects, place);
    std::optional<RichVersion> version;
    qint64 id = 0;
    m_database.ForEach(VersionSql(u"v.rich_id = ? AND v.number = ?"_s),
                       {known ? RecordAt(*known) : 0, number}, [&](const Statement& row) {
                           id = row.Int64(0);
                           version = RichVersionOf(row);
                       });
    if (version) {
        version->files = FilesOf(id);
    }
    return version;
}

void EndRichText(Database& database, qint32 ppid, qint64 checkpointId) {
    const qint64 recordId =
        database
            .Value(u"SELECT id FROM rich_text WHERE ppid = ? AND checkpoint_id = ?"_s,
                   {ppid, checkpointId})
            .toLongLong();
    std::vector<QString> uuids;
    database.ForEach(RichUuidsSql(), {recordId},
                     [&](const Statement& row) { uuids.push_back(row.Text(0)); });
    for (const QString& uuid : uuids) {
        database.Exec(u"UPDATE file SET kind = ?, ppid = 0, owner = 0 WHERE uuid = ?"_s,
                      {static_cast<int>(FileKind::Uploaded), uuid});
        database.Exec(u"INSERT INTO upload (uuid, at) VALUES (?, ?) ON CONFLICT DO NOTHING"_s,
                      {uuid, kEnded});
    }
    database.Exec(u"DELETE FROM rich_text WHERE id = ?"_s, {recordId});
}

} // namespace site
