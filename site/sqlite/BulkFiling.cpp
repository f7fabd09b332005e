#include "site/sqlite/BulkFiling.h"

#include "site/DataError.h"
#include "site/FloorOrder.h"
#include "site/LastChange.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/IssueLog.h"
#include "site/sqlite/ListShape.h"
#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SetupTables.h"

#include <algorithm>
#include <map>

namespace site {

using namespace Qt::StringLiterals;

namespace {

QString AuthorColumn(ListKind kind) {
    return kind == ListKind::Issues ? u"creator"_s : u"uploader"_s;
}

QString CreatedColumn(ListKind kind) {
    return kind == ListKind::Issues ? u"created"_s : u"uploaded"_s;
}

ChangeKind BulkChangeKind(ListKind kind) {
    switch (kind) {
    case ListKind::PdfPhotos:
        return ChangeKind::PdfPhoto;
    case ListKind::Issues:
        return ChangeKind::Issue;
    case ListKind::BimPhotos:
        break;
    }
    return ChangeKind::BimPhoto;
}

QString PresentSql(ListKind kind) {
    const QString own =
        kind == ListKind::BimPhotos
            ? u"name, position_key, floor, axis_x, axis_y"_s
            : (kind == ListKind::Issues ? u"theme"_s : u"name"_s) + u", '', '', '', ''"_s;
    return u"SELECT ppid, %1, mark_id, status, updater, updated, revision FROM %2 WHERE id = ?"_s
        .arg(own, ShapeOf(kind).table);
}

/// Whether they differ in what a person sees of them; their states and updaters don't count.
bool IsSame(const BulkChange& one, const BulkChange& other) {
    return one.positionKey == other.positionKey && one.floor == other.floor &&
           one.axisX == other.axisX && one.axisY == other.axisY && one.markId == other.markId &&
           one.status == other.status && one.labelIds == other.labelIds;
}

QString ShownWord(qint32 status) {
    return status == 0 ? u"显示"_s : u"隐藏"_s;
}

/// Both ascending, as all lists of labels here.
std::vector<qint32> Joined(const std::vector<qint32>& one, std::vector<qint32> other) {
    std::sort(other.begin(), other.end());
    std::vector<qint32> all;
    std::set_union(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(all));
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

} // namespace

struct BulkFiling::Place {
    qint32 ppid = 0;
    QString floor;
    QString axisX;
    QString axisY;
};

std::optional<BulkFiling::Place> BulkFiling::PlaceOf(const QString& positionKey) {
    std::optional<Place> place;
    m_database.ForEach(u"SELECT ppid, floor, axis_x, axis_y FROM position WHERE position_key = ?"_s,
                       {positionKey}, [&](const Statement& row) {
                           place = Place{row.Int(0), row.Text(1), row.Text(2), row.Text(3)};
                       });
    return place;
}

void BulkFiling::NamePlace(BulkChange& photo) {
    if (photo.kind != ListKind::BimPhotos || photo.positionKey.isEmpty()) {
        return;
    }
    if (const std::optional<Place> place = PlaceOf(photo.positionKey)) {
        photo.floor = place->floor;
        photo.axisX = place->axisX;
        photo.axisY = place->axisY;
    }
}

std::vector<qint32> BulkFiling::LabelsOf(qint64 photoId) {
    std::vector<qint32> labels;
    m_database.ForEach(u"SELECT label_id FROM bim_label WHERE photo_id = ? ORDER BY label_id"_s,
                       {photoId}, [&](const Statement& row) { labels.push_back(row.Int(0)); });
    return labels;
}

std::optional<BulkChange> BulkFiling::Present(ListKind kind, qint64 id) {
    std::optional<BulkChange> present;
    m_database.ForEach(PresentSql(kind), {id}, [&](const Statement& row) {
        present = BulkChange{kind,         row.Int(0),
                             id,           row.Text(1),
                             row.Text(2),  row.Text(3),
                             row.Text(4),  row.Text(5),
                             row.Int(6),   row.Int(7),
                             {},           row.Text(8),
                             row.Int64(9), Revision{row.Int64(10)}};
    });
    if (present && kind == ListKind::BimPhotos) {
        present->labelIds = LabelsOf(id);
    }
    return present;
}

void BulkFiling::RequireKnown(const BulkWish& wish) {
    const auto require = [&](const QString& sql, const QVariant& value, const QString& text) {
        if (!m_database.Value(sql, {value}).isValid()) {
            throw DataError(Fault::Missing, text);
        }
    };
    if (wish.positionKey && !wish.positionKey->isEmpty()) {
        require(u"SELECT 1 FROM position WHERE position_key = ?"_s, *wish.positionKey,
                u"所选的位置已不在模型中，请重新选择楼层和轴线。"_s);
    }
    if (wish.markId && *wish.markId != 0) {
        require(u"SELECT 1 FROM mark WHERE id = ?"_s, *wish.markId,
                u"所选的标识已被删除，请重新选择标识。"_s);
    }
    for (const qint32 label : wish.labelIds) {
        require(u"SELECT 1 FROM label WHERE id = ?"_s, label,
                u"所选的标签已被删除，请重新选择标签。"_s);
    }
}

void BulkFiling::WriteLabels(const BulkChange& photo) {
    m_database.Exec(u"DELETE FROM bim_label WHERE photo_id = ?"_s, {photo.id});
    for (const qint32 label : photo.labelIds) {
        // One that was removed meanwhile can't be taken back.
        m_database.Exec(u"INSERT INTO bim_label (label_id, ppid, photo_id) SELECT id, ?, ? FROM"
                        " label WHERE id = ?"_s,
                        {photo.ppid, photo.id, label});
    }
}

void BulkFiling::LookForOtherWords(ListKind kind, const std::vector<qint64>& ids) {
    m_otherWords = RowsWithOtherWords(m_database, kind, ids);
}

void BulkFiling::LookForOtherWords(const std::vector<BulkChange>& changes) {
    std::map<ListKind, std::vector<qint64>> ids;
    for (const BulkChange& change : changes) {
        ids[change.kind].push_back(change.id);
    }
    m_otherWords.clear();
    for (const auto& [kind, ofKind] : ids) {
        // An id that two kinds have is looked at once more than it need be.
        m_otherWords.merge(RowsWithOtherWords(m_database, kind, ofKind));
    }
}

bool BulkFiling::Write(const BulkChange& before, const BulkChange& after) {
    if (IsSame(before, after)) {
        return false;
    }
    const QString table = ShapeOf(after.kind).table;
    if (m_otherWords.contains(after.id)) {
        RemoveSearchRowForEdit(m_database, after.kind, after.id);
    } else {
        RemoveSearchRow(m_database, after.kind, after.id);
    }
    if (after.kind == ListKind::BimPhotos) {
        // In one statement: a photo takes the state of the place where it comes to, and of none on
        // the way.
        m_database.Exec(
            u"UPDATE bim_photo SET position_key = ?, floor = ?, floor_sort = ?, axis_x = ?,"
            " axis_y = ?, pos_text = ?, mark_id = ?, status = ? WHERE id = ?"_s,
            {after.positionKey, after.floor, SortKeyOfFloor(m_database, after.ppid, after.floor),
             after.axisX, after.axisY, PositionText(after.axisX, after.axisY), after.markId,
             after.status, after.id});
        if (before.labelIds != after.labelIds) {
            WriteLabels(after);
        }
    } else if (after.kind == ListKind::Issues) {
        m_database.Exec(u"UPDATE issue SET mark_id = ?, status = ? WHERE id = ?"_s,
                        {after.markId, after.status, after.id});
    } else {
        m_database.Exec(u"UPDATE pdf_photo SET status = ? WHERE id = ?"_s,
                        {after.status, after.id});
    }
    m_database.Exec(u"UPDATE %1 SET updater = ?, updated = ?, modifier = CASE WHEN ? = '' THEN %2"
                    " ELSE ? END, modified = CASE WHEN ? > 0 THEN ? ELSE %3 END WHERE id = ?"_s.arg(
                        table, AuthorColumn(after.kind), CreatedColumn(after.kind)),
                    {after.updater, after.updateTime, after.updater, after.updater,
                     after.updateTime, after.updateTime, after.id});
    AddSearchRow(m_database, after.kind, after.id);
    return true;
}

void BulkFiling::NoteIssue(const BulkChange& before, const BulkChange& after, const Signature& by) {
    if (after.kind != ListKind::Issues) {
        return;
    }
    const auto nameOf = [&](qint32 markId) {
        const QString name =
            m_database.Value(u"SELECT name FROM mark WHERE id = ?"_s, {markId}).toString();
        return name.isEmpty() ? QString::number(markId) : name;
    };
    if (before.markId != after.markId) {
        NoteDeed(m_database, after.id, by,
                 {0, {}, IssueDeed::Mark, nameOf(before.markId), nameOf(after.markId), 0});
    }
    NoteDeed(m_database, after.id, by,
             {0, {}, IssueDeed::Status, ShownWord(before.status), ShownWord(after.status), 0});
}

void BulkFiling::FileOne(ListKind kind, qint64 id, const Projects& projects, const Signature& by,
                         const std::function<QString(BulkChange&)>& want, BulkOutcome& outcome) {
    const std::optional<BulkChange> before = Present(kind, id);
    if (!before || !Has(projects, before->ppid)) {
        outcome.skipped.push_back({QString::number(id), u"已被删除"_s});
        return;
    }
    BulkChange after = *before;
    after.updater = by.person;
    after.updateTime = by.at;
    const QString whyNot = want(after);
    if (!whyNot.isEmpty()) {
        outcome.skipped.push_back({before->name, whyNot});
        return;
    }
    if (!Write(*before, after)) {
        ++outcome.unchanged;
        return;
    }
    NoteIssue(*before, after, by);
    m_database.Log().Note(BulkChangeKind(kind), before->ppid, id, by.person);
    outcome.changed.push_back(*before);
    outcome.changed.back().after = Present(kind, id)->after;
}

BulkOutcome BulkFiling::FileBimPhotos(const Projects& projects, const std::vector<qint32>& picIds,
                                      const BulkWish& wish, const Signature& by) {
    BulkOutcome outcome;
    Transaction transaction(m_database);
    RequireKnown(wish);
    const Place place = wish.positionKey ? PlaceOf(*wish.positionKey).value_or(Place{}) : Place{};
    const auto want = [&](BulkChange& photo) -> QString {
        if (wish.positionKey) {
            if (place.ppid != 0 && place.ppid != photo.ppid) {
                return u"属于另一个工程，那里没有所选的位置"_s;
            }
            photo.positionKey = *wish.positionKey;
            photo.floor = place.floor;
            photo.axisX = place.axisX;
            photo.axisY = place.axisY;
        }
        photo.markId = wish.markId.value_or(photo.markId);
        photo.status = wish.status.value_or(photo.status);
        if (wish.replaceLabels || !wish.labelIds.empty()) {
            photo.labelIds =
                Joined(wish.replaceLabels ? std::vector<qint32>() : photo.labelIds, wish.labelIds);
        }
        return {};
    };
    LookForOtherWords(ListKind::BimPhotos, {picIds.begin(), picIds.end()});
    for (const qint32 picId : picIds) {
        FileOne(ListKind::BimPhotos, picId, projects, by, want, outcome);
    }
    transaction.Commit();
    return outcome;
}

BulkOutcome BulkFiling::FilePdfPhotos(const Projects& projects, const std::vector<qint32>& picIds,
                                      const BulkWish& wish, const Signature& by) {
    BulkOutcome outcome;
    Transaction transaction(m_database);
    const auto want = [&](BulkChange& photo) {
        photo.status = wish.status.value_or(photo.status);
        return QString();
    };
    LookForOtherWords(ListKind::PdfPhotos, {picIds.begin(), picIds.end()});
    for (const qint32 picId : picIds) {
        FileOne(ListKind::PdfPhotos, picId, projects, by, want, outcome);
    }
    transaction.Commit();
    return outcome;
}

BulkOutcome BulkFiling::FileIssues(const Projects& projects,
                                   const std::vector<QString>& questionIds, const BulkWish& wish,
                                   const Signature& by) {
    BulkOutcome outcome;
    Transaction transaction(m_database);
    RequireKnown(wish);
    const auto want = [&](BulkChange& issue) {
        // An issue always has a mark.
        issue.markId = wish.markId.value_or(0) > 0 ? *wish.markId : issue.markId;
        issue.status = wish.status.value_or(issue.status);
        return QString();
    };
    std::vector<qint64> ids;
    for (const QString& questionId : questionIds) {
        if (const std::optional<IssueKey> key = KeyOf(m_database, projects, questionId)) {
            ids.push_back(key->id);
        } else {
            outcome.skipped.push_back({questionId, u"已被删除"_s});
        }
    }
    LookForOtherWords(ListKind::Issues, ids);
    for (const qint64 id : ids) {
        FileOne(ListKind::Issues, id, projects, by, want, outcome);
    }
    transaction.Commit();
    return outcome;
}

BulkOutcome BulkFiling::TakeBack(const std::vector<BulkChange>& changes, const Signature& by) {
    BulkOutcome outcome;
    Transaction transaction(m_database);
    LookForOtherWords(changes);
    for (BulkChange change : changes) {
        NamePlace(change);
        const std::optional<BulkChange> present = Present(change.kind, change.id);
        if (!present || present->ppid != change.ppid) {
            outcome.skipped.push_back({change.name, u"已被删除"_s});
        } else if (present->after != change.after) {
            outcome.skipped.push_back({change.name, u"之后又被修改过"_s});
        } else if (Write(*present, change)) {
            NoteIssue(*present, change, by);
            m_database.Log().Note(BulkChangeKind(change.kind), change.ppid, change.id, by.person);
            outcome.changed.push_back(*present);
            outcome.changed.back().after = Present(change.kind, change.id)->after;
        }
    }
    transaction.Commit();
    return outcome;
}

} // namespace site
