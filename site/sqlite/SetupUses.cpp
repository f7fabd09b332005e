#include "site/sqlite/SetupUses.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/SetupTables.h"

#include <QStringList>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// Counts kinds of users one after the other and says those that there are.
class UseCount final {
public:
    explicit UseCount(Database& database) : m_database(database) {}

    /// @param words  with %1 where the count goes
    UseCount& Add(const QString& words, const QString& sql, const QVariantList& values) {
        const qint64 count = m_database.Value(sql, values).toLongLong();
        if (count > 0) {
            m_parts << words.arg(count);
        }
        return *this;
    }

    /// Entries of the bin in whose rows one of the columns has the value.
    UseCount& AddBin(const QStringList& columns, const QVariant& value) {
        QStringList conditions;
        QVariantList values;
        for (const QString& column : columns) {
            conditions << u"json_extract(r.value, '$.%1') = ?"_s.arg(column);
            values << value;
        }
        return Add(u"回收站 %1 项"_s,
                   u"SELECT count(*) FROM bin b WHERE CASE WHEN json_valid(b.content) THEN EXISTS"
                   " (SELECT 1 FROM json_each(b.content) s, json_each(json_extract(s.value,"
                   " '$.rows')) r WHERE %1) END"_s.arg(conditions.join(u" OR "_s)),
                   values);
    }

    [[nodiscard]] QString Text() const { return m_parts.join(u"、"_s); }

private:
    Database& m_database;
    QStringList m_parts;
};

const QString kPhotos = u"照片 %1 张"_s;
const QString kPdfPhotos = u"图纸照片 %1 张"_s;
const QString kIssueCount = u"问题 %1 个"_s;
const QString kRecords = u"富文本记录 %1 条"_s;

} // namespace

QString UsesOfProject(Database& database, qint32 ppid) {
    return UseCount(database)
        .Add(kPhotos, u"SELECT sum(n) FROM bim_tally WHERE ppid = ?"_s, {ppid})
        .Add(kPdfPhotos, u"SELECT sum(n) FROM pdf_tally WHERE ppid = ?"_s, {ppid})
        .Add(kIssueCount, u"SELECT sum(n) FROM issue_tally WHERE ppid = ?"_s, {ppid})
        .Add(u"图纸 %1 张"_s, u"SELECT count(*) FROM drawing WHERE ppid = ?"_s, {ppid})
        .Add(kRecords, u"SELECT count(*) FROM rich_text WHERE ppid = ?"_s, {ppid})
        .Add(u"回收站 %1 项"_s, u"SELECT count(*) FROM bin WHERE ppid = ?"_s, {ppid})
        .Text();
}

QString UsesOfPerson(Database& database, qint32 id) {
    const QString name = database.Value(u"SELECT name FROM person WHERE id = ?"_s, {id}).toString();
    return UseCount(database)
        .Add(kPhotos, u"SELECT count(*) FROM bim_photo WHERE uploader = ? OR updater = ?"_s,
             {name, name})
        .Add(kPdfPhotos, u"SELECT count(*) FROM pdf_photo WHERE uploader = ? OR updater = ?"_s,
             {name, name})
        .Add(kIssueCount,
             u"SELECT count(*) FROM issue i WHERE creator = ? OR updater = ? OR EXISTS (SELECT 1"
             " FROM rectification r WHERE r.issue_id = i.id AND rectifier = ?) OR EXISTS (SELECT 1"
             " FROM issue_pic p WHERE p.issue_id = i.id AND uploader = ?) OR EXISTS (SELECT 1 FROM"
             " issue_history h WHERE h.issue_id = i.id AND h.person = ?)"_s,
             {name, name, name, name, name})
        .Add(u"评论 %1 条"_s, u"SELECT count(*) FROM comment WHERE person = ?"_s, {name})
        .Add(u"富文本版本 %1 个"_s, u"SELECT count(*) FROM rich_version WHERE person = ?"_s, {name})
        .AddBin({u"uploader"_s, u"updater"_s, u"creator"_s, u"rectifier"_s, u"person"_s}, name)
        .Text();
}

QString UsesOfMark(Database& database, qint32 id) {
    return UseCount(database)
        .Add(kPhotos, u"SELECT sum(n) FROM bim_tally WHERE mark_id = ?"_s, {id})
        .Add(u"检查点 %1 个"_s, u"SELECT count(*) FROM checkpoint WHERE mark_id = ?"_s, {id})
        .Add(kIssueCount, u"SELECT sum(n) FROM issue_tally WHERE mark_id = ?"_s, {id})
        .Add(kRecords, u"SELECT count(*) FROM rich_text WHERE mark_id = ?"_s, {id})
        .AddBin({u"mark_id"_s}, id)
        .Text();
}

QString UsesOfLabel(Database& database, qint32 id) {
    return UseCount(database)
        .Add(kPhotos, u"SELECT count(*) FROM bim_label WHERE label_id = ?"_s, {id})
        .Add(u"检查点 %1 个"_s, u"SELECT count(*) FROM checkpoint_label WHERE label_id = ?"_s, {id})
        .AddBin({u"label_id"_s}, id)
        .Text();
}

QString UsesOfFloorNamed(Database& database, qint32 ppid, const QString& floor) {
    const QString key = SortKeyOfFloor(database, ppid, floor);
    return UseCount(database)
        .Add(kPhotos,
             u"SELECT count(*) FROM bim_photo WHERE ppid = ? AND floor_sort = ? AND floor = ?"_s,
             {ppid, key, floor})
        .Add(kIssueCount, u"SELECT count(*) FROM issue WHERE ppid = ? AND floor = ?"_s,
             {ppid, floor})
        .Add(u"构件 %1 个"_s, u"SELECT count(*) FROM component WHERE ppid = ? AND floor = ?"_s,
             {ppid, floor})
        .Add(kRecords,
             u"SELECT count(*) FROM rich_text WHERE ppid = ? AND position_key IN (SELECT"
             " position_key FROM position WHERE ppid = ? AND floor = ?)"_s,
             {ppid, ppid, floor})
        .Text();
}

QString UsesOfPosition(Database& database, const QString& positionKey) {
    return UseCount(database)
        .Add(kPhotos, u"SELECT count(*) FROM bim_photo WHERE position_key = ?"_s, {positionKey})
        .Add(u"构件 %1 个"_s, u"SELECT count(*) FROM component WHERE position_key = ?"_s,
             {positionKey})
        .Add(kRecords, u"SELECT count(*) FROM rich_text WHERE position_key = ?"_s, {positionKey})
        .Text();
}

} // namespace site
